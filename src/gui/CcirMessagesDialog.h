#pragma once

#include "aledb/CcirMessagesEditor.h"

#include "gui/HelpButtonDialog.h"

#include <array>

class QLabel;
class QLineEdit;

namespace koral {

// "CCIR Messages and Settings": the two messages and the preamble, beacon and alarm of the
// CCIR database. On OK the caller takes editor().record().
class CcirMessagesDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    CcirMessagesDialog(CcirMessagesEditor& editor, QWidget* parent = nullptr);

    // number 1 or 2
    QLineEdit* messageEdit(int number) const { return m_messages.at(std::size_t(number - 1)); }
    QLineEdit* settingEdit(CcirMessagesEditor::Setting setting) const
    {
        return m_settings.at(std::size_t(setting));
    }
    QLabel* warning() const { return m_warning; }

private:
    void showState();

    CcirMessagesEditor& m_editor;
    std::array<QLineEdit*, CcirMessagesEditor::kMessageCount> m_messages{};
    std::array<QLineEdit*, CcirMessagesEditor::kSettingCount> m_settings{};
    QLabel* m_warning;
};

} // namespace koral
