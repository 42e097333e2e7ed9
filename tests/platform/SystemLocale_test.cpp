#include "platform/locale/SystemLocale.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(SystemLocale, TakesTheFirstThatIsSet) {
    const char * const variables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
    struct {
        const char *values[3], *code;
    } const cases[] = {
        {{"pl_PL.UTF-8", "cs_CZ", "hu_HU"}, "0415"}, {{"", "cs_CZ", "hu_HU"}, "0405"},
        {{nullptr, nullptr, "bg"}, "0402"},          {{nullptr, "ro_RO@euro", nullptr}, "0418"},
        {{"ru.KOI8-R", nullptr, nullptr}, "0419"},   {{"hu_HU", nullptr, nullptr}, "040E"},
        {{"sk_SK", nullptr, nullptr}, "041B"},       {{"C", nullptr, "pl_PL"}, "0409"},
        {{"plx_PL", nullptr, nullptr}, "0409"},      {{nullptr, nullptr, nullptr}, "0409"},
    };
    std::string before[3];
    for (int i = 0; i < 3; i++)
        if (const char * value = std::getenv(variables[i])) before[i] = value;
    platform::SystemLocale locale;
    for (const auto & c : cases) {
        for (int i = 0; i < 3; i++)
            c.values[i] ? setenv(variables[i], c.values[i], 1) : unsetenv(variables[i]);
        EXPECT_EQ(locale.languageCode(), c.code);
    }
    for (int i = 0; i < 3; i++)
        before[i].empty() ? unsetenv(variables[i]) : setenv(variables[i], before[i].c_str(), 1);
}

} // namespace
