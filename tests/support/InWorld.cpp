#include "support/InWorld.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace test {

InWorld::InWorld(platform::Options options) {
    std::string pattern = (fs::temp_directory_path() / "tarnook-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) std::abort();
    folder_ = fs::canonical(pattern).string();
    if (options.currentDirectory.empty()) options.currentDirectory = folder_;
    world_ = platform::headless(options);
    installed_ = std::make_unique<platform::Installed>(*world_);
}

InWorld::~InWorld() {
    installed_.reset();
    world_.reset();
    fs::remove_all(folder_);
}

void InWorld::put(const std::string & name, std::string_view bytes) {
    fs::path path = fs::path(folder_) / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string InWorld::get(const std::string & name) const {
    std::ifstream in(fs::path(folder_) / name, std::ios::binary);
    EXPECT_TRUE(in.is_open()) << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

bool InWorld::exists(const std::string & name) const { return fs::exists(fs::path(folder_) / name); }

} // namespace test
