#pragma once

#include "aledb/MessageEditor.h"

#include "gui/HelpButtonDialog.h"

class QLabel;
class QLineEdit;
class QSpinBox;

namespace koral {

// "Message Configuration": the ten messages, one at a time. On OK the caller takes
// editor().database().
class MessageDialog : public HelpButtonDialog
{
    Q_OBJECT
public:
    MessageDialog(MessageEditor& editor, QWidget* parent = nullptr);

    QSpinBox* numberSpin() const { return m_spin; }
    QLineEdit* textEdit() const { return m_edit; }
    QLabel* warning() const { return m_warning; }

private:
    void showState();

    MessageEditor& m_editor;
    QSpinBox* m_spin;
    QLineEdit* m_edit;
    QLabel* m_occupied;
    QLabel* m_warning;
};

} // namespace koral
