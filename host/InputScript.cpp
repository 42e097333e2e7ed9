#include "InputScript.h"

#include "app/CWindow.h"
#include "platform/World.h"
#include "platform/input/ScriptedKeyboard.h"
#include "platform/input/ScriptedMouse.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>

namespace host {

namespace {

bool number(const std::string & word, long low, long high, long & value) {
    auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc() && end == word.data() + word.size() && value >= low && value <= high;
}

} // namespace

std::string InputScript::parse(const std::string & line, Event & event) {
    struct Row {
        const char * name;
        Kind kind;
        const char * wants; // b: a button, p: a coordinate, k: a byte, f: on or off
    };
    static constexpr Row kRows[] = {{"move", Kind::move, "pp"},      {"down", Kind::down, "bpp"},
                                    {"up", Kind::up, "bpp"},         {"dblclick", Kind::doubleClick, "pp"},
                                    {"keydown", Kind::keyDown, "k"}, {"keyup", Kind::keyUp, "k"},
                                    {"char", Kind::character, "k"},  {"focus", Kind::focus, "f"},
                                    {"close", Kind::close, ""}};

    std::istringstream text(line);
    std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
    if (!number(words[0], 1, LONG_MAX, event.tick)) return words[0] + " is no tick: they count from 1";
    if (words.size() < 2) return "no event behind the tick";
    const Row * row = std::ranges::find(kRows, words[1], &Row::name);
    if (row == std::end(kRows)) return "unknown event " + words[1];
    event.kind = row->kind;
    std::size_t next = 2;
    int * coordinate = &event.a;
    for (const char * want = row->wants; *want; want++, next++) {
        const std::string word = next < words.size() ? words[next] : "";
        const std::string found = word.empty() ? " behind " + words[next - 1] : ", not " + word;
        long value = 0;
        switch (*want) {
        case 'b':
            event.button = word == "left" ? 0 : word == "middle" ? 1 : word == "right" ? 2 : -1;
            if (event.button < 0) return words[1] + " wants left, middle or right" + found;
            break;
        case 'p':
            if (!number(word, INT_MIN, INT_MAX, value)) return words[1] + " wants x and y" + found;
            *std::exchange(coordinate, &event.b) = static_cast<int>(value);
            break;
        case 'k':
            if (!number(word, 0, 255, value)) return words[1] + " wants a number up to 255" + found;
            event.a = static_cast<int>(value);
            break;
        default:
            if (word != "on" && word != "off") return words[1] + " wants on or off" + found;
            event.a = word == "on";
        }
    }
    return next < words.size() ? words[next] + " is too much" : std::string();
}

bool InputScript::load(const std::string & file) {
    std::error_code error;
    std::ifstream in(file);
    if (!in || std::filesystem::is_directory(file, error)) return false;
    std::string line;
    for (int number = 1; std::getline(in, line); number++) {
        line.resize(std::min(line.find('#'), line.size()));
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        Event event;
        std::string mistake = parse(line, event);
        if (mistake.empty() && !events_.empty() && event.tick < events_.back().tick)
            mistake = "tick " + std::to_string(event.tick) + " stands behind tick " +
                      std::to_string(events_.back().tick) + ": they must rise";
        if (mistake.empty())
            events_.push_back(event);
        else
            std::fprintf(stderr, "tarnook: %s:%d: %s; left out\n", file.c_str(), number, mistake.c_str());
    }
    return true;
}

bool InputScript::tell(const Event & event, CWindow & window) {
    platform::ScriptedMouse & mouse = *platform::world().scriptedMouse;
    constexpr platform::Mouse::Part kButtons[] = {platform::Mouse::kLeft, platform::Mouse::kMiddle,
                                                  platform::Mouse::kRight};
    CXPoint point;
    if (event.kind <= Kind::doubleClick) {
        mouse.place(event.a, event.b); // a game may hold the pointer in a rectangle
        point = CXPoint(mouse.x(), mouse.y());
    }
    if (event.kind == Kind::down || event.kind == Kind::up)
        mouse.set(kButtons[event.button], event.kind == Kind::down);
    switch (event.kind) {
    case Kind::move: window.OnMouseMove(point, 0); break;
    case Kind::down:
        event.button == 0   ? window.OnLButtonDown(point, 0)
        : event.button == 1 ? window.OnMButtonDown(point, 0)
                            : window.OnRButtonDown(point, 0);
        break;
    case Kind::up:
        event.button == 0   ? window.OnLButtonUp(point, 0)
        : event.button == 1 ? window.OnMButtonUp(point, 0)
                            : window.OnRButtonUp(point, 0);
        break;
    case Kind::doubleClick: window.OnLButtonDblClk(point, 0); break;
    case Kind::keyDown: // keys that go down while another program has the focus are that one's
        if (window.isActive()) platform::world().scriptedKeyboard->set(event.a, true);
        break;
    case Kind::keyUp: platform::world().scriptedKeyboard->set(event.a, false); break;
    case Kind::character: window.OnChar(event.a, 0); break;
    case Kind::focus: window.OnActivateApp(event.a != 0); break;
    case Kind::close: return window.OnExit();
    }
    return false;
}

bool InputScript::play(long tick, CWindow & window) {
    platform::ScriptedMouse * mouse = platform::world().scriptedMouse;
    if (mouse && mouse->takeMoved()) window.OnMouseMove(CXPoint(mouse->x(), mouse->y()), 0);
    while (next_ < events_.size() && events_[next_].tick <= tick)
        if (tell(events_[next_++], window)) return true;
    return false;
}

} // namespace host
