#include "Picture.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using test::Bytes;
using test::counting;
using test::picture;
using test::words;
using test::Words;

} // namespace

TEST(Effects, FlipsTurnBothPlanesAndComeBack) {
    for (bool coded : {false, true}) {
        auto object = picture({3, 2}, counting(6), {1, 2, 3, 4, 5, 6});
        if (coded) object->Compress(kCompressionRle);
        auto holds = [&](const Words & colours, const Bytes & alpha, const char * how) {
            EXPECT_EQ(object->GetCompression(), coded ? kCompressionRle : kCompressionNone) << how;
            object->DeCompressRLE2();
            EXPECT_EQ(words(*object), colours) << how;
            EXPECT_EQ(test::alpha(*object), alpha) << how;
            object->bringBackCompressed();
        };
        object->FlipH();
        holds({4, 5, 6, 1, 2, 3}, {4, 5, 6, 1, 2, 3}, "FlipH");
        object->FlipV();
        holds({6, 5, 4, 3, 2, 1}, {6, 5, 4, 3, 2, 1}, "FlipV");
        EXPECT_TRUE(object->isFlippedH() && object->isFlippedV());
        object->resetFlips();
        holds(counting(6), {1, 2, 3, 4, 5, 6}, "resetFlips");
        EXPECT_FALSE(object->isFlippedH() || object->isFlippedV());
    }
}

TEST(Effects, ScaleTakesTheNearestPixel) {
    struct {
        double fx, fy;
        CXSize size;
        Words expected;
    } const cases[] = {
        {2, 1, {6, 2}, {1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6}},
        {0.7, 0.5, {2, 1}, {1, 2}},
        {1, 1.5, {3, 3}, {1, 2, 3, 1, 2, 3, 4, 5, 6}},
        {0.1, 1, {3, 2}, counting(6)}, // nothing would be left: it stays
        {-1, 1, {3, 2}, counting(6)},
        {1e9, 1e9, {3, 2}, counting(6)},
    };
    for (const auto & c : cases) {
        auto object = picture({3, 2}, counting(6), {1, 2, 3, 4, 5, 6});
        object->SetPosition(7, 8);
        object->Scale(c.fx, c.fy);
        EXPECT_EQ(object->Size(), c.size) << c.fx;
        EXPECT_EQ(words(*object), c.expected) << c.fx;
        Bytes alpha;
        for (auto each : c.expected) alpha.push_back(static_cast<std::uint8_t>(each));
        EXPECT_EQ(test::alpha(*object), alpha) << c.fx;
        EXPECT_EQ(object->GetPosition(), CXPoint(7, 8));
    }
    auto object = picture({5, 3}, counting(15));
    object->Scale2x();
    EXPECT_EQ(words(*object), (Words{1, 3}));
}

TEST(Effects, ColoursInTheirDepths) {
    struct {
        const char * what;
        void (CGraphicsObject::*act)();
        int depth;
        std::uint16_t before, after;
    } const cases[] = {
        {"grey", &CGraphicsObject::ToGrayScale, 15, 10 << 10 | 20 << 5 | 3, 11 << 10 | 11 << 5 | 11},
        {"grey", &CGraphicsObject::ToGrayScale, 16, 10 << 11 | 41 << 5 | 3, 11 << 11 | 11 << 6 | 11},
        {"invert", &CGraphicsObject::InvertColors, 15, 10 << 10 | 20 << 5 | 3, 21 << 10 | 11 << 5 | 28},
        {"invert", &CGraphicsObject::InvertColors, 16, 0x1234, 0x1234},
    };
    for (const auto & c : cases) {
        auto object = picture({1, 1}, {c.before}, {}, c.depth);
        (object.get()->*c.act)();
        EXPECT_EQ(words(*object)[0], c.after) << c.what << " at " << c.depth;
    }
}

TEST(Effects, FillsAndReplaces) {
    CColor colour(8, 4, 8);
    auto object = picture({3, 2}, counting(6));
    object->Fill({1, 0, 9, 1}, &colour);
    EXPECT_EQ(words(*object), (Words{1, 0x0821, 0x0821, 4, 5, 6}));
    object->replace_color(0x0821, 9);
    EXPECT_EQ(words(*object), (Words{1, 9, 9, 4, 5, 6}));
    object->Fill(&colour);
    EXPECT_EQ(words(*object), Words(6, 0x0821));
    CGraphicsObject bytes(nullptr, {1, 1}, 24);
    std::memcpy(bytes.GetDataPtr(), "abc", 3);
    bytes.Fill(&colour);
    EXPECT_EQ(std::string(bytes.GetDataPtr(), 3), "abc");
    CGraphicsObject wide(nullptr, {2, 1}, 32);
    wide.Fill(&colour);
    std::uint32_t last;
    std::memcpy(&last, wide.GetDataPtr() + 4, 4);
    EXPECT_EQ(static_cast<int>(last), colour.GetInBPP(32));
}

TEST(Effects, OutlineIsSolid) {
    auto object = picture({4, 3}, Words(12, 0), Bytes(12, 7));
    object->outline(CColor(248, 0, 0), 1);
    const std::uint16_t r = 31 << 11;
    EXPECT_EQ(words(*object), (Words{r, r, r, r, r, 0, 0, r, r, r, r, r}));
    EXPECT_EQ(test::alpha(*object), (Bytes{255, 255, 255, 255, 255, 7, 7, 255, 255, 255, 255, 255}));
    object->outline(CColor(0, 0, 8), 9); // thicker than the picture
    EXPECT_EQ(words(*object), Words(12, 1));
    auto bare = picture({2, 2}, Words(4, 0));
    bare->outline(CColor(248, 0, 0), 1); // without alpha
    EXPECT_EQ(words(*bare), Words(4, 0));
}

TEST(Effects, DisplacedPixelsWithoutASourceStay) {
    const CXPoint map[] = {{1, 0}, {0, 0}, {-2, 0}, {0, 1}, {0, -1}, {INT32_MAX, INT32_MAX}};
    // Index 0 isn't a source: pixel 2 stays as it was.
    const Words expected{2, 2, 3, 4, 2, 6};
    for (bool withAlpha : {false, true})
        for (bool freeOld : {false, true}) {
            auto object = picture({3, 2}, counting(6), {1, 2, 3, 4, 5, 6});
            std::unique_ptr<char[]> oldColour, oldAlpha;
            if (!freeOld) {
                oldColour.reset(object->GetDataPtr());
                if (withAlpha) oldAlpha.reset(object->GetChannelAlpha());
            }
            object->displacementFilter(map, withAlpha, freeOld);
            EXPECT_EQ(words(*object), expected);
            EXPECT_EQ(test::alpha(*object),
                      withAlpha ? (Bytes{2, 2, 3, 4, 2, 6}) : (Bytes{1, 2, 3, 4, 5, 6}));
        }
}

// A mask wanders over the picture; under it the picture's own alpha comes back.
TEST(Effects, AMaskKeepsWhatItCovers) {
    struct {
        CXPoint at;
        Bytes alpha;
        std::vector<CXRect> told;
    } const steps[] = {
        {{1, 1}, {9, 9, 9, 9, 1, 2, 9, 3, 4}, {{11, 21, 13, 23}}},
        {{-1, -1}, {4, 9, 9, 9, 9, 9, 9, 9, 9}, {{1, 1, 3, 3}, {10, 20, 11, 21}}},
        {{2, 0}, {9, 9, 1, 9, 9, 3, 9, 9, 9}, {{0, 0, 1, 1}, {12, 20, 13, 22}}},
        {{3, 0}, Bytes(9, 9), {{2, 0, 3, 2}}}, // beyond the edge: all is back
        {{3, 0}, Bytes(9, 9), {}},
        {{-2, 0}, Bytes(9, 9), {}}, // nothing of it inside
        {{INT32_MIN, 0}, Bytes(9, 9), {}},
        {{0, 1}, {9, 9, 9, 1, 2, 9, 3, 4, 9}, {{10, 21, 12, 23}}},
    };
    test::Canvas canvas; // outlives its objects
    auto object = picture({3, 3}, Words(9, 0), Bytes(9, 9));
    object->SetPosition(10, 20);
    auto mask = picture({2, 2}, Words(4, 0), {1, 2, 3, 4});
    object->SetCanvas(&canvas);
    for (const auto & s : steps) {
        canvas.told.clear();
        object->mergeAlpha(s.at, mask.get());
        EXPECT_EQ(test::alpha(*object), s.alpha) << s.at.x << ", " << s.at.y;
        EXPECT_EQ(canvas.told, s.told) << s.at.x << ", " << s.at.y;
    }
    for (int i = 0; i < 2; i++) { // the saved bytes stay
        object->restoreAlpha(mask.get());
        EXPECT_EQ(test::alpha(*object), Bytes(9, 9));
    }
    object->crop({0, 0, 1, 1}); // what was saved doesn't fit any more
    object->restoreAlpha(mask.get());
    EXPECT_EQ(test::alpha(*object), Bytes(1, 9));
}

TEST(Effects, AMaskFillsWhatIsNotClear) {
    auto mask = picture({2, 2}, Words(4, 0), {1, 2, 3, 4});
    struct {
        CXPoint at;
        bool reset;
        Bytes alpha;
    } const cases[] = {
        {{0, 0}, false, {1, 0, 8, 3, 4, 0, 7, 7, 7}},
        {{0, 0}, true, {1, 2, 255, 3, 4, 255, 255, 255, 255}},
        {{2, -1}, false, {9, 0, 3, 7, 7, 0, 7, 7, 7}},
        {{INT32_MAX, INT32_MAX}, false, {9, 0, 8, 7, 7, 0, 7, 7, 7}},
    };
    for (const auto & c : cases) {
        auto object = picture({3, 3}, Words(9, 0), {9, 0, 8, 7, 7, 0, 7, 7, 7});
        object->mergeAlpha2(c.at, mask.get(), c.reset);
        EXPECT_EQ(test::alpha(*object), c.alpha) << c.at.x;
    }
}

namespace {

// A map as text: '#' is a wall. The fill comes back as text too, 'o' for what it painted.
struct Ground {
    explicit Ground(const std::vector<std::string> & rows)
        : width(static_cast<int>(rows[0].size())), height(static_cast<int>(rows.size())) {
        for (const auto & row : rows)
            for (char c : row) map.push_back(c == '#' ? 0 : 1);
        target.resize(map.size());
        spans.resize(static_cast<std::size_t>((width + 1) / 2 * height));
        object = picture({width, height}, map);
    }
    CXRect prepare(CXPoint seed) {
        return object->PrepareFloodFill(seed, CColor(0, 0, 248), reinterpret_cast<char *>(target.data()),
                                        spans.data());
    }
    std::vector<std::string> painted(std::uint16_t colour) const {
        std::vector<std::string> rows;
        for (int y = 0; y < height; y++) {
            rows.emplace_back();
            for (int x = 0; x < width; x++) {
                auto i = static_cast<std::size_t>(y * width + x);
                rows.back() += target[i] == colour ? 'o' : map[i] == 0 ? '#' : ' ';
            }
        }
        return rows;
    }
    int width, height;
    Words map, target;
    std::vector<_floodfill> spans;
    std::unique_ptr<CGraphicsObject> object;
};

} // namespace

TEST(FloodFill, ReachesRoundCornersAndStopsAtWalls) {
    Ground ground({
        "     #  ",
        " ### #  ",
        " # # #  ",
        " ### ###",
        "        ",
    });
    const std::vector<std::string> expected{
        "ooooo#  ", "o###o#  ", "o# #o#  ", "o###o###", "oooooooo",
    };
    EXPECT_EQ(ground.prepare({0, 0}), CXRect(0, 0, 8, 5));
    EXPECT_EQ(ground.painted(31), expected);
    ground.object->FloodFill(CColor(248, 0, 0), reinterpret_cast<char *>(ground.target.data()));
    EXPECT_EQ(ground.painted(31 << 11), expected);
    EXPECT_EQ(std::count(ground.target.begin(), ground.target.end(), 31), 0);
}

// Down first, then what lies behind beside the piece it came from.
TEST(FloodFill, PiecesComeInTheOrderOfTheSearch) {
    Ground ground({
        "     ",
        " #   ",
        "   # ",
    });
    ground.prepare({3, 1});
    std::vector<std::vector<int>> spans;
    for (int i = 0; i < ground.object->getFFEnterances(); i++)
        spans.push_back({ground.spans[static_cast<std::size_t>(i)].x,
                         ground.spans[static_cast<std::size_t>(i)].y,
                         ground.spans[static_cast<std::size_t>(i)].length});
    EXPECT_EQ(spans, (std::vector<std::vector<int>>{{2, 1, 3}, {0, 2, 3}, {0, 1, 1}, {0, 0, 5}, {4, 2, 1}}));
}

TEST(FloodFill, SeedsInWallsAndOutsideFillNothing) {
    for (CXPoint seed : {CXPoint(1, 0), CXPoint(-1, 0), CXPoint(3, 0), CXPoint(0, 1)}) {
        Ground ground({" # "});
        EXPECT_EQ(ground.prepare(seed), CXRect());
        EXPECT_EQ(ground.object->getFFEnterances(), 0);
    }
}

TEST(FloodFill, ALabyrinthNeedsNoDeepCalls) {
    std::vector<std::string> rows;
    for (int y = 0; y < 2001; y++) {
        rows.push_back(std::string(9, y % 2 ? '#' : ' '));
        if (y % 2) rows.back()[y % 4 == 1 ? 8 : 0] = ' ';
    }
    Ground ground(rows);
    EXPECT_EQ(ground.prepare({0, 0}), CXRect(0, 0, 9, 2001));
    EXPECT_EQ(ground.object->getFFEnterances(), 2001);
}
