#include "input/CMC_Mouse.h"

#include "input/CDXMouse.h"
#include "platform/input/ScriptedMouse.h"
#include "support/InPlay.h"
#include "support/InScope.h"

#include <utility>

namespace {

class MouseObject : public test::InScope {
protected:
    MouseObject() {
        std::string text = "OBJECT=MOUSE\nMOUSE:TYPE=MOUSE\n";
        for (const char * signal : {"ONMOVE", "ONCLICK", "ONCLICK^LEFT", "ONCLICK^RIGHT", "ONCLICK^MIDDLE",
                                    "ONRELEASE", "ONRELEASE^LEFT", "ONRELEASE^RIGHT", "ONDBLCLICK"})
            text += std::string("MOUSE:") + signal + "={@MSGBOX(\"" + signal + "\");}\n";
        load(text);
    }
    std::string told() {
        std::string all;
        for (const std::string & each : boxes()) all += (all.empty() ? "" : ", ") + each;
        return all;
    }
    platform::ScriptedMouse & hand() { return *world().scriptedMouse; }
};

TEST_F(MouseObject, Signals) {
    window().OnMouseMove({3, 4}, 0);
    EXPECT_EQ(told(), "ONMOVE");
    window().OnLButtonDown({5, 6}, 0);
    EXPECT_EQ(told(), "ONCLICK^LEFT, ONCLICK");
    EXPECT_EQ(shown("@MSGBOX(MOUSE^GETPOSX(),MOUSE^GETPOSY(),MOUSE^GETLASTCLICKPOSX(),"
                    "MOUSE^GETLASTCLICKPOSY());"),
              "3, 4, 5, 6");
    window().OnLButtonUp({5, 6}, 0);
    EXPECT_EQ(told(), "ONRELEASE^LEFT, ONRELEASE");
    window().OnMButtonDown({5, 6}, 0);
    window().OnMButtonUp({5, 6}, 0);
    EXPECT_EQ(told(), "ONCLICK^MIDDLE, ONCLICK, ONRELEASE");
    window().OnRButtonDown({7, 6}, 0);
    window().OnRButtonUp({7, 8}, 0);
    EXPECT_EQ(told(), "ONCLICK^RIGHT, ONCLICK, ONRELEASE^RIGHT, ONRELEASE");
    window().OnLButtonDblClk({7, 8}, 0);
    EXPECT_EQ(told(), "ONDBLCLICK");

    run("MOUSE^DISABLESIGNAL();");
    window().OnMouseMove({3, 4}, 0);
    window().OnLButtonDown({1, 2}, 0);
    window().OnLButtonUp({1, 2}, 0);
    window().OnLButtonDblClk({1, 2}, 0);
    EXPECT_EQ(told(), "ONMOVE");
    run("MOUSE^ENABLESIGNAL(); MOUSE^DISABLE(); MOUSE^CLICK(1,1);");
    window().OnMouseMove({30, 40}, 0);
    EXPECT_EQ(told(), "");
    run("MOUSE^ENABLE(); MOUSE^CLICK(1,1); MOUSE^MOUSERELEASE(1,1,\"RIGHT\");");
    EXPECT_EQ(told(), "ONCLICK^LEFT, ONCLICK, ONRELEASE^RIGHT, ONRELEASE");
}

TEST_F(MouseObject, OutsideItsRectangleItIsSilent) {
    run("MOUSE^SETACTIVERECT(10,10,20,20);");
    window().OnMouseMove({9, 15}, 0);
    window().OnLButtonDown({9, 15}, 0);
    window().OnLButtonUp({9, 15}, 0);
    window().OnLButtonDblClk({9, 15}, 0);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(shown("@MSGBOX(MOUSE^GETPOSX(),MOUSE^GETLASTCLICKPOSX());"), "9, 9");
    window().OnMouseMove({20, 20}, 0);
    window().OnLButtonDown({10, 10}, 0);
    EXPECT_EQ(told(), "ONMOVE, ONCLICK^LEFT, ONCLICK");
}

TEST_F(MouseObject, ThePointerOfTheSystem) {
    auto at = [this] { return std::pair(hand().x(), hand().y()); };
    run("MOUSE^SETPOSITION(30,40); MOUSE^MOVE(-5,7);");
    EXPECT_EQ(at(), std::pair(25, 47));
    EXPECT_TRUE(hand().takeMoved());
    EXPECT_EQ(shown("@MSGBOX(MOUSE^GETPOSX());"), "0"); // until the message comes

    run("MOUSE^SETCLIPRECT(100,100,200,150);");
    EXPECT_EQ(at(), std::pair(100, 100));
    hand().place(500, 500);
    EXPECT_EQ(at(), std::pair(199, 149));
    window().OnActivateApp(true);
    window().OnActivateApp(false); // another program has it
    hand().place(500, 500);
    EXPECT_EQ(at(), std::pair(500, 500));
    window().OnActivateApp(true);
    EXPECT_EQ(at(), std::pair(199, 149));
    CMC_Mouse::reset(true);
    CMC_Mouse::restore();
    hand().place(500, 500);
    EXPECT_EQ(at(), std::pair(500, 500));

    EXPECT_EQ(shown("@MSGBOX(MOUSE^ISLBUTTONDOWN(),MOUSE^ISRBUTTONDOWN());"), "FALSE, FALSE");
    hand().set(platform::Mouse::kRight, true);
    EXPECT_EQ(shown("@MSGBOX(MOUSE^ISLBUTTONDOWN(),MOUSE^ISRBUTTONDOWN());"), "FALSE, TRUE");
}

// A handler that removes the mouse is its last.
TEST_F(MouseObject, MayBeRemovedByItsOwnHandler) {
    load("OBJECT=M2\nM2:TYPE=MOUSE\nM2:ONCLICK^LEFT={@MSGBOX(\"first\");M2^REMOVEALLBEHAVIOURS();}\n"
         "M2:ONCLICK={@MSGBOX(\"never\");}\n");
    run("MOUSE^REMOVEALLBEHAVIOURS();");
    window().OnLButtonDown({1, 1}, 0);
    EXPECT_EQ(told(), "first");
}

class MouseInPlay : public test::InPlay {};

// The mouse of the game takes the scene's bindings and loses them with the scene; one of another name is the
// scene's own.
TEST_F(MouseInPlay, AnElementNamedMouseJoinsTheOuterOne) {
    define("Dane/GAME.cnv", "MOUSE TYPE=MOUSE\n MOUSE ONCLICK={@MSGBOX(\"game\");}\n"
                            "MOUSE ONMOVE={@MSGBOX(\"moved\");}\n");
    define("Dane/A.cnv", "MOUSE TYPE=MOUSE\n MOUSE ONCLICK={@MSGBOX(\"A\");}\n"
                         "OTHER TYPE=MOUSE\n OTHER ONCLICK={@MSGBOX(\"other\");}\n");
    ASSERT_TRUE(start());
    told();
    auto click = [this] {
        window().OnMouseMove({1, 1}, 0);
        window().OnLButtonDown({1, 1}, 0);
        return told();
    };
    std::string both = click();
    EXPECT_TRUE(both == "moved; A; other" || both == "moved; other; A") << both;
    run("MOUSE^SETCLIPRECT(1,1,5,5); E^GOTO(\"B\");");
    tick();
    EXPECT_EQ(click(), "moved");
    world().scriptedMouse->place(100, 100); // what the scene clipped is free
    EXPECT_EQ(world().scriptedMouse->x(), 100);
}

TEST_F(MouseInPlay, Cursors) {
    define("Dane/A.cnv", "MOUSE TYPE=MOUSE\n");
    ASSERT_TRUE(start());
    window().SetActiveCursor(reinterpret_cast<HCURSOR>(2));
    window().SetWaitCursor(reinterpret_cast<HCURSOR>(3));
    window().tellsCursors = true;
    EXPECT_EQ(told("MOUSE^SET(\"WAIT\"); MOUSE^SET(\"ACTIVE\"); MOUSE^SET(\"ARROW\"); MOUSE^SET(\"NONE\");"),
              "cursor 3; cursor 2; cursor 0");
    EXPECT_EQ(told("MOUSE^LOCKACTIVECURSOR(TRUE); MOUSE^SET(\"ACTIVE\");"), "cursor 0");
}

// The polled device: what it says becomes the window's events, in order.
class MouseDevice : public MouseObject {
protected:
    using Mouse = platform::Mouse;

    std::string step() {
        mouse_.tick();
        EXPECT_EQ(told(), ""); // the poll tells nobody
        mouse_.flushSignals(true);
        return told();
    }

    CDXMouse mouse_{&window()};
};

TEST_F(MouseDevice, ReadsStepsAndButtons) {
    EXPECT_EQ(CDXMouse::getSingleton(), &mouse_);
    EXPECT_TRUE(window().getPollers()->contains(static_cast<CInputPoller *>(&mouse_)));
    for (Mouse::Item each : {Mouse::Item{Mouse::kAxisX, 7}, {Mouse::kAxisY, 9}, {Mouse::kLeft, Mouse::kDown}})
        hand().feed(each);
    EXPECT_EQ(step(), "ONCLICK^LEFT, ONCLICK, ONMOVE"); // one move for all steps, at the end
    EXPECT_TRUE(mouse_.isLeftDown());
    EXPECT_EQ(mouse_.getPosition(), CXPoint(7, 9));
    for (Mouse::Item each : {Mouse::Item{Mouse::kLeft, 0},
                             {Mouse::kMiddle, Mouse::kDown},
                             {Mouse::kMiddle, 0},
                             {Mouse::kRight, Mouse::kDown},
                             {Mouse::kRight, 0},
                             {Mouse::kAxisX, -2}})
        hand().feed(each);
    EXPECT_EQ(step(),
              "ONRELEASE^LEFT, ONRELEASE, ONCLICK^MIDDLE, ONCLICK, ONRELEASE, ONCLICK^RIGHT, ONCLICK, "
              "ONRELEASE^RIGHT, ONRELEASE, ONMOVE");
    EXPECT_EQ(mouse_.getPosition(), CXPoint(5, 9));
    EXPECT_EQ(step(), "");

    hand().feed({Mouse::kLeft, Mouse::kDown});
    mouse_.tick();
    mouse_.flushSignals(false); // dropped
    EXPECT_EQ(step(), "");
}

TEST_F(MouseDevice, TakesTwentyAtATimeAndComesBackFromLoss) {
    for (int i = 0; i < 21; i++) hand().feed({Mouse::kAxisX, 1});
    mouse_.tick();
    EXPECT_EQ(mouse_.getPosition().x, 20);
    hand().lose();
    mouse_.tick();
    EXPECT_EQ(mouse_.getPosition().x, 20);
    mouse_.tick();
    EXPECT_EQ(mouse_.getPosition().x, 21);
}

} // namespace
