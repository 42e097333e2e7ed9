#include "files/CLanguageOSVer.h"

#include "app/CWindow.h"
#include "files/CPath.h"
#include "platform/World.h"

#include <algorithm>

namespace {

struct Language {
    int number;
    std::string_view code;
    const char * folder;
};

constexpr Language kLanguages[] = {{1, "0415", "POL"}, {2, "0405", "CZE"}, {3, "0402", "BUL"},
                                   {4, "0418", "ROM"}, {5, "0419", "RUS"}, {6, "040E", "HUN"},
                                   {7, "041B", "SLO"}};

constexpr int kPolish = 1;

} // namespace

CLanguageOSVer::CLanguageOSVer() {
    CXString code(platform::world().locale->languageCode());
    code.Upper();
    choose(code.view());
}

void CLanguageOSVer::choose(std::string_view code) {
    for (const Language & each : kLanguages)
        if (each.code == code) number_ = each.number;
    for (const Language & each : kLanguages)
        if (each.number == number_) folder_ = each.folder;
}

void CLanguageOSVer::setLanguageFolder(const CXString & code) {
    choose(code.view());
    if (window_) window_->onLanguageChanged();
}

CXString CLanguageOSVer::getLocalFileName(const CXString & name) {
    if (!folder_.IsString()) return name;
    int i = name.FindLast('\\', -1);
    if (i < 0) return folder_ + "\\" + name;
    CXString candidate = name.Left(i + 1) + folder_ + name.Right(i);
    return platform::world().files->open(std::string(candidate.view()), "r") ? candidate : name;
}

CXString CLanguageOSVer::getTextLocale(int id) const {
    if (id != kDownloadFailed) return {};
    return number_ == kPolish ? "Wyst\xB9pi\xB3 b\xB3\xB9"
                                "d podczas download'u programu."
                              : "Some error has occured while downloading program.<<";
}
