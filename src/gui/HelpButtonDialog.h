#pragma once

#include <QDialog>
#include <QDialogButtonBox>


namespace koral {

// A dialog with OK, Cancel and Help. Help does not close it: it asks whoever opened the
// dialog to show the manual.
class HelpButtonDialog : public QDialog
{
    Q_OBJECT
public:
    using QDialog::QDialog;

    QDialogButtonBox* buttons() const { return m_buttons; }

signals:
    void helpRequested();

protected:
    // The OK, Cancel and Help buttons, bound to accept, reject and helpRequested; the caller
    // places them.
    QDialogButtonBox* createButtons();

private:
    QDialogButtonBox* m_buttons = nullptr;
};

} // namespace koral
