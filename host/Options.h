#pragma once

// The command line of the program: options of the host begin with two dashes, those of the engine with one
// dash or a slash, and the last word that is neither is the game's folder.

#include <string>
#include <vector>

namespace host {

struct Screenshot {
    long tick;
    std::string file;
};

struct Options {
    bool headless = false;
    long ticks = 0; // 0: until the game ends
    unsigned step = 16;
    unsigned seed = 0; // 0: not given
    int depth = 16;
    std::string input;
    std::vector<Screenshot> screenshots;
    std::string audio;
    std::string config = "settings.ini";
    std::string archive;
    int rate = 60;
    bool rawMouse = false;
    std::string disc;
    bool describe = false;
    bool check = false;
    std::string game;       // folder, "." when none is given
    std::string engineText; // the engine's command line
};

enum ExitStatus { kEnded = 0, kFound = 1, kWrongOption = 2, kNoApplication = 3, kNoDevice = 4 };

// Reads the arguments; the result is -1 to go on, else the exit status (after --help, --version or a mistake,
// which is told on standard error in one line).
int read(int argc, char ** argv, Options & options);

} // namespace host
