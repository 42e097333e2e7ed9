#include "script/CMC_Behaviour.h"
#include "script/CMC_Condition.h"
#include "script/CMC_VariableFactory.h"
#include "support/InScope.h"

#include <algorithm>

namespace {

class Condition : public test::InScope {
protected:
    Condition() {
        load("OBJECT=X\nX:TYPE=INTEGER\nX:VALUE=5\n"
             "OBJECT=S\nS:TYPE=STRING\nS:VALUE=abc\n"
             "OBJECT=TEN\nTEN:TYPE=STRING\nTEN:VALUE=10\n"
             "OBJECT=SHOW\nSHOW:TYPE=BEHAVIOUR\nSHOW:CODE={@MSGBOX(\"$1\");}\n");
    }
    void condition(const std::string & name, const char * left, const char * word, const char * right,
                   const std::string & more = "") {
        load("OBJECT=" + name + "\n" + name + ":TYPE=CONDITION\n" + name + ":OPERAND1=" + left + "\n" + name +
             ":OPERATOR=" + word + "\n" + name + ":OPERAND2=" + right + "\n" + more);
    }
    // A condition that shows its name with + or - when it is asked.
    void loud(const std::string & name, bool outcome) {
        condition(name, "X", outcome ? "EQUAL" : "LESS", "5", signals(name));
    }
    void complex(const std::string & name, const std::string & first, const char * word,
                 const std::string & second) {
        load("OBJECT=" + name + "\n" + name + ":TYPE=COMPLEXCONDITION\n" + name + ":CONDITION1=" + first +
             "\n" + name + ":OPERATOR=" + word + "\n" + name + ":CONDITION2=" + second + "\n" +
             signals(name));
    }
    static std::string signals(const std::string & name) {
        return name + ":ONRUNTIMESUCCESS=SHOW(+" + name + ")\n" + name + ":ONRUNTIMEFAILED=SHOW(-" + name +
               ")\n";
    }
    bool noted(const std::string & part) {
        return std::ranges::any_of(notes,
                                   [&](const std::string & note) { return note.find(part) != note.npos; });
    }
};

TEST_F(Condition, OneText) {
    struct {
        const char * text;
        bool outcome;
    } cases[] = {
        {"X'5", true},
        {"X!'5", false},
        {"X<'5", true},
        {"X>'5", true},
        {"X<5", false},
        {"X>5", false},
        {"X<6", true},
        {"X>4", true},
        {"X<'4", false},
        {"X>'6", false},
        {"X!'4", true},
        {"S?STRING", true},
        {"S?INTEGER", false},
        {"SHOW?BEHAVIOUR", true},
        {"NOSUCH?STRING", false},
        {" X ' 5 ", true},
        // the apostrophe is looked for first, then "<"
        {"5>X'1", false},
        {"1<S?STRING", false},
        {"X<>5", false},
        // the left side's type rules; texts are equal without regard to case, but ordered with it
        {"TEN<9", true},
        {"9<TEN", true},
        {"X'5.4", true},
        {"S'ABC", true},
        {"S>ABC", true},
        // brackets, calls, names that nobody has
        {"X'[2+3]", true},
        {"[X+1]>X", true},
        {"X^GET()'5", true},
        {"NOSUCH'nosuch", true},
        {"'", true},
        // nothing to compare
        {"X", false},
        {"", false},
        {"TRUE", false},
        {"X'NOSUCH^GET()", false},
        {"X!'NOSUCH^GET()", false},
        {"NOSUCH^GET()<5", false},
    };
    const int before = CMC_VariableFactory::takenNo();
    for (auto & each : cases) EXPECT_EQ(CMC_Condition::valid(&scope(), each.text), each.outcome) << each.text;
    EXPECT_EQ(CMC_VariableFactory::takenNo(), before) << "all values went back";
}

TEST_F(Condition, OperatorTexts) {
    struct {
        const char * op;
        bool below, same, above; // for X beside 6, 5 and 4
    } cases[] = {
        {"_", false, true, false}, {"!_", true, false, true},  {"<>", true, false, true},
        {"<", true, false, false}, {"<_", true, true, false},  {">", false, false, true},
        {">_", false, true, true}, {"?", false, false, false}, {"what", false, true, false},
    };
    for (auto & each : cases) {
        EXPECT_EQ(CMC_Condition::valid(&scope(), "X", "6", each.op), each.below) << each.op;
        EXPECT_EQ(CMC_Condition::valid(&scope(), "X", "5", each.op), each.same) << each.op;
        EXPECT_EQ(CMC_Condition::valid(&scope(), "X", "4", each.op), each.above) << each.op;
    }
    EXPECT_TRUE(CMC_Condition::valid(&scope(), "X", "INTEGER", "?"));
    EXPECT_EQ(shown("@IF(X,\">\",4,SHOW,\"\");@IF(\"X<'5\",SHOW,\"\");@IF(X,\"!_\",5,SHOW,\"\");"), "$1; $1");
}

TEST_F(Condition, Objects) {
    struct {
        const char *left, *word, *right, *outcome;
    } cases[] = {
        {"X", "EQUAL", "5", "TRUE"},
        {"X", "NOTEQUAL", "5", "FALSE"},
        {"X", "LESS", "5", "FALSE"},
        {"X", "LESSEQUAL", "5", "TRUE"},
        {"X", "GREATER", "5", "FALSE"},
        {"X", "GREATEREQUAL", "5", "TRUE"},
        {"[X*2]", "GREATER", "[X+4]", "TRUE"},
        {"2", "LESS", "\"10\"", "TRUE"},
        {"\"10\"", "LESS", "2", "TRUE"},
        {"\"10\"", "LESS", "9", "TRUE"}, // as text
        {"10", "LESS", "\"9\"", "FALSE"},
        {"S", "EQUAL", "\"ABC\"", "TRUE"},
        {"", "EQUAL", "\"\"", "TRUE"},
        {"X", "INSTANCEOF", "INTEGER", "FALSE"},
        {"X", "", "5", "FALSE"},
        {"X", "equal", "5", "FALSE"},
        {"NOSUCH^GET()", "NOTEQUAL", "5", "FALSE"},
        {"SHOW", "EQUAL", "SHOW", "TRUE"},
        {"SHOW", "NOTEQUAL", "5", "FALSE"},
    };
    int number = 0;
    for (auto & each : cases) {
        std::string name = "C" + std::to_string(number++);
        condition(name, each.left, each.word, each.right);
        EXPECT_EQ(shown("@MSGBOX(" + name + "^CHECK());"), each.outcome)
            << each.left << " " << each.word << " " << each.right;
    }
}

TEST_F(Condition, RaisesItsOutcome) {
    loud("T", true);
    loud("F", false);
    condition("NULLED", "NOSUCH^GET()", "EQUAL", "5", signals("NULLED"));
    condition("ODD", "SHOW", "EQUAL", "5", signals("ODD"));
    struct {
        const char * code;
        const char * boxes;
    } cases[] = {
        {"T^CHECK();F^CHECK();", "+T; -F"},
        {"T^CHECK(TRUE);F^CHECK(TRUE);", "+T; -F"},
        {"T^CHECK(FALSE);F^CHECK(FALSE);", ""},
        {"NULLED^CHECK();", "-NULLED"},
        {"ODD^CHECK();", ""}, // types that don't convert end the test
        // only what was bound first runs
        {"T^OVERIDESIGNALS(FALSE);T^ADDBEHAVIOUR(\"ONRUNTIMESUCCESS\",\"SHOW\");T^CHECK();", "+T"},
        {"T^REMOVEBEHAVIOURFORCE(\"ONRUNTIMESUCCESS\");T^CHECK();", ""},
        {"T^ADDBEHAVIOUR(\"ONRUNTIMESUCCESS\",\"SHOW\");T^CHECK();", "$1"},
    };
    for (auto & each : cases) EXPECT_EQ(shown(each.code), each.boxes) << each.code;

    CMC_Object * show = scope().getObject("SHOW");
    scope().removeObject(show);
    life::bury(show);
    EXPECT_EQ(shown("F^CHECK();"), "") << "the behaviour is gone";
}

TEST_F(Condition, Complex) {
    loud("T", true);
    loud("F", false);
    struct {
        const char *first, *word, *second, *boxes;
    } cases[] = {
        {"T", "AND", "T", "+T; +T; +C; TRUE"},
        {"T", "AND", "F", "+T; -F; -C; FALSE"},
        {"F", "AND", "T", "-F; -C; FALSE"},
        {"T", "OR", "F", "+T; +C; TRUE"},
        {"F", "OR", "T", "-F; +T; +C; TRUE"},
        {"F", "OR", "F", "-F; -F; -C; FALSE"},
        {"T", "AND", "NONE", "FALSE"},
        {"NONE", "OR", "T", "FALSE"},
        {"T", "OR", "X", "FALSE"},
        {"T", "XOR", "T", "-C; FALSE"},
    };
    for (auto & each : cases) {
        complex("C", each.first, each.word, each.second);
        EXPECT_EQ(shown("@MSGBOX(C^CHECK());"), each.boxes)
            << each.first << " " << each.word << " " << each.second;
    }
    complex("C", "T", "OR", "F");
    EXPECT_EQ(shown("@MSGBOX(C^CHECK(FALSE));"), "+T; TRUE") << "the members' signals come all the same";
}

TEST_F(Condition, AsksForItself) {
    complex("C", "C", "OR", "C");
    complex("C1", "C2", "AND", "C2");
    complex("C2", "C1", "OR", "C1");
    condition("OWN", "OWN^CHECK()", "EQUAL", "FALSE");
    load("OBJECT=B\nB:TYPE=BEHAVIOUR\nB:CODE={@MSGBOX(\"ran\");}\nB:CONDITION=GATE\n"
         "OBJECT=GATE\nGATE:TYPE=CONDITION\nGATE:OPERAND1=X\nGATE:OPERATOR=EQUAL\nGATE:OPERAND2=5\n"
         "GATE:ONRUNTIMESUCCESS=B\n");
    struct {
        const char * code;
        const char * boxes;
    } cases[] = {
        {"@MSGBOX(C^CHECK());", "-C; FALSE"},
        {"@MSGBOX(C1^CHECK());", "-C2; -C1; FALSE"},
        {"@MSGBOX(OWN^CHECK());", "TRUE"},
        {"GATE^CHECK();", ""},
    };
    for (auto & each : cases) {
        notes.clear();
        ::notes::reset();
        EXPECT_EQ(shown(each.code), each.boxes) << each.code;
        EXPECT_TRUE(noted("too deep")) << each.code;
    }
}

TEST_F(Condition, Breaks) {
    loud("T", true);
    loud("F", false);
    struct {
        const char * call;
        const char * boxes;
    } cases[] = {
        {"T^BREAK()", "+T"},
        {"T^BREAK(FALSE)", ""},
        {"T^ONE_BREAK()", "+T; after"},
        {"F^BREAK()", "-F; on; after"},
        {"F^ONE_BREAK(FALSE)", "on; after"},
    };
    for (auto & each : cases) {
        load(std::string("OBJECT=B\nB:TYPE=BEHAVIOUR\nB:CODE={") + each.call + ";@MSGBOX(\"on\");}\n");
        EXPECT_EQ(shown("B^RUN();@MSGBOX(\"after\");"), each.boxes) << each.call;
    }
}

TEST_F(Condition, EndsAndBeginsAgain) {
    loud("T", true);
    CMC_Object * condition = scope().getObject("T");
    condition->init();
    condition->init();
    EXPECT_EQ(shown("@MSGBOX(T^CHECK(FALSE));"), "TRUE");
    condition->done(false);
    EXPECT_EQ(shown("@MSGBOX(T^CHECK(FALSE));"), "FALSE");
    condition->init();
    EXPECT_EQ(shown("@MSGBOX(T^CHECK(FALSE));"), "TRUE");
}

} // namespace
