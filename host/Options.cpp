#include "Options.h"

#include "app/CCommandLine6.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>

namespace host {

namespace {

// TICK:FILE.png
Screenshot screenshot(const std::string & text) {
    std::size_t colon = text.find(':');
    char * end = nullptr;
    long tick = std::strtol(text.c_str(), &end, 10);
    if (colon == std::string::npos || end != text.c_str() + colon || tick < 1 || colon + 1 == text.size())
        throw CLI::ValidationError("--screenshot", "wants TICK:FILE.png, not " + text);
    return {tick, text.substr(colon + 1)};
}

// A word behind one slash is an option of a game's own scripts, or a folder of the machine.
bool maybeOption(const std::string & word) {
    return word.starts_with('/') && word.find('/', 1) == std::string::npos &&
           !std::filesystem::is_directory(word);
}

// Splits what the host doesn't know into the engine's words and the game's folder, the last that is no
// option and no option's argument.
void split(const std::vector<std::string> & words, Options & options) {
    std::size_t folder = words.size();
    for (std::size_t i = 0; i < words.size(); i++) {
        if (words[i].starts_with("--")) throw CLI::ExtrasError({words[i]});
        int arguments = CCommandLine6::argumentsOf(words[i]);
        if (arguments >= 0)
            i += static_cast<std::size_t>(arguments);
        else if (!words[i].starts_with('-') && (folder == words.size() || !maybeOption(words[i])))
            folder = i;
    }
    options.game = folder < words.size() ? words[folder] : ".";
    for (std::size_t i = 0; i < words.size(); i++) {
        if (i == folder) continue;
        if (!options.engineText.empty()) options.engineText += ' ';
        options.engineText += words[i];
    }
}

} // namespace

int read(int argc, char ** argv, Options & options) {
    CLI::App app("Runs a game made of text definitions and media files:\n  tarnook [host options] [engine "
                 "options] [GAMEFOLDER]",
                 "tarnook");
    app.allow_extras();
    app.set_help_flag("--help", "this text");
    app.set_version_flag("--version", "Tarnook " TARNOOK_VERSION);
    CLI::Option * headless = app.add_flag("--headless", options.headless,
                                          "no window and no sound: virtual time, message boxes as lines");
    app.add_option("--ticks", options.ticks, "leave after so many ticks")->check(CLI::PositiveNumber);
    app.add_option("--step", options.step, "headless: milliseconds between ticks")
        ->needs(headless)
        ->capture_default_str();
    app.add_option("--seed", options.seed, "seed of the random numbers")->check(CLI::PositiveNumber);
    app.add_option("--depth", options.depth, "depth of the display")
        ->check(CLI::IsMember({15, 16}))
        ->capture_default_str();
    app.add_option("--input", options.input, "headless: file of input events, TICK EVENT ARGUMENTS a line")
        ->needs(headless);
    std::vector<std::string> screenshots;
    app.add_option("--screenshot", screenshots, "the picture after a tick, TICK:FILE.png")
        ->type_size(1)
        ->expected(1, CLI::detail::expected_max_vector_size) // given again and again, one word each time
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    app.add_option("--audio", options.audio, "headless: all that would be heard, as a WAV file")
        ->needs(headless);
    app.add_option("--config", options.config, "settings file in the game's folder")->capture_default_str();
    app.add_option("--archive", options.archive, "big file to open");
    app.add_option("--rate", options.rate, "desktop: ticks a second at most")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    app.add_flag("--raw-mouse", options.rawMouse,
                 "desktop: read the mouse as a device, on a thread of its own")
        ->excludes(headless);
    app.add_option("--disc", options.disc, "folder of the machine to show as drive D:")
        ->check(CLI::ExistingDirectory);
    app.add_flag("--check", options.check,
                 "tell what is wrong in the game's definitions, leave: 1 when something is");
    app.add_flag("--describe", options.describe, "print every word of the script language, leave");
    try {
        app.parse(argc, argv);
        for (const std::string & each : screenshots) options.screenshots.push_back(screenshot(each));
        split(app.remaining(), options);
    } catch (const CLI::ParseError & error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        std::string text = error.what();
        std::fprintf(stderr, "tarnook: %s (tarnook --help lists the options)\n", text.c_str());
        return kWrongOption;
    }
    return -1;
}

} // namespace host
