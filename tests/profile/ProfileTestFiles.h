#pragma once

// Helpers shared by the tests of the profile engine and of the data files built on it.

#include "support/Table.h"

#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <string>
#include <string_view>

namespace koral::test {

std::string readBytes(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, std::string_view bytes);

// A temporary folder that names the files inside it.
class TestFolder
{
public:
    bool isValid() const { return m_dir.isValid(); }
    std::filesystem::path root() const;
    std::filesystem::path path(const char* name) const;

private:
    QTemporaryDir m_dir;
};

} // namespace koral::test
