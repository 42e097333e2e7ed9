#pragma once

// A message box as a dialog before the window; in the terminal while there is no window, or where the machine
// can't show one.

#include "platform/dialogs/TerminalDialogs.h"

namespace platform {

class SdlDisplay;

class SdlDialogs : public TerminalDialogs {
public:
    explicit SdlDialogs(SdlDisplay & display) : display_(display) {}
    const char * name() const override { return "SDL"; }
    void messageBox(const std::string & title, const std::string & text) override;

private:
    SdlDisplay & display_;
};

} // namespace platform
