// tarnook-tool: makes and opens the files of games. Exit status 0, 1 when the work can't be done, 2 for a
// wrong command line.

#include "Commands.h"
#include "Files.h"

#include "platform/World.h"

#include <CLI/CLI.hpp>
#include <cstdio>

int main(int argc, char ** argv) {
    CLI::App program("Makes and opens the files of Tarnook games.", "tarnook-tool");
    program.set_version_flag("--version", "tarnook-tool " TARNOOK_VERSION);
    for (auto add :
         {tool::addDef, tool::addCode, tool::addDecode, tool::addImage, tool::addAnim, tool::addInfo})
        add(program);

    std::unique_ptr<platform::World> world = platform::headless();
    platform::Installed installed(*world);
    try {
        program.parse(argc, argv);
        // Not left to the parser, which would say this of a misspelt one too.
        if (program.get_subcommands().empty()) throw CLI::RequiredError("A subcommand");
        return 0;
    } catch (const CLI::ParseError & error) {
        if (error.get_exit_code() == 0) return program.exit(error); // help or version, as asked for
        std::fprintf(stderr, "tarnook-tool: %s (--help tells more)\n", error.what());
        return 2;
    } catch (const std::exception & failure) {
        std::fprintf(stderr, "tarnook-tool: %s\n", failure.what());
        return 1;
    }
}
