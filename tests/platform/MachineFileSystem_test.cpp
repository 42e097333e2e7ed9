// Names, folders and drives of the machine's file system. The searches have a file of their own.

#include "platform/files/FileSystem.h"

#include "platform/text/Windows1250.h"
#include "support/InWorld.h"

#include <atomic>
#include <filesystem>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using platform::DriveType;
using platform::fromUtf8;

class FileSystem : public test::InWorld {
protected:
    using InWorld::InWorld;
    platform::FileSystem & files() { return *world().files; }

    // The bytes of a file, or "-" when it doesn't open.
    std::string read(const std::string & path) {
        auto file = files().open(path, "rb");
        if (!file) return "-";
        char block[64];
        return {block, file->read(block, sizeof block)};
    }
    bool write(const std::string & path, std::string_view bytes) {
        auto file = files().open(path, "wb");
        return file && file->write(bytes.data(), bytes.size()) == bytes.size();
    }
};

class FileSystemWithDisc : public FileSystem {
protected:
    static std::string disc() {
        static const std::string folder = [] {
            std::string pattern = (fs::temp_directory_path() / "tarnook-disc-XXXXXX").string();
            return std::string(mkdtemp(pattern.data()));
        }();
        return folder;
    }
    static platform::Options options() {
        platform::Options options;
        options.disc = disc() + "/"; // as a person would type it
        return options;
    }
    FileSystemWithDisc() : FileSystem(options()) {}
    static void TearDownTestSuite() { fs::remove_all(disc()); }
};

TEST_F(FileSystem, NamesMatchWithoutRegardToCase) {
    put("Dane/Scena/Łódka.ann", "boat");
    put("both", "small");
    put("BOTH", "large");
    put(".profile", "dot");
    struct {
        const char * name; // UTF-8 here
        const char * bytes;
    } const cases[] = {
        {"Dane\\Scena\\Łódka.ann", "boat"},
        {"dane\\SCENA\\ŁÓDKA.ANN", "boat"},
        {"DANE/scena/łódka.Ann", "boat"},
        {".\\Dane\\\\Scena\\.\\\\łódka.ann", "boat"},
        {"nowhere\\..\\dane\\x\\..\\scena\\łódka.ann", "boat"},
        {"both", "small"},
        {"BOTH", "large"},
        {"Both", "large"}, // of several the first in byte order
        {".PROFILE", "dot"},
        {"Dane\\Scena\\Lódka.ann", "-"},
        {"Dane\\Scena\\Łódka.ann\\", "-"},
        {"Dane\\Scena\\Łódka.ann.", "-"},
        {"Dane\\Scena\\Łódka.ann ", "-"},
        {"Dane\\Scena", "-"},
        {"Dane\\Scena\\", "-"},
        {"Dane\\Scena\\Łódka.ann\\x", "-"},
        {"", "-"},
        {".", "-"},
    };
    for (const auto & c : cases) EXPECT_EQ(read(fromUtf8(c.name)), c.bytes) << c.name;
}

TEST_F(FileSystem, DrivesAndRoots) {
    put("sub/a.txt", "a");
    const std::string here = windowsFolder(), rooted = here.substr(2);
    for (const std::string & path : {here + "\\sub\\a.txt", rooted + "\\sub\\a.txt",
                                     "c:" + rooted + "/SUB/a.txt", std::string("C:sub\\a.txt"),
                                     "\\..\\..\\." + rooted + "\\sub\\a.txt", "\\" + rooted + "\\sub\\a.txt"})
        EXPECT_EQ(read(path), "a") << path;
    for (const std::string & path : {"X:" + rooted + "\\sub\\a.txt", "D:" + rooted + "\\sub\\a.txt",
                                     std::string("D:sub\\a.txt"), "1:" + rooted + "\\sub\\a.txt"})
        EXPECT_EQ(read(path), "-") << path;

    EXPECT_EQ(files().driveType("C:\\"), DriveType::fixed);
    EXPECT_EQ(files().driveType("c:\\"), DriveType::fixed);
    EXPECT_EQ(files().driveType("D:\\"), DriveType::noRoot);
    EXPECT_EQ(files().driveType("E:\\"), DriveType::noRoot);
    EXPECT_EQ(files().driveType(""), DriveType::noRoot);
    EXPECT_EQ(files().driveType(":\\"), DriveType::noRoot);
    EXPECT_FALSE(files().changeDirectory("D:\\"));
    EXPECT_EQ(files().currentDirectory(), here);
}

TEST_F(FileSystemWithDisc, IsDriveD) {
    fs::create_directories(disc() + "/Dane");
    ASSERT_TRUE(write("d:\\dane\\A.txt", "disc"));
    EXPECT_TRUE(fs::exists(disc() + "/Dane/A.txt"));
    EXPECT_EQ(files().driveType("D:\\"), DriveType::optical);
    EXPECT_EQ(files().currentDirectory(), windowsFolder());
    EXPECT_EQ(read("D:Dane\\a.txt"), "disc"); // from the disc's root while C: is current
    EXPECT_EQ(read("D:\\..\\..\\dane\\a.txt"), "disc");
    EXPECT_EQ(files().toMachine("D:\\DANE\\a.TXT"), fs::canonical(disc() + "/Dane/A.txt").string());

    ASSERT_TRUE(files().changeDirectory("d:dane"));
    EXPECT_EQ(files().currentDirectory(), "D:\\Dane");
    EXPECT_EQ(read("a.txt"), "disc");
    EXPECT_EQ(read("d:a.txt"), "disc");
    EXPECT_EQ(read("\\dane\\a.txt"), "disc");
    EXPECT_EQ(read("c:a.txt"), "-");
    ASSERT_TRUE(files().changeDirectory(".."));
    EXPECT_EQ(files().currentDirectory(), "D:\\");
    ASSERT_TRUE(files().changeDirectory(".."));
    EXPECT_EQ(files().currentDirectory(), "D:\\");
}

TEST_F(FileSystem, CurrentDirectoryIsSpelledAsTheMachineHasIt) {
    fs::create_directories(folder() + "/Dane/Ósma Scena");
    const std::string here = windowsFolder();
    struct {
        const char * to;
        bool changes;
        const char * then; // below the test's folder
    } const cases[] = {
        {"DANE", true, "\\Dane"},
        {"ósma scena\\", true, "\\Dane\\Ósma Scena"},
        {"missing", false, "\\Dane\\Ósma Scena"},
        {"", false, "\\Dane\\Ósma Scena"},
        {".", true, "\\Dane\\Ósma Scena"},
        {"C:", true, "\\Dane\\Ósma Scena"},
        {"..\\missing\\..\\ÓSMA SCENA", true, "\\Dane\\Ósma Scena"},
        {"..\\..", true, ""},
    };
    for (const auto & c : cases) {
        EXPECT_EQ(files().changeDirectory(fromUtf8(c.to)), c.changes) << c.to;
        EXPECT_EQ(files().currentDirectory(), here + fromUtf8(c.then)) << c.to;
    }
    put("file", "");
    EXPECT_FALSE(files().changeDirectory("file"));
    const fs::path ofTheProcess = fs::current_path();
    EXPECT_TRUE(files().changeDirectory("\\"));
    EXPECT_EQ(files().currentDirectory(), "C:\\");
    EXPECT_EQ(fs::current_path(), ofTheProcess);
}

TEST_F(FileSystem, NamesThatWindowsCantHoldFail) {
    put("plain", "x");
    mkfifo((folder() + "/pipe").c_str(), 0600);
    for (std::string bad :
         {"a<b", "a>b", "a\"b", "a|b", "a?b", "plai?", "*", "a:b", "plain:s", "a\nb", "a\x01"}) {
        EXPECT_FALSE(write(bad, "")) << bad;
        EXPECT_FALSE(files().makeDirectory(bad)) << bad;
        EXPECT_EQ(files().toMachine(bad), "") << bad;
        EXPECT_EQ(files().toMachine("X\\" + bad + "\\y"), "") << bad;
    }
    EXPECT_EQ(read(std::string("plain\0", 6)), "-");
    EXPECT_EQ(read("pipe"), "-"); // and doesn't wait for a writer
    for (std::size_t length : {256u, 4095u, 4096u, 5000u, 100000u}) {
        const std::string name(length, 'a'), deep = "plain\\" + name;
        platform::FindData data;
        EXPECT_FALSE(write(name, "")) << length;
        EXPECT_EQ(read(deep), "-") << length;
        EXPECT_FALSE(files().makeDirectory(name)) << length;
        EXPECT_FALSE(files().changeDirectory(name)) << length;
        EXPECT_EQ(files().findFirst(name, data), -1) << length;
        EXPECT_EQ(files().findFirst(name + "*", data), -1) << length;
    }
    std::string climbing;
    while (climbing.size() < 4000) climbing += "..\\";
    EXPECT_EQ(read(climbing + windowsFolder().substr(3) + "\\plain"), "x");
}

TEST_F(FileSystem, ChangesTreatOtherSpellingsAsTheSameFile) {
    put("Save.DAT", "old");
    EXPECT_TRUE(write("SAVE.dat", "new"));
    EXPECT_EQ(get("Save.DAT"), "new");
    EXPECT_FALSE(exists("SAVE.dat"));
    EXPECT_TRUE(write("Fresh.Txt", "1"));
    EXPECT_TRUE(exists("Fresh.Txt"));

    EXPECT_TRUE(files().makeDirectory("Folder"));
    EXPECT_FALSE(files().makeDirectory("FOLDER"));
    EXPECT_FALSE(files().makeDirectory("save.dat"));
    EXPECT_FALSE(files().makeDirectory("missing\\deeper"));
    EXPECT_TRUE(write("folder\\inner", "2"));
    EXPECT_EQ(get("Folder/inner"), "2");
    EXPECT_FALSE(files().removeDirectory("folder"));
    EXPECT_FALSE(files().remove("folder"));
    EXPECT_FALSE(files().removeDirectory("folder\\inner"));
    EXPECT_TRUE(files().remove("FOLDER\\INNER"));
    EXPECT_FALSE(files().remove("FOLDER\\INNER"));
    EXPECT_TRUE(files().removeDirectory("folder"));
    EXPECT_FALSE(exists("Folder"));
    EXPECT_FALSE(write("missing\\x", ""));
}

// Every change, ours or another program's, is seen at the next question.
TEST_F(FileSystem, ListingsDontGoStale) {
    for (int round = 0; round < 50; round++) {
        const std::string name = "File" + std::to_string(round), other = "file" + std::to_string(round);
        EXPECT_EQ(read(other), "-");
        put(name, "there");
        EXPECT_EQ(read(other), "there") << round;
        fs::rename(folder() + "/" + name, folder() + "/FILE" + std::to_string(round));
        EXPECT_EQ(read(other), "there") << round;
        EXPECT_TRUE(files().remove(other)) << round;
        EXPECT_EQ(read(other), "-") << round;
    }
}

TEST_F(FileSystem, ReplaceAndCopy) {
    put("new", "new");
    put("Old", "old");
    fs::create_directories(folder() + "/folder");
    EXPECT_TRUE(files().copy("NEW", "folder\\third", true));
    EXPECT_FALSE(files().copy("new", "folder\\THIRD", true));
    EXPECT_TRUE(files().copy("old", "folder\\THIRD", false));
    EXPECT_EQ(get("folder/third"), "old");
    EXPECT_FALSE(files().copy("old", "OLD", false)); // onto itself
    EXPECT_EQ(get("Old"), "old");
    EXPECT_FALSE(files().copy("missing", "x", false));
    EXPECT_FALSE(files().copy("folder", "x", false));
    EXPECT_FALSE(files().copy("new", "folder", false));
    EXPECT_FALSE(exists("x"));

    EXPECT_TRUE(files().replace("new", "OLD"));
    EXPECT_EQ(get("Old"), "new");
    EXPECT_FALSE(exists("new"));
    EXPECT_FALSE(exists("OLD"));
    EXPECT_FALSE(files().replace("missing", "old"));
    EXPECT_FALSE(files().replace("old", "folder"));
    EXPECT_FALSE(files().replace("folder", "other"));
    EXPECT_FALSE(files().replace("old", "nowhere\\old"));
    EXPECT_EQ(get("Old"), "new");
    EXPECT_TRUE(files().replace("old", "Fresh"));
    EXPECT_EQ(get("Fresh"), "new");
}

TEST_F(FileSystem, MachineNames) {
    fs::create_directories(folder() + "/Dane");
    EXPECT_EQ(files().toMachine(fromUtf8("dane\\Nowy\\ŻABA.ann")), folder() + "/Dane/Nowy/ŻABA.ann");
    EXPECT_EQ(files().toMachine("C:\\"), "/");
    EXPECT_EQ(files().toMachine("D:\\a"), "");
    EXPECT_EQ(files().toMachine(""), "");
    EXPECT_EQ(files().fromMachine("/"), "C:\\");
    EXPECT_EQ(files().fromMachine("/a//b/./c/../ż/"), fromUtf8("C:\\a\\b\\ż"));
    EXPECT_EQ(files().fromMachine("/../.."), "C:\\");
}

// Opening is hot: a folder is read for a name that doesn't match as it is written, and then once.
TEST_F(FileSystem, FoldersAreReadOnlyWhenTheyMustBe) {
    put("d/Name", "x");
    put("d/Other", "y");
    fs::last_write_time(folder() + "/d", fs::file_time_type::clock::now() - std::chrono::hours(1));
    const int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(watch, 0);
    ASSERT_GE(inotify_add_watch(watch, (folder() + "/d").c_str(), IN_OPEN), 0);
    auto folderReads = [watch] {
        alignas(inotify_event) char events[4096];
        int reads = 0;
        for (ssize_t size; (size = ::read(watch, events, sizeof events)) > 0;)
            for (ssize_t at = 0; at < size;) {
                auto event = reinterpret_cast<const inotify_event *>(events + at);
                if ((event->mask & IN_ISDIR) && event->len == 0) reads++;
                at += static_cast<ssize_t>(sizeof *event + event->len);
            }
        return reads;
    };
    EXPECT_EQ(read("d\\Name"), "x");
    EXPECT_EQ(folderReads(), 0);
    EXPECT_EQ(read("d\\NAME"), "x");
    EXPECT_EQ(folderReads(), 1);
    EXPECT_EQ(read("d\\missing"), "-");
    EXPECT_EQ(read("d\\OTHER"), "y");
    EXPECT_EQ(folderReads(), 0);
    close(watch);
}

TEST_F(FileSystem, OpensFromSeveralThreads) {
    put("Dane/One.txt", "1");
    fs::create_directories(folder() + "/Other");
    std::atomic<int> misses = 0;
    auto opener = [&] {
        const std::string path = windowsFolder() + "\\dane\\";
        for (int i = 0; i < 300; i++) {
            if (read(path + (i % 2 ? "ONE.txt" : "One.txt")) != "1") misses++;
            if (read(path + "two" + std::to_string(i)) != "-") misses++;
        }
    };
    std::thread first(opener), second(opener);
    for (int i = 0; i < 300; i++) files().changeDirectory(i % 2 ? "..\\OTHER" : "..\\dane");
    first.join();
    second.join();
    EXPECT_EQ(misses, 0);
}

} // namespace
