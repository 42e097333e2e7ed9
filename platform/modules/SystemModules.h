#pragma once

#include "platform/modules/Modules.h"

namespace platform {

// The system's loader. A library's names stay its own: they don't answer for those of another.
class SystemModules : public Modules {
public:
    const char * name() const override { return "system"; }
    std::unique_ptr<SharedLibrary> open(const std::string & machinePath) override;
    std::unique_ptr<SharedLibrary> openSystem(const std::string & name) override;
};

} // namespace platform
