#pragma once

#include "platform/dialogs/Dialogs.h"

#include <cstdio>

namespace platform {

// A message box as one line, "msgbox: " and the text in UTF-8 with \n, \r and \\ for line feed, carriage
// return and backslash. It counts as answered at once.
class StdoutDialogs : public Dialogs {
public:
    explicit StdoutDialogs(std::FILE * out = stdout) : out_(out) {}
    const char * name() const override { return "lines on standard output"; }
    void messageBox(const std::string & title, const std::string & text) override;

private:
    std::FILE * out_; // not owned
};

} // namespace platform
