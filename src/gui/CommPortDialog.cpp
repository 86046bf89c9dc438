#include "gui/CommPortDialog.h"

#include "koralapi/Ports.h"
#include "session/CommPortEditor.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace koral {

CommPortDialog::CommPortDialog(CommPortEditor& editor, QWidget* parent)
    : HelpButtonDialog(parent), m_editor(editor)
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
    const char* rates[] = {"1200", "2400", "4800", "9600"};
    for (int i = 0; i < 4; ++i) {
        auto* button = new QRadioButton(QString::fromLatin1(rates[i]), baudBox);
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
    // The dialog keeps its size while the notice comes and goes: no button moves.
    QSizePolicy policy = m_notice->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_notice->setSizePolicy(policy);
    m_notice->hide();
    editor.setOnNoticeChanged([this](bool shown) { showNotice(shown); });

    QDialogButtonBox* buttons = createButtons();
    auto* checkButton = buttons->addButton(tr("C&heck"), QDialogButtonBox::ActionRole);
    connect(checkButton, &QPushButton::clicked, this, &CommPortDialog::check);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(portBox);
    layout->addWidget(baudBox);
    layout->addWidget(m_notice);
    layout->addWidget(buttons);

    m_ports->setCurrentIndex(editor.portIndex());
    if (QAbstractButton* button = m_bauds->button(editor.baudIndex()))
        button->setChecked(true);
    connect(m_ports, &QComboBox::currentIndexChanged, this,
            [this](int index) { m_editor.setPortIndex(index); });
    connect(m_bauds, &QButtonGroup::idClicked, this,
            [this](int index) { m_editor.setBaudIndex(index); });
}

void CommPortDialog::showNotice(bool shown)
{
    m_notice->setVisible(shown);
    repaint();
}

void CommPortDialog::check()
{
    m_editor.check();
}

void CommPortDialog::accept()
{
    m_editor.accept();
    QDialog::accept();
}

} // namespace koral
