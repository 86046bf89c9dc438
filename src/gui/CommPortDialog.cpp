#include "gui/CommPortDialog.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "koralapi/Ports.h"
#include "session/RadioLink.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace koral {

namespace {
constexpr int kBaudRates[] = {1200, 2400, 4800, 9600};
}

CommPortDialog::CommPortDialog(RadioLink& link, Notifier& notifier, QWidget* parent)
    : QDialog(parent), m_link(link), m_notifier(notifier)
{
    setWindowTitle(tr("Communication Ports"));

    auto* portBox = new QGroupBox(tr("Comm. Port"), this);
    m_ports = new QComboBox(portBox);
    for (const PortInfo& port : availablePorts())
        m_ports->addItem(QString::fromStdString(port.description));
    auto* portLayout = new QVBoxLayout(portBox);
    portLayout->addWidget(m_ports);

    auto* baudBox = new QGroupBox(tr("Baud Rate"), this);
    auto* baudLayout = new QHBoxLayout(baudBox);
    m_bauds = new QButtonGroup(this);
    for (int i = 0; i < 4; ++i) {
        auto* button = new QRadioButton(QString::number(kBaudRates[i]), baudBox);
        m_bauds->addButton(button, i);
        baudLayout->addWidget(button);
    }

    m_notice = new QLabel(tr("Connecting to the radio, please wait..."), this);
    m_notice->setAutoFillBackground(true);
    QPalette palette = m_notice->palette();
    palette.setColor(QPalette::Window, QColor(255, 255, 0));
    palette.setColor(QPalette::WindowText, Qt::black);
    m_notice->setPalette(palette);
    m_notice->setMargin(4);
    m_notice->hide();

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    auto* checkButton = buttons->addButton(tr("C&heck"), QDialogButtonBox::ActionRole);
    connect(checkButton, &QPushButton::clicked, this, &CommPortDialog::check);
    connect(buttons, &QDialogButtonBox::accepted, this, &CommPortDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, &CommPortDialog::helpRequested);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(portBox);
    layout->addWidget(baudBox);
    layout->addWidget(m_notice);
    layout->addWidget(buttons);

    m_ports->setCurrentIndex(std::clamp(link.settings().commPort - 1, 0, m_ports->count() - 1));
    setBaudRate(link.settings().baudRate);
}

int CommPortDialog::selectedPort() const
{
    return m_ports->currentIndex() + 1;
}

int CommPortDialog::selectedBaudRate() const
{
    const int index = m_bauds->checkedId();
    if (index < 0 || index > 3) {
        m_notifier.show(text::kBaudRateIndexIncorrect);
        return 0;
    }
    return kBaudRates[index];
}

bool CommPortDialog::setBaudRate(int baudRate)
{
    const auto* found = std::find(std::begin(kBaudRates), std::end(kBaudRates), baudRate);
    if (found == std::end(kBaudRates)) {
        m_notifier.show(text::kBaudRateIncorrect);
        return false;
    }
    setBaudIndex(int(found - std::begin(kBaudRates)));
    return true;
}

void CommPortDialog::setBaudIndex(int index)
{
    if (QAbstractButton* button = m_bauds->button(index))
        button->setChecked(true);
}

void CommPortDialog::showNotice(bool shown)
{
    m_notice->setVisible(shown);
    repaint();
}

void CommPortDialog::check()
{
    showNotice(true);
    m_link.changeRadioLink(selectedPort(), selectedBaudRate());
    // The test answers for itself: no second, "does not respond" message.
    m_link.setReportNoResponse(false);
    const int result = m_link.testCommunication();
    showNotice(false);
    if (result != 1)
        m_notifier.show(text::byId(text::id::CommunicationTestFailed), Icon::Critical);
    else
        m_notifier.show(text::byId(text::id::CommunicationTestPassed), Icon::Information);
    m_link.setReportNoResponse(true);
}

void CommPortDialog::accept()
{
    showNotice(true);
    m_link.changeRadioLink(selectedPort(), selectedBaudRate());
    showNotice(false);
    QDialog::accept();
}

} // namespace koral
