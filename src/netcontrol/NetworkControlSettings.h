#pragma once

#include <QString>

#include <optional>
#include <string>

class QSettings;

namespace koral {

// The operator's "Network control" setting: off by default, and when on, the address and
// port the server listens on (the loopback address and 4532 unless changed) and the scratch
// channel that a client's frequency may be programmed into (0: none, the radio's memory is
// never changed).
struct NetworkControlSettings
{
    bool enabled = false;
    QString address = QStringLiteral("127.0.0.1");
    int port = 4532;
    int scratchChannel = 0;

    bool operator==(const NetworkControlSettings&) const = default;

    // What is wrong with the values, for the dialog's warning line; empty when they can be
    // used.
    std::string problem() const;
    // Whether clients on other computers can reach the server.
    bool reachableFromOutside() const;

    static NetworkControlSettings load(QSettings& settings);
    void save(QSettings& settings) const;
    // "ADDRESS:PORT" ("[ADDRESS]:PORT" for an IPv6 address) as the command line gives it.
    static std::optional<NetworkControlSettings> fromListen(const QString& text);
};

} // namespace koral
