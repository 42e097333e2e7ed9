// The program `tarnook`: runs one game.

#include "CheckGame.h"
#include "Game.h"
#include "Options.h"

#include "app/Describe.h"
#include "platform/World.h"

#include <cstdio>

int main(int argc, char ** argv) {
    host::Options options;
    int status = host::read(argc, argv, options);
    if (status >= 0) return status;
    if (options.check) return host::checkGame(options);
    if (!options.describe) return host::run(options);
    auto world = platform::headless();
    platform::Installed installed(*world);
    std::fputs(describe().c_str(), stdout);
    return host::kEnded;
}
