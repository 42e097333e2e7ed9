#include "platform/debug/StderrDebugChannel.h"

#include "platform/text/Windows1250.h"

#include <cstdio>

namespace platform {

void StderrDebugChannel::write(std::string_view text) {
    std::string utf8 = toUtf8(text);
    std::fwrite(utf8.data(), 1, utf8.size(), stderr);
}

} // namespace platform
