#pragma once

#include <string_view>

namespace koral {

// What a window shows while the databases move: a modal dialog with a title, a caption, a
// position and a Cancel button. The session calls it on the user-interface thread; the
// window's Cancel calls DatabaseTransfer::cancel. The library's pump keeps the window
// painted.
class ProgressView
{
public:
    virtual ~ProgressView() = default;
    virtual void open() = 0;
    virtual void close() = 0;
    virtual void setTitle(std::string_view title) = 0;
    virtual void setCaption(std::string_view caption) = 0;
    virtual void setPosition(int position) = 0;
    virtual void setCancelEnabled(bool enabled) = 0;
};

} // namespace koral
