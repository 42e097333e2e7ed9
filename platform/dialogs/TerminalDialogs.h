#pragma once

#include "platform/dialogs/Dialogs.h"

namespace platform {

// A message box in the terminal: the text on standard error, answered by Enter where a person sits there.
class TerminalDialogs : public Dialogs {
public:
    const char * name() const override { return "terminal"; }
    void messageBox(const std::string & title, const std::string & text) override;
};

} // namespace platform
