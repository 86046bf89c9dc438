#include "gui/HelpButtonDialog.h"


namespace koral {

QDialogButtonBox* HelpButtonDialog::createButtons()
{
    m_buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_buttons, &QDialogButtonBox::helpRequested, this, &HelpButtonDialog::helpRequested);
    return m_buttons;
}

} // namespace koral
