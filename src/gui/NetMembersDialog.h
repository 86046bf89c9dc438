#pragma once

#include "aledb/NetMembersEditor.h"

#include "gui/HelpButtonDialog.h"

#include <array>

class QComboBox;
class QLabel;

namespace koral {

// "Net Members": the 16 member slots of one net, each picked from the directory by name. On
// OK the caller takes editor().database().
class NetMembersDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    NetMembersDialog(NetMembersEditor& editor, QWidget* parent = nullptr);

    QComboBox* slotList(int slot) const { return m_slots[std::size_t(slot)]; }
    QLabel* warning() const { return m_warning; }

private:
    void showState();

    NetMembersEditor& m_editor;
    std::array<QComboBox*, kAleMemberSlots> m_slots{};
    QLabel* m_warning;
};

} // namespace koral
