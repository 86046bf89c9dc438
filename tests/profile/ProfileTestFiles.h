#pragma once

// Helpers shared by the tests of the profile engine and of the data files built on it.

#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace koral::test {

// Adds one data column per type, named in order: addColumns<int, QString>({"count", "text"}).
template <typename... T>
void addColumns(const std::array<const char*, sizeof...(T)>& names)
{
    std::size_t i = 0;
    (QTest::addColumn<T>(names[i++]), ...);
}

// The current row's values of the named columns, as QFETCH reads them (and checked alike):
// auto [count, text] = fetch<int, QString>({"count", "text"}).
template <typename... T>
std::tuple<T...> fetch(const std::array<const char*, sizeof...(T)>& names)
{
    return [&]<std::size_t... I>(std::index_sequence<I...>)->std::tuple<T...>
    {
        return {*static_cast<T*>(QTest::qData(names[I], qMetaTypeId<T>()))...};
    }
    (std::index_sequence_for<T...>{});
}

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
