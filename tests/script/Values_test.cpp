#include "files/CConfig.h"
#include "script/CMC_Runner.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"
#include "support/InScope.h"

#include <cstring>
#include <set>

namespace {

struct Case {
    const char * code;
    const char * shown;
};

class Values : public test::InScope {
protected:
    Values() {
        load("OBJECT=I\nI:TYPE=INTEGER\nI:VALUE=7\n"
             "OBJECT=D\nD:TYPE=DOUBLE\nD:VALUE=2.5\n"
             "OBJECT=S\nS:TYPE=STRING\nS:VALUE=abcdef\n"
             "OBJECT=B\nB:TYPE=BOOL\nB:VALUE=TRUE\n");
    }

    // Each case begins with I 7, D 2.5, S "abcdef", B TRUE.
    void check(std::initializer_list<Case> cases) {
        for (const Case & each : cases) {
            SCOPED_TRACE(each.code);
            run("I^SET(7);D^SET(2.5);S^SET(\"abcdef\");B^SET(TRUE);");
            EXPECT_EQ(shown(each.code), each.shown);
        }
    }

    template <class Type>
    Type * object(const char * name) {
        return static_cast<Type *>(scope().getObject(name));
    }
};

TEST_F(Values, DefinitionGivesTheFirstValueAndMsgboxNamesTheType) {
    load("OBJECT=E\nE:TYPE=DOUBLE\n");
    EXPECT_EQ(shown("I^MSGBOX();D^MSGBOX();S^MSGBOX();B^MSGBOX();E^MSGBOX();"),
              "I (INTEGER) : 7; D (DOUBLE) : 2.50000; S (STRING) : abcdef; B (BOOL) : TRUE; E (DOUBLE) : 0");
}

TEST_F(Values, LiteralsHaveTypes) {
    struct {
        const char * text;
        int type;
        const char * value;
    } cases[] = {
        {"", types::kString, ""},
        {"\"a\"", types::kString, "a"},
        {"\"a", types::kString, "a"},
        {"\"", types::kString, ""},
        {"\"7\"", types::kString, "7"},
        {"7", types::kInteger, "7"},
        {"-7", types::kInteger, "-7"},
        {"-", types::kInteger, "0"},
        {"0", types::kInteger, "0"},
        {"0.5", types::kDouble, "0.50000"},
        {"-0.5", types::kDouble, "-0.50000"},
        {"2.", types::kDouble, "2.00000"},
        {"007", types::kString, "007"},
        {"1e5", types::kString, "1e5"},
        {"+7", types::kString, "+7"},
        {"TRUE", types::kBool, "TRUE"},
        {"FALSE", types::kBool, "FALSE"},
        {"true", types::kString, "true"},
        {".5", types::kString, ".5"},
    };
    for (auto & each : cases) {
        SCOPED_TRACE(each.text);
        CMC_Variable * value = CMC_Variable::resolve(each.text);
        EXPECT_EQ(value->getType(), each.type);
        EXPECT_EQ(value->asString(), each.value);
        CMC_Object::flush(value);
    }
}

TEST_F(Values, SetConverts) {
    check({
        {"I^SET(2.5);@MSGBOX(I);", "3"},
        {"I^SET(-2.5);@MSGBOX(I);", "-3"},
        {"I^SET(2.49);@MSGBOX(I);", "2"},
        {"I^SET(-0.5);@MSGBOX(I);", "-1"},
        {"I^SET(99999999999.0);@MSGBOX(I);", "-2147483648"},
        {"I^SET(\"12abc\");@MSGBOX(I);", "12"},
        {"I^SET(\"abc\");@MSGBOX(I);", "0"},
        {"I^SET(TRUE);@MSGBOX(I);", "1"},
        {"D^SET(2);@MSGBOX(D);", "2.00000"},
        {"D^SET(0);@MSGBOX(D);", "0"},
        {"D^SET(\"1.25x\");@MSGBOX(D);", "1.25000"},
        {"D^SET(TRUE);@MSGBOX(D);", "1.00000"},
        {"S^SET(2);@MSGBOX(S);", "2"},
        {"S^SET(1.5);@MSGBOX(S);", "1.50000"},
        {"S^SET(FALSE);@MSGBOX(S);", "FALSE"},
        {"B^SET(0);@MSGBOX(B);", "FALSE"},
        {"B^SET(0.1);@MSGBOX(B);", "TRUE"},
        {"B^SET(\"True\");@MSGBOX(B);", "TRUE"},
        {"B^SET(\"1\");@MSGBOX(B);", "FALSE"},
        {"I^SET(S);S^SET(I);@MSGBOX(S);", "0"},
        {"I^SET(NOBODY);@MSGBOX(I);", "0"}, // a word that names nothing is a text
        {"I^SET(I^CLEAR());@MSGBOX(I);", "Null parameter to set method called on I; 0"},
        {"I^SET();@MSGBOX(I);", "7"},
    });
}

TEST_F(Values, ArithmeticKeepsTheReceiversType) {
    check({
        {"I^SET(1);@MSGBOX(I^ADD(2.6),I);", "4, 4"},
        {"I^SUB(9);@MSGBOX(I);", "-2"},
        {"I^MUL(3);@MSGBOX(I);", "21"},
        {"I^DIV(2);@MSGBOX(I);", "3"},
        {"I^SET(-7);I^DIV(2);@MSGBOX(I);", "-3"},
        {"I^SET(-7);I^MOD(4);@MSGBOX(I);", "-3"},
        {"I^SET(2147483647);I^INC();@MSGBOX(I);", "-2147483648"},
        {"I^SET(-2147483648);I^DIV(-1);@MSGBOX(I);", "-2147483648"},
        {"I^SET(-2147483648);I^MOD(-1);@MSGBOX(I);", "0"},
        {"D^ADD(1);@MSGBOX(D);", "3.50000"},
        {"D^DIV(2);@MSGBOX(D);", "1.25000"},
        {"D^SET(-7.9);D^MOD(4.9);@MSGBOX(D);", "-3.00000"}, // -7 % 4
        {"@MSGBOX(S^ADD(D),S);", "abcdef2.50000, abcdef2.50000"},
        {"S^ADD(S);@MSGBOX(S);", "abcdefabcdef"},
        {"S^MUL(2);S^DIV(0);S^MOD(0);@MSGBOX(S);", "abcdef"},
        {"B^ADD(FALSE);@MSGBOX(B);B^MUL(TRUE);@MSGBOX(B);B^SUB(TRUE);@MSGBOX(B);", "FALSE; TRUE; TRUE"},
        {"I^DEC();D^INC();D^INC();D^DEC();S^INC();S^DEC();@MSGBOX(I,D,S);", "6, 3.50000, abcdef"},
        {"B^INC();@MSGBOX(B);B^DEC();@MSGBOX(B);", "FALSE; TRUE"},
        {"I^CLEAR();D^CLEAR();S^CLEAR();B^CLEAR();@MSGBOX(I,D,S,B);", "0, 0, , FALSE"},
        {"I^SWITCH(7,9);@MSGBOX(I);I^SWITCH(7,9);@MSGBOX(I);I^SET(1);I^SWITCH(7,9);@MSGBOX(I);", "9; 7; 7"},
        {"B^SWITCH();@MSGBOX(B);B^SWITCH(1,2);@MSGBOX(B);", "FALSE; TRUE"},
    });
}

TEST_F(Values, DivisionByZeroGivesZeroAndANote) {
    check({{"I^DIV(0);@MSGBOX(I);", "0"},
           {"I^MOD(0);@MSGBOX(I);", "0"},
           {"D^DIV(0);@MSGBOX(D);", "0"},
           {"D^MOD(0.9);@MSGBOX(D);", "0"}});
    EXPECT_EQ(notes, std::vector<std::string>(4, "division by zero: the result is 0"));
}

TEST_F(Values, GetReadsWholeAndPart) {
    check({
        {"@MSGBOX(I^GET(),D^GET(),S^GET(),B^GET());", "7, 2.50000, abcdef, TRUE"},
        {"@MSGBOX(S^GET(2));", "c"},
        {"@MSGBOX(S^GET(6),S^GET(-1));", ", "},
        {"@MSGBOX(S^GET(2,-1));", "cdef"},
        {"@MSGBOX(S^GET(2,3));", "cde"},
        {"@MSGBOX(S^GET(2,99));", "cdef"},
        {"@MSGBOX(S^GET(-2,4));", "ab"},
        {"@MSGBOX(S^GET(2,2147483647));", "cdef"},
        {"@MSGBOX(S^GET(4,-2));", ""},
        {"@INT(\"N\",I^GET());I^INC();@MSGBOX(N);", "7"}, // a copy
    });
}

TEST_F(Values, WholeNumbers) {
    check({
        {"@MSGBOX(I^ABS(-5),I);", "5, 5"},
        {"@MSGBOX(I^ABS(2.6),I);", "3, 3"},
        {"@MSGBOX(D^ABS(-5),D);", "5, 5.00000"},
        {"@MSGBOX(S^ABS(-5),S);", "5, 5"},
        {"@MSGBOX(I^AND(12),I);", "4, 4"},
        {"@MSGBOX(I^OR(8),I);", "15, 15"},
        {"@MSGBOX(I^XOR(5),I);", "2, 2"},
        {"@MSGBOX(I^NOT(),I);", "-8, -8"},
        {"@MSGBOX(S^NOT(),S);", "fedcba, fedcba"},
        {"@MSGBOX(B^NOT(),B);", "-2, TRUE"},
        {"@MSGBOX(I^SGN(),I);", "1, 7"},
        {"D^SET(-0.1);@MSGBOX(D^SGN(),D);", "-1, -0.10000"},
        {"@MSGBOX(I^CLAMP(8,10),I);", "8, 8"},
        {"@MSGBOX(I^CLAMP(1,5),I);", "5, 5"},
        {"@MSGBOX(I^CLAMP(1,10),I);", "7, 7"},
        {"@MSGBOX(D^CLAMP(0.5,1.5),D);", "1.50000, 1.50000"},
    });
}

TEST_F(Values, RealNumbers) {
    check({
        {"@MSGBOX(I^POWER(2),I);", "49, 49"},
        {"I^SET(2);@MSGBOX(I^POWER(-1),I);", "0, 0"},
        {"I^SET(2);@MSGBOX(I^POWER(0.5),I);", "1, 1"},
        {"D^SET(4);@MSGBOX(D^POWER(0.5),D);", "2.00000, 2.00000"},
        {"@MSGBOX(D^LOG(1),D);", "0, 0"},
        {"@MSGBOX(D^LOG(10),D);", "2.30259, 2.30259"},
        {"D^SET(2.25);@MSGBOX(D^SQRT(),D);", "1.50000, 1.50000"},
        {"I^SET(8);@MSGBOX(I^SQRT(),I);", "2.82843, 3"}, // the receiver takes what it can hold
        {"@MSGBOX(D^LENGTH(3,4),D);", "5.00000, 5.00000"},
        {"@MSGBOX(D^ARCTAN(1),D);", "45.00000, 45.00000"},
        {"@MSGBOX(D^ARCTANEX(-1,0),D);", "270.00000, 270.00000"},
        {"@MSGBOX(D^ARCTANEX(1,1));", "45.00000"},
        {"@MSGBOX(D^ARCTANEX(-1,0,100));", "10.00000"},
        {"@MSGBOX(D^ARCTANEX(0,1,-90.5));", "-90.00000"},
        {"@MSGBOX(D^SINUS(30),D);", "0.50000, 0.50000"},
        {"@MSGBOX(D^COSINUS(180),D);", "-1.00000, -1.00000"},
        {"@MSGBOX(D^MINA(3,-1.5,2),D);", "-1.50000, -1.50000"},
        {"@MSGBOX(D^MAXA(3,-1.5,2),D);", "3.00000, 3.00000"},
        {"@MSGBOX(I^MAXA(1,5,3),I);", "5.00000, 5"},
        {"@MSGBOX(D^ROUND(),D);", "3, 2.50000"},
        {"D^SET(2.49);@MSGBOX(D^ROUND());", "2"},
        {"D^SET(-2.7);@MSGBOX(D^ROUND());", "-2"},
    });
}

TEST_F(Values, Texts) {
    check({
        {"@MSGBOX(S^LENGTH());", "6"},
        {"S^UPPER();@MSGBOX(S);", "ABCDEF"},
        {"@MSGBOX(S^FIND(\"cd\"),S^FIND(\"x\"),S^FIND(\"a\",1));", "2, -1, -1"},
        {"I^SET(12345);@MSGBOX(I^FIND(34));", "2"},
        {"S^SUB(1,2);@MSGBOX(S);", "adef"},
        {"S^SUB(4,99);@MSGBOX(S);", "abcd"},
        {"S^CUT(2,0);@MSGBOX(S);", "cdef"},
        {"S^CUT(2,3);@MSGBOX(S);", "cde"},
        {"S^CUT(2,99);@MSGBOX(S);", "cdef"},
        {"S^CUT(2,2147483647);@MSGBOX(S);", "cdef"},
        {"I^SET(12345);I^CUT(1,2);@MSGBOX(I);", "23"},
        {"S^REPLACEAT(1,\"XY\");@MSGBOX(S);", "aXYdef"},
        {"S^REPLACEAT(5,\"XY\");@MSGBOX(S);", "abcdeXY"},
        {"S^INSERTAT(2,\"X\");@MSGBOX(S);", "abXcdef"},
        {"S^INSERTAT(2,\"XY\",3);@MSGBOX(S);", "abXYXYXYcdef"},
        {"S^INSERTAT(2,\"X\",0);S^INSERTAT(2,\"X\",-1);@MSGBOX(S);", "abcdef"},
        {"S^INSERTAT(99,\"X\");S^INSERTAT(-9,\"Y\");@MSGBOX(S);", "YabcdefX"},
        {"S^SET(\"aXaXa\");S^REPLACE(\"a\",\"aa\");@MSGBOX(S);", "aaXaaXaa"},
        {"S^REPLACE(\"\",\"x\");@MSGBOX(S);", "abcdef"},
        {"S^SET(\"aB\");@MSGBOX(S^ISUPPERLETTER(0),S^ISUPPERLETTER(1),S^ISUPPERLETTER(9));",
         "FALSE, TRUE, FALSE"},
        {"@MSGBOX(B^ISUPPERLETTER(0));", "FALSE"},
    });
}

TEST_F(Values, TextsDontGrowWithoutEnd) {
    run("S^INSERTAT(0,\"0123456789\",2147483647);");
    run("@LOOP({S^ADD(S);},0,24,1);");
    run("S^REPLACE(\"abcdef\",S);");
    int length = object<CMC_String>("S")->getValue().getLength();
    EXPECT_EQ(length, 6 << 23); // doubled until the next step would pass 64 MB
    EXPECT_EQ(notes.size(), 3U);
}

TEST_F(Values, ChangesRaiseSignals) {
    load("OBJECT=V\nV:TYPE=INTEGER\nV:VALUE=7\n"
         "V:ONCHANGED={@MSGBOX(\"changed\");}\nV:ONCHANGED^3={@MSGBOX(\"three\");}\n"
         "V:ONBRUTALCHANGED={@MSGBOX(\"brutal\");}\nV:ONBRUTALCHANGED^9={@MSGBOX(\"nine\");}\n"
         "OBJECT=T\nT:TYPE=STRING\nT:VALUE=ab\n"
         "T:ONCHANGED={@MSGBOX(\"changed\",T);}\nT:ONBRUTALCHANGED={@MSGBOX(\"brutal\",T);}\n");
    struct {
        const char * code;
        const char * shown;
    } cases[] = {
        {"V^SET(7);", "brutal"},
        {"V^SET(3);", "brutal; three"},
        {"V^SET(9);", "nine; changed"},
        {"V^ADD(1);", "brutal; changed"},
        {"V^ADD(0);", "brutal"},
        {"V^CLEAR();", "brutal; changed"},
        {"V^CLEAR();", "brutal"},
        {"V^INC();", "brutal; changed"},
        {"V^SWITCH(1,1);", "brutal"},
        {"V^ABS(-5);", "brutal"}, // what is stored never raises ONCHANGED
        {"V^SGN();V^GET();V^RESETINI();", ""},
        {"T^SET(\"AB\");", "brutal, AB; changed, AB"}, // bytes differ, although the texts are equal
        {"T^UPPER();", ""},
        {"T^CUT(1,0);", "brutal, B"},
        {"T^INSERTAT(0,\"x\");", "brutal, xB"},
        {"T^NOT();", "brutal, Bx"},
        {"T^SUB(0,1);", "brutal, x; changed, x"},
    };
    for (auto & each : cases) {
        SCOPED_TRACE(each.code);
        EXPECT_EQ(shown(each.code), each.shown);
    }
}

TEST_F(Values, AnExpressionGivesItsValueAndKeepsItsOperands) {
    load("OBJECT=E\nE:TYPE=EXPRESSION\nE:OPERAND1=I\nE:OPERAND2=1\nE:OPERATOR=ADD\n"
         "OBJECT=F\nF:TYPE=EXPRESSION\nF:OPERAND1=S\nF:OPERAND2=\"X\"\nF:OPERATOR=ADD\n");
    check({
        {"@MSGBOX(E^GET(),I);I^INC();@MSGBOX(E^GET());", "8, 7; 9"},
        {"@MSGBOX(E^ADD(2),E,I);", "10, 8, 7"},
        {"E^SET(5);E^INC();E^CLEAR();@MSGBOX(E,I);", "8, 7"},
        {"@MSGBOX(F^GET(4,-1),F^LENGTH(),F^NOT());F^UPPER();@MSGBOX(F);", "efX, 7, Xfedcba; abcdefX"},
    });
}

TEST_F(Values, DefaultsAndSettings) {
    // No settings file stands behind this scope: what should be kept is told to the author.
    load("OBJECT=K\nK:TYPE=INTEGER\nK:VALUE=4\nK:DEFAULT=5\nK:TOINI=TRUE\n"
         "OBJECT=L\nL:TYPE=STRING\nL:VALUE=first\nL:TOINI=TRUE\n"
         "OBJECT=M\nM:TYPE=DOUBLE\nM:VALUE=4\nM:DEFAULT=5\n");
    EXPECT_EQ(shown("K^RESETINI();@MSGBOX(K);K^SETDEFAULT(6.5);K^RESETINI();@MSGBOX(K);"), "5; 7");
    EXPECT_EQ(shown("L^SET(\"x\");L^RESETINI();@MSGBOX(L);"), "first");
    EXPECT_EQ(shown("M^RESETINI();@MSGBOX(M);"), "4.00000"); // only what is kept is reset
    EXPECT_FALSE(notes.empty());
}

TEST_F(Values, TheSettingsFileKeepsChangesFromRunToRun) {
    class Window : public CWindow {
    public:
        using CWindow::CWindow;
        CConfig * getConfig() override { return &config; }
        CConfig config;
    };
    CCommandLine6 line("");
    CLanguageOSVer language;
    Window window(nullptr, &line, &language, CXSize(800, 600), nullptr, "", true);
    window.config = CConfig(CXString(windowsFolder() + "\\settings.ini"));
    CMElement element("KEPT");
    element.addProperty("VALUE", "7");
    element.addProperty("TOINI", "TRUE");
    {
        CMC_ObjectsContainer game(&window, nullptr, CXString("GAME"), types::kScene);
        CMC_Integer kept(&game, &element);
        CMC_Integer seven(7), eight(8);
        kept.set(&seven);
        EXPECT_FALSE(exists("settings.ini")); // no change, nothing to write
        kept.init();
        EXPECT_EQ(window.config.GetString("GAME", "KEPT"), "7");
        kept.setValue(9);
        EXPECT_EQ(window.config.GetString("GAME", "KEPT"), "7");
        kept.set(&eight);
        EXPECT_EQ(window.config.GetString("GAME", "KEPT"), "8");
    }
    CMC_ObjectsContainer game(&window, nullptr, CXString("GAME"), types::kScene);
    CMC_Integer kept(&game, &element);
    kept.init();
    EXPECT_EQ(kept.getValue(), 8);
}

TEST_F(Values, CopyFileOverwrites) {
    put("from.txt", "new");
    put("to.txt", "old");
    std::string folder = windowsFolder() + "\\";
    auto copied = [&](const std::string & from, const std::string & to) {
        return shown("@MSGBOX(I^COPYFILE(\"" + folder + from + "\",\"" + folder + to + "\"));");
    };
    EXPECT_EQ(copied("from.txt", "to.txt"), "TRUE");
    EXPECT_EQ(get("to.txt"), "new");
    EXPECT_EQ(copied("absent.txt", "to.txt"), "FALSE");
}

TEST_F(Values, RandomDrawsAlikeWithinASecond) {
    EXPECT_EQ(shown("@MSGBOX(I^RANDOM(),I);"), "0, 0");
    const char * draw = "@MSGBOX(I^RANDOM(1000000));";
    std::string first = shown(draw);
    EXPECT_EQ(shown(draw), first);
    for (int i = 0; i < 50; i++) {
        clock().advance(1001);
        run("I^RANDOM(10,3);S^RANDOM(5);");
        EXPECT_GE(object<CMC_Integer>("I")->getValue(), 10);
        EXPECT_LE(object<CMC_Integer>("I")->getValue(), 12);
    }
    EXPECT_EQ(shown("@MSGBOX(S);"), "abcdef"); // only an INTEGER takes the number
}

TEST_F(Values, ComparisonConvertsTheOtherSide) {
    struct {
        const char * left;
        const char * right;
        bool equal;
        int order;
    } cases[] = {
        {"3", "2.6", true, 0},
        {"2.6", "3", false, -1},
        {"7", "\"7x\"", true, 0},
        {"TRUE", "5", true, 0},
        {"FALSE", "TRUE", false, -1},
        {"\"abc\"", "\"ABC\"", true, 1},
        {"\"ABC\"", "\"abc\"", true, -1},
        {"\"7\"", "7", true, 0},
        {"\"10\"", "9", false, -1},
        {"\"\xB9\"", "\"z\"", false, 1}, // bytes above 127 stand behind the letters
    };
    for (auto & each : cases) {
        SCOPED_TRACE(std::string(each.left) + " and " + each.right);
        CMC_Variable * left = CMC_Variable::resolve(each.left);
        CMC_Variable * right = CMC_Variable::resolve(each.right);
        EXPECT_EQ(left->equals(right), each.equal);
        EXPECT_EQ(left->compare(right), each.order);
        CMC_Object::flush(left);
        CMC_Object::flush(right);
    }
}

TEST_F(Values, MessageForm) {
    struct {
        const char * literal;
        std::string bytes;
    } cases[] = {
        {"-2", std::string("\1\0\0\0\xFE\xFF\xFF\xFF", 8)},
        {"\"ab\"", std::string("\2\0\0\0ab\0", 7)},
        {"TRUE", std::string("\3\0\0\0\1", 5)},
        {"1.5", std::string("\4\0\0\0\0\0\0\0\0\0\xF8\x3F", 12)},
    };
    for (auto & each : cases) {
        SCOPED_TRACE(each.literal);
        CMC_Variable * value = CMC_Variable::resolve(each.literal);
        ASSERT_EQ(value->getBufferLen(), static_cast<int>(each.bytes.size()));
        std::string stored(each.bytes.size(), '?');
        value->netstore(stored.data());
        EXPECT_EQ(stored, each.bytes);
        CMC_Variable * back = CMC_VariableFactory::netrestore(stored.data(), static_cast<int>(stored.size()));
        ASSERT_TRUE(back);
        EXPECT_EQ(back->getType(), value->getType());
        EXPECT_EQ(back->asString(), value->asString());
        CMC_Object::flush(value);
        CMC_Object::flush(back);
        for (int size = 0; size < static_cast<int>(stored.size()); size++) // cut off anywhere
            EXPECT_FALSE(CMC_VariableFactory::netrestore(stored.data(), size)) << size;
    }
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Values, ConversionsGoThroughThePool) {
    auto * i = object<CMC_Integer>("I");
    EXPECT_EQ(i->convert(types::kInteger), i);
    CMC_Variable * text = i->convert(types::kString);
    EXPECT_EQ(text->asString(), "7");
    CMC_Variable * real = text->convert(types::kDouble); // hands the text back
    EXPECT_EQ(real->asDouble(), 7.0);
    EXPECT_EQ(text->asString(), "7"); // readable until its turn comes
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 1);
    EXPECT_EQ(real->convert(types::kTimer), nullptr);
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Values, NoResultStaysInThePool) {
    for (const MethodRow & row : CMC_RunnerFactory::getRunner(types::kInteger)->rows()) {
        std::string call = std::string(row.name) + "(1,2,3);";
        for (const char * name : {"I^", "D^", "S^", "B^"}) run(name + call);
        EXPECT_EQ(CMC_VariableFactory::takenNo(), 0) << row.name;
    }
}

TEST_F(Values, MissingParametersDoNothingButAreNoted) {
    for (const MethodRow & row : CMC_RunnerFactory::getRunner(types::kInteger)->rows()) {
        if (row.needed == 0) continue;
        SCOPED_TRACE(row.name);
        notes.clear();
        CXVector none(11, 0.75F);
        for (const char * name : {"I", "D", "S", "B"}) {
            auto * object = scope().getObject(name);
            EXPECT_FALSE(object->getRunner()->run(CXString(row.name), object, &scope(), &none));
            EXPECT_FALSE(object->getRunner()->run(CXString(row.name), object, &scope(), nullptr));
        }
        EXPECT_EQ(notes.size(), 4U);
    }
    notes.clear();
    check({{"S^SUB(1);I^SWITCH(1);D^LENGTH(1);I^ADD(I^CLEAR());@MSGBOX(I,D,S);", "0, 2.50000, abcdef"}});
    EXPECT_EQ(notes.size(), 4U);
}

TEST_F(Values, MethodIds) {
    CMC_Runner & runner = *CMC_RunnerFactory::getRunner(types::kString);
    std::set<std::string> names;
    int last = 0;
    for (const MethodRow & row : runner.rows()) {
        EXPECT_GT(row.id, last) << row.name;
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        last = row.id;
    }
    EXPECT_EQ(last, 41);
    EXPECT_EQ(names.size(), 40U);
    EXPECT_EQ(runner.resolveMethod("NOT"), 18);
    EXPECT_EQ(runner.resolveMethod("POWER"), 20);
    EXPECT_FALSE(runner.run(19, scope().getObject("I"), &scope(), nullptr));
}

} // namespace
