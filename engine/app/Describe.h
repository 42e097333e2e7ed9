#pragma once

// Every word that a script can use, from the tables that the engine itself goes by, one a line:
// TYPE, "key", "signal", "method" or "statement", the word, and for methods and statements the id and the
// parameters in words, with tabs between them. "*" is what every object answers, "@" the statements.

#include <string>

std::string describe();
