#include "netcontrol/NetworkControlSettings.h"

#include "common/Texts.h"
#include "radiodb/ChannelNumbers.h"

#include <QHostAddress>
#include <QSettings>

namespace koral {

namespace {
const QString kGroup = QStringLiteral("NetworkControl");
} // namespace

std::string NetworkControlSettings::problem() const
{
    if (QHostAddress(address).isNull())
        return text::format(text::kNetworkBadAddress.data(), address.toUtf8().constData());
    if (port < 1 || port > 65535)
        return text::format(text::kNetworkBadPort.data(), port);
    if (scratchChannel != 0 && !isChannelNumber(scratchChannel))
        return text::format(text::kNetworkBadScratch.data(), scratchChannel);
    return {};
}

bool NetworkControlSettings::reachableFromOutside() const
{
    const QHostAddress host(address);
    return !host.isNull() && !host.isLoopback();
}

NetworkControlSettings NetworkControlSettings::load(QSettings& settings)
{
    NetworkControlSettings values;
    settings.beginGroup(kGroup);
    values.enabled = settings.value(QStringLiteral("enabled"), values.enabled).toBool();
    values.address = settings.value(QStringLiteral("address"), values.address).toString();
    values.port = settings.value(QStringLiteral("port"), values.port).toInt();
    values.scratchChannel =
        settings.value(QStringLiteral("scratchChannel"), values.scratchChannel).toInt();
    settings.endGroup();
    return values;
}

void NetworkControlSettings::save(QSettings& settings) const
{
    settings.beginGroup(kGroup);
    settings.setValue(QStringLiteral("enabled"), enabled);
    settings.setValue(QStringLiteral("address"), address);
    settings.setValue(QStringLiteral("port"), port);
    settings.setValue(QStringLiteral("scratchChannel"), scratchChannel);
    settings.endGroup();
}

std::optional<NetworkControlSettings> NetworkControlSettings::fromListen(const QString& text)
{
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    if (colon <= 0)
        return std::nullopt;
    QString host = text.left(colon);
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    bool ok = false;
    NetworkControlSettings values;
    values.enabled = true;
    values.address = host;
    values.port = text.mid(colon + 1).toInt(&ok);
    if (!ok || !values.problem().empty())
        return std::nullopt;
    return values;
}

} // namespace koral
