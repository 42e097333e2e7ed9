#pragma once

// One run of a game, from its folder to its end.

#include "Options.h"

namespace host {

int run(const Options & options); // an exit status

} // namespace host
