#pragma once

// `tarnook FOLDER --check`: what an author would want to know, a line each.

#include "Options.h"

namespace host {

int checkGame(const Options & options); // an exit status: kFound when there was something to tell

} // namespace host
