#pragma once

#include "platform/dialogs/Dialogs.h"

#include <vector>

namespace platform {

// Keeps the texts, for tests.
class RecordingDialogs : public Dialogs {
public:
    const char * name() const override { return "recording"; }
    void messageBox(const std::string &, const std::string & text) override { texts.push_back(text); }

    std::vector<std::string> texts; // Windows-1250
};

} // namespace platform
