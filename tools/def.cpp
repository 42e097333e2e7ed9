#include "Commands.h"
#include "Files.h"

#include "files/CTextFileReader.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"
#include "script/CMProperties.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>

namespace tool {

namespace {

// One thing a line, in the words of definition files.
std::string listing(CMElements & elements) {
    std::string text;
    for (CXObject * each : elements) {
        auto * element = static_cast<CMElement *>(each);
        std::string name = shown(element->getName().view());
        text += "OBJECT=" + name + "\n";
        for (CXObject * entry : *element->getProperties()) {
            auto * property = static_cast<CMProperty *>(entry);
            text += name + ":" + shown(property->getName().view());
            if (property->getValue().IsString()) text += "=" + shown(property->getValue().view());
            text += '\n';
        }
        for (CXObject * child : *element->getChildren())
            text += name + ":APPLY=" + shown(static_cast<CMElement *>(child)->getName().view()) + "\n";
    }
    return text;
}

void show(const std::string & name) {
    std::string text = readText(name);
    CTextFileReader reader(nullptr, text.data(), static_cast<int>(text.size()));
    std::unique_ptr<CMElements> elements(CMElementsLoader::load(nullptr, &reader));
    std::string lines = listing(*elements);
    if (std::fwrite(lines.data(), 1, lines.size(), stdout) != lines.size() || std::fflush(stdout) != 0)
        throw Failure("can't write to standard output");
    if (withLineEnd(text) != text)
        std::fprintf(stderr,
                     "tarnook-tool: %s: doesn't end in a line feed, so its last character isn't read\n",
                     name.c_str());
}

} // namespace

void addDef(CLI::App & program) {
    CLI::App * command = program.add_subcommand("def", "Shows a definition file as the engine reads it.");
    auto name = std::make_shared<std::string>();
    command->add_option("FILE", *name, "definition file, in clear or coded")->required();
    command->callback([name] { show(*name); });
}

} // namespace tool
