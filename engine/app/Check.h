#pragma once

// Looks through the definition files of a game without running it, for what an author would want to know. The
// words are those that describe() prints. What scripts make up at run time (texts with $, names in quotes,
// clones) is taken to be right. Needs an installed world. Main thread.

#include <string>
#include <utility>
#include <vector>

struct CheckResult {
    std::vector<std::string> findings; // "path:line: OBJECT: what is wrong: statement"
    int files = 0, objects = 0, calls = 0;
};

// files: what people call the file and its path for the engine; media: base names of all files of the game.
CheckResult check(const std::vector<std::pair<std::string, std::string>> & files,
                  const std::vector<std::string> & media);
