#include "gui/NetworkControlDialog.h"

#include "common/Texts.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace koral {

NetworkControlDialog::NetworkControlDialog(const NetworkControlSettings& settings, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Network Control"));
    setObjectName(QStringLiteral("networkControlDialog"));

    m_enabled = new QCheckBox(tr("&Serve rig-control clients (logging and digital-mode "
                                 "programs) over the network"),
                              this);
    m_address = new QLineEdit(settings.address, this);
    m_port = new QSpinBox(this);
    m_port->setRange(1, 65535);
    m_port->setValue(settings.port);
    m_scratch = new QSpinBox(this);
    m_scratch->setRange(0, 200);
    m_scratch->setSpecialValueText(tr("None"));
    m_scratch->setValue(settings.scratchChannel);
    m_scratch->setToolTip(tr("A frequency that no programmed channel receives on is programmed "
                             "into this channel. None: such a frequency is refused."));
    m_enabled->setChecked(settings.enabled);

    m_warning = new QLabel(this);
    m_warning->setWordWrap(true);
    m_warning->setStyleSheet(QStringLiteral("color: #a00000;"));

    auto* form = new QFormLayout;
    form->addRow(tr("&Address:"), m_address);
    form->addRow(tr("&Port:"), m_port);
    form->addRow(tr("S&cratch channel:"), m_scratch);

    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_enabled);
    layout->addLayout(form);
    layout->addWidget(m_warning);
    layout->addWidget(m_buttons);

    connect(m_enabled, &QCheckBox::toggled, this, &NetworkControlDialog::update);
    connect(m_address, &QLineEdit::textChanged, this, &NetworkControlDialog::update);
    connect(m_port, &QSpinBox::valueChanged, this, &NetworkControlDialog::update);
    connect(m_scratch, &QSpinBox::valueChanged, this, &NetworkControlDialog::update);
    update();
}

NetworkControlSettings NetworkControlDialog::settings() const
{
    NetworkControlSettings values;
    values.enabled = m_enabled->isChecked();
    values.address = m_address->text().trimmed();
    values.port = m_port->value();
    values.scratchChannel = m_scratch->value();
    return values;
}

void NetworkControlDialog::update()
{
    const NetworkControlSettings values = settings();
    for (QWidget* field : {static_cast<QWidget*>(m_address), static_cast<QWidget*>(m_port),
                           static_cast<QWidget*>(m_scratch)})
        field->setEnabled(values.enabled);
    const std::string problem = values.problem();
    QString warning = QString::fromStdString(problem);
    if (problem.empty() && values.enabled && values.reachableFromOutside())
        warning = QString::fromUtf8(text::kNetworkOpenToOthers.data(),
                                    qsizetype(text::kNetworkOpenToOthers.size()));
    m_warning->setText(warning);
    m_warning->setVisible(!warning.isEmpty());
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(!values.enabled || problem.empty());
}

} // namespace koral
