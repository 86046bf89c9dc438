#pragma once

#include "aledb/MessageEditor.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace koral {

// "Message Configuration": the ten messages, one at a time. On OK the caller takes
// editor().database().
class MessageDialog : public QDialog
{
    Q_OBJECT
public:
    MessageDialog(MessageEditor& editor, QWidget* parent = nullptr);

    QSpinBox* numberSpin() const { return m_spin; }
    QLineEdit* textEdit() const { return m_edit; }
    QLabel* warning() const { return m_warning; }
    QDialogButtonBox* buttons() const { return m_buttons; }

private:
    void showState();

    MessageEditor& m_editor;
    QSpinBox* m_spin;
    QLineEdit* m_edit;
    QLabel* m_occupied;
    QLabel* m_warning;
    QDialogButtonBox* m_buttons;
};

} // namespace koral
