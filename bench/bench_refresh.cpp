// A frame of a scene: 100 sprites of 64 x 64 over a picture of 800 x 600, half of them with soft edges. What
// the vector loops are worth to a full repaint, and what the dirty rectangles are worth when some of it
// moves.

#include "Ratio.h"

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "graphics/CRefreshScreen.h"
#include "graphics/blits/Kernels.h"
#include "platform/World.h"

#include <cstdlib>
#include <memory>
#include <random>

namespace {

constexpr int kSprites = 100, kMoving = 20, kSide = 64;

class Scene {
public:
    explicit Scene(int depth)
        : world_(platform::headless({})),
          installed_(*world_),
          commandLine_(""),
          window_(nullptr, &commandLine_, &language_, CXSize(800, 600), nullptr, "", true) {
        window_.SetDisplayMode(0, 0, depth);
        window_.OnCreate();
        if (window_.CreateSurface(nullptr) != 0) std::abort();
        window_.OnActivateApp(true);
        auto ground = picture({800, 600}, depth, false);
        screen().SetBackground(ground.get());
        for (int i = 0; i < kSprites; i++) {
            sprites_.push_back(picture({kSide, kSide}, depth, true));
            sprites_.back()->SetPosition(number(800 - kSide), number(600 - kSide));
            screen().put(sprites_.back().get(), number(10));
        }
    }

    // Some go a few pixels on; all: everything is painted anew nevertheless.
    void frame(int moving, bool all) {
        for (int i = 0; i < moving; i++) {
            CGraphicsObject & each = *sprites_[static_cast<std::size_t>(i)];
            CXPoint at = each.GetPosition();
            int dx = number(9) - 4, dy = number(9) - 4;
            if (at.x + dx < 0 || at.x + dx > 800 - kSide) dx = -dx;
            if (at.y + dy < 0 || at.y + dy > 600 - kSide) dy = -dy;
            each.Move(dx, dy);
        }
        if (all) screen().Invalidate();
        window_.Redraw();
    }
    // What 100 moves tell the screen, without the painting.
    std::vector<CXRect> moves() {
        std::vector<CXRect> rects;
        for (auto & each : sprites_) {
            CXPoint d(number(9) - 4, number(9) - 4);
            rects.push_back(each->GetBoundingBox().Sum(each->GetBoundingBox() + d));
        }
        return rects;
    }
    // A frame as an animation holds it, in runs of a few pixels, and the same expanded.
    std::unique_ptr<CGraphicsObject> drawn(int depth) {
        auto made = picture({kSide, kSide}, depth, true);
        auto * words = reinterpret_cast<std::uint16_t *>(made->GetDataPtr());
        for (int i = 0; i < kSide * kSide; i++)
            if (number(6)) words[i] = i ? words[i - 1] : words[i];
        made->SetPosition(100, 100);
        return made;
    }
    std::unique_ptr<CGraphicsObject> ground(int depth) { return picture({800, 600}, depth, false); }
    void plain(bool on) { blits::use(on ? &blits::kPlain : nullptr); }

private:
    CRefreshScreen & screen() { return *window_.getCanvas(); }
    int number(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    std::unique_ptr<CGraphicsObject> picture(CXSize size, int depth, bool soft) {
        auto made = std::make_unique<CGraphicsObject>(&window_);
        made->alloc(size, depth, soft);
        for (int i = 0; i < size.cx * size.cy; i++)
            reinterpret_cast<std::uint16_t *>(made->GetDataPtr())[i] = static_cast<std::uint16_t>(random_());
        for (int y = 0; soft && y < size.cy; y++)
            for (int x = 0; x < size.cx; x++) {
                int dx = 2 * x - kSide + 1, dy = 2 * y - kSide + 1, away = dx * dx + dy * dy;
                made->GetChannelAlpha()[y * size.cx + x] =
                    static_cast<char>(away < 3000   ? 255
                                      : away > 3800 ? 0
                                                    : (3800 - away) * 255 / 800);
            }
        return made;
    }

    std::unique_ptr<platform::World> world_;
    platform::Installed installed_;
    CCommandLine6 commandLine_;
    CLanguageOSVer language_;
    std::mt19937 random_{5};
    CWindow window_;
    std::vector<std::unique_ptr<CGraphicsObject>> sprites_; // before the window that they leave
};

void measure(int depth) {
    Scene scene(depth);
    bench::Table t("a frame at depth " + std::to_string(depth));
    auto whole = t.add("full repaint", 1, [&] { scene.frame(0, true); });
    auto plain = t.add("full repaint, pixel by pixel", 1, [&] {
        scene.plain(true);
        scene.frame(0, true);
        scene.plain(false);
    });
    auto moving = t.add("20 of 100 move", 1, [&] { scene.frame(kMoving, false); });
    auto movingAll = t.add("20 of 100 move, full repaint", 1, [&] { scene.frame(kMoving, true); });
    auto allMove = t.add("100 move", 1, [&] { scene.frame(kSprites, false); });
    auto region = t.add("the region of 100 moves", 1, [&] {
        CRefreshRegion made;
        made.removeAll();
        for (const CXRect & each : scene.moves()) made.add(&each);
        bench::keep(made);
    });
    t.sample(41, 5.0);
    t.ratio(whole, plain, 2.5);
    t.ratio(moving, movingAll, 1.6);
    t.ratio(region, allMove, 1 / 0.3);

    auto ground = scene.ground(depth), frame = scene.drawn(depth), coded = scene.drawn(depth);
    coded->Compress(kCompressionRle);
    bench::Table frames("a frame of 64 x 64, coded, at depth " + std::to_string(depth));
    auto drawing = frames.add("its drawing", 1, [&] { frame->redraw(ground.get()); });
    auto expanding = frames.add("its expanding", 1, [&] {
        coded->DeCompressRLE2();
        coded->bringBackCompressed();
    });
    frames.sample();
    frames.ratio(expanding, drawing, 1 / 5.5);
}

} // namespace

int main() {
    for (int depth : {16, 15}) measure(depth);
}
