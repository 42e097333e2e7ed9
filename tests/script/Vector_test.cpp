#include "support/InScope.h"

namespace {

struct Case {
    const char * code;
    const char * shown;
};

// A line of boxes reads "0; 1.00000; ...": V's elements.
constexpr const char * kShowV = "@MSGBOX(V^GET(0),V^GET(1),V^GET(2));";

class Vector : public test::InScope {
protected:
    Vector() {
        load("OBJECT=V\nV:TYPE=VECTOR\nV:SIZE=3\nV:VALUE=3,4\n"
             "OBJECT=W\nW:TYPE=VECTOR\nW:SIZE=3\nW:VALUE=1,2,3,9\n"
             "OBJECT=U\nU:TYPE=VECTOR\nU:SIZE=2\nU:VALUE=10,20\n");
    }

    // V is 3, 4, 0; W is 1, 2, 3; U is 10, 20 at the start of each case; V is shown at its end.
    void check(std::initializer_list<Case> cases) {
        for (const Case & each : cases) {
            SCOPED_TRACE(each.code);
            run("V^ASSIGN(3,4,0);W^ASSIGN(1,2,3);U^ASSIGN(10,20);");
            EXPECT_EQ(shown(std::string(each.code) + kShowV), each.shown);
        }
    }
};

TEST_F(Vector, Methods) {
    check({
        {"", "3.00000, 4.00000, 0"},
        {"@MSGBOX(V^GETSIZE(),W^GETSIZE(),W^GET(2));", "3, 3, 3.00000; 3.00000, 4.00000, 0"},
        {"V^ADD(W);", "4.00000, 6.00000, 3.00000"},
        {"V^ADD(W,U,W);", "5.00000, 8.00000, 6.00000"}, // U has another size
        {"V^SUB(W);", "2.00000, 2.00000, -3.00000"},
        {"V^SUB(V);", "0, 0, 0"},
        {"V^SET(1,7.5);", "3.00000, 7.50000, 0"},
        {"V^SET(U);", "10.00000, 20.00000, 0"},
        {"U^SET(W);@MSGBOX(U^GET(0),U^GET(1));", "1.00000, 2.00000; 3.00000, 4.00000, 0"},
        {"V^ASSIGN(9);", "9.00000, 4.00000, 0"},
        {"V^VMUL(V,W);", "3.00000, 8.00000, 0"},
        {"V^VMUL(U,W);", "10.00000, 40.00000, 0"},
        {"@MSGBOX(V^SMUL(W),V^SMUL(U));", "11.00000, 0; 3.00000, 4.00000, 0"},
        {"V^MUL(-2);", "-6.00000, -8.00000, 0"},
        {"@MSGBOX(V^LEN());", "5.00000; 3.00000, 4.00000, 0"},
        {"V^NORMALIZE();", "0.60000, 0.80000, 0"},
        {"W^ASSIGN(0,1,0);V^REFLECT(W,V);", "-3.00000, 4.00000, 0"},
        {"V^NEG();", "-3.00000, -4.00000, 0"},
        {"V^CLONE(1);V^NEG();@MSGBOX(V_1^GET(1));", "4.00000; -3.00000, -4.00000, 0"},
    });
}

TEST_F(Vector, ExpandPutsTheNewPlacesFirst) {
    EXPECT_EQ(shown("V^EXPAND(5);@MSGBOX(V^GETSIZE(),V^GET(0),V^GET(1),V^GET(2),V^GET(3));"),
              "5, 0, 0, 3.00000, 4.00000");
    EXPECT_EQ(shown("W^EXPAND(1);@MSGBOX(W^GETSIZE(),W^GET(0));"), "1, 3.00000");
    EXPECT_EQ(shown("W^EXPAND(0);@MSGBOX(W^GETSIZE(),W^LEN());"), "0, 0");
}

TEST_F(Vector, WhatIsOutsideIsNotedAndLeftAlone) {
    load("OBJECT=HUGE\nHUGE:TYPE=VECTOR\nHUGE:SIZE=2000000000\nOBJECT=NEG\nNEG:TYPE=VECTOR\nNEG:SIZE=-1\n");
    EXPECT_EQ(notes.size(), 2U);
    for (const char * code :
         {"V^SET(3,1);", "V^SET(-1,1);", "V^ASSIGN(3,4,0,5);", "V^EXPAND(-1);", "V^EXPAND(2000000000);",
          "V^ADD(NOBODY);", "V^VMUL(V);", "V^REFLECT(V,NOBODY);"}) {
        notes.clear();
        check({{code, "3.00000, 4.00000, 0"}});
        EXPECT_EQ(notes.size(), 1U) << code;
    }
    EXPECT_EQ(shown("@MSGBOX(V^GET(3),V^GET(-1));"), "0, 0");
    EXPECT_EQ(shown("V^ASSIGN(0,0,0);V^NORMALIZE();@MSGBOX(V^GET(0));"), "0");
}

} // namespace
