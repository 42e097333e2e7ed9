#include "InputScript.h"

#include "app/CWindow.h"

#include <cstdio>
#include <fstream>
#include <sstream>

namespace host {

bool InputScript::parse(const std::string & line, Event & event) {
    std::istringstream words(line);
    std::string name, word;
    if (!(words >> event.tick >> name) || event.tick < 1) return false;
    auto numbers = [&](bool both) {
        return static_cast<bool>(words >> event.a) && (!both || static_cast<bool>(words >> event.b));
    };
    bool sound = false;
    if (name == "move" || name == "dblclick") {
        event.kind = name == "move" ? Kind::move : Kind::doubleClick;
        sound = numbers(true);
    } else if (name == "down" || name == "up") {
        event.kind = name == "down" ? Kind::down : Kind::up;
        words >> word;
        event.button = word == "left" ? 0 : word == "middle" ? 1 : word == "right" ? 2 : -1;
        sound = event.button >= 0 && numbers(true);
    } else if (name == "keydown" || name == "keyup" || name == "char") {
        event.kind = name == "keydown" ? Kind::keyDown : name == "keyup" ? Kind::keyUp : Kind::character;
        sound = numbers(false) && event.a >= 0 && event.a <= 255;
    } else if (name == "focus") {
        event.kind = Kind::focus;
        words >> word;
        event.a = word == "on";
        sound = word == "on" || word == "off";
    } else if (name == "close") {
        event.kind = Kind::close;
        sound = true;
    }
    return sound && !(words >> word);
}

bool InputScript::load(const std::string & file) {
    std::ifstream in(file);
    if (!in) return false;
    std::string line;
    for (int number = 1; std::getline(in, line); number++) {
        line.resize(std::min(line.find('#'), line.size()));
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        Event event;
        const char * mistake = nullptr;
        if (!parse(line, event))
            mistake = "is no event";
        else if (!events_.empty() && event.tick < events_.back().tick)
            mistake = "comes too late: ticks must rise";
        if (mistake)
            std::fprintf(stderr, "tarnook: %s:%d: %s\n", file.c_str(), number, mistake);
        else
            events_.push_back(event);
    }
    return true;
}

bool InputScript::tell(const Event & event, CWindow & window) {
    CXPoint point(event.a, event.b);
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
    case Kind::keyDown: window.OnKeyDown(event.a, 0); break;
    case Kind::keyUp: window.OnKeyUp(event.a, 0); break;
    case Kind::character: window.OnChar(event.a, 0); break;
    case Kind::focus: window.OnActivateApp(event.a != 0); break;
    case Kind::close: return window.OnExit();
    }
    return false;
}

bool InputScript::play(long tick, CWindow & window) {
    while (next_ < events_.size() && events_[next_].tick <= tick)
        if (tell(events_[next_++], window)) return true;
    return false;
}

} // namespace host
