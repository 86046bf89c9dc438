#include "gui/NetworkControlPane.h"

#include "common/Notifier.h"
#include "common/Texts.h"
#include "gui/NetworkControlDialog.h"

#include <QSettings>

namespace koral {

NetworkControlPane::NetworkControlPane(ControlCenterSession& session, Notifier& notifier,
                                       QWidget* parent)
    : QLabel(parent), m_notifier(notifier), m_commands(session), m_server(m_commands)
{
    setObjectName(QStringLiteral("networkPane"));
    setFrameShape(QFrame::Panel);
    setFrameShadow(QFrame::Sunken);
    connect(&m_server, &NetworkControlServer::listeningChanged, this,
            &NetworkControlPane::showState);
    connect(&m_server, &NetworkControlServer::clientCountChanged, this,
            &NetworkControlPane::showState);
    QSettings stored;
    apply(NetworkControlSettings::load(stored));
}

void NetworkControlPane::configure()
{
    NetworkControlDialog dialog(m_settings, window());
    if (dialog.exec() != QDialog::Accepted)
        return;
    QSettings stored;
    dialog.settings().save(stored);
    apply(dialog.settings());
}

void NetworkControlPane::apply(const NetworkControlSettings& settings)
{
    m_settings = settings;
    m_commands.setScratchChannel(settings.scratchChannel);
    m_server.close();
    if (settings.enabled && settings.problem().empty() &&
        !m_server.listen(QHostAddress(settings.address), quint16(settings.port))) {
        m_notifier.show(text::format(text::kNetworkCannotListen.data(),
                                     settings.address.toUtf8().constData(), settings.port,
                                     m_server.errorString().toUtf8().constData()),
                        Icon::Warning);
    }
    showState();
}

void NetworkControlPane::showState()
{
    const int clients = m_server.clientCount();
    const std::string text = !m_server.isListening() ? std::string(text::kNetworkPaneOff)
                             : clients == 1
                                 ? std::string(text::kNetworkPaneOneClient)
                                 : text::format(text::kNetworkPaneClients.data(), clients);
    setText(QString::fromStdString(text));
    setToolTip(m_server.isListening()
                   ? QStringLiteral("%1:%2").arg(m_settings.address).arg(m_server.port())
                   : QString());
}

} // namespace koral
