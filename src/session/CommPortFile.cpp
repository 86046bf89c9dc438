#include "session/CommPortFile.h"

#include <array>
#include <cstdint>
#include <fstream>

namespace koral {

namespace {

std::int32_t fromLittleEndian(const unsigned char* bytes)
{
    return static_cast<std::int32_t>(std::uint32_t(bytes[0]) | std::uint32_t(bytes[1]) << 8 |
                                     std::uint32_t(bytes[2]) << 16 | std::uint32_t(bytes[3]) << 24);
}

void toLittleEndian(std::int32_t value, unsigned char* bytes)
{
    const auto bits = static_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<unsigned char>(bits >> (8 * i));
}

} // namespace

void loadCommPortFile(const std::filesystem::path& directory, LinkSettings& settings)
{
    settings.workDirectory = directory;
    settings.commPort = 1;
    settings.baudRate = 9600;
    std::ifstream file(directory / kCommPortFileName, std::ios::binary);
    std::array<unsigned char, 8> bytes{};
    if (!file.read(reinterpret_cast<char*>(bytes.data()), bytes.size()))
        return;
    settings.commPort = fromLittleEndian(bytes.data());
    settings.baudRate = fromLittleEndian(bytes.data() + 4);
}

bool saveCommPortFile(const LinkSettings& settings)
{
    std::array<unsigned char, 8> bytes{};
    toLittleEndian(settings.commPort, bytes.data());
    toLittleEndian(settings.baudRate, bytes.data() + 4);
    std::ofstream file(settings.workDirectory / kCommPortFileName,
                       std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return static_cast<bool>(file.flush());
}

} // namespace koral
