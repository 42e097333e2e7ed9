#include "files/CConfig.h"

#include "files/SettingsText.h"
#include "platform/World.h"

#include <optional>

namespace {

bool exists(const std::string & path) {
    platform::FindData data;
    int handle = platform::world().files->findFirst(path, data);
    if (handle != -1) platform::world().files->findClose(handle);
    return handle != -1;
}

// The bytes of the file, none for a missing one; nothing when they can't be had.
std::optional<std::string> load(const std::string & path) {
    auto file = platform::world().files->open(path, "rb");
    if (!file) return exists(path) ? std::nullopt : std::optional<std::string>(std::string());
    if (file->seek(0, SEEK_END) != 0) return {};
    std::int64_t length = file->tell();
    if (length < 0 || length > CConfig::kLargestFile || file->seek(0, SEEK_SET) != 0) return {};
    std::string text(static_cast<std::size_t>(length), '\0');
    if (file->read(text.data(), text.size()) != text.size()) return {};
    return text;
}

void store(const std::string & path, const std::string & text) {
    const std::string fresh = path + ".tmp";
    bool written = false;
    if (auto file = platform::world().files->open(fresh, "wb"))
        written = file->write(text.data(), text.size()) == text.size() && file->flush() == 0;
    if (!written || !platform::world().files->replace(fresh, path)) platform::world().files->remove(fresh);
}

} // namespace

CConfig::CConfig(const CXString & fileName) : path_(fileName) {}

int CConfig::GetInt(const CXString & section, const CXString & key) const {
    return GetString(section, key).toNumber();
}

CXString CConfig::GetString(const CXString & section, const CXString & key) const {
    if (!path_.IsString()) return {};
    std::string text = load(std::string(path_.view())).value_or("");
    return CXString(settings::value(text, section.view(), key.view()).substr(0, kLongestValue));
}

void CConfig::PutInt(const CXString & section, const CXString & key, int value) {
    PutString(section, key, CXString::toString(value));
}

void CConfig::PutString(const CXString & section, const CXString & key, const CXString & value) {
    if (!path_.IsString()) return;
    const std::string path(path_.view());
    std::optional<std::string> before = load(path);
    if (!before) return;
    std::string after = settings::put(*before, section.view(), key.view(), value.view());
    if (after != *before) store(path, after);
}
