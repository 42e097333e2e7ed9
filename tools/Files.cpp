#include "Files.h"

#include "platform/World.h"
#include "platform/text/Windows1250.h"

#include <climits>
#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

namespace tool {

namespace {

platform::FileSystem & files() { return *platform::world().files; }

std::string engineName(const std::string & name) {
    if (name.empty()) throw Failure("an empty name names no file");
    std::string path = fs::absolute(name).string();
    if (!platform::fitsWindows1250(path))
        throw Failure(name + ": the engine's names hold characters of Windows-1250 only");
    std::string own = files().fromMachine(path);
    if (path.find('\\') != std::string::npos || files().toMachine(own).empty())
        throw Failure(name + ": holds a character that Windows names can't");
    return own;
}

std::string read(const std::string & name, const char * mode) {
    std::unique_ptr<platform::File> file = files().open(engineName(name), mode);
    if (!file) {
        std::error_code error;
        fs::file_status status = fs::status(name, error);
        throw Failure(name + (fs::is_directory(status) ? ": is a folder"
                              : fs::exists(status)     ? ": can't be read"
                                                       : ": no such file"));
    }
    std::string text;
    char area[65536];
    while (std::size_t count = file->read(area, sizeof area)) {
        text.append(area, count);
        if (text.size() >= INT_MAX) throw Failure(name + ": is longer than 2 GB");
    }
    return text;
}

} // namespace

std::string readText(const std::string & name) { return read(name, "rt"); }

std::string readBytes(const std::string & name) { return read(name, "rb"); }

void write(const std::string & name, std::string_view bytes) {
    std::unique_ptr<platform::File> file = files().open(engineName(name), "wb");
    if (!file || file->write(bytes.data(), bytes.size()) != bytes.size() || file->flush() != 0)
        throw Failure(name + ": can't be written");
}

std::string withLineEnd(std::string text) {
    if (!text.empty() && text.back() != '\n') text += '\n';
    return text;
}

std::string shown(std::string_view windows1250) {
    std::string text;
    for (char c : platform::toUtf8(windows1250)) {
        auto code = static_cast<unsigned char>(c);
        if (code < 0x20 || code == 0x7F) // U+2400 to U+2421 picture them
            (text += "\xE2\x90") += static_cast<char>(0x80 + (code == 0x7F ? 0x21 : code));
        else
            text += c;
    }
    return text;
}

} // namespace tool
