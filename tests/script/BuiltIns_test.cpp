#include "script/CMC_Behaviour.h"
#include "script/CMC_BlockName.h"
#include "script/CMC_Expression.h"
#include "script/CMC_VariableFactory.h"
#include "support/InScope.h"

#include <utility>

namespace {

struct Case {
    const char * code;
    const char * boxes;
};

// V is 5 at the start of each case.
class BuiltIns : public test::InScope {
protected:
    BuiltIns() {
        load("OBJECT=V\nV:TYPE=INTEGER\nV:VALUE=5\n"
             "OBJECT=S\nS:TYPE=STRING\nS:VALUE=abc\n"
             "OBJECT=B\nB:TYPE=BEHAVIOUR\nB:CODE={@MSGBOX(_I_);}\n");
    }

    void check(std::initializer_list<Case> cases) {
        for (const Case & each : cases) {
            run("V^SET(5);");
            EXPECT_EQ(shown(each.code), each.boxes) << each.code;
        }
        EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
    }
};

} // namespace

TEST_F(BuiltIns, If) {
    load("OBJECT=TELL\nTELL:TYPE=BEHAVIOUR\nTELL:CODE={@MSGBOX(\"asked\",$1);@RETURN($1);}\n"
         "OBJECT=SHY\nSHY:TYPE=BEHAVIOUR\nSHY:CODE={@MSGBOX(\"shy\");}\nSHY:CONDITION=NEVER\n"
         "OBJECT=NEVER\nNEVER:TYPE=CONDITION\nNEVER:OPERAND1=V\nNEVER:OPERATOR=LESS\nNEVER:OPERAND2=0\n");
    const std::string yesNo = ",\"@MSGBOX(1);\",\"@MSGBOX(2);\");";
    const std::pair<const char *, bool> conditions[] = {
        {"V<6||V<7", true},
        {"V>6||V>7", false},
        {"V>6||V<7", true},
        {"V<6&&V<7", true},
        {"V<6&&V>7", false},
        {"V>6&&V<7", false},
        {"V'5&&V'5&&V'5", true},
        {"V'5||V'6||NOBODY", true},
        {"V>6||V<6&&V>7", false}, // cut at "&&", and "V>6||V<6" is one comparison
        {"V<6&&V>7||V<7", true},  // the same, and the first true piece ends it
        {"", false},
        {"&&", false},
        {"V'5||", true},
        {"||V'5", true},
    };
    for (const auto & [text, outcome] : conditions)
        EXPECT_EQ(shown("@IF(\"" + std::string(text) + "\"" + yesNo), outcome ? "1" : "2") << text;
    check({
        {"@IF(\"TELL^RUN(1)<5||TELL^RUN(2)<5\",\"@MSGBOX(1);\",\"\");",
         "asked, 1; 1"}, // only as far as needed
        {"@IF(\"TELL^RUN(1)>5&&TELL^RUN(2)<5\",\"\",\"@MSGBOX(2);\");", "asked, 1; 2"},
        {"@IF(V,\"_\",5,\"@MSGBOX(1);\");@IF(V,\"_\",6,\"@MSGBOX(1);\");", "1"},
        {"@IF(V,\"_\",5);@IF(V);@IF();", ""},
        {"@IF(V,\"what\",5,\"@MSGBOX(1);\",\"\");", "1"},        // an unknown sign compares for equal
        {"@IF(V,\"?\",\"INTEGER\",\"\",\"@MSGBOX(2);\");", "2"}, // the value's text names nobody
        {"@IF(\"V\",\"?\",\"INTEGER\",\"@MSGBOX(1);\",\"\");", "1"},
        {"@IF(\"V\",\">\",\"V\",1,\"@MSGBOX(2);\");", "2"},
        {"@IF(-2147483648,\"<\",2147483647,\"@MSGBOX(1);\",\"\");", "1"},
        {"@IF(V,\"_\",5,S,\"\");@IF(V,\"_\",5,\"NOBODY\",\"\");", ""},       // no behaviour, nothing to run
        {"@IF(V,\"_\",5,SHY,\"\");@LOOP(SHY,0,2,1);SHY^RUN();", "shy; shy"}, // loops ask its condition
        {"@IF(V,\"_\",5,{V^INC();@BREAK();},{});@MSGBOX(\"never\");", ""},
        {"@IF(V,\"_\",5,{V^INC();@ONEBREAK();V^INC();},{});@MSGBOX(V);", "6"},
        {"@IF(V,\"_\",5,{V^INC();@CONTINUE();V^INC();},{});@MSGBOX(V);", "6"},
        {"@MSGBOX(@IF(V,\"_\",5,{V^INC();},{}),V);", ", 6"},
    });
}

TEST_F(BuiltIns, BreaksGoThroughCalls) {
    load("OBJECT=IN\nIN:TYPE=BEHAVIOUR\nIN:CODE={@IF(V,\"_\",5,{V^SET(V);@BREAK();},{});@MSGBOX(\"in\");}\n"
         "OBJECT=MID\nMID:TYPE=BEHAVIOUR\nMID:CODE={IN^RUN();@MSGBOX(\"mid\");}\n"
         "OBJECT=ONE\nONE:TYPE=BEHAVIOUR\nONE:CODE={@ONEBREAK();@MSGBOX(\"one\");}\n"
         "OBJECT=SIG\nSIG:TYPE=INTEGER\nSIG:ONCHANGED={@MSGBOX(\"changed\");@BREAK();}\n");
    check({
        {"MID^RUN();@MSGBOX(\"never\");", ""},
        {"MID^RUNC();@MSGBOX(\"never\");", ""},
        {"V^SET(6);MID^RUN();@MSGBOX(\"on\");", "in; mid; on"},
        {"MID^RUNLOOPED(0,3);@MSGBOX(\"on\");", "on"}, // here it ends the loop alone
        {"ONE^RUN();ONE^RUNLOOPED(0,2);@MSGBOX(\"on\");", "on"},
        {"@LOOP({MID^RUN();@MSGBOX(_I_);},0,3,1);@MSGBOX(\"never\");", ""},
        {"@FOR(V,{@IF(V,\"_\",1,{@BREAK();V^SET(V);},{});@MSGBOX(V);},0,3,1);@MSGBOX(\"never\");", "0"},
        {"@WHILE(\"V\",\"<\",7,{V^INC();@MSGBOX(V);@BREAK();});@MSGBOX(\"on\");", "6; 7; on"},
        {"SIG^INC();@MSGBOX(\"on\");", "changed; on"},       // a signal is no call
        {"@MSGBOX(@BREAK());@MSGBOX(MID^RUN());", "-1; -1"}, // as a value it is its number
        {"V^SET(@ONEBREAK());V^SUB(@CONTINUE());@MSGBOX(V);", "1"},
    });
}

TEST_F(BuiltIns, Loops) {
    load("OBJECT=TURN\nTURN:TYPE=BEHAVIOUR\nTURN:CODE={@MSGBOX($1,$2,$3);@RETURN($1);}\n"
         "OBJECT=SETV\nSETV:TYPE=BEHAVIOUR\nSETV:CODE={V^SET(100);}\n");
    check({
        // The values of an inner loop are read before it has a counter of its own.
        {"@LOOP({@LOOP(B,[_I_*10],2,1);@MSGBOX(_I_);},1,2,1);", "10; 11; 1; 20; 21; 2"},
        // Text is parsed before the loop has its counter: it finds that of the loop around it.
        {"@LOOP({@LOOP({@MSGBOX(_I_);},_I_,2,1);},1,2,1);@MSGBOX(_I_);", "1; 1; 2; 2; _I_"},
        {"@STRING(\"_I_\",\"mine\");@LOOP(\"B\",0,2,1);@MSGBOX(_I_);", "0; 1; mine"},
        {"@LOOP({@MSGBOX(_I_);_I_^ADD(5);},0,2,1);", "0; 1"}, // each turn sets it
        {"@LOOP(B,[V-3],\"2\",1);@LOOP(B,0,2.5,1);", "2; 3; 0; 1; 2"},
        {"@LOOP(B,0,5,3);@LOOP(B,0,-4,-3);@LOOP(B,3,-3,-1);", "0; 3; 0; -3; 3; 2; 1"},
        {"@LOOP(B,0,0,0);@LOOP(B,0,0,1);@LOOP(\"\",0,3,1);@LOOP(S,0,3,1);", ""},
        {"@LOOP({_I_^SET(7);@LOOP(B,0,1,1);@MSGBOX(_I_);},0,1,1);", "0; 7"},
        {"@FOR(V,B,0,2,1);@MSGBOX(V);", "_I_; _I_; 1"}, // the variable keeps its last value
        {"@FOR(\"V\",{@MSGBOX(V);},V,2,1);", "5; 6"},
        {"@FOR(V,{@MSGBOX(V);V^SET(40);},0,2,1);@FOR(V,SETV,3,-2,-1);@MSGBOX(V);", "0; 1; 100"},
        {"@FOR(S,{@MSGBOX(1);},0,2,1);@FOR(NOBODY,{@MSGBOX(1);},0,2,1);@FOR(7,{@MSGBOX(1);},0,2,1);", ""},
        {"@WHILE(V,\">\",7,{@MSGBOX(\"never\");});@WHILE(\"[V+1]\",\"<\",8,{V^INC();@MSGBOX(V);});", "6; 7"},
        {"TURN^RUNLOOPED(0,2);@MSGBOX(TURN^RUNLOOPED(4,4,3,S));",
         "0, $2, $3; 1, $2, $3; 4, 3, abc; 7, 3, abc; 7"},
        {"TURN^RUNLOOPED(3,0);TURN^RUNLOOPED(3,-2,-1);", ""}, // this one only counts up
        {"TURN^DISABLE();TURN^RUNLOOPED(0,2);TURN^ENABLE();", ""},
    });
}

TEST_F(BuiltIns, LoopsWithoutEndAreLeft) {
    load("OBJECT=QUIET\nQUIET:TYPE=BEHAVIOUR\nQUIET:CODE={S^INC();}\n");
    const auto usual = std::exchange(CMC_Behaviour::bounds, {500, 100, 1000});
    check({
        // The texts of WHILE are taken once: 5 < 7 for good.
        {"@WHILE(V,\"<\",7,{V^INC();});@MSGBOX(V);", "504"},
        {"@WHILE(1,\"_\",1,{@WHILE(1,\"_\",1,{V^INC();});});@MSGBOX(\"on\");", "on"},
        {"@LOOP({V^INC();},0,1,0);@MSGBOX(V);", "504"},
        {"@LOOP({V^INC();},0,1,-1);@MSGBOX(V);", "504"},
        {"@LOOP({V^INC();},0,-1,1);@MSGBOX(V);", "504"},
        {"@FOR(V,QUIET,0,9,0);@MSGBOX(\"on\");", "on"},
        {"QUIET^RUNLOOPED(0,2147483647,0);@MSGBOX(\"on\");", "on"},
        {"@LOOP({V^INC();},2147483640,2147483647,1);@MSGBOX(V);", "13"}, // the end wraps below the start
    });
    CMC_Behaviour::bounds = usual;
}

TEST_F(BuiltIns, Returns) {
    load("OBJECT=R\nR:TYPE=BEHAVIOUR\nR:CODE={@RETURN([$1*2]);@MSGBOX(\"on\");}\n"
         "OBJECT=NONE\nNONE:TYPE=BEHAVIOUR\nNONE:CODE={V^INC();}\nNONE:CONDITION=NEVER\n"
         "OBJECT=NEVER\nNEVER:TYPE=CONDITION\nNEVER:OPERAND1=V\nNEVER:OPERATOR=LESS\nNEVER:OPERAND2=0\n");
    check({
        {"@MSGBOX(NONE^RUN());", ""}, // nothing was returned yet
        {"@MSGBOX(R^RUN(4));", "on; 8"},
        {"@MSGBOX(NONE^RUN(),V);@MSGBOX(NONE^RUNC(),V);", "8, 6; 8, 6"}, // the value of before
        {"@MSGBOX(@RETURN(2.5));__RETURN__^MSGBOX();", "2.50000; __RETURN__ (STRING) : 2.50000"},
        {"@MSGBOX([R^RUN(1)+R^RUN(2)],[0+R^RUN(3)]);", "on; on; on; 24, 6"}, // texts are joined
    });
}

TEST_F(BuiltIns, ValuesAndLocals) {
    load("OBJECT=E\nE:TYPE=EXPRESSION\nE:OPERAND1=V\nE:OPERAND2=1\nE:OPERATOR=ADD\n");
    const Case cases[] = {
        {"@MSGBOX(@CONV(\"12x\",\"INTEGER\"),@CONV(2.5,\"STRING\"),@CONV(3,\"DOUBLE\"),@CONV(\"True\","
         "\"BOOL\"));",
         "12, 2.50000, 3.00000, TRUE"},
        {"@MSGBOX(@CONV(V,\"TIMER\"),@CONV(V,\"integer\"),@CONV(V),@CONV(V^INC(),\"INTEGER\"));", ", , , "},
        {"@MSGBOX(@VALUE(\"V\"),@VALUE(\"NOBODY\"),@VALUE(\"B\"),@VALUE(\"E\"),@VALUE(\"V_0\"));",
         "5, , B, 6, 5"},
        {"@INT(\"A\",2.6);@DOUBLE(\"D\",2);@STRING(\"T\",V);@BOOL(\"F\",1);@MSGBOX(A,D,T,F);",
         "3, 2.00000, 5, TRUE"},
        {"@MSGBOX(@INT(\"A\",2.6),A,@INT(\"A\",9),A);", "3, 3, , 3"},
        {"@INT(\"A\");@STRING(\"T\");@MSGBOX(A,T);", "0, "},
        {"@INT(\"V\",1);@INT(\"V_0\",1);@MSGBOX(V);", "5"}, // a name that finds something is taken
        {"@INT(\"A\",1);@IF(1,\"_\",1,{@INT(\"A\",2);@INT(\"C\",3);@MSGBOX(A,C);},{});@MSGBOX(A,C);",
         "1, 3; 1, C"},
        {"@INT(\"A\",1);A^CLONE();A_1^INC();@MSGBOX(A,A_1);", "1, 2"},
        {"@MSGBOX(A,A_1);A_1^MSGBOX();", "A, 2; A_1 (INTEGER) : 2"}, // a clone stays
        {"@MSGBOX([@INT(\"X1\",4)+1],X1);", ", X1"},                 // in a bracket the sign divides
        {"@CREATE(\"INTEGER\",\"NEW\");@CREATE(\"NOTYPE\",\"NEW\");@MSGBOX(NEW);", "NEW"},
        {"@MSGBOX(1,2.5,\"\",TRUE,V,S,B,E);", "1, 2.50000, , TRUE, 5, abc, B, 6"},
    };
    for (const Case & each : cases) {
        run("V^SET(5);");
        EXPECT_EQ(shown(each.code), each.boxes) << each.code;
    }
    // What VALUE gives of an expression is the caller's, and not the expression's own.
    auto * e = static_cast<CMC_Expression *>(scope().getObject("E"));
    e->calculate();
    CMC_Variable * own = e->getValue();
    run("V^SET(@VALUE(\"E\"));");
    EXPECT_EQ(e->getValue(), own);
    EXPECT_TRUE(own->isTaken());
}

TEST_F(BuiltIns, CommonMethods) {
    load("OBJECT=H\nH:TYPE=BEHAVIOUR\nH:CODE={@MSGBOX(\"h\",$1,THIS^GETNAME());}\n"
         "OBJECT=A\nA:TYPE=ARRAY\nOBJECT=G\nG:TYPE=GROUP\n");
    check({
        {"V^ADDBEHAVIOUR(\"@GO\",\"H\",\"x\");V^SEND(\"@GO\");V^SEND(\"GO\");V^SEND(\"\");", "h, x, V"},
        {"V^ADDBEHAVIOUR(\"ONSIGNAL$A$B\",\"H\");V^SEND(\"A\");V^SEND(\"A^B\");", "h, $1, V"},
        {"V^ADDBEHAVIOUR(\"ONCHANGED\",\"H\");V^INC();V^ADDBEHAVIOUR(\"ONCHANGED\",\"NOBODY\");V^INC();",
         "h, $1, V"},
        {"V^ADDBEHAVIOUR(\"ONCHANGED\",\"H\",1);V^OVERIDESIGNALS(FALSE);V^ADDBEHAVIOUR(\"ONCHANGED\",\"H\",2)"
         ";V^INC();"
         "V^REMOVEBEHAVIOUR(\"ONCHANGED\");V^INC();V^OVERIDESIGNALS(TRUE);",
         "h, 1, V; h, 2, V"},
        {"V^ADDBEHAVIOUR(\"ONCHANGED$6\",\"H\",\"six\");V^ADDBEHAVIOUR(\"ONCHANGED\",\"H\",\"any\");V^SET(6);"
         "V^SET(7);"
         "V^REMOVEBEHAVIOURFORCE(\"ONCHANGED$6\");V^SET(6);V^REMOVEBEHAVIOURFORCE(\"ONCHANGED\");V^SET(7);",
         "h, six, V; h, any, V; h, any, V"},
        {"V^ADDBEHAVIOUR(\"ONCHANGED\");V^INC();", ""},
        {"V^ADDTOARRAY(\"A\");B^ADDTOARRAY(\"A\");V^ADDTOARRAY(\"NOBODY\");V^ADDTOARRAY(\"G\");A^MSGBOX();",
         "A (ARRAY) : 5"},
        {"V^ADDTOGROUP(\"G\");B^ADDTOGROUP(\"G\");V^ADDTOGROUP(\"NOBODY\");@MSGBOX(G^GETSIZE(),G^GETNAME(1))"
         ";",
         "2, B"},
        {"V^CLONE();V^CLONE(0);V^CLONE(-1);@MSGBOX(V^GETCLONESNO(),V_1^GETCLONEINDEX(),V^GETCLONEINDEX(),V_1^"
         "GETCLONESNO());",
         "1, 1, 0, 0"},
        {"V_1^CLONE();V_1_1^MSGBOX();@MSGBOX(V_1_1^GETCLONEINDEX(),V_1_1^GETNAME());",
         "V_1_1 (INTEGER) : 5; 1, V_1_1"},
        {"B^MSGBOX();B^CLONE();@MSGBOX(B^GETCLONESNO());", "B (BEHAVIOUR) : B; 0"}, // none of a behaviour
        {"V^REMOVEALLBEHAVIOURS();V^ADDBEHAVIOUR(\"ONCHANGED\",\"H\");V^INC();V^SEND(\"@GO\");",
         ""}, // for good
    });
}
