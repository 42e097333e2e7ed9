#pragma once

// Runs the program tarnook-tool that stands beside this one.

#include "support/InWorld.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>

namespace test {

class Tool : public test::InWorld {
protected:
    struct Result {
        int status;
        std::string out, err;
    };

    // The shell's words behind the program's name; the test's folder is the current one.
    Result run(const std::string & arguments) {
        std::filesystem::path program =
            std::filesystem::read_symlink("/proc/self/exe").parent_path() / "tarnook-tool";
        std::string command = "cd '" + folder() + "' && '" + program.string() + "' " + arguments + " >'" +
                              folder() + "/out' 2>'" + folder() + "/err'";
        int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, get("out"), get("err")};
    }
};

} // namespace test
