#include "platform/dialogs/TerminalDialogs.h"

#include "platform/text/Windows1250.h"

#include <cstdio>
#include <unistd.h>

namespace platform {

void TerminalDialogs::messageBox(const std::string & title, const std::string & text) {
    std::fprintf(stderr, "[%s] %s\n", toUtf8(title).c_str(), toUtf8(text).c_str());
    if (!isatty(STDIN_FILENO) || !isatty(STDERR_FILENO)) return;
    std::fputs("(Enter)", stderr);
    for (int c = std::getchar(); c != '\n' && c != EOF;) c = std::getchar();
}

} // namespace platform
