// IMAGE and ANIMO as scripts see them.

#include "PictureFiles.h"
#include "graphics/AnnFile.h"
#include "graphics/CAnimo6.h"
#include "graphics/CImage.h"
#include "graphics/CMC_Animo.h"
#include "graphics/CMC_Image.h"
#include "graphics/CRefreshScreen.h"
#include "support/InScope.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using Boxes = std::vector<std::string>;

// Two frames of 4 x 2 pixels of one word each.
std::string animation(std::initializer_list<const char *> events) {
    std::string planes[2] = {test::plane(std::vector<std::uint16_t>(8, 0x1111)),
                             test::plane(std::vector<std::uint16_t>(8, 0x2222))};
    ann::File file;
    for (const char * name : events) {
        _annEventInfo3 event;
        event.name = name;
        for (int i : {0, 1}) event.add(static_cast<std::uint16_t>(i));
        file.events.push_back(event);
    }
    for (const std::string & each : planes) {
        ann::Frame frame;
        frame.width = 4;
        frame.height = 2;
        frame.colour = each;
        file.frames.push_back(frame);
    }
    return ann::write(file);
}

class ScriptPictures : public test::InScope {
protected:
    ScriptPictures() {
        EXPECT_EQ(window().CreateSurface(nullptr), 0);
        CColor black(0, 0, 0);
        window().SetBackground(&black);
        put("p.img", test::Tnk{4, 2, 16, 16, 0, 0, 0, test::plane({1, 2, 3, 4, 5, 6, 7, 8}),
                               std::string("\xFF\xFF\xFF\xFF\x00\x80\xFF\xFF", 8)}
                         .bytes());
        put("q.img",
            test::Tnk{2, 2, 16, 8, 0, 0, 0, test::plane({0xF800, 0x07E0, 0x001F, 0xFFFF}), {}}.bytes());
        put("a.ann", animation({"WALK", "ONCLICK"}));
        put("b.ann", animation({"RUN"}));
        put("c.ann", animation({"WALK", "ONNOEVENT"}));
    }
    void image(const std::string & name, const std::string & keys = "") {
        load("OBJECT=" + name + "\n" + name + ":TYPE=IMAGE\n" + name + ":FILENAME=p.img\n" + name +
             ":TOCANVAS=TRUE\n" + name + ":VISIBLE=TRUE\n" + keys);
    }
    void animo(const std::string & keys = "") {
        load("OBJECT=A\nA:TYPE=ANIMO\nA:FILENAME=a.ann\nA:TOCANVAS=TRUE\nA:VISIBLE=TRUE\n" + keys);
    }
    void drop(const char * name) {
        std::unique_ptr<CMC_Object> object(scope().getObject(name));
        scope().removeObject(object.get());
    }
    int seen(int x, int y) {
        window().OnActivateApp(true);
        window().Redraw();
        return world().display->pixels()[y * world().display->width() + x];
    }
};

TEST_F(ScriptPictures, PlacesAndPixels) {
    image("P");
    struct {
        const char * code;
        const char * box;
    } const cases[] = {
        {"@MSGBOX(P^GETWIDTH(),P^GETHEIGHT(),P^ISVISIBLE());", "4, 2, TRUE"},
        {"P^SETPOSITION(10,20);@MSGBOX(P^GETPOSITIONX(),P^GETPOSITIONY());", "10, 20"},
        {"P^MOVE(5,-5);@MSGBOX(P^GETCENTERX(),P^GETCENTERY());", "17, 16"},
        {"@MSGBOX(P^GETPIXEL(1,1),P^GETPIXEL(4,0),P^GETALPHA(1,1),P^GETALPHA(-1,0));", "6, 0, 128, 0"},
        {"@MSGBOX(P^ISAT(15,15,TRUE),P^ISAT(15,16,TRUE),P^ISAT(15,16,FALSE),P^ISINSIDE(16,16,TRUE));",
         "TRUE, FALSE, TRUE, TRUE"},
        {"@MSGBOX(P^ISNEAR(0,0,16,100,25),P^ISNEAR(0,0,16,100,26));", "TRUE, FALSE"},
        {"P^SETANCHOR(\"CENTER\");P^SETPOSITION(10,10);@MSGBOX(P^GETPOSITIONX(),P^GETPOSITIONY());", "8, 9"},
        {"P^SETANCHOR(1,1);P^SETPOSITION(10,10);@MSGBOX(P^GETPOSITIONX());", "9"},
        {"P^SETANCHOR(\"NOWHERE\");P^SETPOSITION(0,0);@MSGBOX(P^GETPOSITIONX());", "-1"},
        {"P^SETRESETPOSITION(3,4);P^SETANCHOR(0,0);P^RESETPOSITION();@MSGBOX(P^GETPOSITIONX());", "3"},
        {"P^SETOPACITY(77);@MSGBOX(P^GETOPACITY());", "77"},
        {"P^REPLACECOLOR(0,0,8,248,0,0);@MSGBOX(P^GETPIXEL(0,0),P^GETPIXEL(1,0));", "63488, 2"},
    };
    for (const auto & c : cases) EXPECT_EQ(shown(c.code), c.box) << c.code;
    load("OBJECT=Q\nQ:TYPE=IMAGE\nQ:FILENAME=q.img\n");
    EXPECT_EQ(shown("@MSGBOX(Q^GETCOLORRAT(0,0),Q^GETCOLORGAT(0,0),Q^ISVISIBLE());"), "248, 0, FALSE");
    EXPECT_EQ(shown("P^LINK(\"Q\");@MSGBOX(P^GETWIDTH(),P^GETPIXEL(0,0));"), "2, 63488");
}

TEST_F(ScriptPictures, LoadKeepsThePlace) {
    image("P", "P:PRIORITY=7\n");
    EXPECT_EQ(shown("P^SETPOSITION(30,40);P^LOAD(\"q.img\");@MSGBOX(P^GETWIDTH(),P^GETPOSITIONX());"),
              "2, 30");
    auto * image = static_cast<CMC_Image *>(scope().getObject("P"))->getImage();
    EXPECT_EQ(window().getCanvas()->GetPriority(image), 7);
    EXPECT_TRUE(image->isVisible());
    EXPECT_EQ(shown("P^LOAD(\"Q.IMG\");@MSGBOX(P^GETWIDTH());"), "2") << "the same file in any case";
    EXPECT_EQ(static_cast<CMC_Image *>(scope().getObject("P"))->getImage(), image);
    EXPECT_EQ(shown("P^LOAD(\"none.img\");@MSGBOX(P^GETWIDTH());"), "0") << "a missing file draws nothing";
    load("OBJECT=L\nL:TYPE=IMAGE\nL:FILENAME=p.img\nL:PRELOAD=FALSE\n");
    EXPECT_EQ(shown("@MSGBOX(L^GETWIDTH());L^SHOW();@MSGBOX(L^GETWIDTH());"), "0; 4");
}

TEST_F(ScriptPictures, ClonesAndEndsOnTheScreen) {
    image("P");
    run("P^CLONE(2);P_1^SETPOSITION(100,0);P_2^SETPOSITION(200,0);P_1^SHOW();P_2^HIDE();"); // reads no file
    EXPECT_EQ(seen(100, 0), 1);
    EXPECT_EQ(seen(200, 0), 0);
    drop("P_2");
    run("P_1^REPLACECOLOR(0,0,8,248,0,0);P_1^INVALIDATE();");
    EXPECT_EQ(seen(100, 0), 63488);
    EXPECT_EQ(seen(0, 0), 1) << "a clone's pixels are its own";
    drop("P_1");
    EXPECT_EQ(seen(100, 0), 0) << "what goes leaves the screen";
}

TEST_F(ScriptPictures, Buttons) {
    image("P", "P:ASBUTTON=TRUE\nP:ONFOCUSON={@MSGBOX(\"on\");}\nP:ONFOCUSOFF={@MSGBOX(\"off\");}\n"
               "P:ONCLICK={@MSGBOX(\"click\");}\nP:ONRELEASE={@MSGBOX(\"release\");}\n");
    window().OnMouseMove({0, 1}, 0); // clear there
    window().OnMouseMove({2, 1}, 0);
    window().OnMouseMove({3, 1}, 0);
    window().OnLButtonDown({3, 1}, 0);
    window().OnLButtonUp({3, 1}, 0);
    window().OnMouseMove({50, 50}, 0);
    window().OnLButtonDown({50, 50}, 0);
    EXPECT_EQ(boxes(), (Boxes{"on", "click", "release", "off"}));
    run("P^SETASBUTTON(FALSE);");
    window().OnLButtonDown({3, 1}, 0);
    EXPECT_EQ(boxes(), Boxes());
}

TEST_F(ScriptPictures, AnimationsTellOfTheirEvents) {
    animo("A:ONSTARTED={@MSGBOX(\"started\");}\nA:ONFINISHED^WALK={@MSGBOX(\"walked\");}\n"
          "A:ONFINISHED={@MSGBOX(\"finished\");}\nA:ONFRAMECHANGED={@MSGBOX(A^GETFRAME());}\n");
    auto finish = [&] {
        CMC_Object * animo = scope().getObject("A");
        for (int i = 0; i < 20 && animo->isPlaying(); i++)
            static_cast<CMC_Animo *>(animo)->getAnimo()->next();
    };
    EXPECT_EQ(
        shown("@MSGBOX(A^GETNOE(),A^GETNOF(),A^GETEVENTNAME(0),A^GETEVENTNUMBER(\"onclick\"),A^GETFPS());"),
        "2, 2, WALK, 1, 15");
    run("A^PLAY(\"NONE\");");
    EXPECT_EQ(shown("@MSGBOX(A^ISPLAYING());"), "FALSE");
    run("A^PLAY(\"walk\");");
    EXPECT_EQ(shown("@MSGBOX(A^ISPLAYING(),A^ISPLAYING(\"WALK\"),A^ISPLAYING(\"ONCLICK\"));"),
              "TRUE, TRUE, FALSE");
    finish();
    auto times = [](const Boxes & told, const char * what) { return std::ranges::count(told, what); };
    Boxes told = boxes();
    EXPECT_EQ(times(told, "walked"), 1);
    EXPECT_EQ(times(told, "finished"), 0) << "the plain signal isn't raised beside the qualified";
    run("A^PLAY(\"ONCLICK\");");
    finish();
    EXPECT_EQ(times(boxes(), "finished"), 1);
}

TEST_F(ScriptPictures, AnimationsAndTheirFrames) {
    animo("A:FPS=-3\n");
    struct {
        const char * code;
        const char * box;
    } const cases[] = {
        {"@MSGBOX(A^GETFPS());", "1"},
        {"A^SETFPS(20);@MSGBOX(A^GETFPS());", "20"},
        {"A^SETFRAME(\"WALK\",1);@MSGBOX(A^GETFRAME(),A^GETCFRAMEINEVENT());", "1, 1"},
        {"A^SETFRAME(0);@MSGBOX(A^GETFRAME(),A^GETWIDTH(),A^GETMAXHEIGHT());", "0, 4, 2"},
        {"@MSGBOX(A^GETPIXEL(1,0,0),A^GETPIXEL(0,3,1),A^GETPIXEL(0,4,1),A^GETPIXEL(9,0,0));",
         "8738, 4369, 0, 0"},
        {"A^SETFRAMENAME(0,1,\"STEP\");@MSGBOX(A^GETFRAMENO(\"WALK\",\"STEP\"),A^GETFRAMENAME(0,1));",
         "1, STEP"},
        {"@MSGBOX(A^GETNOFINEVENT(\"WALK\"),A^GETNOFINEVENT(1));", "2, 2"},
        {"A^LOAD(\"b.ann\");@MSGBOX(A^GETEVENTNAME(0),A^GETFPS());", "RUN, 20"},
    };
    for (const auto & c : cases) EXPECT_EQ(shown(c.code), c.box) << c.code;
    // A clone keeps its pixels when the source changes its own, loads another file or goes.
    run("A^CLONE(1);A^REPLACECOLOR(16,136,136,0,0,0);A^LOAD(\"a.ann\");A_1^SETPOSITION(300,0);");
    drop("A");
    EXPECT_EQ(shown("@MSGBOX(A_1^GETPIXEL(0,0,0));"), "4369");
    run("A_1^SHOW();A_1^INVALIDATE();");
    EXPECT_EQ(seen(300, 0), 0x1111);
}

TEST_F(ScriptPictures, AButtonNoMoreShowsItsRestingLook) {
    animo();
    EXPECT_EQ(shown("A^LOAD(\"c.ann\");A^PLAY(0);A^SETASBUTTON(FALSE,FALSE);@MSGBOX(A^GETEVENTNAME());"),
              "ONNOEVENT");
}

TEST_F(ScriptPictures, NothingThatIsMissingCrashes) {
    load("OBJECT=P\nP:TYPE=IMAGE\nP:FILENAME=none.img\nOBJECT=A\nA:TYPE=ANIMO\nA:FILENAME=none.ann\n");
    for (const char * code :
         {"P^SHOW();P^SETCLIPPING(\"NOBODY\");P^DRAWONTO(\"NOBODY\",1);P^DRAWONTO(\"P\",1);P^MERGEALPHA(0,0,"
          "\"X\");",
          "P^SETPOSITION(2147483647,-2147483648);P^MOVE(2147483647,2147483647);P^FLIPH();P^FLIPV();P^"
          "RESETFLIPS();",
          "P^SETCLIPPING(-2147483648,-2147483648,2147483647,2147483647);P^INVALIDATE();P^SAVE(\"\");",
          "A^PLAY(0);A^PLAY(-1);A^SETFRAME(99);A^SETFRAME(\"X\",\"Y\");A^NEXTFRAME();A^PREVFRAME();A^NPLAY(5,"
          "5);",
          "A^PLAYRAND(\"X\",3,1);A^PLAYREVERSE(\"X\");A^STOP();A^PAUSE();A^RESUME();A^GETEVENTNAME();A^CLONE("
          "3);",
          "A^GETFRAMENAME(9,9);A^SETFRAMENAME(9,9,\"N\");A^FLIPH();A^HIDE();A^GETALPHA(0,0,0);A^SETASBUTTON("
          "TRUE);"})
        run(code);
    seen(0, 0);
    boxes();
    EXPECT_EQ(shown("@MSGBOX(P^GETWIDTH(),A^GETWIDTH(),A^GETNOF());"), "0, 0, 0");
}

} // namespace
