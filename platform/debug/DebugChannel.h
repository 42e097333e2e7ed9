#pragma once

#include <string_view>

namespace platform {

// Where notes for the developer go while the program runs.
class DebugChannel {
public:
    virtual ~DebugChannel() = default;
    virtual const char * name() const = 0;
    // Windows-1250 text, written as it is, with no line end added.
    virtual void write(std::string_view text) = 0;
};

} // namespace platform
