#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QIODevice;

namespace koral {

// Where a link goes: the built-in virtual radio, a serial device, or a TCP endpoint (a
// serial-to-network converter or a radio simulator serving TCP).
struct PortSpec
{
    enum class Kind
    {
        Virtual,
        Serial,
        Tcp,
    };
    Kind kind = Kind::Virtual;
    std::string device; // serial device path or name
    std::string host;
    std::uint16_t tcpPort = 0;
};

struct PortInfo
{
    std::string name;        // what OpenPortByName takes
    std::string description; // what a port list shows
};

inline constexpr std::string_view kVirtualPortName = "virtual";

// Port 1 is the built-in virtual radio, ports 2.. the system's serial ports by name.
std::vector<PortInfo> availablePorts();
// The port with that 1-based number, if there is one.
std::optional<PortSpec> portByNumber(int number);
// "virtual", "tcp:HOST:PORT", or a serial device path or name; a decimal number is a port
// number. Nothing for an empty or malformed text.
std::optional<PortSpec> parsePort(std::string_view text);

// The built-in virtual radio is provided from above this library: the application (or a test)
// installs a factory that returns the program's end of a byte stream (an InProcessPipe
// endpoint) connected to a virtual radio working at the given baud rate. The factory is called
// on the engine's I/O thread; the device is owned by the engine from then on, and whatever
// the radio needs may be parented to it so that it goes away when the port is closed.
using VirtualRadioFactory = std::function<std::unique_ptr<QIODevice>(int baudRate)>;
void setVirtualRadioFactory(VirtualRadioFactory factory);
bool hasVirtualRadioFactory();
std::unique_ptr<QIODevice> createVirtualRadio(int baudRate);

} // namespace koral
