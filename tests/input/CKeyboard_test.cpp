#include "input/CKeyboard.h"

#include "input/CMC_Keyboard.h"
#include "platform/input/ScriptedJoysticks.h"
#include "platform/input/ScriptedKeyboard.h"
#include "support/InPlay.h"
#include "support/InScope.h"

namespace {

// A game whose KEYBOARD tells of all it hears.
class Keys : public test::InPlay {
protected:
    Keys() {
        std::string text = "KEYBOARD TYPE=KEYBOARD\n";
        for (const char * signal :
             {"ONKEYDOWN^1", "ONKEYUP^1", "ONKEYDOWN^A", "ONKEYDOWN", "ONKEYUP", "ONCHAR", "ONCHAR^x"})
            text += std::string("KEYBOARD ") + signal + "={@MSGBOX(\"" + signal + "\");}\n";
        define("Dane/A.cnv", text);
        EXPECT_TRUE(start());
        tick(1, 16);
    }
    platform::ScriptedKeyboard & hands() { return *world().scriptedKeyboard; }
    std::string after(int ticks, unsigned step = 16) {
        told();
        tick(ticks, step);
        return told();
    }
};

TEST_F(Keys, AHeldKeyRepeatsUntilItIsUp) {
    hands().set(28, true);
    EXPECT_EQ(after(3), "ONKEYDOWN; ONKEYDOWN; ONKEYDOWN");
    EXPECT_EQ(after(20, 1), "ONKEYDOWN; ONKEYDOWN"); // at most once in 10 ms
    tick(1);
    hands().set(28, false);
    EXPECT_EQ(after(3), "ONKEYUP");

    run("KEYBOARD^SETAUTOREPEAT(FALSE);");
    hands().set(28, true);
    EXPECT_EQ(after(3), "ONKEYDOWN");
    hands().set(28, true); // the device repeats by itself
    EXPECT_EQ(after(3), "");
    hands().set(28, false);
    EXPECT_EQ(after(3), "ONKEYUP");
}

TEST_F(Keys, AShortPressIsDownAndUp) {
    for (const char * repeat : {"TRUE", "FALSE"}) {
        run(std::string("KEYBOARD^SETAUTOREPEAT(") + repeat + ");");
        hands().set(28, true);
        hands().set(28, false);
        EXPECT_EQ(after(3), "ONKEYDOWN; ONKEYUP") << repeat;
        EXPECT_FALSE(window().getKeyboard()->isAnyKeyPressed());
    }
}

TEST_F(Keys, SignalsAreNamedAndTheNumberPadIsNamedAlike) {
    for (int code : {2, 79}) {
        hands().set(code, true);
        hands().set(code, false);
        EXPECT_EQ(after(1), "ONKEYDOWN^1; ONKEYDOWN; ONKEYUP^1; ONKEYUP") << code;
    }
    struct {
        int code;
        const char * name;
    } cases[] = {{1, "ESC"},     {11, "0"},        {15, "TAB"}, {28, "ENTER"}, {29, "LCTRL"},
                 {57, "SPACE"},  {58, "CAPSLOCK"}, {68, "F10"}, {82, "0"},     {88, "F12"},
                 {157, "RCTRL"}, {184, "RALT"},    {200, "UP"}, {208, "DOWN"}, {211, "DELETE"},
                 {50, "M"},      {12, ""},         {0, ""},     {-1, ""},      {256, ""}};
    for (const auto & each : cases) EXPECT_EQ(CMC_Keyboard::getKeySignal(each.code), each.name) << each.code;
}

TEST_F(Keys, ADisabledKeyboardIsSilent) {
    EXPECT_EQ(told("@MSGBOX(KEYBOARD^ISENABLED());"), "TRUE"); // from the start
    run("KEYBOARD^DISABLE();");
    hands().set(28, true);
    window().OnChar('x', 0);
    EXPECT_EQ(after(2), "");
    EXPECT_EQ(told("@MSGBOX(KEYBOARD^ISENABLED(),KEYBOARD^ISKEYDOWN(\"ENTER\"));"), "FALSE, FALSE");
    run("KEYBOARD^ENABLE();");
    EXPECT_EQ(after(1), "ONKEYDOWN");
}

TEST_F(Keys, CharactersAreKept) {
    EXPECT_EQ(told("@MSGBOX(KEYBOARD^GETLATESTKEY(),KEYBOARD^GETLATESTKEYS());"), ", ");
    told();
    window().OnChar('x', 0);
    EXPECT_EQ(told(), "ONCHAR^x; ONCHAR");
    window().OnChar('Y', 0);
    window().OnChar('z', 0);
    EXPECT_EQ(told(), "ONCHAR; ONCHAR");
    EXPECT_EQ(told("@MSGBOX(KEYBOARD^GETLATESTKEY(),KEYBOARD^GETLATESTKEYS(2),KEYBOARD^GETLATESTKEYS());"),
              "z, Yz, xYz");
    EXPECT_EQ(told("@MSGBOX(KEYBOARD^GETLATESTKEYS(-1),KEYBOARD^GETLATESTKEYS(99));"), ", xYz");
    for (int i = 0; i < CMC_Keyboard::kLatestKeys; i++) window().OnChar('a' + i % 26, 0);
    auto * keyboard = static_cast<CMC_Keyboard *>(object("KEYBOARD"));
    EXPECT_EQ(keyboard->getLatestKeys()->size, CMC_Keyboard::kLatestKeys);
    EXPECT_EQ(keyboard->getLatestKeys(1000).GetAt(0), 'a');
}

// Two boards of one game would both hear: the scene's element joins the outer object, whatever its own name.
TEST_F(Keys, AnElementJoinsTheOuterKeyboard) {
    define("Dane/E.cnv", "KEYBOARD TYPE=KEYBOARD\n KEYBOARD ONKEYUP={@MSGBOX(\"outer\");}\n");
    define("Dane/A.cnv", "PIANO TYPE=KEYBOARD\n PIANO ONKEYDOWN={@MSGBOX(\"piano\");}\n");
    ASSERT_TRUE(start());
    EXPECT_EQ(scene()->getOwnObject("PIANO"), nullptr);
    hands().set(28, true);
    hands().set(28, false);
    EXPECT_EQ(after(1), "piano; outer");
    run("E^GOTO(\"B\");");
    tick();
    hands().set(28, true);
    hands().set(28, false);
    EXPECT_EQ(after(1), "outer");
}

TEST_F(Keys, KeysThatAreDown) {
    struct {
        int code;
        const char * name;
        bool down;
    } cases[] = {{42, "SHIFT", true}, {54, "shift", true},  {54, "rshift", true},  {54, "LShift", false},
                 {29, "ctrl", true},  {157, "Ctrl", true},  {157, "lctrl", false}, {56, "alt", true},
                 {184, "ralt", true}, {57, "space", true},  {203, "left", true},   {200, "UP", true},
                 {208, "down", true}, {205, "right", true}, {30, "a", true},       {30, "A", true},
                 {2, "1", true},      {30, "b", false},     {30, "aa", false},     {30, "", false},
                 {0, "?", false}};
    for (const auto & each : cases) {
        hands().set(each.code, true);
        tick(1);
        told();
        EXPECT_EQ(told(std::string("@MSGBOX(KEYBOARD^ISKEYDOWN(\"") + each.name + "\"));"),
                  each.down ? "TRUE" : "FALSE")
            << each.name;
        hands().set(each.code, false);
        tick(1);
        EXPECT_FALSE(window().getKeyboard()->isKeyPressed(each.name)) << each.name;
    }
}

TEST_F(Keys, WhatAKeyTypes) {
    CKeyboard & keyboard = *window().getKeyboard();
    auto typed = [&](int code, std::initializer_list<int> held = {}) {
        for (int each : held) hands().set(each, true);
        int c = keyboard.getChar(code);
        for (int each : held) hands().set(each, false);
        return c;
    };
    EXPECT_EQ(typed(30), 'a');
    EXPECT_EQ(typed(30, {54}), 'A');
    EXPECT_EQ(typed(2), '1');
    EXPECT_EQ(typed(79), '1');
    EXPECT_EQ(typed(57), ' ');
    EXPECT_EQ(typed(28), 0);
    EXPECT_EQ(typed(1), 0);
    EXPECT_EQ(typed(30, {58}), 'A'); // Caps Lock stays on
    EXPECT_EQ(typed(2), '1');
    EXPECT_EQ(typed(30, {58}), 'a');
    EXPECT_EQ(typed(30, {184}), 'a'); // this language has no letters behind Alt
    window().getLangIfc()->setLanguageFolder("0405");
    keyboard.initLanguage();
    EXPECT_EQ(typed(30, {184}), 0xE1);
    EXPECT_EQ(typed(30, {56, 42}), 0xC1);
    EXPECT_EQ(typed(25, {56}), 'p');
    told();
    keyboard.onChar(45);
    EXPECT_EQ(told(), "ONCHAR^x; ONCHAR");
    keyboard.onChar(28);
    EXPECT_EQ(told(), "");
}

TEST(KeyCodes, OfTheSystem) {
    struct {
        int code, data, expected;
    } cases[] = {{12, 0, 12},         {13, 0, -50},        {16, 0, -46}, {16, 0x1D0001, -45}, {17, 0, -49},
                 {17, 0x2A0001, -48}, {17, 0x1D0001, -49}, {18, 0, 18},  {32, 0, -39},        {33, 0, -52},
                 {36, 0, -54},        {37, 0, -43},        {40, 0, -40}, {41, 0, 41},         {46, 0, -55},
                 {47, 0, 47},         {-1, 0, -1}};
    for (const auto & each : cases)
        EXPECT_EQ(CWindow::__get_virtualkey_code(each.code, each.data), each.expected) << each.code;
    EXPECT_EQ(CWindow::tranlateToChar(0), 'A');
    EXPECT_EQ(CWindow::tranlateToChar(26), '0');
    EXPECT_EQ(CWindow::tranlateToChar(36), ' ');
    EXPECT_EQ(CWindow::tranlateToChar(37), 0);
    EXPECT_EQ(CWindow::tranlateToChar(-1), 0);
}

class Joystick : public test::InPlay {};

TEST_F(Joystick, TellsOfChanges) {
    define("Dane/A.cnv",
           "J TYPE=JOYSTICK\n J PORT=1\n"
           "J ONSIGNAL={@MSGBOX(J^GETBUTTONSTATE(2),J^GETPOSITION(1),J^ISLEFT(),J^ISRIGHT());}\n");
    ASSERT_TRUE(start());
    tick();
    EXPECT_EQ(told("@MSGBOX(J^GETBUTTONSTATE(0),J^GETPOSITION(0));"), "FALSE, 0"); // there is none
    platform::Joysticks::State state;
    state.buttons = 4;
    state.axes = {-1000, 7};
    world().scriptedJoysticks->set(0, state); // another one
    tick();
    EXPECT_EQ(told(), "");
    world().scriptedJoysticks->set(1, state);
    tick(2);
    EXPECT_EQ(told(), "TRUE, 7, TRUE, FALSE");
    world().scriptedJoysticks->set(1, {{1000, 0}, 0});
    tick(2);
    EXPECT_EQ(told(), "FALSE, 0, FALSE, TRUE");
    EXPECT_EQ(told("@MSGBOX(J^GETBUTTONSTATE(-1),J^GETBUTTONSTATE(32),J^GETPOSITION(6),J^GETPOSITION(-1));"),
              "FALSE, FALSE, 0, 0");
}

} // namespace
