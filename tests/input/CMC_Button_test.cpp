// Buttons as a game plays them: a pointer, pictures on the screen, and what scripts are told in which order.

#include "input/CMC_Button.h"

#include "graphics/AnnFile.h"
#include "graphics/CImage.h"
#include "graphics/CMC_Image.h"
#include "graphics/PictureFiles.h"
#include "input/CHotSpot.h"
#include "platform/input/ScriptedKeyboard.h"
#include "support/InPlay.h"
#include "support/Waves.h"

#include <map>
#include <sstream>
#include <tuple>

namespace {

constexpr int kBlack = 0, kRed = 0xF800, kGreen = 0x07E0, kBlue = 0x001F, kWhite = 0xFFFF;

class Buttons : public test::InPlay {
protected:
    Buttons() {
        opensDisplay = true;
        file("red.img", kRed);
        file("green.img", kGreen);
        file("blue.img", kBlue);
        file("white.img", kWhite);
        // The left half is clear.
        file("half.img", kWhite, std::string("\0\0\0\0\0\xFF\xFF\xFF\xFF\xFF", 10));
    }
    // 10 x 10 pixels of a colour; alpha: of each row.
    void file(const std::string & name, int colour, const std::string & alpha = {}) {
        test::Tnk picture{
            10, 10, 16, 200,
            0,  0,  0,  test::plane(std::vector<std::uint16_t>(100, static_cast<std::uint16_t>(colour))),
            {}};
        if (!alpha.empty())
            for (int i = 0; i < 10; i++) picture.alpha += alpha;
        put("Dane/" + name, picture.bytes());
    }
    static std::string image(const std::string & name, const std::string & colour, int x = 10,
                             const std::string & keys = "") {
        return name + " TYPE=IMAGE\n" + name + " FILENAME=" + colour + ".img\n" + name + " TOCANVAS=TRUE\n" +
               name + " VISIBLE=TRUE\n" + name + " ONINIT={" + name + "^SETPOSITION(" + std::to_string(x) +
               ",10);}\n" + keys;
    }
    // Tells each of its signals as "NAME SIGNAL", but for those that keys bind.
    static std::string button(const std::string & name, const std::string & keys) {
        std::string text = name + " TYPE=BUTTON\n";
        if (keys.find("ENABLE=FALSE") == std::string::npos) text += name + " ENABLE=TRUE\n";
        for (std::string signal : {"FOCUSON", "FOCUSOFF", "CLICKED", "RELEASED", "ACTION", "STARTDRAGGING",
                                   "DRAGGING", "ENDDRAGGING"})
            if (keys.find(" ON" + signal + "=") == std::string::npos)
                text += name + " ON" + signal + "={@MSGBOX(\"" + name + "|" + signal + "\");}\n";
        std::string rest = keys;
        for (std::size_t at = 0, end; at < rest.size(); at = end + 1) {
            end = std::min(rest.find('\n', at), rest.size());
            text += name + " " + rest.substr(at, end - at) + "\n";
        }
        return text;
    }
    void enter(const std::string & definitions) {
        define("Dane/A.cnv", definitions);
        ASSERT_TRUE(start());
        told();
    }
    std::string move(int x, int y) {
        window().OnMouseMove({x, y}, 0);
        return told();
    }
    std::string down(int x, int y) {
        window().OnLButtonDown({x, y}, 0);
        return told();
    }
    std::string up(int x, int y) {
        window().OnLButtonUp({x, y}, 0);
        return told();
    }
    // One event after the other: "m12,12" moves, "d12,12" presses, "u12,12" lets go; what each told, by "/".
    std::string play(const std::string & events) {
        std::istringstream in(events);
        std::string all, separator;
        char kind = 0, comma = 0;
        for (int x = 0, y = 0; in >> kind >> x >> comma >> y; separator = " / ")
            all += separator + (kind == 'm' ? move(x, y) : kind == 'd' ? down(x, y) : up(x, y));
        return all;
    }
    int seen(int x, int y) {
        window().Redraw();
        return world().display->pixels()[y * world().display->width() + x];
    }
    bool isVisible(const char * name) {
        return static_cast<CMC_Image *>(object(name))->getImage()->isVisible();
    }
    CButton & control(const char * name) { return *static_cast<CMC_Button *>(object(name))->getButton(); }
};

const std::string kMouse =
    "MOUSE TYPE=MOUSE\nMOUSE ONMOVE={@MSGBOX(\"mouse\");}\nMOUSE ONCLICK={@MSGBOX(\"mouse-click\");}\n"
    "MOUSE ONRELEASE={@MSGBOX(\"mouse-release\");}\n";

TEST_F(Buttons, PicturesAndSignalsOfAClick) {
    enter(image("S", "red") + image("M", "green") + image("C", "blue") + kMouse +
          button("B", "RECT=10,10,19,19\nGFXSTANDARD=S\nGFXONMOVE=M\nGFXONCLICK=C"));
    EXPECT_EQ(seen(12, 12), kRed);
    EXPECT_EQ(move(9, 12), "mouse");
    EXPECT_EQ(move(10, 10), "B|FOCUSON");
    EXPECT_EQ(seen(12, 12), kGreen);
    EXPECT_TRUE(isVisible("S")) << "it stays beneath";
    EXPECT_EQ(move(19, 19), "") << "moving within";
    EXPECT_EQ(down(19, 19), "B|CLICKED");
    EXPECT_EQ(seen(12, 12), kBlue);
    EXPECT_FALSE(isVisible("M"));
    EXPECT_EQ(up(19, 19), "B|RELEASED; B|ACTION; mouse-release");
    EXPECT_EQ(seen(12, 12), kRed);
    EXPECT_EQ(move(18, 19), "B|FOCUSON") << "letting go began anew";
    EXPECT_EQ(play("d18,19 u50,50"), "B|CLICKED / B|RELEASED; mouse-release");
    EXPECT_EQ(seen(12, 12), kRed) << "let go outside without a move";
    EXPECT_EQ(move(18, 19), "");
    EXPECT_EQ(seen(12, 12), kGreen);
    EXPECT_EQ(move(20, 19), "B|FOCUSOFF; mouse");
    EXPECT_EQ(seen(12, 12), kRed);
    EXPECT_EQ(up(12, 12), "mouse-release") << "it was pressed elsewhere";
    // Without a picture for the press, that for the pointer; without that one the standard picture.
    run("B^SETONCLICK(\"\");");
    EXPECT_EQ(down(12, 12), "B|CLICKED");
    EXPECT_EQ(seen(12, 12), kGreen);
    up(0, 0);
    EXPECT_EQ(told("B^SETONMOVE(\"\");@MSGBOX(B^GETSTD(),B^GETONMOVE(),B^GETPRIORITY());"), "S, , 0");
    down(12, 12);
    EXPECT_EQ(seen(12, 12), kRed);
}

TEST_F(Buttons, LettingGoOutside) {
    enter(kMouse + button("B", "RECT=10,10,20,20") + button("D", "RECT=30,10,40,20"));
    EXPECT_EQ(down(12, 12), "B|CLICKED");
    EXPECT_EQ(move(50, 50), "B|FOCUSOFF; mouse");
    EXPECT_EQ(up(50, 50), "B|RELEASED; mouse-release");
    EXPECT_EQ(down(12, 12), "B|CLICKED");
    EXPECT_EQ(move(32, 12), "B|FOCUSOFF; D|FOCUSON");
    EXPECT_EQ(up(32, 12), "B|RELEASED; mouse-release") << "nothing of the one beneath the pointer";
    EXPECT_EQ(down(12, 12), "B|CLICKED");
    move(50, 50);
    move(13, 13);
    EXPECT_EQ(up(12, 12), "B|RELEASED; B|ACTION; mouse-release") << "it came back";
    EXPECT_EQ(down(50, 50), "mouse-click");
}

TEST_F(Buttons, DisabledInBothWays) {
    enter(image("S", "red") + image("M", "green") + kMouse +
          button("B", "RECT=10,10,20,20\nGFXSTANDARD=S\nGFXONMOVE=M\nENABLE=FALSE"));
    EXPECT_EQ(seen(12, 12), kBlack) << "no picture is shown";
    EXPECT_EQ(play("m12,12 d12,12 u12,12"), "mouse / mouse-click / mouse-release");
    run("B^DISABLEBUTVISIBLE();");
    EXPECT_EQ(seen(12, 12), kRed);
    EXPECT_EQ(down(12, 12), "mouse-click");
    run("B^ENABLE();");
    EXPECT_EQ(seen(12, 12), kRed) << "the pointer hasn't come yet";
    EXPECT_EQ(move(12, 12), "B|FOCUSON");
    run("B^DISABLE();");
    EXPECT_EQ(seen(12, 12), kBlack);
    run("B^ENABLE();");
    EXPECT_EQ(seen(12, 12), kGreen) << "under a pointer that stayed";
    run("B^DISABLE();");
    EXPECT_EQ(move(50, 50), "mouse");
    run("B^ENABLE();");
    EXPECT_EQ(seen(12, 12), kRed) << "it left meanwhile";
    EXPECT_EQ(move(50, 51), "B|FOCUSOFF; mouse");
    // Disabled while pressed: no release, no action.
    EXPECT_EQ(down(12, 12), "B|CLICKED");
    run("B^DISABLE();B^ENABLE();");
    EXPECT_EQ(up(12, 12), "mouse-release");
}

TEST_F(Buttons, ARegionMadeOfAPicture) {
    enter(image("H", "half", 10, "H PRIORITY=7\n") + image("L", "red") + kMouse +
          button("B", "RECT=H\nPRIORITY=3") + button("U", "RECT=10,10,20,20\nPRIORITY=5") +
          button("S", "GFXSTANDARD=L"));
    EXPECT_EQ(told("@MSGBOX(B^GETPRIORITY(),U^GETPRIORITY());"), "7, 5");
    EXPECT_EQ(move(12, 12), "U|FOCUSON") << "clear there";
    EXPECT_EQ(move(16, 12), "B|FOCUSON");
    EXPECT_EQ(move(20, 12), "B|FOCUSOFF") << "the right edge belongs to the rectangle alone";
    run("U^DISABLE();H^SETPOSITION(100,10);");
    EXPECT_EQ(down(106, 12), "B|CLICKED") << "it follows the picture";
    EXPECT_EQ(up(106, 12), "B|RELEASED; B|ACTION; mouse-release");
    // Another file, then none at all: the picture goes on, and ends.
    run("H^LOAD(\"white.img\");");
    EXPECT_EQ(down(102, 12), "B|CLICKED");
    up(0, 0);
    run("A^REMOVE(\"H\");");
    EXPECT_EQ(down(106, 12), "mouse-click");
    EXPECT_EQ(down(12, 12), "S|CLICKED") << "without a region, where the standard picture is";
    up(0, 0);
    run("S^SETRECT(0,0,4,4);");
    EXPECT_EQ(play("d12,12 d3,3"), "mouse-click / S|CLICKED");
    up(0, 0);
    run("S^SETRECT(\"L\");S^SETPRIORITY(9);");
    EXPECT_EQ(down(12, 12), "S|CLICKED");
    EXPECT_EQ(told("@MSGBOX(S^GETPRIORITY());"), "9");
}

// An animation's region is what its present frame covers; its pictures are shown without being played.
TEST_F(Buttons, ARegionMadeOfAnAnimation) {
    std::string colour = test::plane(std::vector<std::uint16_t>(100, kBlue)), alpha[2];
    for (int i = 0; i < 100; i++)
        for (int frame : {0, 1}) alpha[frame] += (i % 10 < 5) == (frame == 1) ? '\xFF' : '\0';
    ann::File file;
    _annEventInfo3 & event = file.events.emplace_back();
    event.name = "WALK";
    for (int i : {0, 1}) {
        event.add(static_cast<std::uint16_t>(i));
        ann::Frame & frame = file.frames.emplace_back();
        frame.width = frame.height = 10;
        frame.colour = colour;
        frame.alpha = alpha[i];
    }
    put("Dane/a.ann", ann::write(file));
    enter("N TYPE=ANIMO\nN FILENAME=a.ann\nN TOCANVAS=TRUE\nN VISIBLE=TRUE\nN PRIORITY=6\n"
          "N ONINIT={N^SETPOSITION(10,10);}\nN ONSTARTED={@MSGBOX(\"played\");}\n" +
          button("B", "RECT=N\nGFXONMOVE=N") + kMouse);
    EXPECT_EQ(seen(16, 12), kBlack) << "it isn't the standard picture";
    EXPECT_EQ(move(12, 12), "mouse");
    EXPECT_EQ(move(16, 12), "B|FOCUSON");
    EXPECT_EQ(seen(16, 12), kBlue);
    EXPECT_EQ(seen(12, 12), kBlack);
    run("N^SETFRAME(1);");
    EXPECT_EQ(move(16, 12), "B|FOCUSOFF; mouse");
    EXPECT_EQ(play("d12,12 u12,12"), "B|CLICKED / B|RELEASED; B|ACTION; mouse-release");
    EXPECT_EQ(told("@MSGBOX(B^GETPRIORITY());"), "6");
}

// A picture for the press that is clear at the point refuses it.
TEST_F(Buttons, AClearPlaceOfThePictureRefusesThePress) {
    enter(image("S", "red") + image("H", "half") + kMouse +
          button("B", "RECT=10,10,20,20\nGFXSTANDARD=S\nGFXONCLICK=H"));
    EXPECT_EQ(move(12, 12), "B|FOCUSON");
    EXPECT_EQ(down(12, 12), "mouse-click");
    EXPECT_FALSE(isVisible("H"));
    EXPECT_EQ(up(12, 12), "mouse-release");
    EXPECT_EQ(down(16, 12), "B|CLICKED");
    EXPECT_TRUE(isVisible("H"));
}

TEST_F(Buttons, AboveAndBelow) {
    enter(kMouse + button("LOW", "RECT=10,10,30,30\nPRIORITY=1") +
          button("HIGH", "RECT=20,20,40,40\nPRIORITY=2") + button("TWIN", "RECT=20,20,40,40\nPRIORITY=2") +
          image("P", "red", 60,
                "P ASBUTTON=TRUE\nP ONFOCUSON={@MSGBOX(\"P|on\");}\n"
                "P ONCLICK={@MSGBOX(\"P|click\");}\n") +
          button("OVER", "RECT=65,10,70,20"));
    EXPECT_EQ(move(12, 12), "LOW|FOCUSON");
    EXPECT_EQ(move(25, 25), "HIGH|FOCUSON")
        << "of equals the first; the lower one is still under the pointer";
    EXPECT_EQ(move(50, 50), "LOW|FOCUSOFF; HIGH|FOCUSOFF; mouse");
    run("HIGH^DISABLE();");
    EXPECT_EQ(down(25, 25), "TWIN|CLICKED");
    up(50, 50);
    run("A^SETMAXHSPRIORITY(1);");
    EXPECT_EQ(down(25, 25), "LOW|CLICKED");
    up(50, 50);
    run("A^SETMAXHSPRIORITY(100);");
    EXPECT_EQ(play("m50,50 m62,12"), "LOW|FOCUSOFF; TWIN|FOCUSOFF; mouse / mouse; P|on");
    EXPECT_EQ(down(62, 12), "mouse-click; P|click");
    EXPECT_EQ(down(66, 12), "OVER|CLICKED") << "hot spots go before pictures that are buttons";
}

TEST_F(Buttons, Dragging) {
    enter(image("D", "red", 10, "D PRIORITY=4\n") + image("O", "white", 110, "O PRIORITY=50\n") + kMouse +
          button("B", "RECT=10,10,20,20\nDRAG=D\nDRAGGABLE=TRUE\nONENDDRAGGING={@MSGBOX(\"B|END\","
                      "A^GETDRAGGEDNAME(),D^GETPOSITIONX());}") +
          button("T", "RECT=100,10,120,20"));
    EXPECT_EQ(down(12, 12), "B|CLICKED");
    EXPECT_EQ(move(12, 12), "") << "not a move yet";
    EXPECT_EQ(move(15, 12), "B|STARTDRAGGING; B|DRAGGING");
    EXPECT_EQ(told("@MSGBOX(D^GETPOSITIONX());"), "13");
    EXPECT_EQ(move(52, 12), "B|FOCUSOFF; B|DRAGGING; mouse") << "outside";
    EXPECT_EQ(told("@MSGBOX(D^GETPOSITIONX(),D^GETPOSITIONY());"), "50, 10");
    EXPECT_EQ(move(112, 12), "T|FOCUSON; B|DRAGGING; mouse") << "over another button";
    EXPECT_EQ(seen(112, 12), kRed) << "above all others";
    EXPECT_EQ(up(112, 12), "B|RELEASED; B|END, B, 110; mouse-release");
    run("D^INVALIDATE();");
    EXPECT_EQ(seen(112, 12), kWhite) << "its own priority again";
    EXPECT_EQ(told("@MSGBOX(A^GETDRAGGEDNAME());"), "");
    // A press without a move is no drag, nor is one while it isn't allowed.
    EXPECT_EQ(play("d12,12 u12,12"), "B|CLICKED / B|RELEASED; B|ACTION; mouse-release");
    run("B^DISABLEDRAGGING();");
    EXPECT_EQ(play("d12,12 m14,12 u14,12"), "B|CLICKED /  / B|RELEASED; B|ACTION; mouse-release");
    // The picture may go on the way.
    run("B^ENABLEDRAGGING();");
    EXPECT_EQ(play("d12,12 m14,12"), "B|CLICKED / B|STARTDRAGGING; B|DRAGGING");
    run("A^REMOVE(\"D\");");
    EXPECT_EQ(move(16, 12), "B|DRAGGING");
    EXPECT_EQ(up(16, 12), "B|RELEASED; B|ACTION; B|END, B, ; mouse-release");
    EXPECT_EQ(play("d12,12 m14,12"), "B|CLICKED / B|STARTDRAGGING; B|DRAGGING");
    run("A^REMOVE(\"B\");");
    EXPECT_EQ(play("m60,60 u60,60"), "mouse / mouse-release");
    EXPECT_FALSE(CMC_Scene::getDefUnit()->isDragging());
}

// Click, move, click: what is dragged goes along until the second click.
TEST_F(Buttons, DraggingUntilTheNextClick) {
    enter(image("D", "red") + button("B", "RECT=10,10,20,20\nDRAG=D\nDRAGGABLE=TRUE") + kMouse);
    CMC_Scene::getDefUnit()->setDraggingMode(true);
    down(12, 12);
    EXPECT_EQ(move(15, 12), "B|STARTDRAGGING; B|DRAGGING");
    EXPECT_EQ(up(15, 12), "B|RELEASED; B|ACTION; mouse-release");
    EXPECT_EQ(move(62, 12), "B|DRAGGING; mouse");
    EXPECT_EQ(down(62, 12), "B|ENDDRAGGING; mouse-click");
    EXPECT_EQ(move(80, 12), "mouse");
    EXPECT_EQ(told("@MSGBOX(D^GETPOSITIONX());"), "60");
    CMC_Scene::getDefUnit()->setDraggingMode(false);
}

TEST_F(Buttons, ClonesAndOnesMadeByScripts) {
    enter(image("S", "red") + image("M", "green") +
          button("B", "RECT=10,10,20,20\nGFXSTANDARD=S\nGFXONMOVE=M\nPRIORITY=3\nONCLICKED={@MSGBOX(THIS^"
                      "GETNAME(),\"clicked\");}"));
    run("B^CLONE(1);B_1^SETPRIORITY(8);");
    EXPECT_EQ(move(12, 12), "B|FOCUSON") << "a clone's signals are bound as its source's";
    EXPECT_EQ(seen(12, 12), kGreen);
    EXPECT_EQ(down(12, 12), "B_1, clicked");
    EXPECT_EQ(told("@MSGBOX(B_1^GETSTD(),B^GETPRIORITY());"), "S, 3");
    up(0, 0);
    run("B_1^SETRECT(50,50,60,60);B_1^SETONMOVE(\"\");A^REMOVE(\"B\");");
    EXPECT_EQ(play("d12,12 d52,52"), " / B_1, clicked");
    up(0, 0);
    run("A^CREATEOBJECT(\"BUTTON\",\"N\");N^SETRECT(70,10,80,20);A^CREATEOBJECT(\"IMAGE\",\"NO\");");
    run("N^ADDBEHAVIOUR(\"ONACTION\",\"beh_B_ONCLICKED\");");
    EXPECT_EQ(play("m72,12 d72,12 u72,12"), "B|FOCUSOFF /  / N, clicked");
    run("N^DISABLE();");
    EXPECT_EQ(play("d72,12 u72,12"), " / ");
}

// A button may go, be disabled or change the scene in any of its own signals.
TEST_F(Buttons, GoingWhileItTells) {
    for (const auto & [signal, then, expected] :
         {std::tuple("FOCUSON", "A^REMOVE(\"B\");", "X /  / "),
          {"CLICKED", "A^REMOVE(\"B\");", "B|FOCUSON / X / "},
          {"RELEASED", "A^REMOVE(\"B\");", "B|FOCUSON / B|CLICKED / X"},
          {"ACTION", "A^REMOVE(\"B\");A^REMOVE(\"beh_B_ONACTION\");",
           "B|FOCUSON / B|CLICKED / B|RELEASED; X"},
          {"CLICKED", "B^DISABLE();", "B|FOCUSON / X / "},
          {"RELEASED", "B^DISABLE();", "B|FOCUSON / B|CLICKED / X"},
          {"ACTION", "E^GOTO(\"B\");", "B|FOCUSON / B|CLICKED / B|RELEASED; X"},
          {"CLICKED", "E^GOTO(\"B\");", "B|FOCUSON / X / B|RELEASED; B|ACTION"}}) {
        enter(image("S", "red") + image("M", "green") +
              button("B", std::string("RECT=10,10,20,20\nGFXSTANDARD=S\nGFXONMOVE=M\nON") + signal + "={" +
                              then + "@MSGBOX(\"X\");}"));
        EXPECT_EQ(play("m12,12 d12,12 u12,12"), expected) << signal << " " << then;
        tick(2);
        move(13, 13);
        down(13, 13);
        up(13, 13);
        tick();
    }
}

TEST_F(Buttons, Accents) {
    enter(image("S", "red") + image("M", "green") + image("X", "blue") +
          button("B", "RECT=10,10,20,20\nGFXSTANDARD=S\nGFXONMOVE=M\nACCENT=X"));
    EXPECT_EQ(seen(12, 12), kRed);
    move(12, 12);
    EXPECT_EQ(seen(12, 12), kGreen);
    down(12, 12);
    EXPECT_EQ(seen(12, 12), kBlue);
    up(12, 12);
    EXPECT_EQ(seen(12, 12), kRed);
    run("B^ACCENT(\"X\",TRUE);");
    EXPECT_EQ(seen(12, 12), kBlue);
    run("B^ACCENT(\"X\",FALSE);B^SYN();");
    EXPECT_EQ(seen(12, 12), kRed);
    run("B^SETSTD(\"M\");");
    EXPECT_EQ(seen(12, 12), kGreen);
    EXPECT_FALSE(isVisible("S")) << "what was replaced is hidden";
    // What a script hid comes back with the state or when it is asked for, not with the pointer.
    run("B^SETSTD(\"S\");S^HIDE();");
    EXPECT_EQ(play("m50,50 m12,12"), " / B|FOCUSON");
    EXPECT_FALSE(isVisible("S"));
    run("B^SYN();");
    EXPECT_TRUE(isVisible("S"));
}

// Each sound is heard once, at its moment, and tells scripts before the button does.
TEST_F(Buttons, Sounds) {
    constexpr int kFrames = 441; // 20 ms
    auto sound = [&](const std::string & name, int level) {
        put("Wavs/" + name + ".wav", test::wav(1, 22050, 16, test::words(std::vector<int>(kFrames, level))));
        return name + " TYPE=SOUND\n" + name + " FILENAME=" + name + ".wav\n";
    };
    enter(sound("IDLE", 100) + sound("OVER", 200) + sound("PRESS", 300) +
          "OVER ONSTARTED={@MSGBOX(\"over\");}\nPRESS ONSTARTED={@MSGBOX(\"press\");}\n"
          "GO TYPE=BEHAVIOUR\nGO CODE={A^REMOVE(\"B\");@MSGBOX(\"gone\");}\n" +
          button("B", "RECT=10,10,20,20\nSNDSTANDARD=IDLE\nSNDONMOVE=OVER\nSNDONCLICK=PRESS"));
    ASSERT_TRUE(world().sound->record(folder() + "/out.wav"));
    auto then = [&](const std::string & told) {
        tick(4, 10);
        return told;
    };
    EXPECT_EQ(then(move(12, 12)), "over; B|FOCUSON");
    EXPECT_EQ(then(move(13, 12)), "");
    EXPECT_EQ(then(down(13, 12)), "press; B|CLICKED");
    EXPECT_EQ(then(up(13, 12)), "B|RELEASED; B|ACTION");
    control("B").LockSound(true);
    EXPECT_EQ(then(move(12, 12)), "B|FOCUSON");
    EXPECT_EQ(then(down(12, 12)), "B|CLICKED");
    play("m50,50 u50,50");
    control("B").LockSound(false);
    control("B").SetPlaySoundOnlyWhenSilence(true);
    EXPECT_EQ(move(12, 12), "over; B|FOCUSON");
    EXPECT_EQ(play("m50,50 m12,12"), "B|FOCUSOFF / B|FOCUSON") << "it plays still";
    tick(4, 10);
    run("A^REMOVE(\"OVER\");PRESS^ADDBEHAVIOUR(\"ONSTARTED\",\"GO\");");
    EXPECT_EQ(play("m50,50 m12,12 d12,12 u12,12"), "B|FOCUSOFF / B|FOCUSON / gone / ");
    tick(4, 10);
    EXPECT_TRUE(world().sound->record(folder() + "/other.wav"));
    std::map<int, int> frames;
    for (const test::Frame & each : test::framesOf(get("out.wav"))) frames[each[0]]++;
    frames.erase(0);
    EXPECT_EQ(frames, (std::map<int, int>{{200, 2 * kFrames}, {300, 2 * kFrames}}));
}

// The unit takes a button's return code when it acts, or when its key word was typed.
TEST_F(Buttons, ReturnCodes) {
    enter(button("B", "RECT=10,10,20,20"));
    CUnit6 & unit = *CMC_Scene::getDefUnit();
    auto type = [&](std::initializer_list<int> keys) {
        unit.setRetCode(0);
        for (int key : keys) window().OnKeyDown(key, 0);
        return unit.getRetCode();
    };
    CButton & b = control("B");
    b.setRetCode(5);
    b.setKeyWord("ABA");
    EXPECT_EQ(type({30, 48, 30}), 0);
    b.EnableRetCode(true);
    EXPECT_EQ(type({48, 48, 30, 48, 30}), 5);
    EXPECT_EQ(type({30, 30}), 0);
    b.setKeyWord(CButton::kAnyKey);
    EXPECT_EQ(type({59}), 5);
    b.setKeyWord("");
    EXPECT_EQ(type({30}), 0);
    down(12, 12);
    EXPECT_EQ(unit.getRetCode(), 0);
    up(12, 12);
    EXPECT_EQ(unit.getRetCode(), 5);
}

} // namespace
