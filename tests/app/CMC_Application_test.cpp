#include "app/CMC_Application.h"

#include "app/CMC_StructureParser.h"
#include "support/InPlay.h"

#include <filesystem>

namespace {

class Application : public test::InPlay {
protected:
    std::string path() { // where the game stands: the current child of each level
        std::string text;
        for (CMC_Scene * each = app().getCurrentScene(); each; each = each->getCurrentScene())
            text += (text.empty() ? "" : "/") + std::string(each->getName().view());
        return text;
    }
};

// What a definition names, and where the game begins.
TEST_F(Application, StartsWhereItsDefinitionSays) {
    struct {
        const char *what, *definition;
        const char * path; // null: no application
    } const rows[] = {
        {"no application", "A TYPE=SCENE", nullptr},
        {"nothing at all", "", nullptr},
        {"the type in another case", "GAME TYPE=Application", nullptr},
        {"nothing to enter", "GAME TYPE=APPLICATION", ""},
        {"first of the first",
         "GAME TYPE=APPLICATION\nGAME EPISODES=E,F\nE TYPE=EPISODE\nE SCENES=A,B\n"
         "F TYPE=EPISODE\nF SCENES=B\nA TYPE=SCENE\nB TYPE=SCENE",
         "E/A"},
        {"split at blanks, too many commas",
         "GAME TYPE=APPLICATION\nGAME EPISODES=,F  , E,\nE TYPE=EPISODE\n"
         "F TYPE=EPISODE\nF SCENES= B A\nA TYPE=SCENE\nB TYPE=SCENE",
         "F/B"},
        {"started with",
         "GAME TYPE=APPLICATION\nGAME EPISODES=E,F\nGAME STARTWITH=F\nE TYPE=EPISODE\nE SCENES=A\n"
         "F TYPE=EPISODE\nF SCENES=A,B\nF STARTWITH=B\nA TYPE=SCENE\nB TYPE=SCENE",
         "F/B"},
        {"started with what isn't there",
         "GAME TYPE=APPLICATION\nGAME EPISODES=E\nGAME STARTWITH=X\n"
         "E TYPE=EPISODE\nE SCENES=X,A\nE STARTWITH=Y\nA TYPE=SCENE",
         "E/A"},
        {"straight into a scene of an episode",
         "GAME TYPE=APPLICATION\nGAME EPISODES=E\nGAME STARTWITH=B\n"
         "E TYPE=EPISODE\nE SCENES=A,B\nA TYPE=SCENE\nB TYPE=SCENE",
         "B"},
        {"scenes without an episode", "GAME TYPE=APPLICATION\nGAME SCENES=B,A\nA TYPE=SCENE\nB TYPE=SCENE",
         "B"},
        {"episodes before scenes",
         "GAME TYPE=APPLICATION\nGAME SCENES=B\nGAME EPISODES=E\nE TYPE=EPISODE\n"
         "E SCENES=A\nA TYPE=SCENE\nB TYPE=SCENE",
         "E/A"},
        {"an episode without scenes",
         "GAME TYPE=APPLICATION\nGAME EPISODES=E,F\nE TYPE=EPISODE\nF TYPE=EPISODE\n"
         "F SCENES=A\nA TYPE=SCENE",
         "E"},
        {"everybody names everybody",
         "GAME TYPE=APPLICATION\nGAME EPISODES=GAME,F,E\nGAME SCENES=GAME,E\n"
         "GAME STARTWITH=GAME\nE TYPE=EPISODE\nE SCENES=F,E,A,GAME\nE STARTWITH=E\n"
         "F TYPE=EPISODE\nF SCENES=E,F\nF STARTWITH=GAME\nA TYPE=SCENE\n"
         "A SCENES=A,E",
         "F/E/A"},
        {"one name for all", "X TYPE=APPLICATION\nX EPISODES=X\nX SCENES=X", ""},
        {"two applications",
         "OLD TYPE=APPLICATION\nOLD SCENES=A\nGAME TYPE=APPLICATION\nGAME SCENES=A,B\n"
         "GAME STARTWITH=B\nA TYPE=SCENE\nB TYPE=SCENE",
         "B"},
    };
    for (const auto & row : rows) {
        define("Dane/application.def", row.definition);
        ASSERT_EQ(start(), row.path != nullptr) << row.what;
        EXPECT_EQ(application().LastError(), row.path ? 0 : CApplication::kNoApplication) << row.what;
        tick(3);
        if (row.path) {
            EXPECT_EQ(path(), row.path) << row.what;
            run("GAME^RESTART();");
            tick(3);
        }
        EXPECT_EQ(told(), "") << row.what;
        end();
    }
    std::filesystem::remove(folder() + "/Dane/application.def");
    put("Dane/x", "");
    world().files->changeDirectory(windowsFolder() + "\\Dane");
    EXPECT_FALSE(std::filesystem::exists(folder() + "/Dane/application.def"));
    EXPECT_EQ(CMC_StructureParser(nullptr, "application.def").getApplication(), nullptr);
}

TEST_F(Application, WalksItsTree) {
    define("Dane/application.def", R"(
        GAME TYPE=APPLICATION
        GAME EPISODES=E,F
        GAME SCENES=S
        E TYPE=EPISODE
        E SCENES=A,B,C
        F TYPE=EPISODE
        F SCENES=D,G
        F STARTWITH=G
        A TYPE=SCENE
        B TYPE=SCENE
        C TYPE=SCENE
        D TYPE=SCENE
        G TYPE=SCENE
        S TYPE=SCENE)");
    ASSERT_TRUE(start());
    struct {
        const char *code, *path, *latest; // latest: what E left last
    } const rows[] = {
        {"E^PREV();", "E/A", ""},
        {"E^BACK();", "E/A", ""},
        {"E^NEXT();", "E/B", "A"},
        {"E^NEXT();", "E/C", "B"},
        {"E^NEXT();", "E/C", "B"},
        {"E^BACK();", "E/B", "C"}, // history A B
        {"E^BACK();", "E/B", "B"}, // entered again
        {"E^GOTO(\"A\");", "E/A", "B"},
        {"E^BACK();E^BACK();", "E/B", "A"}, // A B B A: two entries less
        {"E^GOTO(\"D\");", "E/B", "A"},
        {"E^GOTO(\"e\");", "E/B", "A"},
        {"GAME^GOTO(\"F\");", "F/G", "B"},
        {"E^NEXT();", "F/G", "B"}, // nobody is current there
        {"F^NEXT();", "F/G", "B"},
        {"F^PREV();", "F/D", "B"},
        {"F^RESTART();", "F/D", "B"}, // the first scene, whatever it starts with
        {"GAME^GOTO(\"S\");", "S", "B"},
        {"F^GOTO(\"G\");", "S", "B"},
        {"GAME^GOTO(\"F\");", "F/G", "B"}, // F set G meanwhile, and enters it twice
        {"GAME^GOTO(\"D\");", "F/G", "B"},
        {"GAME^RESTART();", "E/A", "B"},
        {"E^NEXT();", "E/B", "A"},
        {"GAME^RESTART();", "E/A", "B"}, // that episode's own restart
        {"GAME^GOTO(\"E\");", "E/A", "A"},
        {"@MSGBOX(E^GETCURRENTSCENE(),F^GETCURRENTSCENE(),F^GETLATESTSCENE());", "E/A", "A"},
    };
    for (const auto & row : rows) {
        run(row.code);
        tick();
        EXPECT_EQ(path(), row.path) << row.code;
        EXPECT_EQ(told("@MSGBOX(E^GETLATESTSCENE());"), row.latest) << row.code;
    }
    EXPECT_EQ(told("@MSGBOX(E^GETCURRENTSCENE(),F^GETCURRENTSCENE(),F^GETLATESTSCENE());"), "A, , G");
    EXPECT_EQ(scene()->getMCApplication()->getName().view(), "GAME");
    // A scene of an episode is a named object of the application.
    EXPECT_NE(app().getObject("D"), nullptr);
}

TEST_F(Application, AScenesParentIsTheLastThatNamesIt) {
    define("Dane/application.def", R"(
        GAME TYPE=APPLICATION
        GAME EPISODES=E,F
        GAME SCENES=A
        E TYPE=EPISODE
        E SCENES=A,B
        F TYPE=EPISODE
        F SCENES=B
        A TYPE=SCENE
        B TYPE=SCENE)");
    ASSERT_TRUE(start());
    CMC_Scene * e = app().find("E");
    EXPECT_EQ(e->find("A")->getParent(), &app());
    EXPECT_EQ(e->find("B")->getParent(), app().find("F"));
    EXPECT_EQ(app().find("A"), e->find("A"));
}

// RESTART leaves at once, even the scene whose script asks for it.
TEST_F(Application, RestartsFromAnywhere) {
    define("Dane/application.def", R"(
        GAME TYPE=APPLICATION
        GAME EPISODES=E,F
        E TYPE=EPISODE
        E SCENES=A
        F TYPE=EPISODE
        F SCENES=D
        A TYPE=SCENE
        D TYPE=SCENE)");
    define("Dane/A.cnv", "A ONINIT={@MSGBOX(\"A\");}");
    const char * const ways[] = {
        ("X TYPE=INTEGER\nX ONINIT={GAME^RESTART();@MSGBOX(\"still\");}\nZ TYPE=TIMER\n"
         "Z ONINIT={@MSGBOX(\"never\");}"),
        "__INIT__ TYPE=BEHAVIOUR\n__INIT__ CODE={GAME^RESTART();@MSGBOX(\"still\");}",
        "D ONINIT={GAME^RESTART();@MSGBOX(\"still\");}",
    };
    for (const char * way : ways) {
        define("Dane/D.cnv", way);
        ASSERT_TRUE(start());
        run("GAME^GOTO(\"F\");");
        told();
        tick(2);
        EXPECT_EQ(told(), "A; still") << way;
        EXPECT_EQ(path(), "E/A") << way;
        EXPECT_EQ(sceneName(), "A") << way;
        end();
    }
}

TEST_F(Application, ADemoIsAGame) {
    define("Dane/application.def", "DEMO TYPE=APPLICATION\nDEMO SCENES=S\nS TYPE=SCENE");
    define("Dane/GAME.cnv", "V TYPE=STRING\nV VALUE=game");
    define("Dane/DEMO.cnv", "V TYPE=STRING\nV VALUE=demo");
    ASSERT_TRUE(start());
    EXPECT_EQ(told("@MSGBOX(V,@GETAPPLICATIONNAME(),GAME^GETNAME());"), "game, GAME, GAME");
}

// Step by step: what isn't there keeps the search above it.
TEST_F(Application, ItsOwnDefinitionStandsInItsPath) {
    struct {
        const char *path, *file, *expected;
    } const rows[] = {{"", "Dane/GAME.cnv", "x"},
                      {"P\\Q", "Dane/P/Q/GAME.cnv", "x"},
                      {"P", "Dane/GAME.cnv", "V"},
                      {"NONE", "Dane/GAME.cnv", "x"}};
    for (const auto & row : rows) {
        std::filesystem::remove_all(folder() + "/Dane");
        put("Dane/P/here", "");
        define("Dane/application.def", std::string("GAME TYPE=APPLICATION\nGAME EPISODES=E\nGAME PATH=") +
                                           row.path + "\nE TYPE=EPISODE\nE PATH=" + row.path);
        std::string file = row.file;
        define(file, "V TYPE=STRING\nV VALUE=x");
        define(file.replace(file.find("GAME"), 4, "E"), "W TYPE=STRING\nW VALUE=y");
        ASSERT_TRUE(start());
        EXPECT_EQ(told("@MSGBOX(V);"), row.expected) << row.path;
        EXPECT_EQ(app().find("E")->getObject("W") != nullptr, *row.expected == 'x') << row.path;
        end();
    }
}

TEST_F(Application, Exits) {
    define("Dane/GAME.cnv",
           "__ONEXIT__ TYPE=BEHAVIOUR\n __ONEXIT__ CODE={E^GOTO(\"B\");@MSGBOX(\"exit\");}\n"
           "T TYPE=TIMER\n T ELAPSE=1\n T ENABLED=TRUE\n T ONTICK={GAME^EXIT();@MSGBOX(\"on\");}");
    define("Dane/B.cnv", "B ONINIT={@MSGBOX(\"B\");}");
    ASSERT_TRUE(start());
    tick();
    EXPECT_FALSE(over());
    tick();
    EXPECT_TRUE(over());
    EXPECT_EQ(told(), "exit; on; B"); // the change is part of the last tick
}

TEST_F(Application, RunsBehavioursOfOtherScenes) {
    define("Dane/E.cnv", "WIDE TYPE=BEHAVIOUR\nWIDE CODE={@MSGBOX(THIS^GETNAME());ONLYA^MSGBOX();}");
    define("Dane/A.cnv", R"(
        W TYPE=STRING
        W VALUE=A
        ONLYA TYPE=STRING
        SHARED TYPE=BEHAVIOUR
        SHARED CODE={@MSGBOX(W,THIS^GETNAME());}
        OFF TYPE=BEHAVIOUR
        OFF CONDITION=NEVER
        OFF CODE={@MSGBOX("never");}
        NEVER TYPE=CONDITION
        NEVER OPERAND1=1
        NEVER OPERATOR=EQUAL
        NEVER OPERAND2=2
        GOES TYPE=BEHAVIOUR
        GOES CODE={A^REMOVE("GOES");@MSGBOX("gone");}
        CALL TYPE=BEHAVIOUR
        CALL CODE={GAME^RUNENV("A","SHARED");SHARED^RUN();})");
    ASSERT_TRUE(start());
    app().addObject(new CMC_Object("THING", 0));
    struct {
        const char *code, *expected;
    } const rows[] = {
        {"GAME^RUNENV(\"A\",\"SHARED\");", "A, GAME"},
        {"GAME^RUNENV(\"A\",\"OFF\");", ""},
        {"GAME^RUNENV(\"A\",\"GOES\");", "gone"},
        {"GAME^RUNENV(\"A\",\"NONE\");", "Error running runEnv( GAME=\"A\", GAME=\"NONE\" )"},
        {"GAME^RUNENV(\"NONE\",\"SHARED\");", "Error running runEnv( GAME=\"NONE\", GAME=\"SHARED\" )"},
        {"GAME^RUNENV(\"B\",\"SHARED\");", "Error running runEnv( GAME=\"B\", GAME=\"SHARED\" )"},
        {"GAME^RUNENV(\"W\",\"SHARED\");", "Error running runEnv( GAME=\"W\", GAME=\"SHARED\" )"},
        {"GAME^RUNENV(\"A\",\"W\");", "Error running runEnv( GAME=\"A\", GAME=\"W\" )"},
        {"@MSGBOX(GAME^EXISTSENV(\"A\",\"SHARED\"),GAME^EXISTSENV(\"A\",\"NONE\"),GAME^EXISTSENV(\"B\","
         "\"SHARED\"),"
         "GAME^EXISTSENV(\"NONE\",\"SHARED\"),GAME^EXISTSENV(\"THING\",\"W\"));",
         "TRUE, FALSE, FALSE, FALSE, FALSE"},
    };
    for (const auto & row : rows) EXPECT_EQ(told(row.code), row.expected) << row.code;
    // An outer behaviour finds names of the scope that calls, and afterwards its own again.
    EXPECT_EQ(told("GAME^RUNENV(\"E\",\"WIDE\");"), "GAME; ONLYA (STRING) : ");
    EXPECT_EQ(told("WIDE^RUN();"), "");
}

TEST_F(Application, OtherMethods) {
    ASSERT_TRUE(start());
    struct {
        const char *code, *expected;
    } const rows[] = {
        {"GAME^SETLANGUAGE(\"0415\");@MSGBOX(GAME^GETLANGUAGE());", "POL"},
        {"GAME^SETLANGUAGE(\"0409\");@MSGBOX(GAME^GETLANGUAGE());", "POL"}, // an unknown one changes nothing
        {"GAME^RUN(\"E\",\"MSGBOX\");", "E (EPISODE) : E"},
        {"GAME^NOSUCH();GAME^GOTO();GAME^RELOAD();E^GOTO();GAME^RUNENV(\"A\");", ""},
        {"GAME^MSGBOX();RANDOM^MSGBOX();SYSTEM^MSGBOX();CNVLOADER^MSGBOX();",
         "GAME (APPLICATION) : GAME; RANDOM (RANDOM) : RANDOM; SYSTEM (11000) : SYSTEM; CNVLOADER (12000) : "
         "CNVLOADER"},
    };
    for (const auto & row : rows) EXPECT_EQ(told(row.code), row.expected) << row.code;
    run("GAME^DISABLEMUSIC();");
    EXPECT_FALSE(window().IsMusicOn());
    run("GAME^ENABLEMUSIC();GAME^STARTDRAGGINGWINDOW(3,4);");
    EXPECT_TRUE(window().IsMusicOn());
    EXPECT_TRUE(window().isWindowDragged());
    EXPECT_EQ(window().getCatchPoint(), CXPoint(3, 4));
    run("GAME^STOPDRAGGINGWINDOW();");
    EXPECT_FALSE(window().isWindowDragged());
    tick(2);
    EXPECT_EQ(path(), "E/A");
}

TEST_F(Application, LoadsDefinitionsIntoTheRunningScene) {
    define("Dane/one.cnv", R"(
        X TYPE=INTEGER
        X VALUE=1
        X ONINIT={@MSGBOX("x");}
        X ONDONE=XDONE
        SHOW TYPE=BEHAVIOUR
        SHOW CODE={@MSGBOX("b",X);})");
    define("Dane/selfish.cnv",
           "SF TYPE=INTEGER\nSF ONINIT={CNVLOADER^RELEASE(\"selfish.cnv\");}\nSG TYPE=STRING");
    define("Dane/leaver.cnv", "LV TYPE=INTEGER\nLV ONINIT={GAME^RESTART();}\nLW TYPE=STRING");
    define("Dane/empty.cnv", "");
    define("Dane/E.cnv", "XDONE TYPE=BEHAVIOUR\nXDONE CODE={@MSGBOX(\"x-done\");}");
    define("Dane/A.cnv", "GONE TYPE=STRING");
    ASSERT_TRUE(start());
    const int before = scene()->getElementsNo();
    struct {
        const char *code, *expected;
        int more; // objects in the scene
    } const rows[] = {
        {"CNVLOADER^LOAD(\"none.cnv\");CNVLOADER^RELEASE(\"none.cnv\");CNVLOADER^LOAD();", "", 0},
        {"CNVLOADER^LOAD(\"empty.cnv\");", "", 0},
        {"CNVLOADER^LOAD(\"one.cnv\");", "x", 4}, // with the inline block and the group
        {"SHOW^RUN();X^SET(5);CNVLOADER^LOAD(\"one.cnv\");SHOW^RUN();", "b, 1; b, 5", 4},
        {"X^CLONE(2);", "", 6},
        {"CNVLOADER^RELEASE(\"one.cnv\");@MSGBOX(X);", "x-done; X", 0},
        {"CNVLOADER^RELEASE(\"one.cnv\");", "", 0},
        {"CNVLOADER^LOAD(\"one.cnv\");SHOW^RUN();A^REMOVE(\"X\");CNVLOADER^RELEASE(\"one.cnv\");", "x; b, 1",
         0},
        {"CNVLOADER^LOAD(\"selfish.cnv\");@MSGBOX(SF,SG);", "SF, SG", 0},
        {"CNVLOADER^RELEASE(\"GONE\");CNVLOADER^RELEASE(\"A\");", "", 0}, // no group
    };
    for (const auto & row : rows) {
        EXPECT_EQ(told(row.code), row.expected) << row.code;
        EXPECT_EQ(scene()->getElementsNo() - before, row.more) << row.code;
    }
    // With another scene the file's objects are gone.
    run("CNVLOADER^LOAD(\"one.cnv\");E^NEXT();");
    tick();
    run("@MSGBOX(X);");
    EXPECT_EQ(told(), "x; x-done; X");
    run("E^PREV();");
    tick();
    EXPECT_EQ(scene()->getElementsNo(), before);
}

// Between scenes the application takes the objects; the file is released there by whoever asks.
TEST_F(Application, LoadsDefinitionsBeforeTheFirstScene) {
    define("Dane/GAME.cnv", "__INIT__ TYPE=BEHAVIOUR\n__INIT__ CODE={CNVLOADER^LOAD(\"one.cnv\");}");
    define("Dane/one.cnv", "X TYPE=STRING\nX VALUE=kept");
    ASSERT_TRUE(start());
    EXPECT_EQ(told("@MSGBOX(X);CNVLOADER^LOAD(\"one.cnv\");"), "kept");
    EXPECT_EQ(app().getOwnObject("X"), scene()->getObject("X"));
    run("E^NEXT();");
    tick();
    EXPECT_EQ(told("@MSGBOX(X);CNVLOADER^RELEASE(\"one.cnv\");@MSGBOX(X);"), "kept; X");
    EXPECT_EQ(app().getOwnObject("X"), nullptr);
    EXPECT_EQ(app().getOwnObject("one.cnv"), nullptr);
}

TEST_F(Application, HandsOverToTheNextGame) {
    define("Dane/GAME.cnv", "GAME ONDONE={@MSGBOX(\"old-done\");}");
    define("two/Dane/application.def", "SECOND TYPE=APPLICATION\nSECOND SCENES=S\nS TYPE=SCENE\nS PATH=P");
    define("two/Dane/P/S.cnv", "S ONINIT={@MSGBOX(@GETAPPLICATIONNAME(),@GETCURRENTSCENE());}");
    define("two/Dane/SECOND.cnv", "T TYPE=STRING\nT VALUE=here");
    put("none/x", "");
    ASSERT_TRUE(start());
    // A folder that isn't there is asked for again at each tick; the game goes on meanwhile.
    run("GAME^RELOAD(\"two-and\");E^NEXT();");
    tick(3);
    EXPECT_EQ(path(), "E/B");
    EXPECT_EQ(told("@MSGBOX(E^GETCURRENTSCENE());"), "B");
    put("two-and/y", "");
    std::filesystem::rename(folder() + "/two-and", folder() + "/empty");
    std::filesystem::rename(folder() + "/two", folder() + "/two-and");
    tick();
    EXPECT_EQ(told(), "old-done; SECOND, S");
    EXPECT_EQ(app().getName().view(), "SECOND");
    EXPECT_EQ(told("@MSGBOX(T,E);"), "here, E");
    EXPECT_EQ(CWindow::getCDPath().view(), windowsFolder() + "\\two-and\\");
    EXPECT_EQ(CWindow::rootPath.view(), windowsFolder() + "\\");
    EXPECT_EQ(window().GetSoundFXPath().view(), windowsFolder() + "\\two-and\\Wavs");
    EXPECT_FALSE(over());
    tick(2);
    // And to a folder without one.
    run("SECOND^RELOAD(\"none\");");
    tick();
    EXPECT_EQ(application().LastError(), CApplication::kNoApplication);
    EXPECT_EQ(application().getMCApplicationIfc(), nullptr);
    tick(2);
    EXPECT_FALSE(over());
}

} // namespace
