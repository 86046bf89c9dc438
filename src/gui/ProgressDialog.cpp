#include "gui/ProgressDialog.h"
#include "gui/QtText.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace koral {

ProgressDialog::ProgressDialog(std::function<void()> cancel, QWidget* parent)
    : QDialog(parent), m_cancelFunction(std::move(cancel))
{
    setObjectName("progressDialog");
    setModal(true);
    m_banner = new QLabel(this);
    QFont bold = m_banner->font();
    bold.setBold(true);
    m_banner->setFont(bold);
    m_banner->hide();
    m_caption = new QLabel(this);
    m_caption->setMinimumWidth(360);
    m_bar = new QProgressBar(this);
    m_bar->setRange(0, kLastPosition);
    m_bar->setTextVisible(false);
    m_cancel = new QPushButton(tr("Cancel"), this);
    connect(m_cancel, &QPushButton::clicked, this, &ProgressDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_banner);
    layout->addWidget(m_caption);
    layout->addWidget(m_bar);
    layout->addLayout(buttons);
}

void ProgressDialog::open()
{
    m_bar->setValue(0);
    show();
    raise();
    emit opened();
}

void ProgressDialog::close()
{
    hide();
    setBanner({});
}

void ProgressDialog::setBanner(const QString& text)
{
    m_banner->setText(text);
    m_banner->setVisible(!text.isEmpty());
}

QString ProgressDialog::banner() const
{
    return m_banner->text();
}

void ProgressDialog::setTitle(std::string_view title)
{
    setWindowTitle(qs(title));
}

void ProgressDialog::setCaption(std::string_view caption)
{
    const QString text = qs(caption);
    if (text == m_caption->text())
        return;
    m_caption->setText(text);
    emit captionChanged(text);
}

void ProgressDialog::setPosition(int position)
{
    m_bar->setValue(std::min(position, kLastPosition));
}

void ProgressDialog::setCancelEnabled(bool enabled)
{
    m_cancel->setEnabled(enabled);
}

QString ProgressDialog::caption() const
{
    return m_caption->text();
}

void ProgressDialog::reject()
{
    // Escape and the close button cancel too, but only while Cancel is offered.
    if (m_cancel->isEnabled() && m_cancelFunction)
        m_cancelFunction();
}

} // namespace koral
