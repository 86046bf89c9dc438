#include "session/VersionGate.h"

#include <cstring>
#include <string>

namespace koral {

namespace {

// The radio sends a fixed 8-character field that need not end in a NUL; compare it the way
// the radio's tools always have, as C text cut at 8 characters.
int compareVersion(std::string_view version, const char* reference)
{
    const std::string text(version.substr(0, 8));
    return std::strncmp(text.c_str(), reference, 8);
}

} // namespace

std::uint8_t softwareClassOf(std::optional<std::string_view> version)
{
    if (!version)
        return 0;
    if (compareVersion(*version, "01.000") < 0)
        return 2;
    return compareVersion(*version, "03.000") > 0 ? 2 : 1;
}

bool isRadioVersionAtLeast38194(std::string_view version)
{
    return compareVersion(version, "03.8194") >= 0;
}

} // namespace koral
