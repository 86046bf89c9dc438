#include "koralapi/Ports.h"

#include <QIODevice>
#include <QSerialPortInfo>

#include <algorithm>
#include <charconv>
#include <mutex>

namespace koral {

namespace {
std::mutex g_factoryMutex;
VirtualRadioFactory g_factory;

std::vector<QSerialPortInfo> serialPorts()
{
    auto ports = QSerialPortInfo::availablePorts();
    std::sort(ports.begin(), ports.end(), [](const QSerialPortInfo& a, const QSerialPortInfo& b) {
        return a.portName() < b.portName();
    });
    return {ports.begin(), ports.end()};
}

std::optional<int> parseNumber(std::string_view text)
{
    int value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}
} // namespace

std::vector<PortInfo> availablePorts()
{
    std::vector<PortInfo> list{{std::string(kVirtualPortName), "Virtual radio (built-in)"}};
    for (const QSerialPortInfo& port : serialPorts()) {
        std::string description = port.systemLocation().toStdString();
        if (!port.description().isEmpty())
            description += " (" + port.description().toStdString() + ")";
        list.push_back({port.systemLocation().toStdString(), description});
    }
    return list;
}

std::optional<PortSpec> portByNumber(int number)
{
    if (number == 1)
        return PortSpec{};
    const auto ports = serialPorts();
    if (number < 2 || static_cast<std::size_t>(number - 2) >= ports.size())
        return std::nullopt;
    PortSpec where;
    where.kind = PortSpec::Kind::Serial;
    where.device = ports[static_cast<std::size_t>(number - 2)].systemLocation().toStdString();
    return where;
}

std::optional<PortSpec> parsePort(std::string_view text)
{
    if (text.empty())
        return std::nullopt;
    if (text == kVirtualPortName)
        return PortSpec{};
    if (auto number = parseNumber(text))
        return portByNumber(*number);
    constexpr std::string_view tcpPrefix = "tcp:";
    if (text.starts_with(tcpPrefix)) {
        const std::string_view rest = text.substr(tcpPrefix.size());
        const auto colon = rest.rfind(':');
        if (colon == std::string_view::npos || colon == 0)
            return std::nullopt;
        const auto port = parseNumber(rest.substr(colon + 1));
        if (!port || *port < 1 || *port > 65535)
            return std::nullopt;
        PortSpec where;
        where.kind = PortSpec::Kind::Tcp;
        where.host = std::string(rest.substr(0, colon));
        where.tcpPort = static_cast<std::uint16_t>(*port);
        return where;
    }
    PortSpec where;
    where.kind = PortSpec::Kind::Serial;
    where.device = std::string(text);
    return where;
}

void setVirtualRadioFactory(VirtualRadioFactory factory)
{
    std::lock_guard lock(g_factoryMutex);
    g_factory = std::move(factory);
}

bool hasVirtualRadioFactory()
{
    std::lock_guard lock(g_factoryMutex);
    return static_cast<bool>(g_factory);
}

std::unique_ptr<QIODevice> createVirtualRadio(int baudRate)
{
    VirtualRadioFactory factory;
    {
        std::lock_guard lock(g_factoryMutex);
        factory = g_factory;
    }
    return factory ? factory(baudRate) : nullptr;
}

} // namespace koral
