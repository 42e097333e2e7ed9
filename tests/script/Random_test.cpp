#include "support/InScope.h"

#include <algorithm>
#include <map>

namespace {

class Random : public test::InScope {
protected:
    Random() {
        load("OBJECT=I\nI:TYPE=INTEGER\nOBJECT=A\nA:TYPE=ARRAY\n");
        scope().addObject(new CMC_Object("RANDOM", types::kRandom));
    }
};

TEST_F(Random, GetStaysInItsRange) {
    EXPECT_EQ(shown("@MSGBOX(RANDOM^GET(0));"), "0");
    std::map<std::string, int> drawn;
    for (int i = 0; i < 300; i++) drawn[shown("@MSGBOX(RANDOM^GET(5,3));")]++;
    ASSERT_EQ(drawn.size(), 3U);
    for (const char * value : {"5", "6", "7"}) EXPECT_GT(drawn[value], 50) << value;
}

TEST_F(Random, GetPlentyFillsAnArray) {
    EXPECT_EQ(shown("RANDOM^GETPLENTY(\"A\",10,5,5,TRUE);A^SORT(TRUE);@MSGBOX(A^GETSIZE());"
                    "@LOOP({@MSGBOX(A^GET(_I_));},0,A^GETSIZE(),1);"),
              "5; 10; 11; 12; 13; 14");
    EXPECT_EQ(shown("A^REMOVEALL();RANDOM^GETPLENTY(\"A\",10,30,0,FALSE);@MSGBOX(A^GETSIZE());"), "20");
    EXPECT_TRUE(notes.empty());
}

TEST_F(Random, GetPlentyRefusesWhatCantBe) {
    for (const char * code :
         {"RANDOM^GETPLENTY(\"A\",0,5,6,TRUE);", "RANDOM^GETPLENTY(\"A\",0,5,10001,FALSE);",
          "RANDOM^GETPLENTY(\"NOBODY\",0,5,5,FALSE);", "RANDOM^GETPLENTY(\"A\",0,5);"}) {
        notes.clear();
        EXPECT_EQ(shown(std::string(code) + "@MSGBOX(A^GETSIZE());"), "0") << code;
        EXPECT_EQ(notes.size(), 1U) << code;
    }
}

TEST_F(Random, AnArrayThatDrawsAgainWhileItIsFilled) {
    // The array tells of each item at once; what that sets off may draw again.
    load("OBJECT=C\nC:TYPE=ARRAY\nC:SENDONCHANGE=TRUE\nC:ONCHANGED={RANDOM^GETPLENTY(\"A\",900,50,50,FALSE);}"
         "\n");
    run("RANDOM^GETPLENTY(\"C\",0,3,3,TRUE);C^SORT(TRUE);");
    EXPECT_EQ(shown("@MSGBOX(C^GETSIZE(),C^GET(0),C^GET(1),C^GET(2),A^GETSIZE());"), "3, 0, 1, 2, 150");
}

} // namespace
