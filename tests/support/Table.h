#pragma once

// Data-driven tables without a line per column: columns<int, QString>("code", "text") declares
// them, and auto [code, text] = fetch<int, QString>("code", "text") takes the current row's.

#include <QtTest>

#include <tuple>

namespace koral::test {

template <typename... T, typename... Name>
void columns(Name... names)
{
    static_assert(sizeof...(T) == sizeof...(Name));
    (QTest::addColumn<T>(names), ...);
}

template <typename... T, typename... Name>
std::tuple<T...> fetch(Name... names)
{
    static_assert(sizeof...(T) == sizeof...(Name));
    return {*static_cast<T*>(QTest::qData(names, qMetaTypeId<T>()))...};
}

} // namespace koral::test
