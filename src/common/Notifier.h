#pragma once

#include <string>
#include <string_view>

namespace koral {

// The icon of an operator message, as the message boxes of the original program showed it.
enum class Icon
{
    None,
    Information,
    Warning,  // exclamation
    Critical, // stop
    Question,
};

enum class Buttons
{
    Ok,
    OkCancel,
    YesNo,
    SaveDiscardCancel, // Escape answers Cancel
};

enum class Answer
{
    Ok,
    Cancel,
    Yes,
    No,
    Save,
    Discard,
};

// Every message the operator sees goes through one notifier: a message box in the desktop
// application, standard error in koralctl, a recorder in the tests.
class Notifier
{
public:
    virtual ~Notifier() = default;
    virtual void show(std::string_view text, Icon icon = Icon::None) = 0;
    virtual Answer ask(std::string_view text, Buttons buttons, Icon icon = Icon::Question) = 0;
};

} // namespace koral
