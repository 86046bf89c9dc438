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

// The call part of the radio's state line for a call state of the exchange. A station call
// that got its link stays in its calling state until the link ends, so it reads idle while
// `linked`; the state a sounding leaves behind reads as sounding only while `sounding` runs.
std::string_view callStateText(int callState, bool linked, bool sounding);

// Texts of the three status-bar panes.
std::string comPaneText(int commPort, int baudRate);
std::string serialPaneText(std::string_view serialNumber);
std::string codePaneText(std::string_view radioCode);

} // namespace koral
