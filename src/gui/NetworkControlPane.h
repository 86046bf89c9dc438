#pragma once

#include "netcontrol/ClientCommands.h"
#include "netcontrol/NetworkControlServer.h"
#include "netcontrol/NetworkControlSettings.h"

#include <QLabel>

namespace koral {

class ControlCenterSession;
class Notifier;

// The status bar's "Network control" pane, and the server behind it: it starts the server
// as the setting says (kept in the application's settings), shows whether it is on and how
// many clients are connected, and opens the setting's dialog.
class NetworkControlPane : public QLabel
{
    Q_OBJECT
public:
    NetworkControlPane(ControlCenterSession& session, Notifier& notifier,
                       QWidget* parent = nullptr);

    // Opens the dialog; on OK keeps the setting and applies it.
    void configure();
    // Starts, moves or stops the server; the operator hears when the address cannot be had.
    void apply(const NetworkControlSettings& settings);

    const NetworkControlSettings& settings() const { return m_settings; }
    NetworkControlServer& server() { return m_server; }

private:
    void showState();

    Notifier& m_notifier;
    ClientCommands m_commands;
    NetworkControlServer m_server;
    NetworkControlSettings m_settings;
};

} // namespace koral
