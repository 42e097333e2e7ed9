#include "app/CMC_Scene.h"

#include "core/CXTimer.h"
#include "script/Lifetime.h"
#include "support/InPlay.h"

#include <filesystem>
#include <malloc.h>

namespace {

class Scene : public test::InPlay {};

TEST_F(Scene, EntersFromTheTopDownAndLeavesInReverse) {
    define("Dane/GAME.cnv", R"(
        OUTER TYPE=INTEGER
        OUTER ONINIT={@MSGBOX("outer");}
        __INIT__ TYPE=BEHAVIOUR
        __INIT__ CODE={@MSGBOX("game-init",THIS^GETNAME());}
        GAME ONINIT={@MSGBOX("never");}
        GAME ONDONE={@MSGBOX("game-done");})");
    define("Dane/E.cnv", R"(
        LAMP TYPE=STRING
        LAMP VALUE=lit
        LAMP ONINIT={@MSGBOX("lamp");}
        XDONE TYPE=BEHAVIOUR
        XDONE CODE={@MSGBOX("x-done",X,THIS^GETNAME(),E^GETCURRENTSCENE());}
        __INIT__ TYPE=BEHAVIOUR
        __INIT__ CODE={@MSGBOX("episode-init",THIS^GETNAME());}
        E ONINIT={@MSGBOX("never");}
        E ONDONE={@MSGBOX("episode-done");})");
    define("Dane/A.cnv", R"(
        Y TYPE=TIMER
        Y ONINIT={@MSGBOX("y");}
        X TYPE=INTEGER
        X VALUE=1
        X ONINIT={@MSGBOX("x",X,GAME^EXISTSENV("A","Y"));}
        X ONDONE=XDONE
        Y ONDONE={@MSGBOX("never");}
        __INIT__ TYPE=BEHAVIOUR
        __INIT__ CODE={@MSGBOX("init",THIS^GETNAME());}
        A ONINIT={@MSGBOX("A",@GETCURRENTSCENE(),@GETAPPLICATIONNAME());}
        A ONDONE={@MSGBOX("never");})");
    define("Dane/B.cnv", R"(
        B ONINIT={@MSGBOX("B");})");
    ASSERT_TRUE(start());
    // Values are made before timers, and init goes by that order. At the end a scene's own behaviours are
    // done before what they are bound to; those of outer scopes run, and no longer find the scene's objects.
    const std::string a = "x, 1, TRUE; y; init, A; A, A, GAME";
    EXPECT_EQ(told(), "outer; game-init, GAME; lamp; episode-init, E; " + a);
    run("X^SET(7); E^GOTO(\"B\");");
    EXPECT_EQ(told(), "");
    tick();
    EXPECT_EQ(told(), "episode-done; x-done, X, X, A; B");
    EXPECT_EQ(told("E^GOTO(\"A\");"), "");
    tick();
    EXPECT_EQ(told(), "episode-done; " + a); // the definition is read again
    EXPECT_EQ(told("@MSGBOX(LAMP,A^GETELEMENTSNO(),X);"), "lit, 10, 1");
    end();
    EXPECT_EQ(told(), "game-done; episode-done; x-done, X, X, A");
}

TEST_F(Scene, KeysAreStored) {
    define("Dane/application.def", R"(
        GAME TYPE=APPLICATION
        GAME SCENES=S,T
        S TYPE=SCENE
        S PATH=Deep\Deeper
        S DESCRIPTION=what it is
        S BACKGROUND=back.img
        S MUSIC=A.wav
        S DEAMON=TRUE
        S DLLS=extra
        T TYPE=SCENE)");
    define("Dane/Deep/Deeper/S.cnv", "S ONINIT={@MSGBOX(\"S\");}");
    ASSERT_TRUE(start("-log"));
    EXPECT_EQ(told(), "S; music A.wav");
    EXPECT_EQ(scene()->getPath().view(), "Deep\\Deeper");
    EXPECT_EQ(scene()->getDesc().view(), "what it is");
    EXPECT_TRUE(scene()->isDeamon());
    EXPECT_EQ(scene()->getUnit()->getBackgroundFileName().view(), "back.img");
    EXPECT_EQ(scene()->getUnit()->getUnitName().view(), "S");
    EXPECT_NE(get("Tarnook.log").find("scene S: this build loads no modules: extra\n"), std::string::npos);
    EXPECT_EQ(scene()->getMCApplication(), &app());
    EXPECT_EQ(app().getScene("T"), app().find("T"));
    EXPECT_EQ(app().getScene("GAME"), &app());
    EXPECT_EQ(app().getScene("NONE"), nullptr);
    run("GAME^GOTO(\"T\");");
    tick();
    EXPECT_EQ(sceneName(), "T");
    EXPECT_FALSE(scene()->isDeamon());
    EXPECT_EQ(scene()->getDesc().view(), "");
}

// The local tree goes before the second root; a scene without a definition starts empty.
TEST_F(Scene, FindsItsDefinition) {
    struct {
        const char * what;
        std::vector<const char *> files;
        const char * expected;
    } const rows[] = {
        {"both", {"Dane/P/B.cnv", "other/Dane/P/B.cnv"}, "Dane/P/B.cnv"},
        {"second root only", {"other/Dane/P/B.cnv"}, "other/Dane/P/B.cnv"},
        {"empty local folder", {"Dane/P/x", "other/Dane/P/B.cnv"}, "other/Dane/P/B.cnv"},
        {"in another folder", {"Dane/B.cnv", "other/Dane/B.cnv"}, ""},
        {"no folder at all", {}, ""},
        {"an empty file", {"Dane/P/b.CNV"}, ""},
    };
    define("application", R"(
        GAME TYPE=APPLICATION
        GAME SCENES=A,B
        A TYPE=SCENE
        B TYPE=SCENE
        B PATH=P)");
    const std::string definition = get("application");
    for (const auto & row : rows) {
        world().files->changeDirectory("C:\\");
        std::filesystem::remove_all(folder());
        put("Dane/application.def", definition);
        for (const char * file : row.files) {
            std::string box = std::string("B ONINIT={@MSGBOX(\"") + file + "\");}";
            define(file, *row.expected ? box : "");
        }
        ASSERT_TRUE(start());
        CWindow::setCDPath(CXString(windowsFolder() + "\\other\\"));
        run("GAME^GOTO(\"B\");");
        tick();
        EXPECT_EQ(sceneName(), "B") << row.what;
        EXPECT_EQ(told("@MSGBOX(B^GETNAME());"), "B") << row.what;
        EXPECT_EQ(scene()->getElementsNo(), *row.expected ? 3 : 2) << row.what;
        end();
    }
}

// Names set the next change, which waits for the next tick, wherever they are set.
TEST_F(Scene, ChangesWaitForTheNextTick) {
    struct {
        const char * what;
        const char *a, *b; // definitions
        const char * start;
        std::vector<const char *> scenes; // after each tick
    } const rows[] = {
        {"in ONINIT", "A ONINIT={E^GOTO(\"B\");}", "B ONINIT={E^GOTO(\"C\");}", "", {"B", "C", "C"}},
        {"in ONINIT of an object", "X TYPE=INTEGER\nX ONINIT={E^GOTO(\"B\");}", "", "", {"B", "B"}},
        {"in __INIT__", "__INIT__ TYPE=BEHAVIOUR\n__INIT__ CODE={E^NEXT();}", "", "", {"B", "B"}},
        {"in ONDONE", "X TYPE=INTEGER\nX ONDONE=TOC", "", "E^GOTO(\"B\");", {"B", "C", "C"}},
        {"back and forth", "A ONINIT={E^GOTO(\"B\");}", "B ONINIT={E^GOTO(\"A\");}", "", {"B", "A", "B"}},
        {"the last one counts", "", "", "E^GOTO(\"B\");E^GOTO(\"C\");", {"C", "C"}},
        {"an unknown name takes it back", "", "", "E^GOTO(\"B\");E^GOTO(\"NONE\");", {"A", "A"}},
        {"itself", "X TYPE=INTEGER\nX ONDONE={@MSGBOX(\"new\");}", "", "E^GOTO(\"A\");", {"A", "A"}},
        {"not a child of it", "", "", "GAME^GOTO(\"B\");", {"A", "A"}},
        {"next to last", "", "", "E^NEXT();", {"B", "B"}},
        {"before the first", "", "", "E^PREV();", {"A"}},
        {"back from the first", "", "", "E^BACK();", {"A"}},
        {"restart", "", "B ONINIT={E^RESTART();}", "E^NEXT();", {"B", "A", "A"}},
    };
    define("Dane/E.cnv", "TOC TYPE=BEHAVIOUR\n TOC CODE={E^GOTO(\"C\");}");
    for (const auto & row : rows) {
        define("Dane/A.cnv", row.a);
        define("Dane/B.cnv", row.b);
        ASSERT_TRUE(start());
        if (*row.start) run(row.start);
        EXPECT_EQ(sceneName(), "A") << row.what;
        for (std::size_t i = 0; i < row.scenes.size(); i++) {
            tick();
            EXPECT_EQ(sceneName(), row.scenes[i]) << row.what << ", tick " << i + 1;
            EXPECT_EQ(CMC_Scene::getDefUnit()->getUnitName().view(), row.scenes[i]) << row.what;
        }
        end();
        told();
    }
}

TEST_F(Scene, ForgetsWhatItBoundOutside) {
    define("Dane/GAME.cnv", "OUT TYPE=INTEGER\n OUT ONCHANGED={@MSGBOX(\"own\");}\n IN TYPE=INTEGER");
    define("Dane/E.cnv", "EB TYPE=BEHAVIOUR\n EB CODE={@MSGBOX(\"episode's\");}\n"
                         "__INIT__ TYPE=BEHAVIOUR\n __INIT__ CODE={IN^ADDBEHAVIOUR(\"ONCHANGED\",\"EB\");}");
    define("Dane/A.cnv", "AB TYPE=BEHAVIOUR\n AB CODE={@MSGBOX(\"scene's\");}");
    define("Dane/application.def", R"(
        GAME TYPE=APPLICATION
        GAME EPISODES=E
        GAME SCENES=S
        E TYPE=EPISODE
        E SCENES=A,B
        A TYPE=SCENE
        B TYPE=SCENE
        S TYPE=SCENE)");
    ASSERT_TRUE(start());
    run("OUT^OVERIDESIGNALS(FALSE);OUT^ADDBEHAVIOUR(\"ONCHANGED\",\"AB\");");
    EXPECT_EQ(told("OUT^INC();IN^INC();"), "own; scene's; episode's");
    run("E^GOTO(\"B\");");
    tick();
    EXPECT_EQ(told("OUT^INC();IN^INC();"), "own; episode's");
    run("GAME^GOTO(\"S\");");
    tick();
    EXPECT_EQ(told("OUT^INC();IN^INC();"), "own");
    EXPECT_FALSE(scene()->getObject("IN")->onSignal("ONCHANGED")); // nothing is left bound
}

TEST_F(Scene, SignalsFallBackOnObjectsOfTheirName) {
    define("Dane/A.cnv", R"(
        B1 TYPE=BEHAVIOUR
        B1 CODE={@MSGBOX("bound",THIS^GETNAME());}
        __ONACTIVATE__ TYPE=BEHAVIOUR
        __ONACTIVATE__ CODE={@MSGBOX("fallback",THIS^GETNAME());}
        __ONSIGNAL^HELLO__ TYPE=BEHAVIOUR
        __ONSIGNAL^HELLO__ CODE={@MSGBOX("hello");}
        __ONDOMODAL__ TYPE=INTEGER)");
    define("Dane/E.cnv", "__ONMUSICLOOPED__ TYPE=BEHAVIOUR\n __ONMUSICLOOPED__ CODE={@MSGBOX(\"outer\");}\n"
                         "__ONRESTART__ TYPE=BEHAVIOUR\n __ONRESTART__ CODE={@MSGBOX(\"again\");}");
    ASSERT_TRUE(start());
    struct {
        const char *code, *expected;
    } const rows[] = {
        {"A^SEND(\"@ONACTIVATE\");", ""}, // the whole text is the signal
        {"A^SEND(\"HELLO\");", "hello"},  {"A^SEND(\"OTHER\");", ""},
        {"E^RESTART();", "again"},        {"E^ADDBEHAVIOUR(\"ONRESTART\",\"B1\");E^RESTART();", "bound, E"},
    };
    for (const auto & row : rows) EXPECT_EQ(told(row.code), row.expected) << row.code;
    for (const auto & [signal, bound, expected] : {std::tuple("ONACTIVATE", false, "fallback, A"),
                                                   {"ONMUSICLOOPED", false, "outer"},
                                                   {"ONDOMODAL", false, ""},
                                                   {"ONDONE", false, ""},
                                                   {"ONINIT", false, ""}}) {
        EXPECT_EQ(scene()->onSignal(signal), bound) << signal;
        EXPECT_EQ(told(), expected) << signal;
    }
    run("A^ADDBEHAVIOUR(\"ONACTIVATE\",\"B1\");");
    EXPECT_TRUE(scene()->onSignal("ONACTIVATE"));
    EXPECT_EQ(told(), "bound, A");
}

TEST_F(Scene, Methods) {
    define("Dane/GAME.cnv", "OUTER TYPE=INTEGER");
    define("Dane/A.cnv", R"(
        N TYPE=INTEGER
        N VALUE=5
        S TYPE=STRING
        S VALUE=text
        T1 TYPE=TIMER
        T1 ELAPSE=10
        T1 ENABLED=TRUE
        T2 TYPE=TIMER
        T2 ENABLED=FALSE
        G TYPE=GROUP
        ARR TYPE=ARRAY
        SHOW TYPE=BEHAVIOUR
        SHOW CODE={@MSGBOX("$1","$2","$3");}
        STOP TYPE=BEHAVIOUR
        STOP CODE={@MSGBOX("$1");@BREAK();}
        IFN TYPE=BEHAVIOUR
        IFN CODE={@MSGBOX("$1");}
        IFN CONDITION=NEVER
        NEVER TYPE=CONDITION
        NEVER OPERAND1=N
        NEVER OPERATOR=EQUAL
        NEVER OPERAND2=6)");
    ASSERT_TRUE(start());
    struct {
        const char *code, *expected;
    } const rows[] = {
        {"@MSGBOX(A^TOTIME(0),A^TOTIME(59),A^TOTIME(60),A^TOTIME(125),A^TOTIME(5999));",
         "0000, 0059, 0100, 0205, 9959"},
        {"@MSGBOX(A^TOTIME(6000),A^TOTIME(60061));", "10000, 100101"},
        {"@MSGBOX(A^GETDRAGGEDNAME());", ""},
        {"A^SETMUSICVOLUME(40);@MSGBOX(A^GETMUSICVOLUME());", "40"},
        {"A^SETMINHSPRIORITY(3);A^SETMAXHSPRIORITY(9);@MSGBOX(A^GETMINHSPRIORITY(),A^GETMAXHSPRIORITY());",
         "3, 9"},
        {"A^SETMINHSPRIORITY(0);A^SETMAXHSPRIORITY(10000000);", ""},

        // a method of another object
        {"A^RUN(\"N\",\"ADD\",3);N^MSGBOX();", "N (INTEGER) : 8"},
        {"@MSGBOX(A^RUN(\"N\",\"GET\"));", "8"},
        {"A^RUN(\"SHOW\",\"RUN\",1,\"b\");", "1, b, $3"},
        {"A^RUN(\"OUTER\",\"MSGBOX\");", "OUTER (INTEGER) : 0"},
        {"A^RUN(\"NONE\",\"MSGBOX\");A^RUN(\"N\",\"NOSUCH\");A^RUN(\"N\");", ""},

        // groups and types
        {"A^GETOBJECTS(\"TIMER\",\"G\");@MSGBOX(G^GETSIZE());", "2"},
        {"A^GETOBJECTS(\"STRING\",\"G\");@MSGBOX(G^GETSIZE());", "1"},
        {"A^GETOBJECTS(\"NOTYPE\",\"G\");@MSGBOX(G^GETSIZE());A^GETOBJECTS(\"TIMER\",\"NONE\");", "0"},
        {"A^GETRUNNINGTIMER(\"G\");@MSGBOX(G^GETSIZE());T2^ENABLE();A^GETRUNNINGTIMER(\"G\");@MSGBOX(G^"
         "GETSIZE());",
         "1; 3"},
        {"A^GETPLAYINGSEQ(\"ARR\");A^GETPLAYINGANIMO(\"G\");@MSGBOX(ARR^GETSIZE());", "0"},

        // clones
        {"S^CLONE(4);A^RUNCLONES(\"S\",-1,-1,\"SHOW\");",
         "S_1, $2, $3; S_2, $2, $3; S_3, $2, $3; S_4, $2, $3"},
        {"A^RUNCLONES(\"S\",2,3,\"SHOW\",N,\"T1\");", "S_2, 8, T1; S_3, 8, T1"},
        {"A^RUNCLONES(\"S\",0,1,\"{@MSGBOX(\"$1\",$1);}\");", "S_1, text"},
        {"A^RUNCLONES(\"S\",4,6,\"{$1^MSGBOX();}\");", "S_4 (STRING) : text"},
        {"A^RUNCLONES(\"S\",1,2,\"STOP\");", "S_1; S_2"}, // a BREAK ends one turn
        {"A^RUNCLONES(\"S\",1,2,\"IFN\");A^RUNCLONES(\"S\",3,2,\"SHOW\");A^RUNCLONES(\"S\",1,2,\"N\");", ""},
        {"A^RUNCLONES(\"NONE\",1,2,\"SHOW\");A^RUNCLONES(\"S\",1,2147483647,\"SHOW\");", ""},
        {"A^REMOVECLONES(\"S\",2,3);@MSGBOX(GAME^EXISTSENV(\"A\",\"S_1\"),GAME^EXISTSENV(\"A\",\"S_2\"),"
         "GAME^EXISTSENV(\"A\",\"S_3\"),GAME^EXISTSENV(\"A\",\"S_4\"),S^GETCLONESNO());",
         "TRUE, FALSE, FALSE, TRUE, 4"},
        {"A^REMOVECLONES(\"S\",0,0);S^MSGBOX();", "S (STRING) : text"}, // S_0 is S itself
        {"S_1^ADDBEHAVIOUR(\"ONDONE\",\"SHOW\");A^REMOVECLONES(\"S\",-1,-1);@MSGBOX(GAME^EXISTSENV(\"A\",\"S_"
         "4\"));",
         "$1, $2, $3; FALSE"},
        {"N^CLONE(2);A^REMOVE(\"N\");A^REMOVECLONES(\"N\",1,2);@MSGBOX(GAME^EXISTSENV(\"A\",\"N_2\"));",
         "FALSE"},

        // removing
        {"A^REMOVE(\"NONE\");A^REMOVE(\"OUTER\");OUTER^MSGBOX();", "OUTER (INTEGER) : 0"},
        {"A^REMOVE(\"A\");A^REMOVE(\"E\");A^REMOVE(\"GAME\");@MSGBOX(A^GETNAME(),E^GETNAME(),GAME^GETNAME())"
         ";",
         "A, E, GAME"},
        {"@INT(\"K\",A^GETELEMENTSNO());A^REMOVE(\"S\");A^CREATEOBJECT(\"NOTYPE\",\"Q\");"
         "A^CREATEOBJECT(\"INTEGER\",\"Q\");@INT(\"L\",A^GETELEMENTSNO());K^SUB(L);@MSGBOX(K);",
         "0"},
    };
    for (const auto & row : rows) EXPECT_EQ(told(row.code), row.expected) << row.code;
}

TEST_F(Scene, PauseStopsTimersUnlessAsked) {
    define("Dane/A.cnv", R"(
        T TYPE=TIMER
        T ELAPSE=10
        T ENABLED=TRUE
        T ONTICK={@MSGBOX(T^GETTICKS());}
        SEQS TYPE=ARRAY)");
    ASSERT_TRUE(start());
    tick(); // the clock moves behind it
    struct {
        const char *code, *expected; // of the code and the tick behind it
    } const rows[] = {
        {"", "1"},
        {"A^PAUSE();@MSGBOX(A^ISPAUSED());", "TRUE"},
        {"A^PAUSE(TRUE);", ""}, // paused already: nothing changes
        {"A^RESUME();@MSGBOX(A^ISPAUSED());", "FALSE; 2"},
        {"A^RESUME();", "3"},
        {"A^PAUSE(TRUE);@MSGBOX(A^ISPAUSED());", "TRUE; 4"},
        {"A^RESUME(TRUE);", "5"},
        {"A^PAUSE();", ""},
        {"A^RESUMEONLY(\"SEQS\");", "6"},
        {"A^PAUSE();A^RESUMESEQONLY(\"SEQS\");@MSGBOX(A^ISPAUSED());", "TRUE"},
        {"A^RESUME(TRUE);@MSGBOX(A^ISPAUSED());", "FALSE"}, // the timers were to go on, but they stood
    };
    for (const auto & row : rows) {
        told();
        if (*row.code) run(row.code);
        tick();
        EXPECT_EQ(told(), row.expected) << row.code;
    }
    CXTimer::enable(true);
}

TEST_F(Scene, MusicRunsOnWhenTheNextSceneNamesTheSame) {
    define("Dane/application.def", R"(
        GAME TYPE=APPLICATION
        GAME EPISODES=E,F
        E TYPE=EPISODE
        E SCENES=A,B,C
        E MUSIC=e.wav
        F TYPE=EPISODE
        F SCENES=Q
        A TYPE=SCENE
        B TYPE=SCENE
        B MUSIC=b.wav
        C TYPE=SCENE
        C MUSIC=b.wav
        Q TYPE=SCENE)");
    ASSERT_TRUE(start());
    EXPECT_EQ(told(), "music e.wav");
    struct {
        const char *code, *expected;
    } const rows[] = {
        {"E^GOTO(\"B\");", "silence; music b.wav"},
        {"E^GOTO(\"C\");", ""},
        {"E^GOTO(\"C\");", ""},
        {"E^GOTO(\"A\");", "silence; music e.wav"},
        {"A^STARTMUSIC();", ""}, // it plays
        {"A^STARTMUSIC(\"E.WAV\");", ""},
        {"A^STARTMUSIC(\"new.wav\");", "music new.wav"},
        {"A^STOPMUSIC();", "silence"},
        {"A^STARTMUSIC();", "music new.wav"}, // the scene keeps the name
        {"E^STARTMUSIC(\"x.wav\");A^RUN(\"E\",\"NEXT\");", "silence; music b.wav"},
        {"E^GOTO(\"A\");", "silence; music new.wav"},
        {"GAME^GOTO(\"F\");", "silence"},
        {"Q^STARTMUSIC();", ""}, // no name anywhere
        {"GAME^GOTO(\"E\");", "music new.wav"},
    };
    for (const auto & row : rows) {
        run(row.code);
        tick();
        EXPECT_EQ(told(), row.expected) << row.code;
    }
    end();
    EXPECT_EQ(told(), "silence");
}

// What goes while its script runs is gone at once for all who ask, and the script runs to its end.
TEST_F(Scene, ObjectsMayGoWhileTheyRun) {
    define("Dane/E.cnv", R"(
        E1 TYPE=STRING
        E1 VALUE=E1
        ENDS TYPE=BEHAVIOUR
        ENDS CODE={A^REMOVE("D2");A^REMOVE("D1");@MSGBOX(THIS^GETNAME(),E1);@INT("NEW",1);}
        NEVER TYPE=BEHAVIOUR
        NEVER CODE={@MSGBOX("never");})");
    define("Dane/A.cnv", R"(
        SUICIDE TYPE=BEHAVIOUR
        SUICIDE CODE={A^REMOVE("SUICIDE");@MSGBOX("after",GAME^EXISTSENV("A","SUICIDE"));SUICIDE^RUN();}
        N TYPE=INTEGER
        N ONCHANGED={A^REMOVE("N");@MSGBOX("gone",N);N^INC();}
        INNER TYPE=INTEGER
        INNER ONCHANGED={A^REMOVE("beh_INNER_ONCHANGED");A^REMOVE("INNER");@MSGBOX("stillhere");}
        T TYPE=TIMER
        T ELAPSE=1
        T ENABLED=TRUE
        T ONTICK={A^REMOVE("T");@MSGBOX("lasttick");}
        FIRST TYPE=INTEGER
        FIRST ONINIT={A^REMOVE("SECOND");}
        SECOND TYPE=INTEGER
        SECOND ONINIT={@MSGBOX("never");}
        D1 TYPE=INTEGER
        D1 ONDONE=ENDS
        D2 TYPE=INTEGER
        D2 ONDONE=NEVER
        LOOP TYPE=BEHAVIOUR
        LOOP CODE={@LOOP({A^REMOVE("LOOP");@MSGBOX(_I_);},0,2,1);}
        S TYPE=STRING
        CLONED TYPE=BEHAVIOUR
        CLONED CODE={A^REMOVECLONES("S",-1,-1);A^REMOVE("S");A^REMOVE("CLONED");@MSGBOX("$1");})");
    ASSERT_TRUE(start());
    EXPECT_EQ(told(), "");
    EXPECT_EQ(told("SUICIDE^RUN();@MSGBOX(\"on\");"), "after, FALSE; on");
    EXPECT_EQ(told("N^SET(3);@MSGBOX(N);"), "gone, N; N");
    EXPECT_EQ(told("INNER^SET(3);"), "stillhere");
    EXPECT_EQ(told("LOOP^RUN();LOOP^RUN();"), "0; 1");
    EXPECT_EQ(told("S^CLONE(3);A^RUNCLONES(\"S\",1,3,\"CLONED\");"), "S_1");
    tick(3);
    EXPECT_EQ(told(), "lasttick");
    run("E^NEXT();");
    tick();
    EXPECT_EQ(told(), "D1, E1");
}

TEST_F(Scene, LeavesNothingBehind) {
    std::string objects;
    for (int i = 0; i < 20; i++) {
        std::string n = std::to_string(i);
        objects += "V" + n + " TYPE=INTEGER\nV" + n + " ONCHANGED={@MSGBOX(\"x\");}\n" + "B" + n +
                   " TYPE=BEHAVIOUR\nB" + n + " CODE={V" + n + "^ADD(1);@IF(\"V" + n +
                   "'5\",{V1^SET(2);},\"\");}\n" + "T" + n + " TYPE=TIMER\nT" + n + " ENABLED=TRUE\nT" + n +
                   " ELAPSE=1\nT" + n + " ONTICK=B" + n + "\n";
    }
    define("Dane/GAME.cnv", "OUT TYPE=INTEGER");
    for (const char * name : {"A", "B"})
        define(std::string("Dane/") + name + ".cnv",
               objects + name +
                   " ONINIT={OUT^ADDBEHAVIOUR(\"ONCHANGED\",\"B1\");V1^CLONE(3);CNVLOADER^LOAD(\"more.cnv\");"
                   "E^GOTO(\"" +
                   (*name == 'A' ? "B" : "A") + "\");}\n");
    define("Dane/more.cnv", "M TYPE=STRING\nM VALUE=x\n");
    ASSERT_TRUE(start());
    tick(20);
    const int living = life::livingNo();
    const std::size_t bytes = mallinfo2().uordblks;
    tick(1000);
    EXPECT_EQ(life::livingNo(), living);
    // The episode's history takes a pointer a change.
    EXPECT_LT(mallinfo2().uordblks, bytes + 20000);
}

} // namespace
