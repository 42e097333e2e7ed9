#pragma once

#include <string>

namespace platform {

class Locale {
public:
    virtual ~Locale() = default;
    virtual const char * name() const = 0;
    // The system's default language as four hexadecimal digits, such as "0415".
    virtual std::string languageCode() = 0;
};

} // namespace platform
