#include "radiosim/RadioModel.h"

#include <cstring>

namespace koral::radiosim {

int RadioModel::softwareClass() const
{
    char text[9] = {};
    std::strncpy(text, softwareVersion.c_str(), 8);
    if (std::strncmp(text, "01.000", 8) < 0) {
        return 2;
    }
    return std::strncmp(text, "03.000", 8) <= 0 ? 1 : 2;
}

} // namespace koral::radiosim
