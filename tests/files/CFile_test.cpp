#include "files/CFile.h"

#include "files/CBigFileIfc.h"
#include "files/CFile_Stream.h"
#include "files/InGame.h"

#include <cstring>
#include <filesystem>
#include <functional>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kReadBinary = 17, kWriteBinary = 22, kReadText = 9, kWriteText = 14;

std::string allOf(CFile & file) {
    std::string bytes(static_cast<std::size_t>(std::max(file.Length(), 0)), '\0');
    bytes.resize(static_cast<std::size_t>(file.Read(bytes.data(), static_cast<int>(bytes.size()))));
    return bytes;
}

// A folder that is there before the world is made.
struct DiscFolder {
    DiscFolder() {
        std::string pattern = (fs::temp_directory_path() / "tarnook-disc-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        disc = pattern;
    }
    ~DiscFolder() { fs::remove_all(disc); }
    std::string disc;
};

// Two roots (local and disk), a third tree (other), all on drive C:, and a disc as drive D:.
class CFileSearch : private DiscFolder, public test::InGame {
protected:
    CFileSearch() : InGame({.seed = 1, .disc = DiscFolder::disc, .currentDirectory = {}}) {
        for (const char * each : {"local/Dane/s/x", "disk/Dane/s/x", "other/Dane/s/sub/x", "disc/Dane/s/x"})
            put(each, "");
        CWindow::rootPath = path("local") + "\\";
        CWindow::setCDPath(path("disk") + "\\");
    }

    void put(const std::string & name, std::string_view bytes) { InGame::put(onMachine(name), bytes); }
    std::string onMachine(const std::string & name) const {
        return name.starts_with("disc/") ? disc + name.substr(4) : name;
    }

    // Makes all these files, each saying its name. The one that is found goes, until none is left: they must
    // go in the order given. The decoys are never found.
    void expectOrder(const char * what, const std::function<std::string()> & found,
                     const std::vector<std::string> & files, const std::vector<std::string> & decoys) {
        for (auto & each : files) put(each, each);
        for (auto & each : decoys) put(each, each);
        for (auto & each : files) {
            EXPECT_EQ(found(), each) << what;
            fs::remove(fs::path(folder()) / onMachine(each));
        }
        EXPECT_EQ(found(), "") << what;
        for (auto & each : decoys) fs::remove(fs::path(folder()) / onMachine(each));
    }
};

TEST_F(CFileSearch, OpenTriesLanguagesAndRootsInOrder) {
    const std::string other = "C:" + std::string(path("other").view()).substr(2);
    struct {
        const char * what;
        std::string in; // the current directory
        std::string name;
        bool window;
        const char * language;
        std::vector<std::string> files, decoys;
    } cases[] = {
        {"fixed disk: as it stands, then the disk root, each with its language first",
         other + "\\Dane\\s",
         "a.ann",
         true,
         "0415",
         {"other/Dane/s/POL/a.ann", "other/Dane/s/a.ann", "disk/Dane/s/POL/a.ann", "disk/Dane/s/a.ann"},
         {"local/Dane/s/a.ann", "disc/Dane/s/a.ann", "other/Dane/s/CZE/a.ann"}},
        {"no language",
         other + "\\Dane\\s",
         "a.ann",
         true,
         nullptr,
         {"other/Dane/s/a.ann", "disk/Dane/s/a.ann"},
         {"other/Dane/s/POL/a.ann"}},
        {"no window: the local root, then as it stands",
         other + "\\Dane\\s",
         "a.ann",
         false,
         "0415",
         {"local/Dane/s/a.ann", "other/Dane/s/a.ann"},
         {"disk/Dane/s/a.ann", "local/Dane/s/POL/a.ann"}},
        {"disc: the local root, then as it stands",
         "D:\\Dane\\s",
         "a.ann",
         true,
         "0415",
         {"local/Dane/s/POL/a.ann", "local/Dane/s/a.ann", "disc/Dane/s/POL/a.ann", "disc/Dane/s/a.ann"},
         {"disk/Dane/s/a.ann"}},
        {"below the current directory",
         other + "\\Dane\\s",
         "sub?a.ann",
         true,
         nullptr,
         {"other/Dane/s/sub/a.ann", "disk/Dane/s/sub/a.ann"},
         {"other/Dane/s/a.ann"}},
        {"the disk root by sign",
         other + "\\Dane\\s",
         "$COMMON\\a.ann",
         true,
         "0405",
         {"disk/COMMON/CZE/a.ann", "disk/COMMON/a.ann"},
         {"other/COMMON/a.ann", "local/COMMON/a.ann"}},
        {"an absolute name moves to the disk root by the first marker in it, here within a word",
         other,
         other + "\\Danesh\\a.ann",
         true,
         nullptr,
         {"other/Danesh/a.ann", "disk/Danesh/a.ann"},
         {"disk/Dane/a.ann"}},
        {"sounds in any case",
         other,
         "wavs\\a.wav",
         true,
         nullptr,
         {"other/wavs/a.wav", "disk/WAVS/A.WAV"},
         {}},
        {"without a marker there is one place only",
         other,
         "a.ann",
         true,
         nullptr,
         {"other/a.ann"},
         {"disk/a.ann"}},
    };
    for (auto & each : cases) {
        ASSERT_TRUE(world().files->changeDirectory(each.in)) << each.what;
        CLanguageOSVer language;
        if (each.language) language.setLanguageFolder(each.language);
        CWindow window(nullptr, &commandLine_, &language, {800, 600}, nullptr, "", true);
        CWindow::rootPath = path("local") + "\\";
        auto found = [&] {
            CFile file(each.window ? &window : nullptr, CXString(each.name), kReadBinary);
            EXPECT_EQ(file.LastError(), file.GetHandle() ? 0 : 2000);
            return allOf(file);
        };
        expectOrder(each.what, found, each.files, each.decoys);
    }
}

TEST_F(CFileSearch, GetPathLooksBelowTheLocalRootFirst) {
    auto found = [&] {
        CXString where = CFile::getPath(&window_, "a.ann");
        auto file = world().files->open(std::string(where.view()), "rb");
        if (!file) return std::string();
        char bytes[100];
        return std::string(bytes, file->read(bytes, sizeof bytes));
    };
    enter("other/Dane/s");
    expectOrder("no language", found, {"local/Dane/s/a.ann", "other/Dane/s/a.ann"}, {"disk/Dane/s/a.ann"});
    language_.setLanguageFolder("0415");
    // A missing variant stands for its plain file, which thereby goes before the next variant.
    expectOrder(
        "language", found,
        {"local/Dane/s/POL/a.ann", "local/Dane/s/a.ann", "other/Dane/s/POL/a.ann", "other/Dane/s/a.ann"},
        {"disk/Dane/s/a.ann"});
    EXPECT_EQ(CFile::getPath(&window_, ""), "");
}

TEST_F(CFileSearch, NewFilesGoWhereTheFirstPlaceIs) {
    enter("other/Dane/s");
    CFile(&window_, "new.txt", kWriteText).putLine("a\nb");
    EXPECT_EQ(get("other/Dane/s/new.txt"), "a\nb");
    CFile(nullptr, "new2.txt", kWriteText).putLine("local");
    EXPECT_EQ(get("local/Dane/s/new2.txt"), "local");
}

TEST_F(CFileSearch, PathsMoveToARootAtTheFirstMarker) {
    CWindow::rootPath = "C:\\G\\";
    CWindow::setCDPath("D:\\");
    struct {
        const char *path, *local, *cd;
    } cases[] = {
        {"C:\\x\\Dane\\s\\a.ann", "C:\\G\\Dane\\s\\a.ann", "D:\\Dane\\s\\a.ann"},
        {"C:\\COMMON\\Dane\\a", "C:\\G\\Dane\\a", "D:\\Dane\\a"},
        {"C:\\x\\COMMON\\wavs", "C:\\G\\COMMON\\wavs", "D:\\COMMON\\wavs"},
        {"C:\\Danesh\\x.ann", "C:\\G\\Danesh\\x.ann", "D:\\Danesh\\x.ann"},
        {"C:\\g\\Wavs\\\xB9.wav", "C:\\G\\WAVS\\\xA5.WAV", "D:\\WAVS\\\xA5.WAV"},
        {"C:\\dane\\common\\x", "C:\\dane\\common\\x", "C:\\dane\\common\\x"},
        {"", "", ""},
    };
    for (auto & each : cases) {
        EXPECT_EQ(CFile::getLocalPath(each.path), each.local);
        EXPECT_EQ(CFile::getCDPath(each.path), each.cd);
    }
}

TEST_F(CFileSearch, KnowsFixedDisks) {
    EXPECT_TRUE(CFile::isHdd("C:\\x"));
    EXPECT_TRUE(CFile::isHdd("c"));
    for (const char * each : {"", "D:\\x", "Q:\\x", "\\x"}) EXPECT_FALSE(CFile::isHdd(each)) << each;
}

using CFileData = test::InGame;

TEST_F(CFileData, ModesAskForTextOrBytes) {
    struct {
        int mode;
        std::string read;
    } cases[] = {{kReadText, "a\nb\n"}, {1, "a\nb\n"}, {kReadBinary, "a\r\nb\n"}, {9 | 16, "a\nb\n"}};
    put("a.txt", "a\r\nb\n");
    for (auto & each : cases) {
        CFile file(&window_, "a.txt", each.mode);
        EXPECT_EQ(allOf(file), each.read) << each.mode;
    }
    for (int mode : {kWriteBinary, kWriteText, 6, 18}) {
        CFile file(&window_, "b.txt", mode);
        EXPECT_EQ(file.Write("1\n23", 4), 4);
        file.putLine("\n");
        EXPECT_EQ(file.Close(), 0);
        EXPECT_EQ(get("b.txt"), "1\n23\n") << mode;
    }
}

TEST_F(CFileData, ReadsSeeksAndKnowsItsEnd) {
    put("a.txt", "one\ntwo\n" + std::string(10300, 'x') + "\nlast");
    CFile file(&window_, "A.TXT", kReadBinary);
    EXPECT_EQ(file.getLine(), "one\n");
    EXPECT_EQ(file.Length(), 8 + 10300 + 5);
    EXPECT_EQ(file.Tell(), 4);
    char area[4] = "???";
    file.GetLine(area, 0);
    EXPECT_STREQ(area, "???");
    file.GetLine(area, sizeof area);
    EXPECT_STREQ(area, "two");
    file.getLine();
    EXPECT_EQ(file.getLine().getLength(), 10239);
    EXPECT_EQ(file.getLine().getLength(), 10300 - 10239 + 1);
    EXPECT_FALSE(file.eof());
    EXPECT_EQ(file.getLine(), "last");
    EXPECT_TRUE(file.eof());
    EXPECT_EQ(file.Seek(-4, SEEK_END), 0);
    EXPECT_EQ(file.Read(area, 3), 3);
    EXPECT_EQ(file.Read(area, 0), 0);
    EXPECT_EQ(file.Read(area, -1), 0);
    EXPECT_EQ(CFile::fTell(&file), file.Tell());
}

TEST_F(CFileData, ClosedFileAnswersSafely) {
    put("a.txt", "a");
    CFile file(&window_, "missing.txt", kReadBinary);
    for (int round = 0; round < 2; round++) {
        EXPECT_EQ(file.GetHandle(), nullptr);
        EXPECT_EQ(file.Length(), -1);
        EXPECT_EQ(file.Tell(), 0);
        char c = 0;
        EXPECT_EQ(file.Read(&c, 1) + file.Write(&c, 1), 0);
        EXPECT_EQ(file.getLine(), "");
        EXPECT_TRUE(file.eof());
        EXPECT_NE(file.Seek(0, SEEK_SET), 0);
        if (round == 0) {
            EXPECT_EQ(file.LastError(), 2000);
            EXPECT_EQ(file.Open(&window_, "a.txt", kReadBinary), 0);
            EXPECT_EQ(file.Close(), 0);
        }
    }
}

TEST_F(CFileData, HostileNamesAreNotFound) {
    put("Dane/x", "");
    language_.setLanguageFolder("0415");
    for (const CXString & name :
         {CXString(""), CXString("."), CXString(".."), CXString("Dane"), CXString("Q:\\x"), CXString(":"),
          CXString("a:"), CXString("?"), CXString("$"), CXString("a\nb"),
          CXString("..\\..\\..\\..\\..\\..\\..\\x"), CXString(std::string(4096, 'n')),
          CXString(std::string(2048, '?')), CXString(std::string(4096, '\\'))}) {
        EXPECT_EQ(CFile(&window_, name, kReadBinary).LastError(), 2000) << name.c_str();
        EXPECT_EQ(CFile(nullptr, name, kReadText).LastError(), 2000) << name.c_str();
        EXPECT_EQ(CFile::getPath(&window_, name), "") << name.c_str();
        EXPECT_FALSE(CFile::fileExists(name)) << name.c_str();
    }
}

TEST_F(CFileData, FoldersAndSearches) {
    put("a.x", "12345");
    put("b.x/c.y", "");
    put("d.x/e", "");
    const CXString here = CXString(windowsFolder()) + "\\";
    EXPECT_EQ(CFile::getCurrentDirectory(), here);
    EXPECT_TRUE(CFile::dirExists("b.x"));
    EXPECT_FALSE(CFile::dirExists("a.x"));
    EXPECT_FALSE(CFile::dirExists("nowhere"));
    EXPECT_EQ(CFile::getCurrentDirectory(), here);
    EXPECT_EQ(CFile::chDir("B.X"), 0);
    EXPECT_EQ(CFile::chDir("nowhere"), -1);
    EXPECT_TRUE(CFile::fileExists("c.y"));
    EXPECT_FALSE(CFile::fileExists("a.x"));
    char area[8];
    EXPECT_EQ(CFile::getCurrentDirectory(4, area), 3);
    EXPECT_STREQ(area, "C:\\");
    CFile::chDir("..");

    platform::FindData data;
    int handle = CFile::findFirst("*.x", data);
    ASSERT_NE(handle, -1);
    EXPECT_EQ(data.name, "a.x");
    EXPECT_EQ(data.size, 5U);
    CFile::findClose(handle);
    data.attrib = platform::FindData::kDirectory;
    handle = CFile::findFirst("*.x", data);
    ASSERT_NE(handle, -1);
    EXPECT_EQ(data.name, "b.x");
    EXPECT_EQ(CFile::findNext(handle, data), 0);
    EXPECT_EQ(data.name, "d.x");
    EXPECT_EQ(CFile::findNext(handle, data), -1);
    CFile::findClose(handle);
    data.attrib = platform::FindData::kDirectory;
    EXPECT_EQ(CFile::findFirst("a.*", data), -1);
}

struct Archive : CBigFileIfc {
    int Seek(const CXString &) override { return -1; }
    int GetSize(const CXString &) override { return 0; }
    int Seek(int, int) override { return 7; }
    int Tell() override { return 8; }
    CFile * GetFile() override { return &file; }
    int FindFirst(const CXString &, platform::FindData &) override { return 9; }
    int FindNext(int, platform::FindData &) override { return 10; }
    CXString GetCurrentDirectoryA() override { return "\\inside"; }
    int ChDir(const CXString &) override { return 11; }
    bool DirExists(const CXString & path) override { return path == "inside"; }
    bool FileExists(const CXString & path) override { return path == "inside"; }
    CFile file;
};

TEST_F(CFileData, AnOpenArchiveStandsForTheFolders) {
    put("outside", "x");
    CFile::bigFileOpener = [](const CXString & name) -> CBigFileIfc * {
        auto * archive = new Archive;
        archive->setErrorCode(name == "big" ? 0 : 2000);
        return archive;
    };
    EXPECT_FALSE(CFile::openBigFile("broken"));
    EXPECT_EQ(CFile::getBigFileHandle(), nullptr);
    ASSERT_TRUE(CFile::openBigFile("big"));
    EXPECT_EQ(CFile::getCurrentDirectory(), "\\inside\\");
    EXPECT_EQ(CFile::chDir(".."), 11);
    EXPECT_TRUE(CFile::fileExists("inside") && CFile::dirExists("inside"));
    EXPECT_FALSE(CFile::fileExists("outside"));
    platform::FindData data;
    EXPECT_EQ(CFile::findFirst("*", data), 9);
    EXPECT_EQ(CFile::findNext(9, data), 10);
    // Files still open from the disk.
    CFile file(&window_, "outside", kReadBinary);
    EXPECT_EQ(file.LastError(), 0);
    EXPECT_EQ(CFile::fSeek(&file, 1, SEEK_SET), 0);
    EXPECT_EQ(CFile::fTell(&file), 1);
    EXPECT_EQ(CFile::fSeek(CFile::getBigFileHandle(), 1, SEEK_SET), 7);
    EXPECT_EQ(CFile::fTell(CFile::getBigFileHandle()), 8);
    CFile::closeBigFile();
    CFile::bigFileOpener = nullptr;
    EXPECT_TRUE(CFile::fileExists("outside"));
    EXPECT_EQ(CFile::getBigFileIfc(), nullptr);
}

TEST(CFile_Stream, ReadsItsBlockAndStaysInside) {
    CFile_Stream stream("abcdef", 6);
    char area[8] = {};
    EXPECT_EQ(stream.Length(), 6);
    EXPECT_EQ(stream.GetHandle(), nullptr);
    EXPECT_EQ(stream.Read(area, 4), 4);
    EXPECT_STREQ(area, "abcd");
    struct {
        int offset, whence, position;
    } seeks[] = {{2, 0, 4}, {1, 1, 5},  {-3, 1, 2},         {-9, 1, 0}, {-3, 2, 6},
                 {0, 3, 6}, {-1, 1, 5}, {0x7FFFFFFF, 1, 6}, {-2, 1, 4}};
    for (auto & each : seeks) {
        stream.Seek(each.offset, each.whence);
        EXPECT_EQ(stream.Tell(), each.position) << each.offset << " " << each.whence;
        EXPECT_EQ(stream.eof(), each.position == 6);
    }
    EXPECT_EQ(stream.Read(area, 8), 2);
    EXPECT_EQ(area[0], 'e');
    EXPECT_EQ(stream.Read(area, 8), 0);
    EXPECT_EQ(stream.Read(area, -1), 0);
    EXPECT_EQ(stream.getLine(), "");
    EXPECT_EQ(CFile_Stream(nullptr, 5).Read(area, 5), 0);
    EXPECT_EQ(CFile_Stream("abc", -5).Length(), 0);
}

} // namespace
