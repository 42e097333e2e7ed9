#include "files/SettingsText.h"

#include "core/Text.h"

#include <optional>

namespace settings {

namespace {

using std::string_view;

constexpr string_view kLineEnds = "\r\n";

string_view trimmed(string_view text) {
    constexpr string_view kBlanks = " \t\r"; // the CR is what stands before a line feed
    std::size_t start = text.find_first_not_of(kBlanks);
    if (start == string_view::npos) return {};
    return text.substr(start, text.find_last_not_of(kBlanks) + 1 - start);
}

string_view unquoted(string_view text) {
    bool quoted = text.size() >= 2 && text.front() == text.back() && (text[0] == '"' || text[0] == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

// Whether a line is the head of a section, and then its name.
std::optional<string_view> sectionOf(string_view line) {
    line = trimmed(line);
    std::size_t end = line.find(']');
    if (!line.starts_with('[') || end == string_view::npos) return {};
    return trimmed(line.substr(1, end - 1));
}

struct Pair {
    string_view key, value; // trimmed
    std::size_t valueAt;    // where the text behind the equals sign begins, within the line
};

std::optional<Pair> pairOf(string_view line) {
    std::size_t equals = line.find('=');
    if (equals == string_view::npos || trimmed(line).starts_with(';')) return {};
    return Pair{trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)), equals + 1};
}

// Whether the names come back from the lines that they would make.
bool storable(string_view section, string_view key) {
    if (section.find_first_of("]\r\n") != string_view::npos) return false;
    if (key.find_first_of("=\r\n") != string_view::npos) return false;
    return !key.empty() && key.front() != ';' && key.front() != '[';
}

// Where a key stands, or would go.
struct Place {
    bool hasSection = false;
    bool hasKey = false;
    string_view value; // of the key
    std::size_t start =
        0;               // behind the key's equals sign; or where a new line goes: in the section, at the end
    std::size_t end = 0; // of the key's line, before its line end
};

Place find(string_view text, string_view section, string_view key) {
    Place place;
    bool inside = false;   // in a section of that name
    bool first = false;    // in the first of them
    bool touching = false; // no blank line since its head
    for (std::size_t at = 0; at < text.size();) {
        std::size_t feed = text.find('\n', at);
        std::size_t end = feed == string_view::npos ? text.size() : feed;
        std::size_t next = feed == string_view::npos ? text.size() : feed + 1;
        string_view line = text.substr(at, end - at);
        if (auto name = sectionOf(line)) {
            inside = text::equalIgnoringCase(*name, section);
            first = touching = inside && !place.hasSection;
            if (first) place.start = next;
            place.hasSection |= inside;
        } else if (auto pair = inside ? pairOf(line) : std::nullopt) {
            if (text::equalIgnoringCase(pair->key, key)) {
                place.hasKey = true;
                place.value = pair->value;
                place.start = at + pair->valueAt;
                place.end = at + (line.ends_with('\r') ? line.size() - 1 : line.size());
                return place;
            }
            if (first) place.start = next;
            touching = false;
        } else if (first) {
            // Comments that touch the head are about this section, later ones perhaps about the next.
            if (trimmed(line).empty()) touching = false;
            if (touching) place.start = next;
        }
        at = next;
    }
    if (!place.hasSection) place.start = text.size();
    return place;
}

string_view lineEnd(string_view text) {
    std::size_t feed = text.find('\n');
    if (feed == string_view::npos) return "\r\n";
    return feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
}

} // namespace

string_view value(string_view text, string_view section, string_view key) {
    section = trimmed(section);
    key = trimmed(key);
    return storable(section, key) ? unquoted(find(text, section, key).value) : string_view();
}

std::string put(string_view text, string_view section, string_view key, string_view value) {
    section = trimmed(section);
    key = trimmed(key);
    std::string result(text);
    if (!storable(section, key)) return result;
    value = value.substr(0, value.find_first_of(kLineEnds));
    Place place = find(text, section, key);
    if (place.hasKey) return result.replace(place.start, place.end - place.start, value);
    string_view end = lineEnd(text);
    std::string lines;
    auto append = [&](std::initializer_list<string_view> pieces) {
        for (string_view piece : pieces) lines += piece;
    };
    if (place.start > 0 && text[place.start - 1] != '\n') lines += end; // behind a half line
    if (!place.hasSection) append({"[", section, "]", end});
    append({key, "=", value, end});
    return result.insert(place.start, lines);
}

} // namespace settings
