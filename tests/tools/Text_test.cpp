// Definition files and coded texts.

#include "Tool.h"

using namespace std::string_literals;

namespace {

using TextTool = test::Tool;

} // namespace

TEST_F(TextTool, DefShowsWhatTheEngineSees) {
    put("Dane/scene.cnv", "# a scene\r\nOBJECT=A\r\nA:TYPE=IMAGE\r\nA:KEY\r\nA:K=1:2\r\nA:K=3\r\nB:LOST=1\r\n"
                          "OBJECT=C\r\nC:ADD=A\r\nA:APPLY=A\r\nDEF=D(PATH=C:\\X|N=|T=1/\r\n/\r\n\xB9\x9C)\r\n"
                          "!\r\nOBJECT=E\r\n");
    Result result = run("def dane/SCENE.cnv");
    EXPECT_EQ(result.out, "OBJECT=A\nA:TYPE=IMAGE\nA:KEY\nA:K=1 2\nA:K=3\nA:APPLY=C\nA:APPLY=A\n"
                          "OBJECT=C\nOBJECT=D\nD:PATH=C:\\X\nD:N\nD:T=1\u240A\u0105\u015B\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);

    put("coded.def", "{<D:6>}\nPALCFQ>@<E>\n");
    EXPECT_EQ(run("def coded.def").out, "OBJECT=A\n");
    EXPECT_FALSE(exists("coded.def.decoded"));

    put("empty.def", "");
    result = run("def empty.def");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out + result.err, "");

    put("cut.def", "OBJECT=A\nA:K=12");
    result = run("def cut.def");
    EXPECT_EQ(result.out, "OBJECT=A\nA:K=1\n");
    EXPECT_NE(result.err.find("line feed"), std::string::npos);
}

TEST_F(TextTool, CodeAndDecodeGiveTheLinesBack) {
    std::string bytes;
    for (int c = 0x20; c < 0x100; c++) bytes += static_cast<char>(c);
    struct {
        std::string text, lines;
    } cases[] = {
        {"", ""},
        {"OBJECT=A\nA:K=1\n", "OBJECT=A\nA:K=1\n"},
        {"OBJECT=A\r\nA:K=1\r\n", "OBJECT=A\nA:K=1\n"},
        {"\n\nA\n\n\n", "\n\nA\n\n\n"},
        {"A\nlast", "A\nlast\n"},
        {"  A\tB \n\t\n  \n", "AB\n\n\n"},
        {"1\n2\n3\n4\n5\n6\n7\n8\n", "1\n2\n3\n4\n5\n6\n7\n8\n"},
        {"x" + bytes + "\n" + bytes + "x\n", "x" + bytes + "\n" + bytes.substr(1) + "x\n"},
    };
    for (auto & each : cases) {
        for (const char * cycle : {"", "--cycle 1", "--cycle 2", "--cycle 7"}) {
            SCOPED_TRACE(each.text + cycle);
            put("clear", each.text);
            Result coding = run("code clear coded "s + cycle);
            ASSERT_EQ(coding.err, "");
            ASSERT_EQ(coding.status, 0);
            Result decoding = run("decode coded back");
            ASSERT_EQ(decoding.err, "");
            ASSERT_EQ(decoding.status, 0);
            EXPECT_EQ(get("back"), each.lines);
        }
    }
    put("clear", "Hi\n");
    run("code clear coded --cycle 3");
    EXPECT_EQ(get("coded"), "{<C:3>}\nIh<E>\n");
    run("code clear coded");
    EXPECT_EQ(get("coded"), "{<C:6>}\nIh<E>\n");
    put("coded", "{<D:3>}\nIh<E>"); // without its line feed
    run("decode coded back");
    EXPECT_EQ(get("back"), "Hi\n");
}

// What is left is written, and what isn't is said.
TEST_F(TextTool, DecodeTellsWhereACodedTextBreaks) {
    struct {
        const char *coded, *lines;
        int broken; // line of the text; 0 for none
    } cases[] = {
        {"{<C:2>}\nI<E>I<E>\nI<E>\n", "H\nJ\nH\n", 0}, // moved by +1 and -1 in turn
        {"{<C:2>}\n", "", 0},
        {"{<C:2>}", "", 0},
        {"{<C:2>}\nI<E>I<", "H\n", 2},
        {"{<C:2>}\nI<E>\nI<E>I<E>\n", "H\n", 2},
        {"{<C:2>}\nOBJECT=A\n", "", 1},
        {"{<C:2>}\n\nI<E>I<E>\n", "", 1},
    };
    for (auto & each : cases) {
        SCOPED_TRACE(each.coded);
        put("coded", each.coded);
        Result result = run("decode coded back");
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(get("back"), each.lines);
        std::string line = "tarnook-tool: coded: no <E> ends line " + std::to_string(each.broken) +
                           " of the text, so it and what follows are left out\n";
        EXPECT_EQ(result.err, each.broken ? line : "");
    }
}

// A folder of the current directory must not stand in for one of the same name elsewhere.
TEST_F(TextTool, NamesMeanWhatTheySay) {
    put("Dane/a", "wrong\n");
    put("other/Dane/a", "OBJECT=A\n");
    EXPECT_EQ(run("def other/Dane/a").out, "OBJECT=A\n");
    EXPECT_EQ(run("code other/Dane/a ./other/Dane/../Dane/b").status, 0);
    EXPECT_FALSE(exists("Dane/b"));
    EXPECT_EQ(run("decode '" + folder() + "/other/Dane/b' 'other/\u017B\u00F3\u0142w'").status, 0);
    EXPECT_EQ(get("other/\u017B\u00F3\u0142w"), "OBJECT=A\n");
}

TEST_F(TextTool, SaysInOneLineWhatIsWrong) {
    put("clear", "OBJECT=A\n");
    put("coded", "{<C:6>}\nPALCFQ>@<E>\n");
    put("folder/x", "");
    put("zero", "A\n\0B\n"s);
    put("tight", "A\n" + std::string(50, ' ') + std::string(22, 'a') + " " + std::string(30, ' ') + "b\n");
    const char * snowman = "'\u2603'";
    struct {
        std::string arguments;
        int status;
        const char * about;
    } cases[] = {
        {"", 2, "subcommand"},
        {"def", 2, "FILE"},
        {"def clear clear", 2, "clear"},
        {"paint clear", 2, "paint"},
        {"code clear", 2, "TO"},
        {"code clear to --cycle 0", 2, "--cycle"},
        {"code clear to --cycle six", 2, "--cycle"},
        {"decode coded to --cycle 6", 2, "--cycle"},
        {"def ''", 1, "empty name"},
        {"def none", 1, "none: no such file"},
        {"code none to", 1, "none: no such file"},
        {"decode none to", 1, "none: no such file"},
        {"def folder", 1, "folder: is a folder"},
        {"code coded to", 1, "coded: is coded already"},
        {"decode clear to", 1, "clear: isn't coded"},
        {"code clear none/to", 1, "none/to: can't be written"},
        {"code clear folder", 1, "folder: can't be written"},
        {"def "s + snowman, 1, "Windows-1250"},
        {"code clear "s + snowman, 1, "Windows-1250"},
        {"code clear 'a:b'", 1, "a:b: holds a character"},
        {"decode coded 'a\\b'", 1, "a\\b: holds a character"},
        {"code zero to", 1, "zero:2: can't be coded"},
        {"code tight to --cycle 100", 1, "tight:2: can't be coded"},
    };
    for (auto & each : cases) {
        SCOPED_TRACE(each.arguments);
        Result result = run(each.arguments);
        EXPECT_EQ(result.status, each.status);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
        EXPECT_TRUE(result.err.starts_with("tarnook-tool: ")) << result.err;
        EXPECT_NE(result.err.find(each.about), std::string::npos) << result.err;
        EXPECT_FALSE(exists("to"));
    }
}

TEST_F(TextTool, HelpAndVersion) {
    for (const char * arguments : {"--help", "def --help", "code --help"}) {
        Result result = run(arguments);
        EXPECT_EQ(result.status, 0) << arguments;
        EXPECT_NE(result.out.find("tarnook-tool"), std::string::npos) << result.out;
        EXPECT_EQ(result.err, "") << arguments;
    }
    Result version = run("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.out.starts_with("tarnook-tool ")) << version.out;
}
