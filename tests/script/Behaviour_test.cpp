#include "script/CMC_Behaviour.h"

#include "script/CMC_Behaviour_Entry.h"
#include "script/CMC_Integer.h"
#include "script/CMC_VariableFactory.h"
#include "script/Control.h"
#include "support/InScope.h"

namespace {

class Behaviour : public test::InScope {
protected:
    // What ticks of 10 ms show.
    std::string after(int ticks) {
        boxes();
        tick(ticks, 10);
        std::string all;
        for (const std::string & each : boxes()) all += (all.empty() ? "" : "; ") + each;
        return all;
    }
    Behaviour() {
        load("OBJECT=V\nV:TYPE=INTEGER\nV:VALUE=5\n"
             "OBJECT=S\nS:TYPE=STRING\nS:VALUE=abc\n"
             "OBJECT=D\nD:TYPE=DOUBLE\nD:VALUE=2.5\n");
    }
};

struct Case {
    const char * code;
    const char * boxes;
};

} // namespace

TEST_F(Behaviour, FormsOfStatements) {
    load("OBJECT=NAME\nNAME:TYPE=STRING\nNAME:VALUE=V\n"
         "OBJECT=B\nB:TYPE=BEHAVIOUR\nB:CODE={@MSGBOX(\"B\",$1);}\n"
         "OBJECT=B2\nB2:TYPE=BEHAVIOUR\nB2:CODE=@RETURN($1);\n");
    const Case cases[] = {
        {"@MSGBOX(\"a b\");", "ab"},               // blanks go everywhere
        {"V^MSGBOX();V^INC()", "V (INTEGER) : 5"}, // no ; at the end: not run
        {"V^MSGBOX();", "V (INTEGER) : 5"},
        {"*NAME^INC();V^MSGBOX();", "V (INTEGER) : 6"},         // indirect, by a variable
        {"*[\"V\"+\"\"]^DEC();V^MSGBOX();", "V (INTEGER) : 5"}, // and by an expression
        {"*[NAME]^SET([V+1]);V^MSGBOX();", "V (INTEGER) : 6"},
        {"V^SET(5);NOBODY^SET(1);@MSGBOX(V);", "5"},
        {"V^NOSUCHMETHOD();@MSGBOX(\"on\");", "on"},
        {"V^SET;@MSGBOX(\"on\");", "on"},                 // a call without parentheses does nothing
        {"S^SET(\"a,b\");S^MSGBOX();", "S (STRING) : a"}, // a comma in quotes cuts
        {"@MSGBOX(1,TRUE,true,\"x\",2.50,007,-);", "1, TRUE, true, x, 2.50000, 007, 0"},
        {"@MSGBOX([1+2*3],[1+[2*3]],[V@2],[2.6+1],[1+2.6]);", "9, 7, 2, 3.60000, 4"},
        {"@MSGBOX(&V,&7,&NOBODY);", "5, 7, NOBODY"},
        {"@MSGBOX();@MSGBOX(\"\");", ""},
        {"B^RUN(\"x\");B^RUN();", "B, x; B, $1"},
        {"B^RUN(V);B^RUN(B);", "B, 5; B, B"}, // an object's name goes in quotes
        {"@MSGBOX(B2^RUN(7));", "7"},
        {"THIS^INC();@MSGBOX(\"on\");", "on"}, // nobody is THIS here
        {"@MSGBOX(@VALUE(\"V\"),@CONV(V,\"STRING\"),@CONV(2.5,\"INTEGER\"),@CONV(\"x\",\"BOOL\"));",
         "5, 5, 3, FALSE"},
        {"@MSGBOX(@GETCURRENTSCENE());", "SCENE"},
        {"@MSGBOX(V^ADD(2.6));V^SET(5);", "8"},
        {"V^SET(1);V^SET(2)", ""},
        {"@MSGBOX(V);V^SET(5);", "1"},
        {"@MSGBOX(1,,2,);", "1, 2"},
        {"@MSGBOX({a,b});", "{a, b}"}, // braces don't hold a comma
        {"S^SET(\"a;b\");S^MSGBOX();S^SET(\"abc\");", "S (STRING) : a;b"},
        {"@MSGBOX(\"a(b\");@MSGBOX(2);", ""}, // brackets in quotes count
        {"@MSGBOX(\"a)b\");@MSGBOX(2);", ""},
        {"V_0^INC();V_0_0^DEC();@MSGBOX(V_0);", "5"},
        {"@MSGBOX(7);;;@MSGBOX(8);", "7; 8"},
        {"V;5;\"x\";@MSGBOX(V);", "5"},
        {"v^SET(1);V^set(1);@msgbox(1);@MSGBOX(V);", "5"}, // names in their own case
        {"@MSGBOX(&LATER,LATER);@INT(\"LATER\",3);@MSGBOX(&LATER,LATER);", "LATER, LATER; LATER, 3"},
        {"@INT(\"L\",3);*\"L\"^INC();*L^INC();@STRING(\"N\",\"L\");*N^INC();L^MSGBOX();", "L (INTEGER) : 4"},
        {"*[\"V\"]^INC();*NAME^DEC();*NAME_0^INC();*NAME_0^DEC();@MSGBOX(V);", "5"},
        {"*[NAME+\"_0\"]^MSGBOX();*B^MSGBOX();", "V (INTEGER) : 5; B (BEHAVIOUR) : B"},
        {"@MSGBOX(V^MSGBOX(),@GETAPPLICATIONNAME());", "V (INTEGER) : 5; , "},
        {"B^RUN(\"V\");B^RUN(\"x\",1,2);", "B, 5; B, x"}, // a value's name means the value
    };
    for (const Case & c : cases) EXPECT_EQ(shown(c.code), c.boxes) << c.code;
}

TEST_F(Behaviour, Arguments) {
    struct {
        const char * code;
        std::vector<std::string> args;
        const char * boxes;
    } const cases[] = {
        {"@MSGBOX($1,$2);", {"a", "b"}, "a, b"},
        {"@MSGBOX($10);", {"x"}, "x0"},
        {"@MSGBOX($2,$0,$$);", {"x"}, "$2, $0, $$"},
        {"$1^SET(9);V^MSGBOX();", {"V"}, "V (INTEGER) : 9"},
        {"V^$1();V^MSGBOX();", {"INC"}, "V (INTEGER) : 5"}, // a name in the method alone isn't looked at
        {"$1^$2();V^MSGBOX();", {"V", "INC"}, "V (INTEGER) : 6"},
        {"@MSGBOX([$1+1]);", {"4"}, "5"},
        {"@IF($1,\"<\",3,{@MSGBOX(\"less\",$1);},{@MSGBOX(\"more\",$1);});", {"2"}, "less, 2"},
        {"@IF($1,\"<\",3,{@MSGBOX(\"less\",$1);},{@MSGBOX(\"more\",$1);});", {"5"}, "more, 5"},
        {"@LOOP({@MSGBOX(_I_,$1);},0,2,1);", {"k"}, "0, k; 1, k"},
        {"@MSGBOX($9,$1$2,$,\"$1\");", {"a", "b"}, "$9, ab, $, a"},
        {"@MSGBOX($1);", {"[1+2]"}, "3"},
        {"@MSGBOX($1);", {"V^ADD(1)"}, "6"},
        {"@MSGBOX($1);", {"@CONV(2.5,\"INTEGER\")"}, "3"},
        {"@MSGBOX($1);", {"\"V\""}, "V"},
        {"@MSGBOX($1);", {"V"}, "5"},
        {"@MSGBOX($1,$3);", {"$2", "b", "$3"}, "b, $3"}, // what an argument brings is filled once more
        {"@IF(1,\"_\",1,$1,$2);", {"{V^INC();@MSGBOX(V);}", "{}"}, "6"},
        {"@IF(1,\"_\",1,$1);", {"\"{V^INC();@MSGBOX(V);}\""}, "6"},
        {"@IF(1,\"_\",1,$1);@MSGBOX(V);", {"{@MSGBOX(7);}"}, "7; 5"},
        {"$1;V^MSGBOX();", {"V^INC()"}, "V (INTEGER) : 5"}, // a statement is no parameter
        {"*$1^INC();V^MSGBOX();", {"V"}, "V (INTEGER) : 5"},
        {"@MSGBOX([[$1]*[$2]]);", {"2", "V"}, "10"},
    };
    for (const auto & c : cases) {
        boxes();
        shown("V^SET(5);");
        run(c.code, c.args);
        std::string all;
        for (const std::string & each : boxes()) all += (all.empty() ? "" : "; ") + each;
        EXPECT_EQ(all, c.boxes) << c.code;
    }
}

TEST_F(Behaviour, Statements) {
    load("OBJECT=B\nB:TYPE=BEHAVIOUR\nB:CODE={@MSGBOX(_I_);}\n"
         "OBJECT=N\nN:TYPE=BEHAVIOUR\nN:CODE={@MSGBOX(\"n\");}\nN:CONDITION=NEVER\n"
         "OBJECT=NEVER\nNEVER:TYPE=CONDITION\nNEVER:OPERAND1=V\nNEVER:OPERATOR=LESS\nNEVER:OPERAND2=0\n"
         "OBJECT=L\nL:TYPE=BEHAVIOUR\nL:CODE={@MSGBOX($1,$2);}\n");
    const Case cases[] = {
        {"@IF(V,\">\",3,{@MSGBOX(\"yes\");},{@MSGBOX(\"no\");});", "yes"},
        {"@IF(V,\"_\",\"5\",\"B\",\"\");", "_I_"},
        {"@IF(\"V>3&&V<5\",{@MSGBOX(1);},{@MSGBOX(2);});", "2"},
        {"@IF(\"V>3||V<5\",{@MSGBOX(1);},{@MSGBOX(2);});", "1"},
        {"@IF(\"V'5\",{@MSGBOX(1);},{@MSGBOX(2);});", "1"},
        {"@IF(\"V?INTEGER\",{@MSGBOX(1);},{@MSGBOX(2);});", "1"},
        {"@IF(D,\"_\",2.5,{@MSGBOX(1);},{@MSGBOX(2);});", "1"},
        {"@IF(S,\"_\",\"ABC\",{@MSGBOX(1);},{@MSGBOX(2);});", "1"},
        {"@LOOP(B,0,3,1);", "0; 1; 2"},
        {"@LOOP(\"B\",5,-3,-1);", "5; 4; 3"},
        {"@LOOP(B,3,0,1);", ""},
        {"@LOOP({@IF(_I_,\">\",1,{@BREAK();},{});@MSGBOX(_I_);},0,9,1);@MSGBOX(\"end\");", "0; 1"},
        {"@LOOP({@IF(_I_,\"_\",1,{@ONEBREAK();@MSGBOX(9);},{});@MSGBOX(_I_);},0,3,1);", "0; 1; 2"},
        {"@LOOP({@CONTINUE();@MSGBOX(_I_);},0,3,1);@MSGBOX(\"end\");", "end"},
        {"@FOR(V,{@MSGBOX(V);},0,2,1);V^SET(5);", "0; 1"},
        {"@WHILE(\"V\",\"<\",\"8\",{V^INC();@MSGBOX(V);});V^SET(5);", "6; 7; 8"},
        {"@RETURN(5);@MSGBOX(\"x\");", "x"},
        {"@INT(\"LOC\",3);LOC^ADD(V);@MSGBOX(LOC);", "8"},
        {"@INT(\"LOC\",1);@INT(\"LOC\",2);@MSGBOX(LOC);", "1"},
        {"@MSGBOX(LOC);", "LOC"}, // gone with the run before
        {"@IF(1,\"_\",1,{@STRING(\"T\",\"in\");@MSGBOX(T);},{});@MSGBOX(T);", "in; T"},
        {"@INT(\"V\",77);@MSGBOX(V);", "5"},
        {"N^RUNC();@MSGBOX(\"-\");N^RUN();", "-; n"},
        {"N^DISABLE();N^RUN();N^ENABLE();N^RUN();", "n"},
        {"L^RUNLOOPED(2,3,2,\"z\");", "2, 2; 4, 2"},
    };
    for (const Case & c : cases) EXPECT_EQ(shown(c.code), c.boxes) << c.code;
}

// A coin is picked up: the argument reaches the addition, the change is signalled inside of it, and the
// blocks of IF see the new value.
TEST_F(Behaviour, PickingUpACoin) {
    load("OBJECT=SCORE\nSCORE:TYPE=INTEGER\nSCORE:VALUE=3\n"
         "SCORE:ONCHANGED^7={@MSGBOX(\"seven\",HERO);}\nSCORE:ONCHANGED={@MSGBOX(\"changed\",SCORE);}\n"
         "OBJECT=HERO\nHERO:TYPE=STRING\nHERO:VALUE=still\n"
         "OBJECT=PICKUP\nPICKUP:TYPE=BEHAVIOUR\n"
         "PICKUP:CODE={SCORE^ADD($1);@IF(SCORE,\">\",10,{HERO^SET(\"WIN\");},{HERO^SET(\"IDLE\");});}\n"
         "OBJECT=COIN\nCOIN:TYPE=INTEGER\nCOIN:ONSIGNAL^CLICK=PICKUP(4)\n");
    auto * pickup = static_cast<CMC_Behaviour *>(scope().getObject("PICKUP"));
    const auto & lines = pickup->getLines()->entries;
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0]->getLine(), "SCORE^ADD($1)");
    EXPECT_EQ(lines[0]->getMethod(), 7);
    EXPECT_EQ(lines[1]->getMethod(), 1);
    std::vector<CMC_Behaviour *> blocks;
    for (int i = 0; i < scope().getElementsNo(); i++)
        if (scope().getObject(i)->getName().startsWith("temp_"))
            blocks.push_back(static_cast<CMC_Behaviour *>(scope().getObject(i)));
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[1]->getCode(), "HERO^SET(\"IDLE\");");

    CMC_Object * coin = scope().getObject("COIN");
    EXPECT_TRUE(coin->onSignal("ONSIGNAL^CLICK"));
    EXPECT_EQ(boxes(), std::vector<std::string>{"seven, still"}); // inside of ADD, before IF
    EXPECT_EQ(shown("@MSGBOX(SCORE,HERO);"), "7, IDLE");
    EXPECT_EQ(blocks[0]->getCalls() * 10 + blocks[1]->getCalls(), 1);
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
    EXPECT_EQ(shown("COIN^SEND(\"CLICK\");HERO^MSGBOX();"), "changed, 11; HERO (STRING) : WIN");
    EXPECT_EQ(pickup->getCalls(), 2);
    CXArray four(5, 0.75F);
    CXString text("4");
    four.add(&text);
    EXPECT_FALSE(pickup->run(coin, &four, true));
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Behaviour, RunsOnATimer) {
    load("OBJECT=TICKER\nTICKER:TYPE=BEHAVIOUR\nTICKER:CODE={@MSGBOX($1,$2);}\n"
         "TICKER:CONDITION=NEVER\n"
         "OBJECT=NEVER\nNEVER:TYPE=CONDITION\nNEVER:OPERAND1=V\nNEVER:OPERATOR=LESS\nNEVER:OPERAND2=0\n"
         "OBJECT=END\nEND:TYPE=BEHAVIOUR\nEND:CODE={@MSGBOX(\"end\",$1,$2,THIS^GETNAME());}\n"
         "OBJECT=SHY\nSHY:TYPE=BEHAVIOUR\nSHY:CODE={@MSGBOX(\"shy\");}\nSHY:CONDITION=NEVER\n"
         "OBJECT=T\nT:TYPE=STRING\n");
    struct {
        const char * start; // what RUNONTIMER is given
        const char * boxes; // of ten ticks
    } const cases[] = {
        // A copy: neither the condition nor DISABLE of where it came from counts, nor that it goes.
        {"10,2,TICKER,{@MSGBOX(\"done\");},\"x\"", "1, x; 2, x; done"},
        {"20,3,\"TICKER\",\"\",V,S", "1, 5; 2, 5; 3, 5"},
        {"10,1,{@MSGBOX($1);V^SET(V);},SHY", "1"}, // the end's condition is asked
        {"10,1,{@MSGBOX($1);},NOBODY", "1"},       // a text that names nobody is code, here of no use
        {"10,9,{@MSGBOX($1);@IF($1,\"_\",3,{@BREAK();V^INC();},{});},{@MSGBOX(\"broken\");}",
         "1; 2; 3; broken"},
        {"10,9,{@MSGBOX($1);@ONEBREAK();V^INC();},\"\"", "1; 2; 3; 4; 5; 6; 7; 8; 9"},
        {"10,9,{@MSGBOX($1);THIS^BREAK();},{@MSGBOX(\"never\");}", "1"}, // and no end
        {"10,0,{@MSGBOX($1);@IF($1,\"_\",4,{*T^BREAK();},{});},{@MSGBOX(\"never\");}", "1; 2; 3; 4"},
        {"10,-5,{@IF($1,\"_\",7,{@MSGBOX($1);*T^BREAK();},{});},\"\"", "7"},
        // The timer is over when the end runs; what it does to it is fine.
        {"10,1,{@MSGBOX(V);V^SET(V);},{@MSGBOX(\"end\");*T^BREAK();*T^BREAK();}", "5; end"},
        // With a $ the whole call is parsed for this one run, and its blocks go with it.
        {"10,1,{@MSGBOX($1);},{V^SET(V);@MSGBOX(\"never\");}", "1"},
    };
    run("TICKER^DISABLE();");
    for (const auto & each : cases) {
        load(std::string("OBJECT=START\nSTART:TYPE=BEHAVIOUR\nSTART:CODE={T^SET(@RUNONTIMER(") + each.start +
             "));}\n");
        run("START^RUN();");
        EXPECT_EQ(after(10), each.boxes) << each.start;
        EXPECT_EQ(shown("@MSGBOX(T);*T^RUN();").substr(0, 6), "timer_") << each.start;
        EXPECT_FALSE(scope().getVariable("T")->asString().IsString() &&
                     scope().getObject(scope().getVariable("T")->asString()))
            << each.start;
        EXPECT_EQ(after(3), "") << each.start;
    }
    run("T^SET(@RUNONTIMER(10,1,{V^SET(V);},END,\"k\"));");
    EXPECT_EQ(after(2), "end, 1, k, " + shown("@MSGBOX(T);"));
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

// THIS is who raised the signal; inside a block of IF the block, inside the turns of a loop nobody.
TEST_F(Behaviour, WhoThisIs) {
    load("OBJECT=THISONE\nTHISONE:TYPE=INTEGER\n"
         "OBJECT=B\nB:TYPE=BEHAVIOUR\nB:CODE={THIS^MSGBOX();}\n"
         "OBJECT=T\nT:TYPE=INTEGER\nT:ONSIGNAL^A={THIS^MSGBOX();}\nT:ONSIGNAL^B={B^RUN();THISONE^INC();}\n"
         "T:ONSIGNAL^C={@LOOP({THIS^MSGBOX();},0,2,1);@WHILE(\"T\",\"<\",1,{T^INC();THIS^MSGBOX();});}\n"
         "T:ONSIGNAL^D={@IF(1,\"_\",1,{THIS^ADDTOGROUP(\"G\");},{});}\nOBJECT=G\nG:TYPE=GROUP\n");
    EXPECT_EQ(shown("T^SEND(\"A\");"), "T (INTEGER) : 0");
    EXPECT_EQ(shown("T^SEND(\"B\");T^SEND(\"C\");@MSGBOX(THISONE);"),
              ""); // a word that begins with THIS is none
    EXPECT_EQ(shown("T^SEND(\"D\");@MSGBOX(G^GETNAME(0));").substr(0, 5), "temp_");
}

// A name in a statement stays with the object that it found when it was parsed. Arguments parse blocks anew.
TEST_F(Behaviour, NamesAreFoundWhenTextIsParsed) {
    CMC_ObjectsContainer outer(&window(), nullptr, CXString("OUTER"), types::kEpisode);
    auto * far = new CMC_Integer(CXString("X"));
    outer.addObject(far);
    scope().setParent(&outer);
    load(
        "OBJECT=ALONE\nALONE:TYPE=BEHAVIOUR\nALONE:CODE={@MSGBOX(X);}\n"
        "OBJECT=BLOCK\nBLOCK:TYPE=BEHAVIOUR\nBLOCK:CODE={@IF(1,\"_\",1,{X^MSGBOX();});}\n"
        "OBJECT=FILLED\nFILLED:TYPE=BEHAVIOUR\nFILLED:CODE={@IF(1,\"_\",1,{X^MSGBOX();@MSGBOX($1);});}\n"
        "OBJECT=BRACKET\nBRACKET:TYPE=BEHAVIOUR\nBRACKET:CODE={@IF(1,\"_\",1,{V^SET([X+0]);@MSGBOX(V,$1);});}"
        "\n"
        "OBJECT=TARGET\nTARGET:TYPE=BEHAVIOUR\nTARGET:CODE={@IF(1,\"_\",1,{*[X]^GET();V^SET([[X]+X^GET()]);@"
        "MSGBOX(V,$1);});}\n"
        "OBJECT=INNER\nINNER:TYPE=BEHAVIOUR\nINNER:CODE={@IF(1,\"_\",1,{@IF(1,\"_\",1,{X^MSGBOX();});});}\n");
    struct {
        const char * name;
        const char * before;
        const char * without; // after another X has come, without arguments
        const char * with;
    } const cases[] = {
        {"ALONE", "0", "0", "0"},
        {"BLOCK", "X (INTEGER) : 0", "X (INTEGER) : 0", "X (INTEGER) : 7"},
        {"FILLED", "X (INTEGER) : 0; $1", "X (INTEGER) : 0; $1", "X (INTEGER) : 7; k"},
        {"BRACKET", "0, $1", "0, $1", "7, k"},
        {"TARGET", "0, $1", "0, $1", "14, k"},
        {"INNER", "X (INTEGER) : 0", "X (INTEGER) : 0", "X (INTEGER) : 7"},
    };
    for (const auto & each : cases) {
        auto * behaviour = static_cast<CMC_Behaviour *>(scope().getObject(each.name));
        CXArray args(5, 0.75F);
        CXString text("k");
        args.add(&text);
        auto boxesOf = [&](CXArray * given) {
            boxes();
            behaviour->run(nullptr, given, false);
            std::string all;
            for (const std::string & box : boxes()) all += (all.empty() ? "" : "; ") + box;
            return all;
        };
        EXPECT_EQ(boxesOf(nullptr), each.before) << each.name;
        boxesOf(&args);
        behaviour->init();
        auto * near = new CMC_Integer(CXString("X"));
        near->put(7);
        scope().addObject(near);
        EXPECT_EQ(boxesOf(nullptr), each.without) << each.name;
        EXPECT_EQ(boxesOf(&args), each.with) << each.name;
        scope().removeObject(near);
        delete near;
    }
    scope().setParent(nullptr);
}

TEST_F(Behaviour, RunsInsideItself) {
    load("OBJECT=FIB\nFIB:TYPE=BEHAVIOUR\n"
         "FIB:CODE={@IF($1,\"<\",2,{@RETURN($1);},{@RETURN([0+FIB^RUN([$1-1])+FIB^RUN([$1-2])]);});}\n"
         "OBJECT=LOC\nLOC:TYPE=BEHAVIOUR\n"
         "LOC:CODE={@INT(\"A\",$1);@IF($1,\">\",1,{LOC^RUN([$1-1]);},{});@MSGBOX(A,$1);}\n"
         "OBJECT=PAIR\nPAIR:TYPE=BEHAVIOUR\n"
         "PAIR:CODE={@IF(\"V<7\",{V^INC();PAIR^RUN();},{});@MSGBOX(V,V^ADD(1),[V*1]);}\n");
    load("OBJECT=DOWN\nDOWN:TYPE=BEHAVIOUR\nDOWN:CODE={@IF($1,\">\",0,{@VALUE(@CONV(DOWN^RUN([$1-1]),"
         "\"STRING\"));},{V^SET(9);});}\n"
         "OBJECT=MANY\nMANY:TYPE=BEHAVIOUR\nMANY:CODE={@LOOP({@MSGBOX(V^ADD($1));},0,25000,1);}\n");
    EXPECT_EQ(shown("DOWN^RUN(300);@MSGBOX(V);V^SET(5);"), "9");
    run("@VALUE(@CONV(MANY^RUN($1),$2));", {"1", "STRING"});
    EXPECT_EQ(boxes().size(), 25000U);
    EXPECT_EQ(shown("V^SET(5);@MSGBOX(FIB^RUN(12));"), "144");
    EXPECT_EQ(shown("LOC^RUN(2);"),
              "2, 1; A, 2"); // the end of any run takes all of the behaviour's variables
    EXPECT_EQ(shown("PAIR^RUN();"), "8, 8, 8; 9, 9, 9; 10, 10, 10");
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 1); // the bracket that stands keeps its value
}

TEST_F(Behaviour, ScriptsThatRemoveWhatRuns) {
    load("OBJECT=X\nX:TYPE=INTEGER\nX:ONCHANGED={THIS^REMOVEBEHAVIOURFORCE(\"ONCHANGED\");@MSGBOX(\"last\");}"
         "\n"
         "OBJECT=R\nR:TYPE=BEHAVIOUR\nR:CODE={@MSGBOX(\"r\");R^RUN();}\n");
    EXPECT_EQ(shown("X^INC();X^INC();"), "last");
    // BREAK ends a behaviour for good, one without a timer too.
    load("OBJECT=P\nP:TYPE=BEHAVIOUR\nP:CODE={P^BREAK();@MSGBOX(\"p\");P^RUN();P^BREAK();}\n");
    EXPECT_EQ(shown("P^RUN();P^RUN();P^BREAK();"), "p");
    EXPECT_EQ(shown("@IF(1,\"_\",1,\"THIS^BREAK();@MSGBOX(1);\");@IF(1,\"_\",1,{THIS^BREAK();@MSGBOX(2);});"),
              "1; 2");
    // Without end: it is stopped, a box says so, and the next statement runs.
    run("R^RUN();@MSGBOX(\"on\");");
    auto all = boxes();
    ASSERT_GT(all.size(), 3U);
    EXPECT_EQ(all.back(), "on");
    EXPECT_EQ(all[all.size() - 2], "Behaviour R runs itself without end");
    // One that runs itself twice doesn't try every way down: all ends with the outermost run.
    load("OBJECT=RR\nRR:TYPE=BEHAVIOUR\nRR:CODE={RR^RUN();RR^RUN();}\n");
    run("RR^RUN();@MSGBOX(\"never\");");
    EXPECT_EQ(boxes(), (std::vector<std::string>{"Behaviour RR runs itself without end"}));
    EXPECT_EQ(shown("@MSGBOX(\"on\");"), "on");
}

TEST_F(Behaviour, TellsTheAuthor) {
    struct {
        const char * code;
        const char * note;
    } const cases[] = {
        {"NOBODY^SET(1);", "unknown object: NOBODY"},
        {"V^NOSUCH();", "unknown method: V (INTEGER) has no method NOSUCH"},
        {"V^INC()", "missing ;: the statement doesn't run"},
        {"V^SET(1;@MSGBOX(2);", "missing ;: a bracket isn't closed: the rest of the code doesn't run"},
        {"V^SEND();", "too few parameters: V^SEND needs: text"},
        {"V^SET;", "not a statement: a call needs parentheses"},
        {"V^DIV(0);", "division by zero: the result is 0"},
    };
    for (const auto & c : cases) {
        notes.clear();
        run(c.code);
        ASSERT_EQ(notes.size(), 1U) << c.code;
        EXPECT_EQ(notes[0], c.note);
    }
    load("OBJECT=Q\nQ:TYPE=INTEGER\nQ:ONCHANGED=MISSING(1)\n");
    EXPECT_EQ(notes.back(), "unknown behaviour: ONCHANGED names MISSING, which isn't there");
}

// Comparison texts are walked by rules of their own.
TEST_F(Behaviour, Lines) {
    auto line = [&](const char * text, CMC_Object * self = nullptr) {
        CMC_Object * result = CMC_Behaviour::runLine(&scope(), self, text, nullptr);
        std::string value = result ? result->toString().c_str() : "null";
        CMC_Object::flush(result);
        return value;
    };
    EXPECT_EQ(line("V^ADD(1)"), "6");
    EXPECT_EQ(line(" V^ADD( [V-5] , \"x,y\" ) "), "7");
    EXPECT_EQ(line("THIS^GET()"), "null");
    EXPECT_EQ(line("THIS^GET()", scope().getObject("V")), "7");
    EXPECT_EQ(line("@CONV(V,\"STRING\")"), "7");
    EXPECT_EQ(line("@CONV(@CONV(2.5,INTEGER),DOUBLE)"), "0");      // an inner call is a text here
    EXPECT_EQ(line("@CONV(CONV(2.5,INTEGER),DOUBLE)"), "3.00000"); // but for this word
    EXPECT_EQ(line("S^SET(\"V\")"), "null");
    EXPECT_EQ(line("*S^GET()"), "7");
    EXPECT_EQ(line("#n\x80^#\x82()"), "7"); // the first object, its method 2
    EXPECT_EQ(line("#n\xFF^#\x82()"), "null");
    EXPECT_EQ(line("V^#\xFF()"), "null");
    EXPECT_EQ(line("NOBODY^GET()"), "null");
    for (const char * odd : {"", "^", "@", "*", "*^", "(", ")", "V", "V^", "V^(", "#n^#()", "@CONV"})
        line(odd);
    CMC_Behaviour::flushTrash();
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Behaviour, BadCodeNeitherCrashesNorHangs) {
    std::string deep = "V^SET(1);", brackets(9000, '['), bytes, nested = "V^INC();";
    for (int i = 0; i < 120; i++) nested = "@IF(1,\"_\",1,{" + nested + "},{});";
    for (int i = 1; i < 256; i++) bytes += static_cast<char>(i);
    for (const std::string & code :
         {std::string("((((((;;;)"), std::string(")))))V^SET(1);"), std::string("@"), std::string("*"),
          std::string("^;"), std::string("[;"), std::string("V^SET([);"), std::string("*]^(;"),
          std::string("@IF(;"), std::string("THIS;"), "V^SET(" + brackets + ");", bytes, bytes + ";", nested,
          std::string(1 << 20, 'x') + ";", "V^SET(\"" + std::string(20000, 'y') + "\");",
          std::string("{{{{}}}};"), std::string("@LOOP({},1);")})
        run(code);
    boxes();
    run("V^SET(1);" + nested + "V^MSGBOX();");
    EXPECT_EQ(boxes(), (std::vector<std::string>{"V (INTEGER) : 2"}));
    std::string much, calls = "V";
    while (much.size() < 1 << 20) much += "V^INC();";
    EXPECT_EQ(shown("V^SET(0);" + much + "@MSGBOX(V);"), std::to_string(much.size() / 8));
    for (int i = 0; i < 1000; i++) calls = "@VALUE(" + calls + ")";
    run("V^SET(" + calls + ");");
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Behaviour, EveryByteInQuotes) {
    for (int i = 1; i < 256; i++) {
        std::string byte(1, static_cast<char>(i));
        std::string expected = byte == " "                  ? ""
                               : byte == ","                ? ", "
                               : byte == "(" || byte == ")" ? "none"
                                                            : byte;
        boxes();
        run("@MSGBOX(\"" + byte + "\");");
        std::vector<std::string> all = boxes();
        EXPECT_EQ(all.empty() ? "none" : all[0], expected) << i;
        run(byte + ";V" + byte + "^INC();V^" + byte + "INC();" + byte + "(V);V^SET(" + byte + "V);");
        run("V^SET(5);");
    }
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}
