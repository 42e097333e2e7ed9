#include "Commands.h"
#include "Files.h"

#include "core/Text.h"
#include "files/CTextCoder.h"

#include <CLI/CLI.hpp>
#include <climits>
#include <memory>
#include <string>

namespace tool {

namespace {

constexpr int kCycle = 6; // what the engine takes for the copies that it makes itself

CTextFileReader readerOf(const std::string & text) {
    return {nullptr, text.data(), static_cast<int>(text.size())};
}

// The number of the first line that doesn't come back out of the coded text, counted from 1; 0 if all do.
// Coding takes blanks off the ends and tabs out; a long cycle can make a line feed of a letter.
int firstLost(const std::string & text, const std::string & coded) {
    CTextFileReader clear = readerOf(text), stored = readerOf(coded);
    CTextCoder coder(nullptr, &stored, true);
    int number = 0;
    while (!clear.eof()) {
        number++;
        std::string line(text::trimBlanks(clear.nextLine()));
        std::erase(line, '\t');
        if (coder.nextLine() != line || coder._eof()) return number;
    }
    coder.nextLine();
    return coder._eof() ? 0 : number;
}

void code(const std::string & from, const std::string & to, int cycle) {
    std::string text = withLineEnd(readText(from));
    CTextFileReader reader = readerOf(text);
    if (CTextCoder(nullptr, &reader, true).isCoded()) throw Failure(from + ": is coded already");
    reader.reset();
    std::string coded = CTextCoder::code(&reader, cycle);
    if (coded.size() > INT_MAX) throw Failure(from + ": would be longer than 2 GB when coded");
    if (int line = firstLost(text, coded))
        throw Failure(from + ":" + std::to_string(line) + ": can't be coded with a cycle of " +
                      std::to_string(cycle) + ", since the line would change");
    write(to, coded);
}

} // namespace

void addCode(CLI::App & program) {
    struct Arguments {
        std::string from, to;
        int cycle = kCycle;
    };
    CLI::App * command = program.add_subcommand("code", "Makes a coded copy of a text file.");
    auto arguments = std::make_shared<Arguments>();
    command->add_option("FROM", arguments->from, "file in clear")->required();
    command->add_option("TO", arguments->to, "new file, coded")->required();
    command->add_option("--cycle", arguments->cycle, "source lines in a line, and steps of the coding")
        ->check(CLI::Range(1, INT_MAX))
        ->capture_default_str();
    command->callback([arguments] { code(arguments->from, arguments->to, arguments->cycle); });
}

} // namespace tool
