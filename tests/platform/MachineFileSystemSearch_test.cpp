// Searches by mask: what fits, in which order, and what is told of a hit.

#include "platform/files/FileSystem.h"

#include "platform/text/Windows1250.h"
#include "support/InWorld.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

using platform::FindData;
using platform::fromUtf8;

class FileSearch : public test::InWorld {
protected:
    platform::FileSystem & files() { return *world().files; }

    // The hits in their order, in UTF-8 and divided by blanks.
    std::string search(const std::string & utf8Mask) {
        FindData data;
        std::string hits;
        int handle = files().findFirst(fromUtf8(utf8Mask), data);
        if (handle == -1) return "";
        do hits += (hits.empty() ? "" : " ") + platform::toUtf8(data.name);
        while (files().findNext(handle, data) == 0);
        files().findClose(handle);
        return hits;
    }
};

TEST_F(FileSearch, Masks) {
    for (const char * name :
         {"a", "b.c", "ab.txt", "Abc.TXT", "abcd.tx", "x.tar.gz", "ŻABA.ann", "żuk.ann", ".dot"})
        put(std::string("d/") + name, "");
    struct {
        const char * mask;
        const char * hits;
    } const cases[] = {
        {"*", ". .. .dot a ab.txt Abc.TXT abcd.tx b.c x.tar.gz ŻABA.ann żuk.ann"},
        {"*.*", ". .. .dot a ab.txt Abc.TXT abcd.tx b.c x.tar.gz ŻABA.ann żuk.ann"},
        {"*.", ". .. a"},
        {"a*.", "a"},
        {"?", "a"},
        {"??", "a"},
        {"?.?", ". a b.c"},
        {"?.c", "b.c"},
        {"???.c", "b.c"},
        {"a?", "a"},
        {"A*.*", "a ab.txt Abc.TXT abcd.tx"},
        {"a.*", "a"},
        {"*.txt", "ab.txt Abc.TXT"},
        {"*.tx", "abcd.tx"},
        {"*.tx?", "ab.txt Abc.TXT abcd.tx"},
        {"ab??.tx*", "ab.txt Abc.TXT abcd.tx"},
        {"ab?.txt", "ab.txt Abc.TXT"},
        {"*b*", "ab.txt Abc.TXT abcd.tx b.c ŻABA.ann"},
        {"*.gz", "x.tar.gz"},
        {"x.*.gz", "x.tar.gz"},
        {"x*gz", "x.tar.gz"},
        {"x.tar", ""},
        {"x.tar.*", "x.tar.gz"},
        {"*.dot", ".dot"},
        {"ż*", "ŻABA.ann żuk.ann"},
        {"Ż??.ANN", "żuk.ann"},
        {"żaba.ann", "ŻABA.ann"},
        {"*.zip", ""},
        {"missing", ""},
        {"x*.tar", ""},
        {"***a***b***.t*", "ab.txt Abc.TXT abcd.tx"},
    };
    for (const auto & c : cases) EXPECT_EQ(search(std::string("D\\") + c.mask), c.hits) << c.mask;
    files().changeDirectory("d");
    EXPECT_EQ(search("*.txt"), "ab.txt Abc.TXT");
    EXPECT_EQ(search("..\\?"), "d");
    EXPECT_EQ(search("..\\*\\a"), "");
}

// Many stars against a name that fits all but the end: following each way by itself would take for ever.
TEST_F(FileSearch, MasksCostNoMoreThanTheirLength) {
    put(std::string(200, 'a'), "");
    std::string mask;
    for (int i = 0; i < 60; i++) mask += "*a";
    EXPECT_EQ(search(mask + "*b"), "");
    EXPECT_NE(search(mask + "*"), "");
}

TEST_F(FileSearch, TellsOfAHit) {
    put("Name.dat", "12345");
    put("fixed", "");
    fs::permissions(folder() + "/fixed", fs::perms::owner_read);
    fs::create_directories(folder() + "/Folder");
    fs::last_write_time(folder() + "/Name.dat", fs::file_time_type::clock::from_sys(std::chrono::sys_seconds(
                                                    std::chrono::seconds(1234567890))));
    struct {
        const char * mask;
        const char * name;
        unsigned attrib;
        std::uint64_t size;
    } const cases[] = {
        {"NAME.dat", "Name.dat", FindData::kArchive, 5},
        {"fixed", "fixed", FindData::kArchive | FindData::kReadOnly, 0},
        {"fold*", "Folder", FindData::kDirectory, 0},
        {".", nullptr, FindData::kDirectory, 0},
        {"folder\\..\\folder\\..", nullptr, FindData::kDirectory, 0},
        {"folder\\*", ".", FindData::kDirectory, 0},
    };
    for (const auto & c : cases) {
        FindData data;
        int handle = files().findFirst(c.mask, data);
        ASSERT_NE(handle, -1) << c.mask;
        EXPECT_EQ(data.name, c.name ? c.name : fs::path(folder()).filename().string()) << c.mask;
        EXPECT_EQ(data.attrib, c.attrib) << c.mask;
        EXPECT_EQ(data.size, c.size) << c.mask;
        files().findClose(handle);
    }
    FindData data;
    files().findClose(files().findFirst("name.dat", data));
    EXPECT_EQ(data.timeWrite, 1234567890);
}

TEST_F(FileSearch, WhatCantBeNamedIsPassedOver) {
    for (const char * name :
         {"good", "日本", "with:colon", "with?mark", "back\\slash", "ctrl\x07", "bad\xFF"})
        put(std::string("d/") + name, "");
    fs::create_symlink("nowhere", folder() + "/d/dangling");
    EXPECT_EQ(search("d\\*"), ". .. good");
}

TEST_F(FileSearch, FailsWithoutAFolderOrAName) {
    put("file", "");
    for (const char * mask :
         {"", "\\", "C:\\", "file\\*", "nowhere\\*", "X:\\*", "f*\\x", "file\\", "a|*", "<*"})
        EXPECT_EQ(search(mask), "") << mask;
    const std::string root = search("C:\\*");
    EXPECT_EQ(root.rfind(". ..", 0), std::string::npos) << "a drive's root has no dots";
    EXPECT_NE((" " + root + " ").find(" usr "), std::string::npos);
}

TEST_F(FileSearch, Handles) {
    put("a", "");
    put("b", "");
    FindData data;
    const int first = files().findFirst("*", data), second = files().findFirst("?", data);
    EXPECT_NE(first, second);
    EXPECT_EQ(data.name, "a");
    put("aa", ""); // a search shows what was there when it began
    EXPECT_EQ(files().findNext(second, data), 0);
    EXPECT_EQ(data.name, "b");
    EXPECT_EQ(files().findNext(second, data), -1);
    EXPECT_EQ(files().findNext(second, data), -1);
    files().findClose(first);
    EXPECT_EQ(files().findNext(first, data), -1);
    EXPECT_EQ(files().findFirst("b", data), first) << "a closed handle is given again";
    EXPECT_EQ(files().findNext(first, data), -1);
    for (int unknown : {-1, -1000, 0x7fffffff, second + 100}) {
        EXPECT_EQ(files().findNext(unknown, data), -1) << unknown;
        files().findClose(unknown);
    }
}

} // namespace
