#include "gui/IncomingCallDialog.h"
#include "gui/QtText.h"

#include "common/Texts.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace koral {

namespace {

QLabel* field(QWidget* parent, const char* name)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

IncomingCallDialog::IncomingCallDialog(QWidget* parent) : QDialog(parent)
{
    setObjectName("incomingCallDialog");
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    m_address = field(this, "incomingAddress");
    m_address->setMinimumWidth(240);
    QFont big = m_address->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.3);
    m_address->setFont(big);
    m_channel = field(this, "incomingChannel");
    m_value = field(this, "incomingValue");
    m_message = field(this, "incomingMessage");
    m_message->setWordWrap(true);
    m_message->setMinimumHeight(48);
    m_message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    form->addRow(qs(text::kIncomingFrom), m_address);
    form->addRow(qs(text::kChannelColon), m_channel);
    form->addRow(qs(text::kChannelValueLabel), m_value);
    form->addRow(qs(text::kIncomingMessage), m_message);
    layout->addLayout(form);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
}

void IncomingCallDialog::showCall(const IncomingCall& call)
{
    if (!call.title.empty())
        setWindowTitle(qs(call.title));
    m_channel->setText(QString::number(call.channel));
    m_value->setText(QString::number(call.channelValue));
    m_address->setText(QString::fromStdString(call.address));
    m_message->setText(QString::fromStdString(call.message.value_or(std::string())));
}

} // namespace koral
