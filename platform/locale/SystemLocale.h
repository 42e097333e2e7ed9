#pragma once

#include "platform/locale/Locale.h"

#include <string_view>

namespace platform {

// The language of the person's settings: LC_ALL, LC_MESSAGES or LANG, whichever is set first.
class SystemLocale : public Locale {
public:
    const char * name() const override { return "system"; }
    std::string languageCode() override;

    // The code of a setting such as "pl_PL.UTF-8".
    static std::string codeOf(std::string_view setting);
};

} // namespace platform
