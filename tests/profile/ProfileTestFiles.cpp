#include "ProfileTestFiles.h"

#include <fstream>
#include <iterator>

namespace koral::test {

std::string readBytes(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void writeBytes(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

std::filesystem::path TestFolder::root() const
{
    return m_dir.path().toStdString();
}

std::filesystem::path TestFolder::path(const char* name) const
{
    return m_dir.filePath(name).toStdString();
}

} // namespace koral::test
