#include "app/CCommandLine6.h"

#include "core/Diagnostics.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace {

TEST(CCommandLine6, EveryFlagAnswersToItsOptionAlone) {
    struct Flag {
        const char * option;
        bool (CCommandLine6::*is)() const;
        bool usual;
    };
    using C = CCommandLine6;
    const Flag flags[] = {
        {"nomusic", &C::isMusicEnabled, true},
        {"nosound", &C::isSoundEnabled, true},
        {"window", &C::isWindowMode, false},
        {"noframe", &C::isNoFrame, false},
        {"nogfx", &C::isGFXEnabled, false},
        {"hdd", &C::isHdd, false},
        {"server", &C::isServer, false},
        {"client", &C::isClient, false},
        {"pf", &C::isPageFlippingEnabled, false},
        {"code", &C::isToCode, false},
        {"decode", &C::isToDecode, false},
        {"remove", &C::isToRemove, false},
        {"vmem", &C::isVMem, false},
        {"cheat", &C::isCheatMode, false},
        {"2bin", &C::is2Bin, false},
        {"forceCNV", &C::isForceCNV, false},
        {"debug", &C::isDebugMode, false},
        {"bigfile", &C::isCreateBigFile, false},
        {"log", &C::isLogEnabled, false},
        {"params", &C::isRunWithParams, false},
    };
    for (const Flag & set : flags) {
        const std::string name = set.option;
        std::string otherCase = name;
        otherCase.back() = static_cast<char>(otherCase.back() ^ 0x20);
        for (const std::string & text : {"-" + name, "/" + name, "x  " + ("-" + name) + "  "}) {
            CCommandLine6 line(text.c_str());
            for (const Flag & each : flags)
                EXPECT_EQ((line.*each.is)(), each.usual != (&each == &set)) << text << " " << each.option;
            EXPECT_EQ(C::argumentsOf(("-" + name).c_str()), 0) << name;
        }
        for (const std::string & text : {name, "--" + name, "-" + otherCase, "-" + name + "x"})
            EXPECT_EQ((CCommandLine6(text.c_str()).*set.is)(), set.usual) << text;
    }
    EXPECT_TRUE(CCommandLine6("-wakoprendy").isCheatMode());
}

TEST(CCommandLine6, TokensEndAtAPairOfEquals) {
    struct {
        const char * text;
        int count;
        bool hdd;
    } rows[] = {
        {"", 0, false},
        {nullptr, 0, false},
        {"    ", 0, false},
        {"-window -hdd", 2, true},
        {"  -window   -hdd  ", 2, true},
        {"-window -window -hdd", 1, false}, // the second and what follows is lost
        {"-window x -window -hdd", 4, true},
        {"a a", 1, false},
        {"a A -hdd", 3, true},
        {"-window\t-hdd", 1, false}, // only blanks part
    };
    for (auto & row : rows) {
        CCommandLine6 line(row.text);
        EXPECT_EQ(line.getNoArgs(), row.count) << (row.text ? row.text : "null");
        EXPECT_EQ(line.isHdd(), row.hdd) << (row.text ? row.text : "null");
    }
}

TEST(CCommandLine6, Resolution) {
    struct {
        const char * text;
        int width, height;
    } rows[] = {
        {"", 800, 600},
        {"/res 640 480", 640, 480},
        {"-res 640", 640, 600},
        {"-res", 800, 600},
        {"-hdd -res", 800, 600},
        {"res 320 200", 320, 200},  // the bare name too
        {"-res 500 500", 500, 600}, // the equal token was cut away
        {"-res x 480", 0, 480},
        {"-Res 640 480", 800, 600},
    };
    for (auto & row : rows)
        EXPECT_EQ(CCommandLine6(row.text).getResolution(), CXSize(row.width, row.height)) << row.text;
}

TEST(CCommandLine6, FoldersAndPacking) {
    struct {
        const char *text, *path, *packDir, *packFile;
    } rows[] = {
        {"", "", "", ""},
        {"-path GAME1", "GAME1", "", ""},
        {"-path GAME1 -game GAME2", "GAME2", "", ""},
        {"-game GAME2 -path GAME1", "GAME2", "", ""}, // game is read later, wherever it stands
        {"-path GAME1 -game", "GAME1", "", ""},
        {"-pack -game X", "X", "X", "X.tnk"},
        {"-pack -game X -file Y.dat", "X", "X", "Y.dat"},
        {"-file Y.dat -path X", "X", "", ""}, // only together with pack
        {"pack -path X", "X", "", ""},        // a flag's bare name means nothing
    };
    for (auto & row : rows) {
        CCommandLine6 line(row.text);
        EXPECT_EQ(line.getPath().view(), row.path) << row.text;
        EXPECT_EQ(line.isGame(), *row.path != 0) << row.text;
        EXPECT_EQ(line.getPackDir().view(), row.packDir) << row.text;
        EXPECT_EQ(line.isToPack(), *row.packDir != 0) << row.text;
        EXPECT_EQ(line.getPackFile().view(), row.packFile) << row.text;
    }
}

TEST(CCommandLine6, ParametersOfScripts) {
    CCommandLine6 line("-mine -fullname My_Game_2 other value -delay 3 -stack 9 -last");
    EXPECT_TRUE(line.isParameter("mine"));
    EXPECT_FALSE(line.isParameter("other")); // no dash
    EXPECT_FALSE(line.isParameter("Mine"));
    EXPECT_EQ(line.getParameter("mine").view(), "-fullname"); // the token behind, whatever it is
    EXPECT_EQ(line.getParameter("other").view(), "");
    EXPECT_EQ(line.getParameter("last").view(), "");
    EXPECT_EQ(line.getFullName().view(), "My Game 2");
    EXPECT_EQ(line.getDelay(), 3);
    EXPECT_TRUE(line.isSecondaryDisplayEnabled());
    EXPECT_EQ(line.getStackDepth(), 9);
    // The bare name that stands first is what gives the token.
    EXPECT_EQ(CCommandLine6("mine one -mine two").getParameter("mine").view(), "one");
    CCommandLine6 bare("");
    EXPECT_FALSE(bare.isSecondaryDisplayEnabled());
    EXPECT_EQ(bare.getFullName().view(), "");
}

TEST(CCommandLine6, CanSilenceMessageBoxes) {
    setMsgBoxFlag(true);
    CCommandLine6 loud("-window");
    EXPECT_TRUE(isMsgBox());
    CCommandLine6 silent("/nomsgbox");
    EXPECT_FALSE(isMsgBox());
    setMsgBoxFlag(true);
}

TEST(CCommandLine6, TellsHowManyTokensAnOptionTakes) {
    for (auto [option, count] : {std::pair{"-res", 2},
                                 {"/path", 1},
                                 {"-game", 1},
                                 {"-delay", 1},
                                 {"-pack", 0},
                                 {"-file", 1},
                                 {"-stack", 1},
                                 {"-fullname", 1},
                                 {"-unknown", -1},
                                 {"res", -1},
                                 {"", -1},
                                 {"-", -1}})
        EXPECT_EQ(CCommandLine6::argumentsOf(option), count) << option;
}

} // namespace
