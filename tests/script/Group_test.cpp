#include "script/CMC_Groupped.h"

#include "script/CMC_VariableFactory.h"
#include "support/InScope.h"

namespace {

class Group : public test::InScope {
protected:
    Group() {
        load("OBJECT=V\nV:TYPE=INTEGER\nV:VALUE=1\n"
             "OBJECT=W\nW:TYPE=INTEGER\nW:VALUE=2\n"
             "OBJECT=S\nS:TYPE=STRING\nS:VALUE=abc\n"
             "OBJECT=G\nG:TYPE=GROUP\n"
             "OBJECT=H\nH:TYPE=GROUP\n");
    }
};

} // namespace

TEST_F(Group, Members) {
    struct {
        const char * code;
        const char * boxes;
    } const cases[] = {
        {"@MSGBOX(G^GETSIZE(),G^GETNAME(0),G^GETNAME(2),G^GETNAME(3),G^GETNAME(-1),G^GETNAME());",
         "3, V, S, NULL, NULL, G"},
        {"G^ADD(\"V\",\"NOBODY\");@MSGBOX(G^GETSIZE());G^REMOVE(\"V\",\"NOBODY\");"
         "@MSGBOX(G^GETSIZE(),G^GETNAME(0),G^GETNAME(2));",
         "4; 3, W, V"},
        {"G^REMOVEALL();@MSGBOX(G^GETSIZE(),V);", "0, 1"},
        {"W^ADDTOGROUP(\"G\");@MSGBOX(G^GETSIZE());", "4"},
        {"V^CLONE(3);G^ADDCLONES(\"V\",0,5);@MSGBOX(G^GETSIZE(),G^GETNAME(3),G^GETNAME(6));", "7, V, V_3"},
        {"@MSGBOX(G^NEXT(1),G^NEXT(1),G^NEXT(2),G^PREV(3),G^GETMARKERPOS(),G^GETNAMEATMARKER());",
         "V, W, V, V, 0, V"},
        {"@MSGBOX(G^GETNAMEATMARKER());G^SETMARKERPOS(9);@MSGBOX(G^GETMARKERPOS(),G^GETNAMEATMARKER());"
         "G^RESETMARKER();@MSGBOX(G^GETMARKERPOS());",
         "NULL; 2, S; -1"},
        {"G^REMOVEALL();@MSGBOX(G^NEXT(1),G^PREV(1),G^GETMARKERPOS());", "NULL, NULL, -1"},
        // A clone that is made anew is another object: the old one is no longer a member.
        {"V^RESETCLONES();V^CLONE();G^ADD(\"V_1\",\"W\");V^RESETCLONES();V^CLONE();"
         "@MSGBOX(G^GETSIZE(),G^GETNAME(3));",
         "4, W"},
        {"G^ADDCLONES(\"V\",-2147483648,2147483647);@MSGBOX(G^GETSIZE());", "3"},
        {"@MSGBOX(G^GETCLONEINDEX());G^CLONE();@MSGBOX(G^GETSIZE());", "0; 3"},
    };
    for (const auto & each : cases)
        EXPECT_EQ(shown(std::string("G^REMOVEALL();G^ADD(\"V\",\"W\",\"S\");G^RESETMARKER();") + each.code),
                  each.boxes)
            << each.code;
}

TEST_F(Group, PassesMethodsOn) {
    run("G^ADD(\"V\",\"W\",\"S\");");
    EXPECT_EQ(shown("G^INC();@MSGBOX(V,W,S);"), "2, 3, abc");
    EXPECT_EQ(shown("G^SET([V+8]);@MSGBOX(V,W,S);"), "10, 18, 18");     // an expression is worked out by each
    EXPECT_EQ(shown("@MSGBOX(G^ADD(\"NOBODY\"),G^DEC(),V);"), ", , 9"); // results go nowhere
    EXPECT_EQ(shown("H^ADD(\"G\");H^SET(5);@MSGBOX(V,W,S);"), "5, 5, 5");
    EXPECT_EQ(shown("*G^INC();G^MSGBOX();"), "G (3000) : G"); // a common method is the group's own
    notes.clear();
    run("G^NOSUCH();");
    EXPECT_EQ(notes, (std::vector<std::string>{"unknown method: V (INTEGER) has no method NOSUCH",
                                               "unknown method: W (INTEGER) has no method NOSUCH",
                                               "unknown method: S (STRING) has no method NOSUCH"}));
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Group, MembersThatGoMeanwhile) {
    load("OBJECT=X\nX:TYPE=INTEGER\nX:ONCHANGED={W^RESETCLONES();W^CLONE();G^REMOVE(\"V\");}\n");
    run("W^CLONE();G^ADD(\"X\",\"W_1\",\"V\");G^INC();");
    EXPECT_EQ(shown("@MSGBOX(X,W_1,V,G^GETSIZE(),G^GETNAME(0));"), "1, 2, 2, 1, X");
    auto * group = static_cast<CMC_Groupped *>(scope().getObject("G"));
    ASSERT_EQ(group->getList()->size, 1);
    EXPECT_EQ(group->getList()->at(0), scope().getObject("X"));
}

TEST_F(Group, GroupsOfThemselvesEnd) {
    run("G^ADD(\"V\",\"H\",\"G\",\"H\");H^ADD(\"W\",\"G\",\"H\");");
    notes.clear();
    EXPECT_EQ(shown("G^INC();@MSGBOX(V,W);"), "2, 4");
    ASSERT_FALSE(notes.empty());
    EXPECT_EQ(notes[0].find("too deep: "), 0U);
    std::string chain, groups;
    for (int i = 0; i < 5000; i++) {
        std::string name = "C" + std::to_string(i);
        groups += "OBJECT=" + name + "\n" + name + ":TYPE=GROUP\n";
        if (i > 0) chain += "C" + std::to_string(i - 1) + "^ADD(\"" + name + "\");";
    }
    load(groups);
    run(chain);
    run("C0^INC();");
}
