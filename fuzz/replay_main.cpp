// Stands in for the fuzzing engine where the compiler has none: runs each file given once, and each file of
// each folder given.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size);

namespace {

int files = 0;

bool run(const std::filesystem::path & path) {
    std::ifstream in(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    if (!in.is_open()) {
        std::fprintf(stderr, "%s: can't be read\n", path.c_str());
        return false;
    }
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    files++;
    return true;
}

} // namespace

int main(int argc, char ** argv) {
    for (int i = 1; i < argc; i++) {
        if (argv[i][0] == '-') continue; // an option of the fuzzing engine
        if (std::filesystem::is_directory(argv[i])) {
            for (const auto & entry : std::filesystem::recursive_directory_iterator(argv[i]))
                if (entry.is_regular_file() && !run(entry.path())) return 1;
        } else if (!run(argv[i])) {
            return 1;
        }
    }
    std::printf("%d inputs run\n", files);
    return 0;
}
