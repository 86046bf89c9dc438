#include "profile/ProfileDiff.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace koral {

std::vector<ProfileChange> profileChanges(const ProfileFile& before, const ProfileFile& after,
                                          const std::function<bool(std::string_view section)>& skip)
{
    const auto skipped = [&skip](const std::string& section) { return skip && skip(section); };
    std::vector<ProfileChange> changes;
    for (const ProfileFile::Entry& entry : before.entries()) {
        if (skipped(entry.section))
            continue;
        std::string value = after.read(entry.section, entry.key);
        if (value != entry.value)
            changes.push_back({entry.section, entry.key, entry.value, std::move(value)});
    }
    for (const ProfileFile::Entry& entry : after.entries()) {
        if (skipped(entry.section) || before.contains(entry.section, entry.key) ||
            entry.value.empty())
            continue;
        changes.push_back({entry.section, entry.key, {}, entry.value});
    }
    return changes;
}

namespace difftext {

namespace {

std::string_view shown(std::string_view value)
{
    return value.empty() ? std::string_view("(none)") : value;
}

} // namespace

std::string changed(std::string_view name, std::string_view before, std::string_view after)
{
    std::string line(name);
    line += ": ";
    line += shown(before);
    line += " -> ";
    line += shown(after);
    return line;
}

std::string membership(std::string_view name, const std::vector<int>& before,
                       const std::vector<int>& after)
{
    const std::set<int> was(before.begin(), before.end());
    const std::set<int> is(after.begin(), after.end());
    std::string line;
    for (int number : is) {
        if (!was.contains(number))
            line += " +" + std::to_string(number);
    }
    for (int number : was) {
        if (!is.contains(number))
            line += " -" + std::to_string(number);
    }
    return line.empty() ? line : std::string(name) + ":" + line;
}

std::vector<int> numbersOf(std::string_view list)
{
    std::vector<int> numbers;
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(','), list.size());
        const std::string_view part = list.substr(0, comma);
        int number = 0;
        const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number);
        if (error == std::errc() && end == part.data() + part.size())
            numbers.push_back(number);
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return numbers;
}

std::string spaced(std::string_view name)
{
    std::string text(name);
    std::replace(text.begin(), text.end(), '_', ' ');
    return text;
}

} // namespace difftext

} // namespace koral
