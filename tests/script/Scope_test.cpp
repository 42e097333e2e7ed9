#include "script/CMC_Behaviour.h"
#include "script/CMC_ObjectsContainer.h"
#include "support/InScope.h"

namespace {

class Scope : public test::InScope {};

} // namespace

TEST_F(Scope, ClonesCountAndAnswerToNamesWithZero) {
    load("OBJECT=A\nA:TYPE=INTEGER\nA:VALUE=7\nA:ONINIT={@MSGBOX(\"init\");}\nA:ONCHANGED={@MSGBOX("
         "\"changed\");}\n");
    boxes();
    EXPECT_EQ(
        shown("A^CLONE(2);A_2^INC();A_2^MSGBOX();A_0^MSGBOX();@MSGBOX(A^GETCLONESNO(),A_2^GETCLONEINDEX());"),
        "changed; A_2 (INTEGER) : 8; A (INTEGER) : 7; 2, 2");
    EXPECT_EQ(shown("A^RESETCLONES();A^SET(9);A^CLONE();A_1^MSGBOX();"), "changed; A_1 (INTEGER) : 9");
    EXPECT_EQ(scope().getElementsNo(), 5); // A, its two inline behaviours, two clones
}

TEST_F(Scope, NamesAreFoundThroughTheScopes) {
    CMC_ObjectsContainer outer(&window(), nullptr, CXString("OUTER"), types::kEpisode);
    auto * x = new CMC_Object("X", types::kRandom);
    outer.addObject(x);
    auto * y0 = new CMC_Object("Y_0", types::kRandom);
    outer.addObject(y0);
    scope().setParent(&outer);
    EXPECT_EQ(scope().getObject("X"), x);
    EXPECT_EQ(scope().getObject("X_0"), x);
    EXPECT_EQ(scope().getObject("OUTER"), &outer);
    auto * y = new CMC_Object("Y", types::kRandom);
    scope().addObject(y);
    EXPECT_EQ(scope().getObject("Y_0"), y); // before the parent is asked
    scope().setParent(nullptr);
    EXPECT_EQ(scope().getObject("X"), nullptr);
    EXPECT_EQ(scope().getObject("OUTER"), nullptr);
}

// Without the zeros the name is looked for here and outside, before the name with them is outside.
TEST_F(Scope, NamesWithManyZeros) {
    std::string deep = "A";
    for (int i = 0; i < 60; i++) deep += "_0"; // each once in each scope, or this never ends
    CMC_ObjectsContainer outer(&window(), nullptr, CXString("OUTER"), types::kEpisode);
    scope().setParent(&outer);
    EXPECT_EQ(scope().getObject(deep), nullptr);
    // In the order in which they are found; each new one goes before the one that was added last.
    CMC_Object * last = nullptr;
    const std::pair<CMC_ObjectsContainer *, const char *> places[] = {{&outer, "A_0_0"}, {&outer, "A_0"},
                                                                      {&outer, "A"},     {&scope(), "A"},
                                                                      {&scope(), "A_0"}, {&scope(), "A_0_0"}};
    for (auto [where, name] : places) {
        auto * object = new CMC_Object(name, types::kRandom);
        where->addObject(object);
        EXPECT_EQ(scope().getObject("A_0_0"), object) << name;
        EXPECT_NE(object, last);
        last = object;
    }
    EXPECT_EQ(scope().getObject(deep), last);
    scope().setParent(nullptr);
}

TEST_F(Scope, BindingsWithQualifiersAndOverriding) {
    load("OBJECT=H\nH:TYPE=BEHAVIOUR\nH:CODE={@MSGBOX(\"h\",$1);}\n"
         "OBJECT=A\nA:TYPE=INTEGER\nA:ONSIGNAL^GO=H(1, 2)\nA:ONBRUTALCHANGED={@MSGBOX(\"b\",A);}\n");
    EXPECT_EQ(shown("A^SEND(\"GO\");A^SEND(\"NO\");"), "h, 1");
    EXPECT_EQ(shown("A^SET(0);"), "b, 0");
    EXPECT_EQ(shown("A^OVERIDESIGNALS(FALSE);A^ADDBEHAVIOUR(\"ONSIGNAL$GO\",\"H\",\"9\");A^SEND(\"GO\");"),
              "h, 1; h, 9");
    EXPECT_EQ(shown("A^REMOVEBEHAVIOUR(\"ONSIGNAL$GO\");A^SEND(\"GO\");"), "");
    EXPECT_EQ(shown("A^OVERIDESIGNALS();"),
              "induficient parameters passed to overideSignals, expecting one bool : A");
    EXPECT_EQ(shown("A^REMOVEALLBEHAVIOURS();A^SET(1);"), "");
}

TEST_F(Scope, ASecondDefinitionReplacesTheFirst) {
    load("OBJECT=A\nA:TYPE=INTEGER\nA:VALUE=1\nDEF=A(TYPE=STRING|VALUE=two)\n");
    EXPECT_EQ(shown("A^MSGBOX();"), "A (STRING) : two");
    EXPECT_EQ(scope().getElementsNo(), 1);
}

TEST_F(Scope, ObjectsEndInOrderOfCreation) {
    // Handlers inside the scope lose their lines before values end: behaviours come first.
    load("OBJECT=B\nB:TYPE=INTEGER\nB:ONDONE={@MSGBOX(\"never\");}\n");
    boxes();
    scope().unload();
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(scope().getElementsNo(), 0);
    EXPECT_EQ(scope().getObject("B"), nullptr);
}

TEST_F(Scope, TypeIdsAndWords) {
    EXPECT_EQ(CMC_Object::getTypeId("MULTIARRAY"), 3006);
    EXPECT_EQ(CMC_Object::getTypeId("STRUCT"), -1);
    EXPECT_EQ(CMC_Object::getTypeId("integer"), -1);
    EXPECT_EQ(CMC_Object::typeToString(103), "CANVAS OBSERVER");
    EXPECT_EQ(CMC_Object::typeToString(11), "COMPLEX CONDITION");
    EXPECT_EQ(CMC_Object::typeToString(3006), "3006");
}
