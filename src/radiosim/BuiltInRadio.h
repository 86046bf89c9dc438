#pragma once

#include <functional>

namespace koral::radiosim {

class VirtualRadio;

struct BuiltInRadioOptions
{
    // Pace the bytes at the baud rate the program opens the port with, as a cable would.
    bool paced = true;
    // Called on the link's thread with every radio the port creates (e.g. to preload files
    // or to keep a handle for injecting events); the radio lives until the port closes.
    std::function<void(VirtualRadio&)> onCreated;
};

// Makes port 1 of the radio library ("Virtual radio (built-in)") a virtual radio inside the
// program: each opening of the port connects a radio on the other end of an in-process pipe.
// The radio's memory (databases, model, channel) survives closing and reopening the port, as
// a real radio's does when its cable is unplugged; installing again starts a fresh radio.
void installBuiltInRadio(BuiltInRadioOptions options = {});

} // namespace koral::radiosim
