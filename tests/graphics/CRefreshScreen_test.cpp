#include "graphics/CRefreshScreen.h"

#include "graphics/CCanvasObserver.h"
#include "graphics/CSurface.h"
#include "support/InScope.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<CXRect> cut(std::initializer_list<CXRect> rects) {
    CRefreshRegion region;
    region.removeAll();
    for (const CXRect & each : rects) region.add(&each);
    return region.rects();
}

TEST(CRefreshRegion, RectanglesNeverOverlap) {
    EXPECT_EQ(cut({{0, 0, 10, 10}, {2, 2, 5, 5}}), (std::vector<CXRect>{{0, 0, 10, 10}}));
    EXPECT_EQ(cut({{2, 2, 5, 5}, {0, 0, 10, 10}}), (std::vector<CXRect>{{0, 0, 10, 10}}));
    EXPECT_EQ(cut({{0, 0, 4, 4}, {4, 0, 8, 4}}).size(), 2U);
    std::mt19937 random(3);
    for (int round = 0; round < 50; round++) {
        CRefreshRegion region;
        region.removeAll();
        bool wanted[40][40] = {};
        for (int i = 0; i < 12; i++) {
            int l = static_cast<int>(random() % 30), t = static_cast<int>(random() % 30);
            CXRect rect(l, t, l + 1 + static_cast<int>(random() % 10),
                        t + 1 + static_cast<int>(random() % 10));
            region.add(&rect);
            for (int y = rect.top; y < rect.bottom; y++)
                for (int x = rect.left; x < rect.right; x++) wanted[y][x] = true;
        }
        for (int y = 0; y < 40; y++)
            for (int x = 0; x < 40; x++) {
                auto covers = std::ranges::count_if(region.rects(), [&](const CXRect & r) {
                    return x >= r.left && x < r.right && y >= r.top && y < r.bottom;
                });
                ASSERT_EQ(covers, wanted[y][x] ? 1 : 0) << x << " " << y;
            }
    }
}

TEST(CRefreshRegion, AllOfTheScreen) {
    CRefreshRegion region;
    EXPECT_TRUE(region.isWhole());
    region.removeAll();
    CXRect part(1, 2, 3, 4), all(0, 0, 800, 600);
    region.add(&part);
    region.add(&all);
    EXPECT_TRUE(region.isWhole());
    region.add(&part);
    EXPECT_TRUE(region.rects().empty());
}

class Screen : public test::InScope {
protected:
    Screen() { EXPECT_EQ(window().CreateSurface(nullptr), 0); }

    CRefreshScreen & screen() { return *window().getCanvas(); }
    // A picture of one colour, with alpha when it isn't 255.
    CGraphicsObject & picture(CXSize size, short word, int x, int y, int alpha = 255) {
        auto & object = *objects_.emplace_back(std::make_unique<CGraphicsObject>(&window()));
        object.alloc(size, 16, alpha != 255);
        for (int i = 0; i < size.cx * size.cy; i++) {
            reinterpret_cast<short *>(object.GetDataPtr())[i] = word;
            if (alpha != 255) object.GetChannelAlpha()[i] = static_cast<char>(alpha);
        }
        object.SetPosition(x, y);
        return object;
    }
    void frame() {
        window().OnActivateApp(true);
        window().Redraw();
    }
    int shown(int x, int y) {
        platform::Display & display = *world().display;
        return display.pixels()[y * display.width() + x];
    }
    void drop(CGraphicsObject & object) {
        std::erase_if(objects_, [&](const auto & each) { return each.get() == &object; });
    }

    std::vector<std::unique_ptr<CGraphicsObject>> objects_;
};

TEST_F(Screen, PrioritiesAndEquals) {
    CGraphicsObject & low = picture({10, 10}, 0x1111, 0, 0);
    CGraphicsObject & high = picture({10, 10}, 0x2222, 5, 5);
    CGraphicsObject & late = picture({10, 10}, 0x3333, 5, 5);
    screen().put(&high, 5);
    screen().put(&low, 1);
    screen().put(&late, 5);
    frame();
    EXPECT_EQ(shown(2, 2), 0x1111);
    EXPECT_EQ(shown(7, 7), 0x3333) << "of equals the later one lies on top";
    screen().SetPriority(&high, 5);
    high.Invalidate();
    frame();
    EXPECT_EQ(shown(7, 7), 0x2222) << "one that gets its priority anew goes above its equals";
    EXPECT_EQ(screen().GetPriority(&low), 1);
    drop(high);
    screen().Invalidate();
    frame();
    EXPECT_EQ(shown(7, 7), 0x3333) << "an object that ends leaves the screen";
}

TEST_F(Screen, BackgroundTilesAndScrolls) {
    CGraphicsObject & tile = picture({3, 2}, 0, 0, 0);
    for (int i = 0; i < 6; i++) reinterpret_cast<short *>(tile.GetDataPtr())[i] = static_cast<short>(i + 1);
    screen().SetBackground(&tile);
    frame();
    EXPECT_EQ(shown(0, 0), 1);
    EXPECT_EQ(shown(4, 3), 5);
    EXPECT_EQ(shown(799, 599), 1 + 799 % 3 + 599 % 2 * 3);
    screen().getBackgroundIfc()->SetPosition(-1, 1);
    screen().Invalidate();
    frame();
    EXPECT_EQ(shown(0, 0), 1 + 2 + 3);
}

TEST_F(Screen, OnlyWhatChangedIsShown) {
    CGraphicsObject & object = picture({10, 10}, 0x1234, 100, 100);
    CColor black(0, 0, 0);
    screen().SetBackground(&black);
    screen().put(&object, 1);
    frame();
    platform::Display & display = *world().display;
    display.pixels()[0] = 0x7777;                           // not the engine's: a repaint would show
    display.pixels()[105 * display.width() + 105] = 0x7777; // covered by the object
    frame();
    EXPECT_EQ(shown(105, 105), 0x7777) << "nothing is dirty, nothing is painted";
    object.Move(5, 0);
    frame();
    EXPECT_EQ(shown(0, 0), 0x7777);
    EXPECT_EQ(shown(101, 105), 0);
    EXPECT_EQ(shown(105, 105), 0x1234);
    object.Visible(false);
    frame();
    EXPECT_EQ(shown(105, 105), 0);
    CXRect outside(900, 0, 950, 10);
    screen().Invalidate(&outside);
    EXPECT_TRUE(screen().getRegion().isEmpty());
}

// On every tick of a random scene what is repainted in parts is what a full repaint shows.
class ScreenOfDepth : public Screen, public testing::WithParamInterface<int> {
protected:
    ScreenOfDepth() {
        window().SetDisplayMode(0, 0, GetParam());
        EXPECT_EQ(window().CreateSurface(nullptr), 0);
    }
};

INSTANTIATE_TEST_SUITE_P(Both, ScreenOfDepth, testing::Values(15, 16));

TEST_P(ScreenOfDepth, PartsEqualTheWhole) {
    ASSERT_EQ(world().display->depth(), GetParam());
    std::mt19937 random(11);
    auto number = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    CGraphicsObject & ground = picture({70, 50}, 0, 0, 0);
    for (int i = 0; i < 70 * 50; i++)
        reinterpret_cast<short *>(ground.GetDataPtr())[i] = static_cast<short>(random());
    screen().SetBackground(&ground);
    for (int i = 0; i < 50; i++) {
        CGraphicsObject & object = picture({5 + number(60), 5 + number(60)}, static_cast<short>(random()),
                                           number(840) - 20, number(640) - 20, i % 3 ? 255 : 120);
        if (i % 7 == 0) object.SetOpacity(100);
        screen().put(&object, number(10));
    }
    auto & whole = *window().getDDSurface();
    for (int tick = 0; tick < 100; tick++) {
        for (auto & each : objects_) {
            if (each.get() == &ground || number(4)) continue;
            switch (number(4)) {
            case 0: each->Visible(!each->isVisible()); break;
            case 1:
                each->Invalidate();
                screen().SetPriority(each.get(), number(10));
                break;
            default: each->Move(number(41) - 20, number(41) - 20);
            }
        }
        frame();
        platform::Display & display = *world().display;
        std::vector<std::uint16_t> parts(display.pixels(), display.pixels() + 800 * 600);
        screen().Invalidate();
        screen().__redraw(&whole);
        const auto * all = reinterpret_cast<const std::uint16_t *>(whole.GetDataPtr());
        ASSERT_TRUE(std::equal(parts.begin(), parts.end(), all)) << "tick " << tick;
        screen().getRegion().removeAll();
    }
}

TEST_F(Screen, FramesASecond) {
    window().setShowsFps(true);
    // How wide and how tall the letters on the picture stand.
    auto ink = [&](int x) {
        int dots = 0;
        for (int py = 10; py < 18; py++)
            for (int px = x; px < x + 6; px++) dots += shown(px, py) == 0;
        return dots;
    };
    CColor green(0, 255, 0);
    screen().SetBackground(&green);
    frame();
    EXPECT_EQ(shown(9, 10), 0x7E0);
    EXPECT_EQ(shown(15, 10), 0xFFFF) << "black on white";
    for (int i = 0; i < 7; i++) frame();
    clock().advance(1000);
    frame();
    int eight = ink(10 + 5 * 6);
    EXPECT_EQ(eight, 17) << "8 frames, or the dots of an 8";
    EXPECT_EQ(ink(10 + 6 * 6), 0);
    EXPECT_EQ(shown(10 + 9 * 6 - 1, 17), 0xFFFF) << "three blanks behind";
    EXPECT_EQ(shown(10 + 9 * 6, 17), 0x7E0);
}

TEST_F(Screen, ObserversAndGray) {
    struct Observer : CCanvasObserver {
        void onUpdate() override { told += "update "; }
        void onUpdated() override { told += "updated "; }
        void onFocusOff() override { told += "off "; }
        std::string told;
    } observer;
    screen().addNotifier(&observer);
    screen().addNotifier(&observer);
    screen().put(&picture({10, 10}, static_cast<short>(0xF800), 0, 0), 1);
    frame();
    EXPECT_EQ(observer.told, "");
    screen().enableNotifyFlag(true);
    screen().setRefreshFlags(CRefreshScreen::kGray);
    screen().Invalidate();
    frame();
    EXPECT_EQ(observer.told, "update updated ");
    EXPECT_EQ(shown(3, 3), 10 | 10 << 6 | 10 << 11);
    window().OnActivateApp(false);
    EXPECT_EQ(observer.told, "update updated off ");
    screen().removeNotifier(&observer);
}

} // namespace
