#include "InputScript.h"

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
    using Message = GameWindow::Message;
    struct Row {
        const char * name;
        Message::Kind kind;
        const char * wants; // b: a button, p: a coordinate, k: a byte, f: on or off
    };
    // A key is no message: it goes to the keyboard.
    static constexpr Row kRows[] = {
        {"move", Message::kMove, "pp"},        {"down", Message::kDown, "bpp"},
        {"up", Message::kUp, "bpp"},           {"dblclick", Message::kDoubleClick, "pp"},
        {"keydown", Message::kCharacter, "k"}, {"keyup", Message::kCharacter, "k"},
        {"char", Message::kCharacter, "k"},    {"focus", Message::kFocus, "f"},
        {"close", Message::kClose, ""}};

    std::istringstream text(line);
    std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
    if (!number(words[0], 1, LONG_MAX, event.tick)) return words[0] + " is no tick: they count from 1";
    if (words.size() < 2) return "no event behind the tick";
    const Row * row = std::ranges::find(kRows, words[1], &Row::name);
    if (row == std::end(kRows)) return "unknown event " + words[1];
    Message & message = event.message;
    message.kind = row->kind;
    if (words[1].starts_with("key")) event.kind = words[1] == "keydown" ? Event::kKeyDown : Event::kKeyUp;
    std::size_t next = 2;
    int * coordinate = &message.x;
    for (const char * want = row->wants; *want; want++, next++) {
        const std::string word = next < words.size() ? words[next] : "";
        const std::string found = word.empty() ? " behind " + words[next - 1] : ", not " + word;
        long value = 0;
        switch (*want) {
        case 'b':
            message.button = word == "left" ? 0 : word == "middle" ? 1 : word == "right" ? 2 : -1;
            if (message.button < 0) return words[1] + " wants left, middle or right" + found;
            break;
        case 'p':
            if (!number(word, INT_MIN, INT_MAX, value)) return words[1] + " wants x and y" + found;
            *std::exchange(coordinate, &message.y) = static_cast<int>(value);
            break;
        case 'k':
            if (!number(word, 0, 255, value)) return words[1] + " wants a number up to 255" + found;
            message.value = static_cast<int>(value);
            break;
        default:
            if (word != "on" && word != "off") return words[1] + " wants on or off" + found;
            message.value = word == "on";
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

bool InputScript::tell(Event event, GameWindow & window) {
    using Message = GameWindow::Message;
    using platform::Mouse;
    platform::ScriptedKeyboard & keyboard = *platform::world().scriptedKeyboard;
    platform::ScriptedMouse & mouse = *platform::world().scriptedMouse;
    Message & message = event.message;
    switch (event.kind) {
    case Event::kKeyDown: // while another program has the focus it is that one's
        if (window.isActive()) keyboard.set(message.value, true);
        return false;
    case Event::kKeyUp: keyboard.set(message.value, false); return false;
    case Event::kMessage: break;
    }
    if (message.kind <= Message::kDoubleClick) {
        mouse.place(message.x, message.y); // a game may hold the pointer in a rectangle
        message.x = mouse.x();
        message.y = mouse.y();
    }
    constexpr Mouse::Part kButtons[] = {Mouse::kLeft, Mouse::kMiddle, Mouse::kRight};
    if (message.kind == Message::kDown || message.kind == Message::kUp)
        mouse.set(kButtons[message.button], message.kind == Message::kDown);
    return window.tell(message);
}

bool InputScript::play(long tick, GameWindow & window) {
    platform::ScriptedMouse * mouse = platform::world().scriptedMouse;
    if (mouse && mouse->takeMoved())
        window.tell({.kind = GameWindow::Message::kMove, .x = mouse->x(), .y = mouse->y()});
    while (next_ < events_.size() && events_[next_].tick <= tick)
        if (tell(events_[next_++], window)) return true;
    return false;
}

} // namespace host
