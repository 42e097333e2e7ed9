#include "script/CMC_Behaviour.h"
#include "script/CMC_Expression.h"
#include "script/CMC_VariableFactory.h"
#include "support/InScope.h"

#include <algorithm>

namespace {

class Expression : public test::InScope {
protected:
    Expression() {
        load("OBJECT=N\nN:TYPE=INTEGER\n"
             "OBJECT=W\nW:TYPE=INTEGER\nW:VALUE=3\n"
             "OBJECT=VAR\nVAR:TYPE=INTEGER\nVAR:VALUE=7\n"
             "OBJECT=D\nD:TYPE=DOUBLE\nD:VALUE=2.6\n"
             "OBJECT=A\nA:TYPE=STRING\nA:VALUE=a\n"
             "OBJECT=YES\nYES:TYPE=BOOL\nYES:VALUE=TRUE\n"
             "OBJECT=NO\nNO:TYPE=BOOL\n"
             "OBJECT=SHOW\nSHOW:TYPE=BEHAVIOUR\nSHOW:CODE={@MSGBOX(\"$1\");}\n");
    }
    // What SET is given: a value's text, or the box that it shows for null.
    std::string set(const std::string & variable, const std::string & bracket) {
        return shown(variable + "^CLEAR();" + variable + "^SET(" + bracket + ");@MSGBOX(" + variable + ");");
    }
    bool noted(const std::string & part) {
        return std::ranges::any_of(notes,
                                   [&](const std::string & note) { return note.find(part) != note.npos; });
    }
};

TEST_F(Expression, Values) {
    struct {
        const char * bracket;
        const char * value;
    } cases[] = {
        // from left to right, brackets group
        {"[1+2*3]", "9"},
        {"[1+[2*3]]", "7"},
        {"[[1+2]*[3+4]-[W]]", "18"},
        {"[2*3-10@4]", "-1"},
        {"[VAR@2]", "3"},
        {"[VAR%4*2]", "6"},
        {"[VAR]", "7"},
        {"[[[VAR]]]", "7"},
        // the first operand's type
        {"[1+2.6]", "4"},
        {"[2.6+1]", "3.60000"},
        {"[D*2]", "5.20000"},
        {"[5.9%2.9]", "1.00000"},
        {"[A+\"b\"]", "ab"},
        {"[A+D]", "a2.60000"},
        {"[A*\"b\"]", "a"},
        {"[\"1\"+2+3]", "123"},
        {"[1+\"2\"]", "3"},
        {"[1+YES]", "2"},
        {"[YES+NO]", "FALSE"},
        {"[NO*YES]", "TRUE"},
        {"[YES-YES]", "TRUE"},
        // a leading minus
        {"[-5]", "-5"},
        {"[-D]", "-2.60000"},
        {"[-W+10]", "7"},
        {"[-[W+1]]", "-4"},
        // quotes don't protect a sign
        {"[\"a-b\"]", "a"},
        // what isn't known is its own text
        {"[NOSUCH+1]", "NOSUCH1"},
        {"[SHOW+1]", "SHOW1"},
        // calls are operands
        {"[W^GET()+A^LENGTH()]", "4"},
        // wrapping and dividing
        {"[2147483647+1]", "-2147483648"},
        {"[VAR@0]", "0"},
        {"[D@0]", "0"},
    };
    for (auto & each : cases)
        EXPECT_EQ(shown(std::string("@MSGBOX(") + each.bracket + ");"), each.value) << each.bracket;
}

TEST_F(Expression, MissingAndNullOperandsMakeItNull) {
    struct {
        const char * bracket;
        const char * note;
    } cases[] = {
        {"[]", "an operand is missing"},       {"[5+]", "an operand is missing"},
        {"[+5]", "an operand is missing"},     {"[@5]", "an operand is missing"},
        {"[5*-3]", "an operand is missing"},   {"[-]", "an operand is missing"},
        {"[-A]", "a leading minus"},           {"[-YES]", "a leading minus"},
        {"[NOSUCH^GET()]", "NOSUCH"},          {"[1+NOSUCH^GET()+2]", "NOSUCH"},
        {"[[1+]+2]", "an operand is missing"},
    };
    for (auto & each : cases) {
        notes.clear();
        ::notes::reset();
        EXPECT_EQ(set("N", each.bracket), "Null parameter to set method called on N; 0") << each.bracket;
        EXPECT_TRUE(noted(each.note)) << each.bracket;
    }
    // What stands behind a null operand still runs.
    EXPECT_EQ(shown("@MSGBOX([1+NOSUCH^GET()+W^ADD(1)]);@MSGBOX(W);"), "4");
}

TEST_F(Expression, OperandsAreReadWhenTheyAreJoined) {
    EXPECT_EQ(shown("@MSGBOX([W+W^ADD(1)]);"), "8") << "a named operand counts as the next one leaves it";
    EXPECT_EQ(shown("@MSGBOX([W+[W^ADD(1)]]);"), "10");
    EXPECT_EQ(shown("@MSGBOX([[W+0]+W^ADD(1)]);"), "12");
    EXPECT_EQ(shown("@MSGBOX([W+0+W^ADD(1)]);"), "13") << "from the second on the sum is fixed";
}

TEST_F(Expression, RunsInsideItself) {
    load("OBJECT=F\nF:TYPE=BEHAVIOUR\nF:CODE={R^SET([100*N+V^ADD(1)]);@MSGBOX(R);}\n"
         "OBJECT=R\nR:TYPE=INTEGER\n"
         "OBJECT=V\nV:TYPE=INTEGER\nV:ONCHANGED={N^INC();@IF(\"N<3\",F,\"\");}\n");
    EXPECT_EQ(shown("F^RUN();"), "203; 102; 1");
}

TEST_F(Expression, AsksForItself) {
    load("OBJECT=E\nE:TYPE=EXPRESSION\nE:OPERAND1=E\nE:OPERAND2=E\nE:OPERATOR=ADD\n"
         "OBJECT=E1\nE1:TYPE=EXPRESSION\nE1:OPERAND1=1\nE1:OPERAND2=E2\nE1:OPERATOR=ADD\n"
         "OBJECT=E2\nE2:TYPE=EXPRESSION\nE2:OPERAND1=E1\nE2:OPERAND2=2\nE2:OPERATOR=ADD\n");
    for (const char * bracket : {"E", "E1", "[E2+1]", "[THIS^GET()+1]"}) {
        notes.clear();
        ::notes::reset();
        set("N", bracket);
        EXPECT_TRUE(noted("asks for its own value")) << bracket;
    }
}

TEST_F(Expression, Objects) {
    struct {
        const char * word;
        const char * value;
    } cases[] = {
        {"ADD", "9"}, {"SUB", "5"}, {"MUL", "14"}, {"DIV", "3"}, {"MOD", "1"}, {"+", "9"},
        {"-", "5"},   {"*", "14"},  {"@", "3"},    {"%", "1"},   {"add", "7"}, {"", "7"},
    };
    int number = 0;
    for (auto & each : cases) {
        std::string name = "E" + std::to_string(number++);
        load("OBJECT=" + name + "\n" + name + ":TYPE=EXPRESSION\n" + name + ":OPERAND1=VAR\n" + name +
             ":OPERAND2=2\n" + name + ":OPERATOR=" + each.word + "\n");
        EXPECT_EQ(shown("@MSGBOX(" + name + ");"), each.value) << each.word;
    }
    load("OBJECT=TWICE\nTWICE:TYPE=EXPRESSION\nTWICE:OPERAND1=LATER\nTWICE:OPERAND2=2\nTWICE:OPERATOR=MUL\n"
         "OBJECT=LATER\nLATER:TYPE=EXPRESSION\nLATER:OPERAND1=[VAR+1]\nLATER:OPERAND2=A^LENGTH()\nLATER:"
         "OPERATOR=ADD\n");
    EXPECT_EQ(shown("@MSGBOX(TWICE);VAR^SET(0);@MSGBOX(TWICE,[TWICE+LATER]);TWICE^MSGBOX();"),
              "18; 4, 6; TWICE (EXPRESSION) : 4");
    EXPECT_EQ(shown("@MSGBOX(TWICE^GET());TWICE^CLONE(1);TWICE_1^INC();TWICE_1^MSGBOX();"),
              "4; TWICE_1 (INTEGER) : 5");
}

TEST_F(Expression, HandsItsValuesBack) {
    const int before = CMC_VariableFactory::takenNo();
    for (int i = 0; i < 3; i++)
        run("N^SET([W+W*2]);N^SET([[D+1]*[A+\"b\"+YES]+A^LENGTH()]);N^SET([5+]);N^SET([1+NOSUCH^GET()+A^"
            "LENGTH()]);"
            "N^SET([A^GET()]);N^SET([[W]]);N^SET([[W+1]]);N^SET([-D]);N^SET([-A]);@IF(\"[W+1]'4\",SHOW,SHOW);"
            "A^SET([[SHOW]+[1.5]]);");
    EXPECT_EQ(CMC_VariableFactory::takenNo(), before);
}

TEST_F(Expression, AValueThatIsGone) {
    CMC_Expression expression(&scope(), "LOCAL");
    expression.calculate();
    EXPECT_EQ(expression.getValue()->asString(), "LOCAL");
    auto * local = new CMC_Integer(CXString("LOCAL"));
    local->setValue(5);
    scope().addObject(local);
    expression.calculate();
    EXPECT_EQ(expression.getValue(), local);
    scope().removeObject(local);
    delete local;
    EXPECT_EQ(expression.getValue(), nullptr);
    expression.calculate();
    EXPECT_EQ(expression.asString(), "LOCAL");
}

TEST_F(Expression, WithoutAValue) {
    CMC_Expression expression(&scope(), "5+");
    CMC_Integer five(5);
    EXPECT_EQ(expression.getValue(), nullptr);
    EXPECT_EQ(expression.asInteger(), 0);
    EXPECT_EQ(expression.asString(), "");
    EXPECT_FALSE(expression.equals(&five));
    EXPECT_EQ(expression.compare(&five), 1);
    EXPECT_EQ(expression.convert(types::kString), nullptr);
}

TEST_F(Expression, HugeTexts) {
    std::string wide = "1";
    for (int i = 0; i < 400'000; i++) wide += "+1";
    const std::string deep = std::string(3000, '[') + "W" + std::string(3000, ']');
    for (const std::string & text : {wide, deep, std::string(1'000'000, '['), std::string(200'000, '-')}) {
        notes.clear();
        ::notes::reset();
        CMC_Expression expression(&scope(), CXString(text));
        EXPECT_GE(expression.asInteger(), 0);
        EXPECT_TRUE(noted("too long") || noted("too deep")) << text.substr(0, 10);
    }
}

} // namespace

// All entries of the pools are free at each tick: what was kept over it belongs to whoever took it since.
TEST_F(Expression, GivesBackOnlyWhatIsStillItsOwn) {
    CMC_Expression expression(&scope(), "1+2");
    expression.calculate();
    CMC_Variable * kept = expression.getValue();
    ASSERT_TRUE(kept);
    CMC_VariableFactory::clearPool();
    for (int i = 0; i < CMC_VariableFactory::kPoolSize && !kept->isTaken(); i++)
        CMC_VariableFactory::integer(9);
    ASSERT_TRUE(kept->isTaken());
    int taken = CMC_VariableFactory::takenNo();
    expression.calculate();
    EXPECT_NE(expression.getValue(), kept);
    EXPECT_EQ(CMC_VariableFactory::takenNo(), taken + 1);
    CMC_VariableFactory::clearPool();
}
