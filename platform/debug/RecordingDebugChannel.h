#pragma once

#include "platform/debug/DebugChannel.h"

#include <string>

namespace platform {

// Keeps what was written, for tests.
class RecordingDebugChannel : public DebugChannel {
public:
    const char * name() const override { return "recording"; }
    void write(std::string_view text) override { written += text; }

    std::string written;
};

} // namespace platform
