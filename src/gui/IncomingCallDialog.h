#pragma once

#include "session/IncomingCall.h"

#include <QDialog>

class QLabel;

namespace koral {

// The announcement of a call the radio received: who called, on which channel with which link
// quality, and the message that came with it. It stays open until the operator closes it or
// the radio ends the call.
class IncomingCallDialog : public QDialog
{
    Q_OBJECT
public:
    explicit IncomingCallDialog(QWidget* parent = nullptr);

    // Shows `call`; an opcode that names no call type keeps the previous title.
    void showCall(const IncomingCall& call);

    QLabel* channelLabel() const { return m_channel; }
    QLabel* valueLabel() const { return m_value; }
    QLabel* addressLabel() const { return m_address; }
    QLabel* messageLabel() const { return m_message; }

private:
    QLabel* m_channel = nullptr;
    QLabel* m_value = nullptr;
    QLabel* m_address = nullptr;
    QLabel* m_message = nullptr;
};

} // namespace koral
