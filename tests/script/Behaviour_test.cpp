#include "script/CMC_Behaviour.h"

#include "script/CMC_Integer.h"
#include "script/CMC_VariableFactory.h"
#include "script/Control.h"
#include "support/InScope.h"

namespace {

class Behaviour : public test::InScope {
protected:
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
         "SCORE:ONCHANGED^7={@MSGBOX(\"seven\");}\nSCORE:ONCHANGED={@MSGBOX(\"changed\",SCORE);}\n"
         "OBJECT=HERO\nHERO:TYPE=STRING\n"
         "OBJECT=PICKUP\nPICKUP:TYPE=BEHAVIOUR\n"
         "PICKUP:CODE={SCORE^ADD($1);@IF(SCORE,\">\",10,{HERO^SET(\"WIN\");},{HERO^SET(\"IDLE\");});}\n"
         "OBJECT=COIN\nCOIN:TYPE=INTEGER\nCOIN:ONSIGNAL^CLICK=PICKUP(4)\n");
    EXPECT_EQ(shown("COIN^SEND(\"CLICK\");HERO^MSGBOX();"), "seven; HERO (STRING) : IDLE");
    EXPECT_EQ(shown("COIN^SEND(\"CLICK\");HERO^MSGBOX();"), "changed, 11; HERO (STRING) : WIN");
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Behaviour, RunsOnATimer) {
    load("OBJECT=TICKER\nTICKER:TYPE=BEHAVIOUR\nTICKER:CODE={@MSGBOX($1,$2);}\n"
         "OBJECT=T\nT:TYPE=STRING\n"
         "OBJECT=START\nSTART:TYPE=BEHAVIOUR\n"
         "START:CODE={T^SET(@RUNONTIMER(10,2,TICKER,{@MSGBOX(\"done\");},\"x\"));}\n");
    run("START^RUN();");
    tick(5, 10);
    EXPECT_EQ(boxes(), (std::vector<std::string>{"1, x", "2, x", "done"}));
    run("T^SET(@RUNONTIMER(10,0,{@MSGBOX($1);},\"\"));");
    tick(2, 10);
    run("*T^BREAK();");
    tick(2, 10);
    EXPECT_EQ(boxes(), (std::vector<std::string>{"1", "2"}));
}

TEST_F(Behaviour, ScriptsThatRemoveWhatRuns) {
    load("OBJECT=X\nX:TYPE=INTEGER\nX:ONCHANGED={THIS^REMOVEBEHAVIOURFORCE(\"ONCHANGED\");@MSGBOX(\"last\");}"
         "\n"
         "OBJECT=R\nR:TYPE=BEHAVIOUR\nR:CODE={@MSGBOX(\"r\");R^RUN();}\n");
    EXPECT_EQ(shown("X^INC();X^INC();"), "last");
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
}
