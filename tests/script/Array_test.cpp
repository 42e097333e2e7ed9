#include "script/CMC_Array.h"

#include "files/CConfig.h"
#include "files/CFile_Stream.h"
#include "files/CXArchive.h"
#include "script/CMC_VariableFactory.h"
#include "support/InScope.h"

namespace {

struct Case {
    const char * code;
    const char * boxes;
};

class Array : public test::InScope {
protected:
    Array() {
        load("OBJECT=A\nA:TYPE=ARRAY\n"
             "OBJECT=B\nB:TYPE=ARRAY\n"
             "OBJECT=V\nV:TYPE=INTEGER\nV:VALUE=4\n");
    }

    CMC_Array & array(const char * name) { return *static_cast<CMC_Array *>(scope().getObject(name)); }

    // Each case begins with what the code before all of them makes.
    template <std::size_t N>
    void expect(const std::string & before, const Case (&cases)[N]) {
        for (const Case & each : cases) EXPECT_EQ(shown(before + each.code), each.boxes) << each.code;
    }
};

} // namespace

TEST_F(Array, Items) {
    const Case cases[] = {
        {"A^MSGBOX();", "A (ARRAY) : 5,3,9"},
        {"V^SET(4);A^ADD(V,2.5,\"x\",TRUE);V^SET(1);A^MSGBOX();", "A (ARRAY) : 5,3,9,4,2.50000,x,TRUE"},
        {"A^ADD();A^MSGBOX();", "A (ARRAY) : 5,3,9"},
        {"A^INSERTAT(0,7);A^INSERTAT(2,[V+1]);@MSGBOX(A^GET(0),A^GET(1),A^GETSIZE());", "7, 5, 5"},
        {"A^CHANGEAT(1,\"x\");A^MSGBOX();", "A (ARRAY) : 5,x,9"},
        {"A^REMOVEAT(0);A^MSGBOX();", "A (ARRAY) : 3,9"},
        {"A^INSERTAT(3,1);A^MSGBOX();",
         "Attempting to set element at index (out of bounds) 3 from array A; A (ARRAY) : 5,3,9"},
        {"A^CHANGEAT(-1,1);", "Attempting to set element at index (out of bounds) -1 from array A"},
        {"A^REMOVEAT(3);", "Attempting to set element at index (out of bounds) 3 from array A"},
        {"@MSGBOX(A^GET(3));", "Attempting to access element at index 3 from array A; NULL"},
        {"A^REMOVEALL();@MSGBOX(A^GETSIZE());", "0"},
        {"A^ADD(3);A^REMOVE(3);A^REMOVE(77);A^MSGBOX();", "A (ARRAY) : 5,9,3"},
        {"A^ADD(3);@MSGBOX(A^FIND(3),A^REVERSEFIND(3),A^FIND(\"9\"),A^FIND(4),A^CONTAINS(5),A^CONTAINS(6));",
         "1, 3, 2, -1, TRUE, FALSE"},
        {"A^ADD(\"Abc\");@MSGBOX(A^FIND(\"aBC\"),A^FIND(3.4));", "3, 1"}, // as the item's type compares
        {"A^ADD(3,5);B^REMOVEALL();@MSGBOX(A^FINDALL(\"B\",3),A^FINDALL(\"B\",5),A^FINDALL(\"NONE\",5));"
         "B^MSGBOX();",
         "2, 2, 0; B (ARRAY) : 1,3,0,4"},
        {"A^ADDCLONES(\"X\",-1,1);A^MSGBOX();", "A (ARRAY) : 5,3,9,X_-1,X_0,X_1"},
        {"A^ADDCLONES(\"X\",1,0);A^MSGBOX();", "A (ARRAY) : 5,3,9"},
        {"B^REMOVEALL();B^ADD(1);A^COPYTO(\"B\");A^COPYTO(\"NONE\");B^MSGBOX();", "B (ARRAY) : 1,5,3,9"},
        {"A^COPYTO(\"A\");A^MSGBOX();", "A (ARRAY) : 5,3,9,5,3,9"},
        {"B^REMOVEALL();B^ADD(\"5\",3.2,9);@MSGBOX(A^COMPARE(\"B\"),B^COMPARE(\"A\"),A^COMPARE(\"A\"));",
         "TRUE, FALSE, TRUE"},
        {"V^ADDTOARRAY(\"A\");A^MSGBOX();", "A (ARRAY) : 5,3,9,1"},
        {"A^SWAP(0,2);A^SWAP(0,3);A^MSGBOX();", "A (ARRAY) : 9,3,5"},
        {"A^FILL(2,\"z\");A^MSGBOX();A^FILL(-1,1);A^MSGBOX();", "A (ARRAY) : z,z; A (ARRAY) : "},
        {"A^FILL(2);", "Insuficient args in call to CMC_Array::fill"},
        {"A^SORTMANY();A^CLONE();A^ADD(1);A_1^MSGBOX();", "A_1 (ARRAY) : 5,3,9"},
    };
    expect("V^SET(1);A^REMOVEALL();A^ADD(5,3,9);A^RESETCLONES();", cases);
}

TEST_F(Array, Walks) {
    const Case cases[] = {
        {"@MSGBOX(A^NEXT(1),A^NEXT(1),A^NEXT(1),A^NEXT(1),A^GETMARKERPOS());", "a, b, c, a, 0"},
        {"@MSGBOX(A^NEXT(8),A^PREV(1),A^PREV(3),A^GETMARKERPOS());", "b, a, a, 0"},
        {"@MSGBOX(A^PREV(1),A^GETMARKERPOS());", "b, 1"},
        {"@MSGBOX(A^NEXT(2000000000),A^PREV(2000000000));", "b, c"},
        {"@MSGBOX(A^NEXT(0),A^NEXT(-4),A^GETMARKERPOS(),A^NEXT(6));", "NULL, NULL, -5, b"},
        {"A^SETMARKERPOS(99);@MSGBOX(A^GETMARKERPOS());A^SETMARKERPOS(-2);@MSGBOX(A^GETMARKERPOS());",
         "2; -1"},
        {"A^NEXT(1);A^RESETMARKER();@MSGBOX(A^GETMARKERPOS());", "-1"},
        {"A^REMOVEALL();@MSGBOX(A^NEXT(1),A^PREV(1),A^GETMARKERPOS());", "NULL, NULL, -1"},
        {"V^SET(A^NEXT(1));V^SET(9);A^MSGBOX();", "A (ARRAY) : a,b,c"},
    };
    expect("A^REMOVEALL();A^ADD(\"a\",\"b\",\"c\");A^RESETMARKER();", cases);
}

TEST_F(Array, Arithmetic) {
    const Case cases[] = {
        {"A^SUM(2.6);A^MSGBOX();", "A (ARRAY) : 8,4.60000,x2.60000,TRUE"}, // as each item's type counts
        {"A^SUB(1);A^MSGBOX();", "A (ARRAY) : 4,1.00000,x,TRUE"},
        {"A^MUL(3);A^MSGBOX();", "A (ARRAY) : 15,6.00000,x,TRUE"},
        {"A^DIV(2);A^DIV(0);A^MSGBOX();", "A (ARRAY) : 0,0,x,TRUE"},
        {"A^ADDAT(0,1);A^SUBAT(1,1);A^MULAT(0,3);A^DIVAT(0,4);A^MSGBOX();", "A (ARRAY) : 4,1.00000,x,TRUE"},
        {"A^MODAT(0,3);A^ADDAT(4,1);A^ADDAT(-1,1);A^MSGBOX();", "A (ARRAY) : 2,2.00000,x,TRUE"},
        {"A^SUMA(\"B\",0,1);A^MSGBOX();", "A (ARRAY) : 6,12.00000,x,TRUE"},
        {"A^SUBA(\"B\",1,1);A^MULA(\"B\",1,1);A^DIVA(\"B\",1,1);A^MSGBOX();",
         "A (ARRAY) : 5,-8.00000,x,TRUE"},
        {"A^SUMA(\"B\",-5,2147483647);A^SUMA(\"NONE\",0,1);A^SUMA(\"A\",0,0);A^MSGBOX();",
         "A (ARRAY) : 12,12.00000,xy,TRUE"},
        {"A^CLAMPAT(0,6,9);A^CLAMPAT(1,0,1.5);A^CLAMPAT(2,0,1);A^CLAMPAT(9,0,1);A^MSGBOX();",
         "A (ARRAY) : 6,1.50000,x,TRUE"},
        {"@MSGBOX(A^MIN(),A^MAX(),A^MIND(),A^MAXD(),A^GETSUMVALUE());", "5, 5, 2.00000, 5.00000, 5"},
        {"A^ADD(-3,7,-1.5);@MSGBOX(A^MIN(),A^MAX(),A^MIND(),A^MAXD(),A^GETSUMVALUE());",
         "-3, 7, -1.50000, 7.00000, 9"},
        {"A^FILL(1,-3);@MSGBOX(A^MAX(),A^MIND(),A^MAXD());A^REMOVEALL();@MSGBOX(A^MIN());",
         "0, 1000000.00000, 0; 1000000"},
        {"A^SHIFTLEFT();A^MSGBOX();A^SHIFTLEFT();A^SHIFTLEFT();A^SHIFTLEFT();A^MSGBOX();",
         "A (ARRAY) : 2.00000,x,TRUE,0; A (ARRAY) : 0,0,NULL,FALSE"},
        {"A^SHIFTRIGHT();A^MSGBOX();", "A (ARRAY) : FALSE,5,2.00000,x"},
        {"A^ROTATELEFT();A^MSGBOX();A^ROTATERIGHT();A^ROTATERIGHT();A^MSGBOX();",
         "A (ARRAY) : 2.00000,x,TRUE,5; A (ARRAY) : TRUE,5,2.00000,x"},
        {"A^REMOVEALL();A^SHIFTLEFT();A^SHIFTRIGHT();A^ROTATELEFT();A^ROTATERIGHT();A^SORT(TRUE);A^MSGBOX();",
         "A (ARRAY) : "},
    };
    expect("A^REMOVEALL();A^ADD(5,2.0,\"x\",TRUE);B^REMOVEALL();B^ADD(1,10,\"y\");", cases);
}

TEST_F(Array, Sorts) {
    const Case cases[] = {
        {"A^ADD(3,-1,10,3);A^SORT(TRUE);A^MSGBOX();A^SORT(FALSE);A^MSGBOX();",
         "A (ARRAY) : -1,3,3,10; A (ARRAY) : 10,3,3,-1"},
        {"A^ADD(\"b\",\"B\",\"a\",\"10\",\"9\");A^SORT(TRUE);A^MSGBOX();", "A (ARRAY) : 10,9,B,a,b"},
        {"A^ADD(2.5,-1.0,2.25);A^SORT(FALSE);A^MSGBOX();", "A (ARRAY) : 2.50000,2.25000,-1.00000"},
        {"A^ADD(2,\"1\",1.5);A^SORT(TRUE);A^MSGBOX();", "A (ARRAY) : 1,2,1.50000"},
    };
    expect("A^REMOVEALL();", cases);
}

TEST_F(Array, TellsOfChanges) {
    std::string bindings = "C:ONCHANGED={@MSGBOX(\"other\");}\n";
    for (int i = -1; i < 4; i++)
        bindings += "C:ONCHANGED^" + std::to_string(i) + "={@MSGBOX(\"at\"," + std::to_string(i) + ");}\n";
    load("OBJECT=C\nC:TYPE=ARRAY\nC:SENDONCHANGE=TRUE\n" + bindings);
    EXPECT_EQ(shown("C^ADD(1,2);C^ADD(3);"), "at, -1; at, 0; at, 1"); // the place before the new one
    const Case cases[] = {
        {"C^ADDCLONES(\"x\",1,4);", "at, 2; at, 3; other; other"},
        {"C^INSERTAT(1,5);C^CHANGEAT(2,5);", "at, 1; at, 2"},
        {"C^REMOVEAT(0);C^REMOVE(3);C^SWAP(0,1);C^SORT(TRUE);C^ROTATELEFT();C^REMOVEALL();", ""},
        {"C^SUM(1);C^SUMA(\"C\",1,1);C^MODAT(2,2);", "at, 0; at, 1; at, 2; at, 1; at, 2"},
        {"C^SHIFTLEFT();C^SHIFTRIGHT();", "at, 2; at, 0"},
        {"C^FILL(2,1);C^SENDONCHANGE(FALSE);C^FILL(2,1);C^SENDONCHANGE(TRUE);", "at, -1; at, 0"},
    };
    for (const Case & each : cases) {
        run("C^SENDONCHANGE(FALSE);C^REMOVEALL();C^ADD(1,2,3);C^SENDONCHANGE(TRUE);");
        EXPECT_EQ(shown(each.code), each.boxes) << each.code;
    }
    EXPECT_EQ(shown("A^ADD(1);"), ""); // nobody asked for it
}

// What handlers may do to an array, its operands and its neighbours in the midst of an operation.
TEST_F(Array, HandlersThatMeddle) {
    load("OBJECT=W\nW:TYPE=INTEGER\nW:VALUE=1\n"
         "OBJECT=X\nX:TYPE=ARRAY\nX:SENDONCHANGE=TRUE\nX:ONCHANGED={X^REMOVEAT(0);}\n"
         // Its clone is removed, and made anew, at the clone's first change.
         "OBJECT=Y\nY:TYPE=ARRAY\nY:ONCHANGED={Y^RESETCLONES();Y^CLONE();}\n"
         "OBJECT=Z\nZ:TYPE=ARRAY\nZ:ONCHANGED={W^RESETCLONES();W^CLONE();W_1^SET(50);}\n"
         "OBJECT=N\nN:TYPE=ARRAY\nN:ONCHANGED={V^INC();}\n");
    EXPECT_EQ(shown("X^SENDONCHANGE(FALSE);X^ADD(1,2,3,4);X^SENDONCHANGE(TRUE);X^SUM(10);X^MSGBOX();"),
              "X (ARRAY) : 13,4"); // each takes one away, 11 and 2
    EXPECT_EQ(shown("X^REMOVEALL();X^ADD(1,2,3);X^MSGBOX();"), "X (ARRAY) : ");
    for (const char * change :
         {"SUM(1)", "ADD(7,8)", "ADDCLONES(\"x\",0,5)", "FILL(5,1)", "SUMA(\"Y_1\",0,9)",
          "RANDOMFILL(0,5,5,FALSE)", "FINDALL(\"Y_1\",1)", "COPYTO(\"Y_1\")"})
        EXPECT_EQ(shown(std::string("Y^SENDONCHANGE(FALSE);Y^REMOVEALL();Y^ADD(1,1,3);Y^SENDONCHANGE(TRUE);"
                                    "Y^RESETCLONES();Y^CLONE();Y_1^") +
                        change + ";Y_1^MSGBOX();"),
                  "Y_1 (ARRAY) : 1,1,3")
            << change;
    // The operand is removed: its last value counts. A named one that changes counts as it is.
    EXPECT_EQ(shown("W^CLONE();Z^ADD(1,2,3);Z^SENDONCHANGE(TRUE);Z^SUM(W_1);Z^MSGBOX();"),
              "Z (ARRAY) : 2,3,4");
    EXPECT_EQ(shown("N^ADD(0,0,0);N^SENDONCHANGE(TRUE);V^SET(1);N^SUM(V);N^MSGBOX();"), "N (ARRAY) : 1,2,3");
    EXPECT_EQ(shown("N^SENDONCHANGE(FALSE);N^FILL(3,0);N^SENDONCHANGE(TRUE);N^SUM([2+0]);N^MSGBOX();"),
              "N (ARRAY) : 2,2,2");
}

TEST_F(Array, DrawsAndLimits) {
    run("A^RANDOMFILL(5,10,10,TRUE);A^SORT(TRUE);");
    EXPECT_EQ(shown("A^MSGBOX();"), "A (ARRAY) : 5,6,7,8,9,10,11,12,13,14");
    run("A^RANDOMFILL(3,8,0,FALSE);");
    EXPECT_EQ(array("A").getSize(), 5);
    run("A^RANDOMFILL(0,5,6,TRUE);");
    EXPECT_EQ(array("A").getSize(), 0);
    notes.clear();
    run("A^FILL(2147483647,1);A^ADD(1);A^ADDCLONES(\"x\",-2147483648,2147483647);");
    EXPECT_EQ(array("A").getSize(), CMC_Array::kMostItems);
    EXPECT_EQ(notes.size(), 3U);
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Array, Files) {
    using namespace std::string_literals;
    const std::string bytes = "\x04\x00\x00\x00"
                              "\x01\x00\x00\x00\xFE\xFF\xFF\xFF"
                              "\x02\x00\x00\x00\x02\x00\x00\x00xy"
                              "\x03\x00\x00\x00\x01\x00\x00\x00"
                              "\x04\x00\x00\x00\xC4\x09\x00\x00"s;
    run("A^ADD(-2,\"xy\",TRUE,2.5);A^SAVE(\"a.arr\");");
    EXPECT_EQ(get("a.arr"), bytes);
    EXPECT_EQ(shown("B^ADD(1);B^LOAD(\"a.arr\");B^MSGBOX();"), "B (ARRAY) : -2,xy,TRUE,2.50000");
    notes.clear();
    EXPECT_EQ(shown("B^LOAD(\"none.arr\");B^MSGBOX();"), "B (ARRAY) : ");
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0], "note: B: LOAD finds no file none.arr");

    // Cut at any byte it gives what stands before the cut.
    for (std::size_t length = 0; length < bytes.size(); length++) {
        CFile_Stream file(bytes.data(), static_cast<int>(length));
        CXArchive archive(&file, false);
        CMC_Array & a = array("A");
        a.removeAll();
        a.read(archive);
        EXPECT_EQ(a.getSize(), length < 12 ? 0 : length < 22 ? 1 : length < 30 ? 2 : 3) << length;
    }
    for (const std::string & damaged :
         {"\xFF\xFF\xFF\xFF"s, "\xFF\xFF\xFF\x7F"s, "\x01\x00\x00\x00\x05\x00\x00\x00"s,
          "\x02\x00\x00\x00\x02\x00\x00\x00\xFF\xFF\xFF\x7Fxy"s}) {
        put("d.arr", damaged);
        EXPECT_EQ(shown("B^LOAD(\"d.arr\");B^MSGBOX();"), "B (ARRAY) : ");
    }
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(Array, FoldersAndNames) {
    put("Gfx/b.ann", "");
    put("Gfx/a.ann", "");
    put("Gfx/c.img", "");
    EXPECT_EQ(
        shown("A^ADD(1);A^DIR(\"Gfx\\\",\"*.ann\");A^MSGBOX();A^DIR(\"None\\\",\"*\");@MSGBOX(A^GETSIZE());"),
        "A (ARRAY) : 1,Gfx\\a.ann,Gfx\\b.ann; 3");
    EXPECT_EQ(shown("B^DIR(\"\",\"g*\");B^MSGBOX();"), "B (ARRAY) : Gfx"); // still in the folder of before
}

TEST_F(Array, Settings) {
    notes.clear();
    run("A^ADD(1);A^SAVEINI();A^LOADINI();");
    EXPECT_EQ(array("A").getSize(), 1); // there is no file to read: nothing happens
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0].find("no settings file: "), 0U);

    struct Window : CWindow {
        using CWindow::CWindow;
        CConfig * getConfig() override { return &config; }
        CConfig config{CFile::getCurrentDirectory() + "set.ini"};
    };
    CCommandLine6 commandLine("");
    CLanguageOSVer language;
    Window kept(nullptr, &commandLine, &language, CXSize(8, 6), nullptr, "", true);
    CMC_ObjectsContainer room(&kept, &scope(), CXString("ROOM"), types::kScene);
    room.setScene(&room);
    auto * names = new CMC_Array(&room, CXString("NAMES"));
    room.addObject(names);
    array("A").copyTo(names);
    array("A").sum(CMC_VariableFactory::real(0.5));
    array("A").copyTo(names);
    CMC_String comma("x,y", "");
    names->add(&comma);
    names->saveINI();
    EXPECT_EQ(kept.config.GetString("ROOM", "NAMES"), "1,2,x,y");
    names->loadINI();
    EXPECT_EQ(names->getSize(), 4);
    EXPECT_EQ(names->get(0)->getType(), types::kString);
    EXPECT_EQ(names->toString(), "1,2,x,y");
    names->setName("OTHER");
    names->loadINI();
    EXPECT_EQ(names->getSize(), 0);
    names->setName("NAMES");
}
