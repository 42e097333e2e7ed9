#include "platform/dialogs/StdoutDialogs.h"

#include "platform/text/Windows1250.h"

namespace platform {

void StdoutDialogs::messageBox(const std::string &, const std::string & text) {
    std::string line = "msgbox: ";
    for (char c : toUtf8(text)) {
        switch (c) {
        case '\n': line += "\\n"; break;
        case '\r': line += "\\r"; break;
        case '\\': line += "\\\\"; break;
        default: line += c;
        }
    }
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), out_);
    std::fflush(out_);
}

} // namespace platform
