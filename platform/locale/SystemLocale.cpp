#include "platform/locale/SystemLocale.h"

#include <cstdlib>
#include <utility>

namespace platform {

std::string SystemLocale::codeOf(std::string_view setting) {
    static constexpr std::pair<std::string_view, const char *> kCodes[] = {
        {"pl", "0415"}, {"cs", "0405"}, {"bg", "0402"}, {"ro", "0418"},
        {"ru", "0419"}, {"hu", "040E"}, {"sk", "041B"}};
    std::string_view language = setting.substr(0, setting.find_first_of("_.@"));
    for (const auto & [word, code] : kCodes)
        if (word == language) return code;
    return "0409"; // English, for which games have no files of their own
}

std::string SystemLocale::languageCode() {
    for (const char * name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char * setting = std::getenv(name); setting && *setting) return codeOf(setting);
    return codeOf("");
}

} // namespace platform
