#include "AnimText.h"

#include "Files.h"
#include "platform/text/Windows1250.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <climits>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>

namespace tool {

namespace {

constexpr const char * kHexDigits = "0123456789ABCDEF";

// ---- words and texts

bool plain(std::string_view text) {
    return !text.empty() && text[0] != '#' && text.find_first_of(" \t\"\\") == std::string_view::npos;
}

// A text of the file for this one: in quotes when it must be, and what has no character as \xHH.
std::string inQuotes(std::string_view text) {
    std::string out;
    bool isPlain = plain(text);
    for (char c : text) {
        auto code = static_cast<unsigned char>(c);
        std::string shown = platform::toUtf8({&c, 1});
        if (c == '"' || c == '\\')
            (out += '\\') += c;
        else if (code < 0x20 || code == 0x7F || platform::fromUtf8(shown) != std::string_view(&c, 1)) {
            (((out += "\\x") += kHexDigits[code >> 4]) += kHexDigits[code & 15]);
            isPlain = false;
        } else
            out += shown;
    }
    return isPlain ? out : "\"" + out + "\"";
}

class Line {
public:
    Line(const std::string & name, int number, std::string_view text)
        : where_(name + ":" + std::to_string(number)) {
        for (std::size_t i = 0; i < text.size();) {
            if (text[i] == ' ' || text[i] == '\t' || text[i] == '\r')
                i++;
            else if (text[i] == '"')
                i = takeQuoted(text, i + 1);
            else {
                std::size_t end = std::min(text.find_first_of(" \t\r", i), text.size());
                words_.emplace_back(text.substr(i, end - i));
                i = end;
            }
        }
    }
    [[noreturn]] void fail(const std::string & what) const { throw Failure(where_ + ": " + what); }
    bool atEnd() const { return next_ == words_.size(); }
    bool nextIsNumber() const { return !atEnd() && parse(words_[next_]).has_value(); }
    std::string word(const char * what) {
        if (atEnd()) fail(std::string(what) + " is missing");
        return words_[next_++];
    }
    std::string text(const char * what) { return platform::fromUtf8(word(what)); }
    int number(const char * what, int least, int most) {
        std::string digits = word(what);
        std::optional<int> value = parse(digits);
        if (!value || *value < least || *value > most)
            fail(std::string(what) + " is a number from " + std::to_string(least) + " to " +
                 std::to_string(most) + ", not " + digits);
        return *value;
    }

private:
    static std::optional<int> parse(std::string_view digits) {
        int base = digits.starts_with("0x") ? 16 : 10, value = 0;
        if (base == 16) digits.remove_prefix(2);
        auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
        if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
        return value;
    }
    std::size_t takeQuoted(std::string_view text, std::size_t i) {
        std::string word;
        for (; i < text.size() && text[i] != '"'; i++) {
            if (text[i] != '\\') {
                word += text[i];
                continue;
            }
            if (++i == text.size()) break;
            int code = 0;
            if (text[i] != 'x') {
                word += text[i];
            } else if (i + 2 < text.size() &&
                       std::from_chars(&text[i + 1], &text[i + 3], code, 16).ptr == &text[i + 3]) {
                // A byte that has no character of its own stands in UTF-8 as what the engine's texts make of
                // it.
                char byte = static_cast<char>(code);
                word += platform::toUtf8({&byte, 1});
                i += 2;
            } else {
                fail("\\x wants two digits");
            }
        }
        if (i >= text.size()) fail("a closing quote is missing");
        words_.push_back(word);
        return i + 1;
    }

    std::string where_;
    std::vector<std::string> words_;
    std::size_t next_ = 0;
};

// ---- events by the names of the pictures

bool isPictureOf(std::string_view file, std::string_view event) {
    if (file.size() <= event.size() || file[event.size()] != '_') return false;
    for (std::size_t i = 0; i < event.size(); i++)
        if (std::toupper(static_cast<unsigned char>(file[i])) !=
            std::toupper(static_cast<unsigned char>(event[i])))
            return false;
    std::string_view rest = file.substr(event.size() + 1);
    return rest.find('_') == std::string_view::npos;
}

std::string eventOf(std::string_view file) {
    std::size_t end = file.rfind('_');
    std::string name(file.substr(0, end == std::string_view::npos ? file.rfind('.') : end));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return name;
}

// ---- the text's lines

struct Event {
    _annEventInfo3 record;
    std::vector<std::string> files; // of its entries; none: by the event's name
    bool loops = false;             // over all of it
    std::vector<std::pair<int, std::function<void(_anmFrameInfo3 &)>>> changes;
    Line line;
};

class Parser {
public:
    Parser(const std::string & name, const std::vector<std::string> & pictures)
        : name_(name), pictures_(pictures) {}

    AnimText parse(std::string_view text) {
        anim_.file.fps = _annEventInfo3::kDefaultFps;
        int number = 0;
        while (!text.empty()) {
            std::size_t end = std::min(text.find('\n'), text.size());
            Line line(name_, ++number, text.substr(0, end));
            text.remove_prefix(std::min(end + 1, text.size()));
            if (!line.atEnd()) take(line);
        }
        if (anim_.frames.empty())
            for (const std::string & file : pictures_) anim_.frames.push_back({file, 0, 0});
        if (events_.empty()) nameEvents();
        for (Event & each : events_) finish(each);
        return std::move(anim_);
    }

private:
    void take(Line & line) {
        std::string what = line.word("a word");
        if (what[0] == '#') return;
        ann::File & file = anim_.file;
        if (what == "depth") {
            file.depth = line.number("the depth", 15, 16);
        } else if (what == "fps") {
            file.fps = line.number("fps", 0, INT_MAX);
        } else if (what == "flags") {
            file.flags = line.number("flags", 0, INT_MAX);
        } else if (what == "opacity") {
            file.opacity = static_cast<unsigned char>(line.number("opacity", 0, 255));
        } else if (what == "random") {
            file.randomFrames = line.number("random", INT16_MIN, INT16_MAX);
        } else if (what == "author") {
            file.author = line.text("the author");
        } else if (what == "description") {
            file.description = line.text("the description");
        } else if (what == "frame") {
            takeFrame(line);
        } else if (what == "event") {
            takeEvent(line);
        } else if (what == "show") {
            Event & event = last(line);
            event.files.push_back(line.word("a picture's file"));
            event.record.add(0);
            while (!line.atEnd()) attribute(line)(event.record.infos.back());
        } else if (what == "entry") {
            Event & event = last(line);
            int entry = line.number("an entry", 0, INT16_MAX);
            while (!line.atEnd()) event.changes.emplace_back(entry, attribute(line));
        } else {
            line.fail(
                "a line begins with frame, event, show, entry, depth, fps, opacity, flags, random, author or "
                "description, not " +
                what);
        }
        if (!line.atEnd()) line.fail("too many words: " + line.word(""));
    }

    Event & last(const Line & line) {
        if (events_.empty()) line.fail("an event must be declared first");
        return events_.back();
    }

    void takeFrame(Line & line) {
        FrameLine frame;
        frame.file = line.word("a picture's file");
        while (!line.atEnd()) {
            std::string what = line.word("");
            if (what == "at") {
                frame.x = line.number("x", INT16_MIN, INT16_MAX);
                frame.y = line.number("y", INT16_MIN, INT16_MAX);
            } else if (what == "empty") {
                frame.isEmpty = true;
            } else if (what == "alpha") {
                frame.keepsAlpha = true;
            } else if (what == "compression") {
                frame.compression = line.word("the compression");
            } else {
                line.fail("a frame has at, alpha, empty and compression, not " + what);
            }
        }
        anim_.frames.push_back(frame);
    }

    void takeEvent(Line & line) {
        Event event{{}, {}, false, {}, line};
        std::string name = line.text("the event's name");
        if (name.size() > _annEventInfo3::kStoredName)
            line.fail("an event's name has " + std::to_string(_annEventInfo3::kStoredName) +
                      " characters at most");
        _annEventInfo3 & record = event.record;
        record.name = CXString(std::string_view(name));
        while (!line.atEnd()) {
            std::string what = line.word("");
            if (what == "fps") {
                record.fps = line.number("fps", INT_MIN, INT_MAX);
            } else if (what == "opacity") {
                record.opacity = static_cast<unsigned char>(line.number("opacity", 0, 255));
            } else if (what == "flags") {
                record.flags = line.number("flags", INT_MIN, INT_MAX);
            } else if (what == "loop") {
                event.loops = !line.nextIsNumber();
                if (event.loops) continue;
                record.loopStart = static_cast<std::uint16_t>(line.number("the loop's start", 0, UINT16_MAX));
                record.loopEnd = static_cast<std::uint16_t>(line.number("the loop's end", 0, UINT16_MAX));
                if (line.nextIsNumber())
                    record.loopCount =
                        static_cast<std::uint16_t>(line.number("the loop's turns", 0, UINT16_MAX));
            } else {
                line.fail("an event has fps, loop, opacity and flags, not " + what);
            }
        }
        events_.push_back(std::move(event));
    }

    static std::function<void(_anmFrameInfo3 &)> attribute(Line & line) {
        std::string what = line.word("");
        if (what == "at") {
            auto x = static_cast<std::int16_t>(line.number("x", INT16_MIN, INT16_MAX));
            auto y = static_cast<std::int16_t>(line.number("y", INT16_MIN, INT16_MAX));
            return [=](_anmFrameInfo3 & info) {
                info.x = x;
                info.y = y;
            };
        }
        if (what == "opacity") {
            auto opacity = static_cast<unsigned char>(line.number("opacity", 0, 255));
            return [=](_anmFrameInfo3 & info) { info.opacity = opacity; };
        }
        if (what == "mark") {
            int mark = line.number("the mark", INT_MIN, INT_MAX);
            return [=](_anmFrameInfo3 & info) { info.mark = mark; };
        }
        static const std::map<std::string, CXString _anmFrameInfo3::*> texts = {
            {"name", &_anmFrameInfo3::name},
            {"text", &_anmFrameInfo3::text},
            {"sound", &_anmFrameInfo3::soundName}};
        auto found = texts.find(what);
        if (found == texts.end())
            line.fail("an entry has at, opacity, name, sound, text and mark, not " + what);
        std::string text = line.text(what.c_str());
        return [=](_anmFrameInfo3 & info) { info.*found->second = CXString(std::string_view(text)); };
    }

    void nameEvents() {
        for (const FrameLine & frame : anim_.frames) {
            std::string name = eventOf(frame.file);
            auto known = [&](const Event & event) {
                return event.record.name == CXString(std::string_view(name));
            };
            if (std::any_of(events_.begin(), events_.end(), known)) continue;
            Line line(name_, 1, "event " + inQuotes(name));
            line.word("");
            takeEvent(line);
        }
    }

    void finish(Event & event) {
        _annEventInfo3 & record = event.record;
        if (event.files.empty()) {
            std::string name(record.name.view());
            for (const FrameLine & frame : anim_.frames)
                if (isPictureOf(frame.file, name) || (frame.file == name + ".png")) {
                    event.files.push_back(frame.file);
                    record.add(0);
                }
        }
        for (std::size_t i = 0; i < event.files.size(); i++) {
            auto found = std::find_if(anim_.frames.begin(), anim_.frames.end(),
                                      [&](const FrameLine & frame) { return frame.file == event.files[i]; });
            if (found == anim_.frames.end())
                event.line.fail("shows " + event.files[i] + ", which is no frame");
            record.frames[i] = static_cast<std::uint16_t>(found - anim_.frames.begin());
        }
        for (auto & [entry, change] : event.changes) {
            if (entry >= record.size())
                event.line.fail("has no entry " + std::to_string(entry) + "; they count from 0");
            change(record.infos[static_cast<std::size_t>(entry)]);
        }
        if (event.loops && record.size() > 0) record.loopEnd = static_cast<std::uint16_t>(record.size() - 1);
        anim_.file.events.push_back(record);
    }

    const std::string & name_;
    const std::vector<std::string> & pictures_;
    AnimText anim_;
    std::vector<Event> events_;
};

std::string hex(int flags) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", static_cast<unsigned>(flags));
    return flags < 0 ? std::to_string(flags) : text;
}

} // namespace

AnimText parseAnimText(const std::string & name, std::string_view text,
                       const std::vector<std::string> & pictures) {
    return Parser(name, pictures).parse(text);
}

std::string writeAnimText(const AnimText & anim) {
    auto number = [](long value) { return std::to_string(value); };
    auto at = [&](int x, int y) { return x || y ? " at " + number(x) + " " + number(y) : std::string(); };
    const ann::File & file = anim.file;
    std::string out = "depth " + number(file.depth) + "\nfps " + number(file.fps) + "\n";
    if (file.flags) out += "flags " + hex(file.flags) + "\n";
    if (file.opacity != 255) out += "opacity " + number(file.opacity) + "\n";
    if (file.randomFrames) out += "random " + number(file.randomFrames) + "\n";
    if (!file.author.empty()) out += "author " + inQuotes(file.author) + "\n";
    if (!file.description.empty()) out += "description " + inQuotes(file.description) + "\n";
    out += "\n";
    for (const FrameLine & frame : anim.frames)
        out += "frame " + inQuotes(frame.file) + at(frame.x, frame.y) + (frame.isEmpty ? " empty" : "") +
               (frame.keepsAlpha ? " alpha" : "") +
               (frame.compression.empty() ? "" : " compression " + frame.compression) + "\n";
    for (const _annEventInfo3 & event : file.events) {
        out += "\nevent " + inQuotes(event.name.view()) + " fps " + number(event.fps);
        if (event.loopStart || event.loopEnd || event.loopCount)
            out += " loop " + number(event.loopStart) + " " + number(event.loopEnd) + " " +
                   number(event.loopCount);
        if (event.opacity != 255) out += " opacity " + number(event.opacity);
        if (event.flags) out += " flags " + hex(event.flags);
        out += "\n";
        for (std::size_t i = 0; i < event.frames.size(); i++) {
            const _anmFrameInfo3 & info = event.infos[i];
            out += "show " + inQuotes(anim.frames[event.frames[i]].file) + at(info.x, info.y);
            if (info.opacity != 255) out += " opacity " + number(info.opacity);
            if (info.name.IsString()) out += " name " + inQuotes(info.name.view());
            if (info.soundName.IsString()) out += " sound " + inQuotes(info.soundName.view());
            if (info.text.IsString()) out += " text " + inQuotes(info.text.view());
            if (info.mark != -1) out += " mark " + number(info.mark);
            out += "\n";
        }
    }
    return out;
}

} // namespace tool
