#pragma once

// What the ALE and the CCIR directory dialogs have in common: a list of entries, an edit whose
// text the rules judge and explain in a status line, ADD and DELETE, and the occupied count.
// Each directory's editor keeps its own rules behind this one face, so one dialog binds both.

#include <string>
#include <string_view>
#include <vector>

namespace koral {

class DirectoryListRules
{
public:
    virtual ~DirectoryListRules() = default;

    // The list as the dialog shows it, one line an entry.
    virtual std::vector<std::string> listLines() const = 0;
    virtual int occupiedCount() const = 0;

    virtual const std::string& editText() const = 0;
    // A change of the edit: runs the rules and sets the status and the buttons.
    virtual void setEditText(std::string_view text) = 0;
    // Choosing a line of the list puts its entry into the edit.
    virtual void selectEntry(int line) = 0;

    // Why the typed text cannot be added, or that it can be deleted; empty when silent.
    virtual const std::string& statusText() const = 0;
    virtual bool addEnabled() const = 0;
    virtual bool deleteEnabled() const = 0;

    // ADD and DELETE: false when the button is disabled (or DELETE was not confirmed); the
    // edit is cleared after either.
    virtual bool add() = 0;
    virtual bool remove() = 0;
};

} // namespace koral
