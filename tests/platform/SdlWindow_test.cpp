#include "platform/window/SdlWindow.h"

#include "platform/display/SdlDisplay.h"
#include "platform/input/SdlJoysticks.h"
#include "platform/input/SdlKeyboard.h"
#include "platform/input/SdlMouse.h"

#include <SDL2/SDL.h>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

using platform::Mouse;
using Message = platform::SystemWindow::Message;

// A window on SDL's driver without a screen, told what would come from a person.
class SdlWindow : public ::testing::Test {
protected:
    SdlWindow() {
        SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        EXPECT_TRUE(display_.setMode(320, 240, 16, true)) << display_.problem();
        SDL_SetWindowSize(display_.window(), 640, 480);
        poll();
    }

    std::string poll() {
        std::vector<Message> messages;
        window_.poll(messages);
        constexpr const char * kNames[] = {"move", "down", "up", "double", "char", "focus", "moved", "close"};
        std::string all;
        for (const Message & each : messages) {
            all += (all.empty() ? "" : "; ") + std::string(kNames[each.kind]);
            if (each.kind <= Message::kDoubleClick)
                all += " " + std::to_string(each.button) + " " + std::to_string(each.x) + " " +
                       std::to_string(each.y);
            if (each.kind == Message::kCharacter || each.kind == Message::kFocus)
                all += " " + std::to_string(each.value);
        }
        return all;
    }
    void move(int x, int y) {
        SDL_Event event{};
        event.motion.type = SDL_MOUSEMOTION;
        event.motion.x = x;
        event.motion.y = y;
        SDL_PushEvent(&event);
    }
    void button(Uint8 button, bool down, int x, int y, Uint8 clicks = 1) {
        SDL_Event event{};
        event.button.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        event.button.state = down ? SDL_PRESSED : SDL_RELEASED;
        event.button.button = button;
        event.button.clicks = clicks;
        event.button.x = x;
        event.button.y = y;
        SDL_PushEvent(&event);
    }
    void key(SDL_Scancode code, bool down, Uint16 with = KMOD_NONE, bool again = false) {
        SDL_Event event{};
        event.key.type = down ? SDL_KEYDOWN : SDL_KEYUP;
        event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
        event.key.repeat = again;
        event.key.keysym.scancode = code;
        event.key.keysym.mod = with;
        SDL_PushEvent(&event);
    }
    void text(const char * utf8) {
        SDL_Event event{};
        event.text.type = SDL_TEXTINPUT;
        std::strcpy(event.text.text, utf8);
        SDL_PushEvent(&event);
    }
    void told(Uint8 what) {
        SDL_Event event{};
        event.window.type = SDL_WINDOWEVENT;
        event.window.event = what;
        SDL_PushEvent(&event);
    }
    // What the device of the mouse says, "x7 y9 left down".
    std::string device() {
        std::vector<Mouse::Item> items;
        if (!mouse_.read(items, 100)) return "lost";
        std::string all;
        constexpr const char * kParts[] = {"x", "y", "left", "right", "middle"};
        for (const Mouse::Item & each : items)
            all += (all.empty() ? "" : " ") + std::string(kParts[each.part]) +
                   (each.part <= Mouse::kAxisY ? std::to_string(each.value)
                    : each.value               ? " down"
                                               : " up");
        return all;
    }
    std::string keys() {
        std::vector<platform::Keyboard::Item> items;
        keyboard_.read(items, 100);
        std::string all;
        for (const auto & each : items)
            all += (all.empty() ? "" : " ") + std::string(each.down ? "+" : "-") + std::to_string(each.code);
        return all;
    }

    platform::SdlDisplay display_{16};
    platform::SdlMouse mouse_{display_};
    platform::SdlKeyboard keyboard_;
    platform::SdlJoysticks joysticks_;
    platform::SdlWindow window_{display_, mouse_, keyboard_, joysticks_};
};

TEST_F(SdlWindow, ThePointerInThePicture) {
    device();
    move(20, 40);
    move(21, 41); // of moves in a row the last
    button(SDL_BUTTON_LEFT, true, 21, 41);
    move(30, 50);
    button(SDL_BUTTON_LEFT, false, 30, 50);
    button(SDL_BUTTON_LEFT, true, 30, 50, 2);
    button(SDL_BUTTON_LEFT, false, 30, 50, 2);
    button(SDL_BUTTON_LEFT, true, 30, 50, 3); // the third is a press again
    button(SDL_BUTTON_RIGHT, true, 0, 0, 2);
    button(SDL_BUTTON_MIDDLE, false, 639, 479);
    button(SDL_BUTTON_X1, true, 0, 0);
    EXPECT_EQ(poll(), "move 0 10 20; down 0 10 20; move 0 15 25; up 0 15 25; double 0 15 25; up 0 15 25; "
                      "down 0 15 25; down 2 0 0; up 1 319 239");
    EXPECT_EQ(device(), "x10 y20 left down x5 y5 left up left down left up left down right down middle up");
    SDL_SetWindowSize(display_.window(), 660, 480);
    poll();
    move(9, 0);
    EXPECT_EQ(poll(), "move 0 -1 0"); // beside the picture
    EXPECT_EQ(device(), "x-16 y-25");
}

TEST_F(SdlWindow, FocusAndTheEnd) {
    told(SDL_WINDOWEVENT_FOCUS_LOST);
    told(SDL_WINDOWEVENT_FOCUS_GAINED);
    EXPECT_EQ(poll(), "focus 0; focus 1");
    EXPECT_EQ(device(), "lost"); // until it is acquired
    EXPECT_TRUE(mouse_.acquire());
    EXPECT_EQ(device(), "");
    told(SDL_WINDOWEVENT_FOCUS_LOST);
    told(SDL_WINDOWEVENT_MOVED);
    EXPECT_EQ(poll(), "focus 0; moved");
    EXPECT_FALSE(mouse_.acquire());
    EXPECT_EQ(device(), "lost");
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    EXPECT_EQ(poll(), "close");
}

TEST_F(SdlWindow, KeysAndCharacters) {
    struct {
        SDL_Scancode key;
        int code;
    } cases[] = {{SDL_SCANCODE_ESCAPE, 1}, {SDL_SCANCODE_0, 11},     {SDL_SCANCODE_TAB, 15},
                 {SDL_SCANCODE_P, 25},     {SDL_SCANCODE_L, 38},     {SDL_SCANCODE_M, 50},
                 {SDL_SCANCODE_KP_1, 79},  {SDL_SCANCODE_F12, 88},   {SDL_SCANCODE_RCTRL, 157},
                 {SDL_SCANCODE_UP, 200},   {SDL_SCANCODE_LEFT, 203}, {SDL_SCANCODE_DELETE, 211}};
    for (const auto & each : cases) {
        key(each.key, true);
        key(each.key, true, KMOD_NONE, true); // the engine repeats by itself
        key(each.key, false);
        EXPECT_EQ(poll(), "");
        EXPECT_EQ(keys(), "+" + std::to_string(each.code) + " -" + std::to_string(each.code));
    }
    key(SDL_SCANCODE_LANG1, true);
    key(SDL_SCANCODE_RETURN, true, KMOD_LALT); // the whole screen
    poll();
    EXPECT_EQ(keys(), "");
    EXPECT_TRUE(SDL_GetWindowFlags(display_.window()) & SDL_WINDOW_FULLSCREEN);
    text("a\xC5\xBC"); // UTF-8
    text("\xE4\xB8\xAD");
    text("\t");
    EXPECT_EQ(poll(), "char 97; char 191");
}

TEST_F(SdlWindow, Joysticks) {
    platform::Joysticks::State state;
    EXPECT_FALSE(joysticks_.read(0, state));
    int device = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1);
    ASSERT_GE(device, 0) << SDL_GetError();
    poll();
    ASSERT_TRUE(joysticks_.read(0, state));
    EXPECT_EQ(state, platform::Joysticks::State());
    SDL_Joystick * pad = SDL_JoystickOpen(device);
    SDL_JoystickSetVirtualAxis(pad, 0, -32768);
    SDL_JoystickSetVirtualAxis(pad, 1, 2000); // as good as the middle
    SDL_JoystickSetVirtualButton(pad, 2, 1);
    SDL_JoystickSetVirtualButton(pad, 11, 1);
    SDL_JoystickUpdate();
    poll();
    joysticks_.read(0, state);
    EXPECT_EQ(state.axes[0], -1000);
    EXPECT_EQ(state.axes[1], 0);
    EXPECT_EQ(state.buttons, 0x804u);
    SDL_JoystickSetVirtualHat(pad, 0, SDL_HAT_RIGHTDOWN);
    SDL_JoystickUpdate();
    poll();
    joysticks_.read(0, state);
    EXPECT_EQ(state.axes[0], 1000);
    EXPECT_EQ(state.axes[1], 1000);
    EXPECT_FALSE(joysticks_.read(1, state));
    EXPECT_FALSE(joysticks_.read(-1, state));
    SDL_JoystickClose(pad);
    SDL_JoystickDetachVirtual(device);
    poll();
    EXPECT_TRUE(joysticks_.read(0, state)); // it went: at rest
    EXPECT_EQ(state, platform::Joysticks::State());
}

// What the renderer's software form drew is the picture, its pixels in even steps, with every bit kept.
TEST_F(SdlWindow, ShowsThePicture) {
    for (int i = 0; i < 320 * 240; i++) display_.pixels()[i] = static_cast<std::uint16_t>(i * 7);
    display_.show(0, 0, 320, 240);
    window_.present();
    display_.pixels()[5] = 0xFFFF;
    display_.show(5, 0, 6, 1);
    window_.present();
    std::vector<std::uint32_t> seen(640 * 480);
    ASSERT_EQ(SDL_RenderReadPixels(SDL_GetRenderer(display_.window()), nullptr, SDL_PIXELFORMAT_ARGB8888,
                                   seen.data(), 640 * 4),
              0);
    int wrong = 0;
    for (int y = 0; y < 480; y++)
        for (int x = 0; x < 640; x++) {
            std::uint32_t v = display_.pixels()[y / 2 * 320 + x / 2], r = v >> 11, g = v >> 5 & 63,
                          b = v & 31;
            std::uint32_t expected = (r << 3 | r >> 2) << 16 | (g << 2 | g >> 4) << 8 | (b << 3 | b >> 2);
            wrong += (seen[static_cast<std::size_t>(y * 640 + x)] & 0xFFFFFF) != expected;
        }
    EXPECT_EQ(wrong, 0);
}

} // namespace
