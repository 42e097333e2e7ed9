#pragma once

#include "platform/locale/Locale.h"

#include <utility>

namespace platform {

// A language that doesn't depend on the machine.
class FixedLocale : public Locale {
public:
    explicit FixedLocale(std::string code) : code_(std::move(code)) {}
    const char * name() const override { return "fixed"; }
    std::string languageCode() override { return code_; }

private:
    std::string code_;
};

} // namespace platform
