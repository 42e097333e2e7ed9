#include "files/CFolder.h"

#include "core/CXArray.h"
#include "files/CFile.h"
#include "files/InGame.h"

#include <vector>

namespace {

class Folders : public test::InGame {
protected:
    Folders() {
        put("Games/A.+jazz/song.wav", "123");
        put("Games/B.xyz/C/deep.txt", "");
        put("Games/D.old.+/x", "");
        put("Games/E", "a file");
    }
};

std::vector<std::string> listed(CFolder & folder, const char * mask) {
    CXArray * list = folder.list(mask);
    std::vector<std::string> names;
    for (int i = 0; i < list->size; i++) names.emplace_back(list->stringAt(i)->view());
    CFolder::releaseFilesList(list);
    return names;
}

TEST_F(Folders, WalkByLetters) {
    const CXString outside = CFile::getCurrentDirectory(), games = path("Games");
    CFolder folder(&window_, games);
    EXPECT_EQ(folder.LastError(), 0);
    EXPECT_EQ(folder.getPath(), games);
    EXPECT_TRUE(folder.GoTo(0));
    EXPECT_EQ(folder.getType(), "jazz");
    EXPECT_EQ(folder.getPath(), games + "\\A.+jazz");
    EXPECT_EQ(CFile::getCurrentDirectory(), games + "\\A.+jazz\\");
    EXPECT_FALSE(folder.GoTo(0));
    folder.GoUp();
    EXPECT_TRUE(folder.GoTo(1));
    EXPECT_EQ(folder.getType(), "x");
    EXPECT_TRUE(folder.GoTo(2));
    EXPECT_EQ(folder.getType(), "");
    EXPECT_EQ(folder.getPath(), games + "\\B.xyz\\C");
    EXPECT_EQ(CFile::getCurrentDirectory(), games + "\\B.xyz\\C\\");
    folder.GoStart();
    EXPECT_EQ(folder.getPath(), games);
    EXPECT_EQ(CFile::getCurrentDirectory(), games + "\\");
    EXPECT_TRUE(folder.GoTo(3));
    EXPECT_EQ(folder.getType(), "");
    folder.GoUp();
    for (int i : {4, 5, -1, 26, 0x7FFFFFFF}) EXPECT_FALSE(folder.GoTo(i)) << i; // number 4 is a file
    EXPECT_EQ(folder.getPath(), games);
    folder.back();
    EXPECT_EQ(CFile::getCurrentDirectory(), outside);
}

TEST_F(Folders, StartsHereOrFromTheDrivesRoot) {
    enter("Games");
    EXPECT_EQ(CFolder(&window_).getPath(), path("Games"));
    EXPECT_EQ(CFolder(&window_, "").getPath(), path("Games"));
    const CXString fromRoot = path("Games").Right(2);
    CFolder folder(&window_, fromRoot + "\\");
    EXPECT_EQ(folder.getPath(), fromRoot);
    EXPECT_TRUE(folder.GoTo(1));
    EXPECT_EQ(CFile::getCurrentDirectory(), path("Games/B.xyz") + "\\");
    folder.GoStart();
    EXPECT_EQ(CFile::getCurrentDirectory(), path("Games") + "\\");
    CFolder root(&window_, "\\");
    root.GoUp();
    root.GoStart();
    EXPECT_EQ(CFile::getCurrentDirectory(), "C:\\");
}

TEST_F(Folders, SearchesGiveNamesOrNothing) {
    using Names = std::vector<std::string>;
    CFolder folder(&window_, path("Games"));
    EXPECT_EQ(listed(folder, "*"), (Names{".", "..", "A.+jazz", "B.xyz", "D.old.+", "E"}));
    EXPECT_EQ(listed(folder, "*.*z*"), (Names{"A.+jazz", "B.xyz"}));
    EXPECT_EQ(listed(folder, "nothing"), Names());
    EXPECT_EQ(folder.GetFolderName("e*"), "");
    EXPECT_EQ(folder.GetFileName("e*"), "E");
    EXPECT_EQ(folder.GetFolderName("*.*z*"), "A.+jazz");
    EXPECT_EQ(folder.GetNextFileName(), "B.xyz");
    EXPECT_EQ(folder.GetNextFileName(), "");
    EXPECT_EQ(CFolder::GetSize("E"), 6);
    EXPECT_EQ(CFolder::GetSize("F"), 0);
    EXPECT_TRUE(CFolder::IsDirectory(path("Games")));
    EXPECT_FALSE(CFolder::IsDirectory("E"));
    EXPECT_FALSE(CFolder::IsDirectory("F"));
}

TEST_F(Folders, AMissingFolderIsEmpty) {
    CFolder folder(&window_, "nowhere");
    EXPECT_EQ(folder.LastError(), 2000);
    EXPECT_EQ(listed(folder, "*").size(), 0U);
    EXPECT_EQ(folder.GetFolderName("*"), "");
    EXPECT_EQ(folder.GetNextFileName(), "");
    EXPECT_FALSE(folder.GoTo(0));
}

} // namespace
