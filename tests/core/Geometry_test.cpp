#include "core/CColor.h"
#include "core/CXArray.h"
#include "core/CXRect.h"
#include "core/CXVersion.h"
#include "graphics/CGraphicsObject.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

void PrintTo(const CXRect & r, std::ostream * out) {
    *out << "(" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << ")";
}

namespace {

std::vector<CXRect> piecesOf(const CXRect & a, const CXRect & b) {
    CXArray * list = a.sub(b);
    std::vector<CXRect> pieces;
    for (void * each : *list) {
        pieces.push_back(*static_cast<CXRect *>(each));
        delete static_cast<CXRect *>(each);
    }
    delete list;
    return pieces;
}

bool covers(const CXRect & r, int x, int y) {
    return x >= r.left && x < r.right && y >= r.top && y < r.bottom;
}

// Every rectangle within 0..6, also those without an area, taken from one that lies in the middle.
TEST(CXRect, SubCoversWhatIsLeftOnce) {
    const CXRect whole(1, 1, 5, 4);
    for (int l = 0; l <= 6; l++)
        for (int r = l; r <= 6; r++)
            for (int t = 0; t <= 6; t++)
                for (int b = t; b <= 6; b++) {
                    const CXRect other(l, t, r, b);
                    SCOPED_TRACE(::testing::PrintToString(other));
                    std::vector<CXRect> pieces = piecesOf(whole, other);
                    ASSERT_LE(pieces.size(), 4U);
                    for (const CXRect & each : pieces) {
                        ASSERT_GT(each.Width(), 0);
                        ASSERT_GT(each.Height(), 0);
                    }
                    bool apart = r <= 1 || l >= 5 || b <= 1 || t >= 4 || l == r || t == b;
                    for (int y = -1; y < 8; y++)
                        for (int x = -1; x < 8; x++) {
                            int times = 0;
                            for (const CXRect & each : pieces) times += covers(each, x, y);
                            bool left = !apart && covers(whole, x, y) && !covers(other, x, y);
                            ASSERT_EQ(times, left ? 1 : 0) << x << " " << y;
                        }
                }
}

TEST(CXRect, SubTellsItsPiecesInOrder) {
    const CXRect whole(0, 0, 10, 10);
    struct {
        const char * what;
        CXRect other;
        std::vector<CXRect> pieces;
    } rows[] = {
        {"inside: above, left, right, below",
         {2, 2, 4, 4},
         {{0, 0, 10, 2}, {0, 2, 2, 4}, {4, 2, 10, 4}, {0, 4, 10, 10}}},
        {"bottom right corner: band on the left, piece above",
         {6, 7, 20, 20},
         {{0, 0, 6, 10}, {6, 0, 10, 7}}},
        {"bottom left corner: band above, piece on the right",
         {-5, 7, 3, 20},
         {{0, 0, 10, 7}, {3, 7, 10, 10}}},
        {"top right corner: band on the left, piece below", {6, -5, 20, 3}, {{0, 0, 6, 10}, {6, 3, 10, 10}}},
        {"top left corner: band below, piece on the right", {-5, -5, 3, 4}, {{0, 4, 10, 10}, {3, 0, 10, 4}}},
        {"all of it", {0, 0, 10, 10}, {}},
        {"beside it", {10, 0, 20, 10}, {}},
    };
    for (auto & row : rows) EXPECT_EQ(piecesOf(whole, row.other), row.pieces) << row.what;
}

TEST(CXRect, CommonPart) {
    struct {
        CXRect a, b, common;
    } rows[] = {{{0, 0, 5, 5}, {5, 5, 9, 9}, {5, 5, 5, 5}}, // they touch: empty, but not zeros
                {{0, 0, 4, 4}, {5, 5, 9, 9}, {0, 0, 0, 0}},
                {{0, 0, 4, 9}, {5, 1, 9, 9}, {0, 0, 0, 0}},
                {{0, 0, 9, 9}, {-2, 3, 4, 20}, {0, 3, 4, 9}}};
    for (auto & row : rows) {
        EXPECT_EQ(row.a.Common(row.b), row.common);
        CXRect out;
        row.b.Common(row.a, &out);
        EXPECT_EQ(out, row.common);
    }
    EXPECT_TRUE(CXRect(5).IsEmpty());
}

TEST(CXRect, EdgesAndBoxes) {
    CXRect r(0, 0, 10, 10);
    EXPECT_TRUE(r.IsInRect(CXPoint(10, 10)) && r.IsInRect(0, 0)); // both ends
    EXPECT_FALSE(r.IsInRect(11, 5) || r.IsInRect(5, -1) || r.IsInRect(-1, 5) || r.IsInRect(5, 11));
    r.Explode(2, 3);
    EXPECT_EQ(r, CXRect(-2, -3, 12, 13));
    r.Explode(-1);
    EXPECT_EQ(r, CXRect(-1, -2, 11, 12));
    r.Explode(CXSize(1, 0));
    EXPECT_EQ(r, CXRect(-2, -2, 12, 12));
    EXPECT_EQ(&r.Sum({0, -5, 20, 3}), &r);
    EXPECT_EQ(r, CXRect(-2, -5, 20, 12));
    EXPECT_TRUE(CXRect(1, 1, 3, 3).isInside({1, 0, 3, 4}));
    EXPECT_FALSE(CXRect(1, 1, 3, 3).IsPartOf({2, 0, 3, 4}));
    EXPECT_EQ(CXRect(-5, 1, 0, 6).CenterPoint(), CXPoint(-3, 3));
    EXPECT_EQ(CXRect(3, 3, 0, 0).CenterPoint(), CXPoint(2, 2)); // halves go towards 0
    EXPECT_EQ(CXRect(1, 2, 3, 4) - CXSize(1, 2), CXRect(1, 2, 2, 2));
    EXPECT_EQ(CXRect(9, 9, 9, 9) - CXRect(1, 2, 3, 4), CXRect(8, 7, 6, 5));
    r = CXRect(1, 2, 3, 4);
    r += CXPoint(10, 20);
    EXPECT_EQ(r, CXRect(11, 22, 13, 24));
    EXPECT_EQ(r.RightTop(), CXPoint(13, 22));
    EXPECT_EQ(r.LeftBottom(), CXPoint(11, 24));
    EXPECT_FALSE(r.IsEmpty());
    EXPECT_TRUE(CXRect(1, 1, 1, 9).IsEmpty() && CXRect(1, 1, 9, 1).IsEmpty());
    EXPECT_EQ(CXPoint(1, 2) + 3, CXPoint(4, 5));
    EXPECT_EQ(CXSize(-3, 2).AbsSum(), 5);
    EXPECT_EQ(CXSize(-3, 2).mul(), -6);
}

TEST(CXRect, CentresAnObject) {
    struct {
        CXRect in;
        int width, height;
        CXPoint place;
    } rows[] = {{{0, 0, 10, 20}, 4, 6, {3, 7}},
                {{100, -50, 111, -40}, 4, 5, {103, -48}}, // halves go towards 0
                {{0, 0, 10, 10}, 15, 13, {-2, -1}},       // a larger one sticks out on both sides
                {{5, 5, 5, 5}, 0, 1, {5, 5}}};
    for (auto & row : rows) {
        CGraphicsObject object(nullptr, CXSize(row.width, row.height), 16);
        EXPECT_EQ(row.in.GetCenteredPosition(&object), row.place) << row.width;
    }
}

// Numbers that a script made up: the result wraps, and the sanitizers find nothing.
TEST(CXRect, WildNumbersWrap) {
    constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
    const CXRect all(kLeast, kLeast, kMost, kMost);
    EXPECT_EQ(all.Width(), -1);
    EXPECT_FALSE(all.IsEmpty());
    EXPECT_EQ(all.CenterPoint(), CXPoint(kLeast, kLeast));
    EXPECT_EQ(all + CXPoint(1, -1), CXRect(kLeast + 1, kMost, kLeast, kMost - 1));
    EXPECT_EQ(all - all, CXRect(0));
    EXPECT_EQ(all - CXSize(-1, 1), CXRect(kLeast, kLeast, kLeast, kMost - 1));
    CXRect grown(0, 0, 1, 1);
    grown.Explode(kMost);
    EXPECT_EQ(grown, CXRect(-kMost, -kMost, kLeast, kLeast));
    EXPECT_EQ(CXPoint(kMost, kLeast) + 1, CXPoint(kLeast, kLeast + 1));
    EXPECT_EQ(CXPoint(kLeast, 0) - CXPoint(1, kLeast), CXPoint(kMost, kLeast));
    EXPECT_EQ(CXSize(kLeast, kLeast).AbsSum(), 0);
    EXPECT_EQ(CXSize(kMost, 2).mul(), -2);
    EXPECT_EQ(CXSize(kMost, 1).Sum(), kLeast);
    // A width of more than 31 bits is an area all the same.
    EXPECT_EQ(piecesOf(all, {0, kLeast, kMost, kMost}), (std::vector<CXRect>{{kLeast, kLeast, 0, kMost}}));
    EXPECT_EQ(piecesOf(all, {1, 1, 2, 2}).size(), 4U);
}

TEST(CColor, PacksIntoWords) {
    struct {
        int r, g, b, word555, word565;
    } rows[] = {{255, 255, 255, 0x7FFF, 0xFFFF}, {255, 0, 0, 0x7C00, 0xF800}, {0, 255, 0, 0x03E0, 0x07E0},
                {0, 0, 255, 0x001F, 0x001F},     {7, 7, 7, 0, 0x0020},        {8, 4, 8, 0x0401, 0x0821},
                {16, 8, 24, 0x0823, 0x1043}};
    for (auto & row : rows) {
        CColor three(row.r, row.g, row.b), four(row.r, row.g, row.b, 99);
        EXPECT_EQ(three.Convert(kRgb555), row.word555);
        EXPECT_EQ(three.Convert(kRgb565), row.word565);
        EXPECT_EQ(three.GetInBPP(15), row.word555);
        EXPECT_EQ(four.GetInBPP(16), row.word565);
        EXPECT_EQ(CColor(row.r << 16 | row.g << 8 | row.b).Convert(kRgb565), row.word565);
    }
    CColor word(static_cast<short>(0xF81F), kRgb565);
    EXPECT_EQ(word.Convert(kRgb555), 0xF81F); // words stay as they stand
    EXPECT_EQ(word.Convert(kRgb24), 0xF81F);
    EXPECT_EQ(word.GetInBPP(8), 8); // no such depth
    CColor four(1, 2, 3, 4);
    EXPECT_EQ(four.model, kRgba32);
    EXPECT_EQ(four.getPixel().byte.alpha, 4);
    EXPECT_EQ(four.getPixel().byte.red, 1);
    EXPECT_EQ(four.Convert(kRgb24), 0x03020104); // alpha, red, green, blue in memory
}

TEST(CXVersion, ParsesAndPrints) {
    struct {
        const char *text, *printed;
        int type;
    } rows[] = {{"T.6.1.2", "Tarnook.6.1.2", 2},
                {"TW.1.2.3", "Tarnook WEB.1.2.3", 3},
                {"X.1.0.7", "X.1.0.7", 1},
                {"t.1.2", "X.1.2.0", 1},
                {"", "X.0.0.0", 1}};
    for (auto & row : rows) {
        CXVersion version{CXString(row.text)};
        EXPECT_EQ(version.toString(), row.printed);
        EXPECT_EQ(version.getType(), row.type) << row.text;
    }
    EXPECT_EQ(CXVersion(0, 1, 2, 3).toString(), "Tarnook WEB.1.2.3");
}

TEST(CXVersion, ServesTheRequired) {
    struct {
        CXVersion here, required;
        bool serves;
    } rows[] = {
        {{2, 6, 1, 0}, {2, 6, 1, 9}, true}, // the build doesn't count
        {{2, 6, 1, 0}, {2, 6, 2, 0}, false}, {{2, 6, 1, 0}, {2, 5, 9, 0}, true},
        {{2, 5, 9, 0}, {2, 6, 0, 0}, false}, {{2, 9, 9, 9}, {3, 1, 0, 0}, false}, // another type
        {{1, 6, 0, 0}, {3, 6, 0, 0}, true},                                       // X serves all
        {{1, 5, 0, 0}, {3, 6, 0, 0}, false}, {{2, 0, 0, 0}, {0, 9, 9, 9}, true},  // no type asked
        {{2, 9, 0, 0}, {1, 1, 0, 0}, false},
    };
    for (auto & row : rows) EXPECT_EQ(row.here.verify(row.required), row.serves) << row.required.getMajor();
}

} // namespace
