#include "CheckGame.h"

#include "app/Check.h"
#include "platform/World.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace host {

namespace {

std::string lowered(std::string text) {
    for (char & c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

} // namespace

int checkGame(const Options & options) {
    std::error_code error;
    fs::path game = fs::canonical(options.game, error);
    if (error || !fs::is_directory(game)) {
        std::fprintf(stderr, "tarnook: no such folder: %s\n", options.game.c_str());
        return kNoApplication;
    }
    platform::Options forms;
    forms.currentDirectory = game.string();
    auto world = platform::headless(forms);
    platform::Installed installed(*world);

    std::vector<fs::path> found;
    bool hasApplication = false;
    for (const auto & part : fs::directory_iterator(game, error)) {
        std::string folder = lowered(part.path().filename().string());
        if (!part.is_directory() || (folder != "dane" && folder != "common")) continue;
        for (const auto & each : fs::recursive_directory_iterator(part.path(), error)) {
            std::string name = lowered(each.path().filename().string());
            bool isApplication = folder == "dane" && name == "application.def";
            hasApplication |= isApplication;
            bool defines = isApplication || name.ends_with(".cnv") || name.ends_with(".class");
            if (defines && each.is_regular_file()) found.push_back(each.path());
        }
    }
    if (!hasApplication) {
        std::fprintf(stderr, "tarnook: no Dane/application.def in %s\n", game.c_str());
        return kNoApplication;
    }
    std::ranges::sort(found);
    std::vector<std::pair<std::string, std::string>> files;
    for (const fs::path & each : found)
        files.emplace_back(fs::relative(each, game, error).string(),
                           world->files->fromMachine(each.string()));
    CheckResult result = check(world->files->fromMachine(game.string()), files);
    for (const std::string & line : result.findings) std::puts(line.c_str());
    if (!result.findings.empty()) return kFound;
    std::printf("%d files, %d objects, %d calls: nothing to tell\n", result.files, result.objects,
                result.calls);
    return kEnded;
}

} // namespace host
