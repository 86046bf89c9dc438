#pragma once

#include <string>
#include <string_view>

namespace koral {

// Toolbar images of the on/off commands come in pairs 12 apart, the "on" image first.
// Showing a state moves the index into the right half; an index of exactly 12 stays where
// it is for either state, as the radio's original toolbars behave.
int imageIndexForState(int imageIndex, bool on);

// The Computer Interface panel's status line for a call status code (empty for codes
// without a text).
std::string_view callStatusText(int code);

// Texts of the three status-bar panes.
std::string comPaneText(int commPort, int baudRate);
std::string serialPaneText(std::string_view serialNumber);
std::string codePaneText(std::string_view radioCode);

} // namespace koral
