#pragma once

#include <QDialog>

class QButtonGroup;
class QComboBox;
class QLabel;

namespace koral {

class Notifier;
class RadioLink;

// "Communication Ports": the port and the baud rate of the link. "Check" reconnects with the
// chosen settings and tests the link; "OK" keeps them. Cancelling is undone by the caller,
// which reopens the link it had before.
class CommPortDialog : public QDialog
{
    Q_OBJECT
public:
    CommPortDialog(RadioLink& link, Notifier& notifier, QWidget* parent = nullptr);

    // The list's index plus 1.
    int selectedPort() const;
    // The baud rate of the chosen button; 0 (after saying so) for an index outside 0..3.
    int selectedBaudRate() const;
    // Shows a baud rate; "Baud Rate is not correct!" and false for a rate not offered.
    bool setBaudRate(int baudRate);
    void setBaudIndex(int index);

    void check();
    void accept() override;

    QComboBox* portList() const { return m_ports; }

signals:
    void helpRequested();

private:
    void showNotice(bool shown);

    RadioLink& m_link;
    Notifier& m_notifier;
    QComboBox* m_ports;
    QButtonGroup* m_bauds;
    QLabel* m_notice;
};

} // namespace koral
