#include "platform/files/WindowsPath.h"

#include "platform/text/Windows1250.h"

#include <vector>

namespace platform {

namespace {

constexpr std::size_t kLongestPath = 4095;

bool isSeparator(char c) { return c == '\\' || c == '/'; }

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool holdsForbidden(std::string_view name, std::string_view forbidden) {
    for (char c : name)
        if (static_cast<unsigned char>(c) < 0x20 || forbidden.find(c) != std::string_view::npos) return true;
    return false;
}

// Windows matches with five signs of its own, which it makes of the mask's two and of the dots near them.
enum Sign : char {
    kAny = 1,          // any run of characters
    kOne,              // one character; nothing before a dot and at the end
    kAnyBeforeLastDot, // any run of characters that doesn't take the last dot
    kDotOrEnd,         // a dot, or nothing at the end
    // other values stand for themselves: names hold no control characters
};

std::string toSigns(std::string_view mask) {
    if (mask == "*.*") return {kAny};
    std::string_view kept = mask.substr(0, mask.find_last_not_of(". ") + 1);
    std::string signs;
    signs.reserve(kept.size());
    char before = 0;
    for (char c : kept) {
        if (c == '.' && before == '*') signs.back() = kAnyBeforeLastDot;
        if ((c == '*' || c == '?') && before == '.') signs.back() = kDotOrEnd;
        signs += c == '*' ? static_cast<char>(kAny) : c == '?' ? static_cast<char>(kOne) : c;
        before = c;
    }
    if (kept.size() < mask.size() && mask.back() == '.' && before == '*') signs.back() = kAnyBeforeLastDot;
    return signs;
}

// Follows every way of matching at once: reached[i] says that the name so far fits the first i signs.
bool fitsSigns(std::string_view signs, std::string_view name) {
    // "." and ".." count as names without a dot.
    const std::size_t lastDot = name == "." || name == ".." ? std::string_view::npos : name.rfind('.');
    std::vector<char> reached(signs.size() + 1), next(signs.size() + 1);
    reached[0] = 1;
    for (std::size_t at = 0; at <= name.size(); at++) {
        const bool end = at == name.size();
        const char c = end ? '\0' : name[at];
        next.assign(next.size(), 0);
        bool alive = false;
        for (std::size_t i = 0; i < signs.size(); i++) {
            if (!reached[i]) continue;
            bool skips = false, takes = false, stays = false; // the sign, before the character c
            switch (signs[i]) {
            case kAny: skips = true, stays = true; break;
            case kAnyBeforeLastDot: skips = true, stays = c != '.' || at != lastDot; break;
            case kOne: (end || c == '.') ? skips = true : takes = true; break;
            case kDotOrEnd: end ? skips = true : takes = c == '.'; break;
            default: takes = c == signs[i];
            }
            if (skips) reached[i + 1] = 1;
            if (end) continue;
            if (takes) next[i + 1] = 1;
            if (stays) next[i] = 1;
            alive |= takes || stays;
        }
        if (end) return reached[signs.size()];
        if (!alive) return false;
        reached.swap(next);
    }
    return false;
}

} // namespace

bool isWindowsName(std::string_view name) { return !name.empty() && !holdsForbidden(name, "<>\"|?*:\\/"); }

std::optional<WindowsPath> parseWindowsPath(std::string_view text, const WindowsPath & current, bool mask) {
    if (text.empty() || text.size() > kLongestPath) return std::nullopt;
    WindowsPath path;
    path.asFolder = isSeparator(text.back());
    path.drive = current.drive;
    if (text.size() >= 2 && text[1] == ':' && isLetter(text[0])) {
        path.drive = static_cast<char>(text[0] & ~0x20);
        text.remove_prefix(2);
    }
    const bool rooted = !text.empty() && isSeparator(text[0]);
    if (!rooted && path.drive == current.drive) path.tail = current.tail;

    while (!text.empty()) {
        std::size_t length = text.find_first_of("\\/");
        std::string_view name = text.substr(0, length);
        const bool last = length == std::string_view::npos;
        text.remove_prefix(last ? text.size() : length + 1);
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            if (!path.tail.empty()) path.tail.erase(path.tail.rfind('\\'));
            continue;
        }
        if (holdsForbidden(name, mask && last ? "<>\"|:" : "<>\"|:?*")) return std::nullopt;
        path.tail += '\\';
        path.tail += name;
    }
    return path;
}

bool fitsMask(std::string_view mask, std::string_view name) {
    return fitsSigns(toSigns(upperWindows1250(mask)), upperWindows1250(name));
}

} // namespace platform
