#pragma once

// Looks through the definition files of a game without running it, for what an author would want to know. The
// words are those that describe() prints; lines and files are read and found as a game's are. What scripts
// make up at run time (texts with $, names put together, clones) is taken to be right. Needs an installed
// world; leaves the current directory and the data roots changed. Main thread.

#include <string>
#include <utility>
#include <vector>

struct CheckResult {
    std::vector<std::string> findings; // "path:line: OBJECT: what is wrong: statement"
    int files = 0, objects = 0, calls = 0;
};

// root: the game's folder for the engine, without a backslash at its end; files: what people call each
// definition file and its path for the engine.
CheckResult check(const std::string & root, const std::vector<std::pair<std::string, std::string>> & files);
