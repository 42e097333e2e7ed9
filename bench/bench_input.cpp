// The pointer over many hot spots: what a move and a press cost, beside their goals.

#include "Ratio.h"

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "graphics/CGraphicsObject.h"
#include "input/CHotSpot.h"
#include "platform/World.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>

namespace {

constexpr int kSpots = 500, kMoves = 20'000;

void report(const char * what, double found, double goal) {
    std::printf("  %-58s %8.2f us (goal %.0f)%s\n", what, found, goal, found > goal ? "  MISSED" : "");
}

// Microseconds of the processor: others that use the machine don't count.
template <class Run>
double microseconds(Run && run) {
    std::clock_t start = std::clock();
    for (int i = 0; i < kMoves; i++) run(i);
    return static_cast<double>(std::clock() - start) * 1e6 / CLOCKS_PER_SEC / kMoves;
}

} // namespace

int main() {
    auto world = platform::headless();
    platform::Installed installed(*world);
    CCommandLine6 commandLine("");
    CLanguageOSVer language;
    CWindow window(nullptr, &commandLine, &language, CXSize(800, 600), nullptr, "", true);
    std::printf("%d hot spots\n", kSpots);
    {
        std::vector<std::unique_ptr<CHotSpot>> spots;
        for (int i = 0; i < kSpots; i++) {
            int x = i % 25 * 32, y = i / 25 * 30;
            spots.push_back(std::make_unique<CHotSpot>(&window, CHotSpot::kMove, i % 7));
            spots.back()->SetActiveRect({x, y, x + 31, y + 29}, CHotSpot::kMove, i % 7);
        }
        report("a move over rectangles, each to another one", microseconds([&](int i) {
                   window.OnMouseMove({i * 37 % 800, i * 53 % 600}, 0);
               }),
               20);
        report("a press and a release", microseconds([&](int i) {
                   window.OnLButtonDown({i * 37 % 800, 5}, 0);
                   window.OnLButtonUp({i * 37 % 800, 5}, 0);
               }),
               20);
    }
    CGraphicsObject picture(&window);
    picture.alloc({800, 600}, 16, true);
    std::fill_n(picture.GetChannelAlpha(), 800 * 600, '\0'); // hit by none: each of them asks its pixel
    std::vector<std::unique_ptr<CHotSpot>> spots;
    for (int i = 0; i < kSpots; i++) {
        spots.push_back(std::make_unique<CHotSpot>(&window, CHotSpot::kMove, i));
        spots.back()->Set(&picture, true);
    }
    report("a move over pictures asked for their pixel, all overlapping", microseconds([&](int i) {
               window.OnMouseMove({i * 37 % 800, i * 53 % 600}, 0);
           }),
           20);
}
