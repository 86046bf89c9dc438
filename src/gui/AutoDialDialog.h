#pragma once

#include "aledb/AutoDialEditor.h"

#include "gui/HelpButtonDialog.h"

class QComboBox;

namespace koral {

// "Automatic Dial Configuration": ten rows, each calling a directory address with a message.
// On OK the caller takes editor().database().
class AutoDialDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    AutoDialDialog(AutoDialEditor& editor, QWidget* parent = nullptr);

    QComboBox* addressList(int row) const { return m_addresses[std::size_t(row)]; }
    QComboBox* messageList(int row) const { return m_messages[std::size_t(row)]; }

private:
    AutoDialEditor& m_editor;
    std::array<QComboBox*, kAleAutoDialCount> m_addresses{};
    std::array<QComboBox*, kAleAutoDialCount> m_messages{};
};

} // namespace koral
