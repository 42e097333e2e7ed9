#pragma once

// A file of input events, one a line, for headless runs: "TICK EVENT ARGUMENTS", in rising order of ticks;
// "#" starts a comment.

#include <string>
#include <vector>

class CWindow;

namespace host {

class InputScript {
public:
    // Reads the file. Lines that are no events are left out, each told on standard error with its number and
    // the reason; false when the file can't be read.
    bool load(const std::string & file);
    // Hands the events of a tick to the window, behind the move of a pointer that the game set; true when one
    // of them closes the game.
    bool play(long tick, CWindow & window);

private:
    // The pointer's first.
    enum class Kind { move, down, up, doubleClick, keyDown, keyUp, character, focus, close };
    struct Event {
        long tick = 0;
        Kind kind = Kind::close;
        int button = 0; // 0 left, 1 middle, 2 right
        int a = 0, b = 0;
    };

    static std::string parse(const std::string & line, Event & event); // the mistake, empty for none
    static bool tell(const Event & event, CWindow & window);

    std::vector<Event> events_;
    std::size_t next_ = 0;
};

} // namespace host
