#include "files/CPath.h"

#include "core/CXArray.h"
#include "files/CFile.h"
#include "files/CFileNameResolver.h"
#include "files/InGame.h"

#include <vector>

namespace {

using Paths = test::InGame;

TEST_F(Paths, NamesPointToRootsAndSubFolders) {
    CWindow::rootPath = "C:\\local\\";
    CWindow::setCDPath("D:\\disk\\");
    const CXString here = CFile::getCurrentDirectory() + "\\"; // the doubled backslash is as it always was
    struct {
        const char * name;
        CXString onDisk, onLocal;
    } cases[] = {
        {"a.ann", "a.ann", "a.ann"},
        {"", "", ""},
        {"$COMMON\\CLASSES\\", "D:\\disk\\COMMON\\CLASSES\\", "C:\\local\\COMMON\\CLASSES\\"},
        {"&a", "D:\\disk\\a", "C:\\local\\a"},
        {"$", "D:\\disk\\", "C:\\local\\"},
        {"a$b&", "a$b&", "a$b&"},
        {"a?b", here + "a\\b", here + "a\\b"},
        {"a?b?c", here + "a\\b", here + "a\\b"},
        {"?b", here + "b", here + "b"},
        {"b?", here + "b", here + "b"},
        {"?", here, here},
    };
    for (auto & each : cases) {
        EXPECT_EQ(CPath::resolveFileName(&window_, each.name), each.onDisk) << each.name;
        EXPECT_EQ(CPath(&window_).resolveFileName(each.name), each.onDisk) << each.name;
        EXPECT_EQ(CPath::resolveFileNameEx(&window_, each.name), each.onLocal) << each.name;
    }
}

TEST_F(Paths, Join) {
    EXPECT_EQ(CPath::getFullPath("", "b"), "b");
    EXPECT_EQ(CPath::getFullPath("a", "b"), "a\\b");
    EXPECT_EQ(CPath::getFullPath("a\\", "b"), "a\\b");
    EXPECT_EQ(CPath::getFullPath("a", "b", "c"), "a\\b\\c");
    EXPECT_EQ(CPath::getFullPath("a\\", "", "c"), "a\\\\c");
    EXPECT_EQ(CPath::getFullPath("", "", ""), "\\");

    CPath here(&window_);
    EXPECT_EQ(here.getCurrentPath(), CFile::getCurrentDirectory());
    EXPECT_EQ(here.GetFullPath(""), CFile::getCurrentDirectory());
    EXPECT_EQ(here.GetFullPath("a", "b"), CFile::getCurrentDirectory() + "\\a\\b");
    EXPECT_FALSE(here.isCD());
}

TEST_F(Paths, Extensions) {
    struct {
        const char *name, *extension, *changed;
    } cases[] = {{"a.ann", "ann", "a.wav"}, {"a.b.c", "c", "a.wav"}, {"a", "", "awav"}, {".", "", ".wav"}};
    for (auto & each : cases) {
        CPath path(&window_, each.name);
        EXPECT_EQ(path.getExtension(), each.extension) << each.name;
        EXPECT_EQ(path.SetExtension("wav"), each.changed) << each.name;
        EXPECT_EQ(path.getCurrentPath(), "");
        EXPECT_FALSE(path.isCD());
    }
}

TEST_F(Paths, TakenApart) {
    using Names = std::vector<std::string>;
    struct {
        const char * source;
        char drive;
        Names directories;
        const char *path, *name, *pure, *extension;
    } cases[] = {
        {"C:\\Dane\\s\\a.ann", 'C', {"C:", "Dane", "s"}, "C:\\Dane\\s\\", "a.ann", "a", "ann"},
        {"a.b.c", 0, {}, "", "a.b.c", "a", "b"},
        {"a", 0, {}, "", "a", "a", ""},
        {"", 0, {}, "", "", "", ""},
        {"\\\\host\\\\x\\", 0, {"host", "x"}, "\\\\host\\\\x\\", "", "", ""},
        {"d:x.y", 'd', {}, "", "d:x.y", "d:x", "y"},
        {"\\:\\y", 0, {":"}, "\\:\\", "y", "y", ""},
        {"x\\c:\\y", 0, {"x", "c:"}, "x\\c:\\", "y", "y", ""},
        {".x", 0, {}, "", ".x", "", "x"},
    };
    for (auto & each : cases) {
        CFileNameResolver resolver(each.source);
        Names directories;
        for (int i = 0; i < resolver.getDirectories()->size; i++)
            directories.emplace_back(resolver.getDirectories()->stringAt(i)->view());
        EXPECT_EQ(resolver.getDrive(), each.drive) << each.source;
        EXPECT_EQ(directories, each.directories) << each.source;
        EXPECT_EQ(resolver.getPath(), each.path) << each.source;
        EXPECT_EQ(resolver.getFileName(), each.name) << each.source;
        EXPECT_EQ(resolver.getPureFileName(), each.pure) << each.source;
        EXPECT_EQ(resolver.getExtension(), each.extension) << each.source;
    }
}

struct Speaking : platform::Locale {
    explicit Speaking(std::string in) : code(std::move(in)) {}
    const char * name() const override { return "test"; }
    std::string languageCode() override { return code; }
    std::string code;
};

TEST_F(Paths, LanguageComesFromTheSystemOrByCode) {
    struct {
        const char * code;
        int number;
        const char * folder;
    } cases[] = {{"0415", 1, "POL"}, {"0405", 2, "CZE"}, {"0402", 3, "BUL"},
                 {"0418", 4, "ROM"}, {"0419", 5, "RUS"}, {"040e", 6, "HUN"},
                 {"041B", 7, "SLO"}, {"0409", 9, ""},    {"", 9, ""}};
    for (auto & each : cases) {
        world().locale = std::make_unique<Speaking>(each.code);
        CLanguageOSVer language;
        EXPECT_EQ(language.getLang(), each.number) << each.code;
        EXPECT_EQ(language.getLanguageFolder(), each.folder) << each.code;
    }
    CLanguageOSVer language;
    language.setLanguageFolder("0418");
    for (const char * unknown : {"", "040e", "POL"}) {
        language.setLanguageFolder(unknown);
        EXPECT_EQ(language.getLang(), 4) << unknown;
        EXPECT_EQ(language.getLanguageFolder(), "ROM") << unknown;
    }
}

TEST_F(Paths, LanguageVariantsStandInASubFolder) {
    put("Dane/POL/a.ann", "");
    put("Dane/b.ann", "");
    const CXString folder = path("Dane") + "\\";
    EXPECT_EQ(language_.getLocalFileName(folder + "a.ann"), folder + "a.ann");
    language_.setLanguageFolder("0415");
    EXPECT_EQ(language_.getLocalFileName(folder + "a.ann"), folder + "POL\\a.ann");
    EXPECT_EQ(language_.getLocalFileName(folder + "b.ann"), folder + "b.ann");
    EXPECT_EQ(language_.getLocalFileName("missing"), "POL\\missing");
    EXPECT_EQ(language_.getLocalFileName(folder), folder); // a folder doesn't open
}

TEST_F(Paths, BuiltInTexts) {
    EXPECT_EQ(language_.getTextLocale(2), "Some error has occured while downloading program.<<");
    language_.setLanguageFolder("0415");
    EXPECT_EQ(language_.getTextLocale(2), "Wyst\xB9pi\xB3 b\xB3\xB9\x64 podczas download'u programu.");
    EXPECT_EQ(language_.getTextLocale(1), "");
}

} // namespace
