#include "Commands.h"
#include "Files.h"

#include "files/CTextCoder.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>

namespace tool {

namespace {

void decode(const std::string & from, const std::string & to) {
    std::string text = withLineEnd(readText(from));
    CTextFileReader reader(nullptr, text.data(), static_cast<int>(text.size()));
    CTextCoder coder(nullptr, &reader, true);
    if (!coder.isCoded()) throw Failure(from + ": isn't coded");
    std::string clear;
    long lines = 0;
    for (;; lines++) {
        std::string_view line = coder.nextLine();
        if (coder._eof()) break; // so this is the empty line behind the text
        (clear += line) += '\n';
    }
    write(to, clear);
    if (!coder.getRest().empty() || !reader.eof())
        std::fprintf(
            stderr,
            "tarnook-tool: %s: no <E> ends line %ld of the text, so it and what follows are left out\n",
            from.c_str(), lines + 1);
}

} // namespace

void addDecode(CLI::App & program) {
    struct Arguments {
        std::string from, to;
    };
    CLI::App * command = program.add_subcommand("decode", "Makes a clear copy of a coded text file.");
    auto arguments = std::make_shared<Arguments>();
    command->add_option("FROM", arguments->from, "coded file")->required();
    command->add_option("TO", arguments->to, "new file, in clear")->required();
    command->callback([arguments] { decode(arguments->from, arguments->to); });
}

} // namespace tool
