// Settings files. The first three lines name a section, a key and a value, the rest is the file.

#include "files/SettingsText.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

std::string_view takeLine(std::string_view & text) {
    std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char *>(data), size);
    std::string_view section = takeLine(text), key = takeLine(text), value = takeLine(text);

    std::string_view found = settings::value(text, section, key);
    require(found.empty() ||
            (found.data() >= text.data() && found.data() + found.size() <= text.data() + text.size()));
    require(found.find('\n') == std::string_view::npos);

    std::string after = settings::put(text, section, key, value);
    require(settings::put(after, section, key, value) == after);
    if (after == text) return 0;
    // What was put is what a file with nothing else gives back.
    require(settings::value(after, section, key) ==
            settings::value(settings::put("", section, key, value), section, key));
    // One stretch changed: all in front of it and behind it is still there.
    std::size_t front = 0, back = 0, shorter = std::min(after.size(), text.size());
    while (front < shorter && after[front] == text[front]) front++;
    while (back < shorter - front && after[after.size() - 1 - back] == text[text.size() - 1 - back]) back++;
    std::string_view gone = text.substr(front, text.size() - front - back);
    require(gone.find('\n') == std::string_view::npos);
    return 0;
}
