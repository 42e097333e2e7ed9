#include "files/CConfig.h"

#include "files/InGame.h"
#include "files/SettingsText.h"

#include <vector>

namespace {

constexpr std::string_view kFile = "; settings of a person\r\n"
                                   "[Scene]\r\n"
                                   "  Score = 12  \r\n"
                                   ";SCORE=99\r\n"
                                   "no equals sign\r\n"
                                   "quoted=\" a \"\r\n"
                                   "single='b'\r\n"
                                   "odd=\"c'\r\n"
                                   "eq=a=b\r\n"
                                   "empty=\r\n"
                                   "score=13\r\n"
                                   "\r\n"
                                   "; about the other\r\n"
                                   "[ \xA3"
                                   "ODZ ] ; name in Polish\r\n"
                                   "\xB9=\tx\t\r\n"
                                   "[scene]\r\n"
                                   "late=1\r\n"
                                   "[half\r\n"
                                   "lost=1\r\n"
                                   "[]\r\n"
                                   "nameless=2\r\n"
                                   "[End]\r\n"
                                   "cut=yes";

TEST(Settings, Values) {
    struct {
        const char *section, *key;
        std::string_view value;
    } cases[] = {
        {"SCENE", "SCORE", "12"}, {" scene ", "\tscore", "12"}, {"Scene", "quoted", " a "},
        {"Scene", "single", "b"}, {"Scene", "odd", "\"c'"},     {"Scene", "eq", "a=b"},
        {"Scene", "empty", ""},   {"Scene", ";SCORE", ""},      {"Scene", "no equals sign", ""},
        {"\xB3odz", "\xA5", "x"}, {"Scene", "late", "1"},       {"Scene", "lost", "1"},
        {"half", "lost", ""},     {"", "nameless", "2"},        {"End", "cut", "yes"},
        {"End", "late", ""},      {"End]", "cut", ""},          {"Scene", "", ""},
        {"Scene", "eq=a", ""},
    };
    for (auto & each : cases)
        EXPECT_EQ(settings::value(kFile, each.section, each.key), each.value)
            << each.section << ":" << each.key;
}

TEST(Settings, PutChangesOnePlaceOnly) {
    struct {
        const char * what;
        std::string_view before, section, key, value, after;
    } cases[] = {
        {"a new file", "", "S", "k", "v", "[S]\r\nk=v\r\n"},
        {"the first of equal keys", "[S]\nk=1\nk=2\n", "s", "K", "3", "[S]\nk=3\nk=2\n"},
        {"what stands round the key stays", "[S]\r\n  k = 1 \r\nx", "S", "k", "v", "[S]\r\n  k =v\r\nx"},
        {"key in a half line", "[S]\nk=1", "S", "k", "22", "[S]\nk=22"},
        {"a half line with half a line end", "[S]\r\nk=1\r", "S", "k", "22", "[S]\r\nk=22\r"},
        {"behind the last key of the section", "[S]\na=1\n\n; T\n[T]\n", "S", "k", "v",
         "[S]\na=1\nk=v\n\n; T\n[T]\n"},
        {"behind the comment of an empty section", "[S]\n; about S\n\n[T]\n", "S", "k", "v",
         "[S]\n; about S\nk=v\n\n[T]\n"},
        {"in the first of equal sections", "[S]\na=1\n[T]\n[S]\nb=1\n", "S", "k", "v",
         "[S]\na=1\nk=v\n[T]\n[S]\nb=1\n"},
        {"in any of equal sections, where it is", "[S]\na=1\n[T]\n[S]\nb=1\n", "S", "b", "v",
         "[S]\na=1\n[T]\n[S]\nb=v\n"},
        {"a missing section", "; x\n[S]\n", "T", "k", "v", "; x\n[S]\n[T]\nk=v\n"},
        {"behind a half line", "[S]\r\na=1", "S", "k", "v", "[S]\r\na=1\r\nk=v\r\n"},
        {"behind a half section", "[S]", "S", "k", "v", "[S]\r\nk=v\r\n"},
        {"a missing section behind a half line", "x", "T", "k", "v", "x\r\n[T]\r\nk=v\r\n"},
        {"the value up to its line end", "[S]\n", "S", "k", "a\r\n[T]\nx=1", "[S]\nk=a\n"},
        {"the value as it is", "[S]\n", "S", "k", "\" ;=[x]", "[S]\nk=\" ;=[x]\n"},
        {"no key", "[S]\n", "S", " ", "v", "[S]\n"},
        {"a key with an equals sign", "[S]\n", "S", "a=b", "v", "[S]\n"},
        {"a key like a comment", "[S]\n", "S", ";k", "v", "[S]\n"},
        {"a key like a section", "[S]\n", "S", "[k]", "v", "[S]\n"},
        {"a key of two lines", "[S]\n", "S", "a\nb", "v", "[S]\n"},
        {"a section that ends early", "[S]\n", "a]b", "k", "v", "[S]\n"},
        {"a section of two lines", "[S]\n", "a\rb", "k", "v", "[S]\n"},
    };
    for (auto & each : cases) {
        std::string after = settings::put(each.before, each.section, each.key, each.value);
        EXPECT_EQ(after, each.after) << each.what;
        // The second time finds the key that the first time made.
        EXPECT_EQ(settings::put(after, each.section, each.key, each.value), after) << each.what;
    }
}

using Config = test::InGame;

TEST_F(Config, KeepsValuesInItsFile) {
    CConfig config(path("game.ini"));
    EXPECT_EQ(config.GetInt("S", "k"), 0);
    EXPECT_EQ(config.GetString("S", "k"), "");
    EXPECT_FALSE(exists("game.ini"));
    config.PutInt("S", "k", -12);
    EXPECT_EQ(get("game.ini"), "[S]\r\nk=-12\r\n");
    CConfig copy = config;
    copy.PutString("s", "K", "12 months");
    EXPECT_EQ(config.GetInt("S", "k"), 12);
    put("game.ini", "[s]\nk=+7"); // each read goes to the file
    EXPECT_EQ(config.GetInt("S", "k"), 7);
    config.PutString("S", "k", "x");
    EXPECT_EQ(config.GetInt("S", "k"), 0);
    EXPECT_EQ(config.GetString("S", "k"), "x");
    EXPECT_FALSE(exists("game.ini.tmp"));
}

TEST_F(Config, CutsLongValuesOnReading) {
    CConfig config(path("game.ini"));
    for (int length : {10238, 10239, 10240, 30000}) {
        config.PutString("S", "k", CXString(std::string(static_cast<std::size_t>(length), 'x')));
        EXPECT_EQ(config.GetString("S", "k").getLength(), std::min(length, 10239));
    }
    EXPECT_EQ(get("game.ini").size(), 5 + 2 + 30000 + 2U);
    using namespace std::string_view_literals;
    put("game.ini", "\0\xFF\n[S]\nk=a\0b\nj=1\n"sv);
    EXPECT_EQ(config.GetString("S", "k"), "a");
    config.PutString("S", "j", "2");
    EXPECT_EQ(get("game.ini"), "\0\xFF\n[S]\nk=a\0b\nj=2\n"sv);
}

TEST_F(Config, FailuresGoUnnoticedAndLoseNothing) {
    CConfig none;
    none.PutString("S", "k", "v");
    EXPECT_EQ(none.GetString("S", "k"), "");

    put("folder.ini/keep", "x");
    CConfig folder(path("folder.ini"));
    folder.PutString("S", "k", "v");
    EXPECT_EQ(folder.GetString("S", "k"), "");
    EXPECT_EQ(get("folder.ini/keep"), "x");
    EXPECT_FALSE(exists("folder.ini.tmp"));

    CConfig nowhere(path("no/such/folder/game.ini"));
    nowhere.PutString("S", "k", "v");
    EXPECT_EQ(nowhere.GetInt("S", "k"), 0);
}

TEST_F(Config, AWriteThatBreaksOffLeavesTheFile) {
    put("game.ini", "[S]\nk=1\n");
    put("game.ini.tmp/in the way", "");
    CConfig config(path("game.ini"));
    config.PutString("S", "k", "2");
    EXPECT_EQ(get("game.ini"), "[S]\nk=1\n");
    EXPECT_EQ(config.GetInt("S", "k"), 1);
}

} // namespace
