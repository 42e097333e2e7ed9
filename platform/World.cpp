#include "platform/World.h"

#include <cstdio>
#include <cstdlib>

namespace platform {

namespace {
World * installed = nullptr;
}

Installed::Installed(World & world) : before_(installed) { installed = &world; }

Installed::~Installed() { installed = before_; }

World & world() {
    if (!installed) {
        std::fputs("tarnook: no world is installed: the program must install one before it uses the engine\n",
                   stderr);
        std::abort();
    }
    return *installed;
}

} // namespace platform
