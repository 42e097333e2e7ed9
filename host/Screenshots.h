#pragma once

// Writes what the display shows after chosen ticks, as 8-bit RGB PNG files.

#include "Options.h"

#include "platform/display/Display.h"

namespace host {

class Screenshots {
public:
    Screenshots(const std::vector<Screenshot> & wanted, platform::Display & display)
        : wanted_(wanted), display_(display) {}

    bool
    take(long tick); // those of this tick; false, with a line on standard error, when one can't be written

private:
    bool write(const std::string & file);

    const std::vector<Screenshot> & wanted_;
    platform::Display & display_;
};

} // namespace host
