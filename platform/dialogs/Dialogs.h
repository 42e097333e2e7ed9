#pragma once

#include <string>

namespace platform {

class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual const char * name() const = 0;
    // Shows a text and waits until it is answered. Title and text are Windows-1250.
    virtual void messageBox(const std::string & title, const std::string & text) = 0;
};

} // namespace platform
