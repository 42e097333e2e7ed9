#pragma once

#include "platform/debug/DebugChannel.h"

namespace platform {

class StderrDebugChannel : public DebugChannel {
public:
    const char * name() const override { return "standard error"; }
    void write(std::string_view text) override;
};

} // namespace platform
