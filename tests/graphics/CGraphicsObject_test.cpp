#include "graphics/CGraphicsObject.h"

#include "Picture.h"
#include "graphics/CValidationQuene.h"
#include "support/InScope.h"

namespace {

using test::Bytes;
using test::counting;
using test::picture;
using test::words;
using test::Words;

// A window that keeps what it hears of positions.
class Window : public test::InScope {};

struct Observer : CInvalidateObserver {
    Observer(std::string & told, char name) : told(told), name(name) {}
    void onInvalidate(CGraphicsObject *, CXRect * r) override {
        told += name + std::to_string(r->left) + "-" + std::to_string(r->right) + " ";
    }
    void onDestroy(CGraphicsObject *) override { told += std::string(1, name) + "! "; }
    std::string & told;
    char name;
};

} // namespace

TEST(CGraphicsObject, BoxesAreHeldToTheDestinyAndTheClip) {
    CGraphicsObject screen(nullptr, {100, 80}, 16);
    struct {
        CXPoint at;
        bool onScreen;
        CXRect clip, box, absolute;
    } const cases[] = {
        {{10, 20}, true, {}, {10, 20, 40, 40}, {10, 20, 40, 40}},
        {{-10, -5}, true, {}, {0, 0, 20, 15}, {-10, -5, 20, 15}},
        {{90, 70}, true, {}, {90, 70, 100, 80}, {90, 70, 120, 90}},
        {{90, 70}, false, {}, {90, 70, 120, 90}, {90, 70, 120, 90}},
        {{10, 20}, true, {5, 5, 10, 8}, {15, 25, 20, 28}, {15, 25, 20, 28}},
        {{-10, 0}, true, {5, 0, 20, 8}, {0, 0, 10, 8}, {-5, 0, 10, 8}},
        {{10, 20}, true, {200, 0, 210, 5}, {}, {}},
    };
    for (const auto & c : cases) {
        CGraphicsObject object(nullptr, {30, 20}, 16);
        object.SetPosition(c.at);
        if (c.onScreen) object.SetDestiny(&screen);
        object.SetClippingRect(c.clip);
        EXPECT_EQ(object.GetBoundingBox(), c.box);
        EXPECT_EQ(object.GetAbsoluteBoundingBox(), c.absolute);
    }
}

TEST(CGraphicsObject, PositionIsWhereTheAnchorStands) {
    CGraphicsObject object(nullptr, {30, 20}, 16);
    object.setAnchor(5, 6);
    EXPECT_EQ(object.GetPosition(), CXPoint(0, 0));
    object.setPosition(10, 20);
    EXPECT_EQ(object.GetPosition(), CXPoint(5, 14));
    EXPECT_EQ(object.ClientCoords({6, 16}), CXPoint(1, 2));
    object.FitRect({0, 0, 101, 10});
    EXPECT_EQ(object.GetPosition(), CXPoint(35, -5));
    object.SetPosition(INT32_MAX, INT32_MIN); // far away is held to what can be counted with
    object.Move(INT32_MAX, INT32_MIN);
    EXPECT_EQ(object.GetPosition(), CXPoint(CGraphicsObject::kFarthest, -CGraphicsObject::kFarthest));
}

TEST(CGraphicsObject, NearnessIsAShareOfTheBox) {
    CGraphicsObject object(nullptr, {10, 10}, 16);
    struct {
        CXRect other;
        int percent;
        bool near;
    } const cases[] = {{{0, 0, 5, 10}, 50, true},
                       {{0, 0, 5, 10}, 51, false},
                       {{50, 50, 60, 60}, 0, true},
                       {{50, 50, 60, 60}, 1, false},
                       {{-5, -5, 20, 20}, 100, true}};
    for (const auto & c : cases) EXPECT_EQ(object.isNear(c.other, c.percent), c.near) << c.percent;
}

TEST(CGraphicsObject, HitsAskTheAlphaWhenTold) {
    auto object = picture({2, 2}, counting(4), {0, 1, 255, 0});
    object->SetPosition(10, 10);
    for (bool coded : {false, true}) {
        if (coded) object->Compress(kCompressionRle);
        EXPECT_FALSE(object->testHit({10, 10}, false));
        EXPECT_TRUE(object->testHit({10, 10}, true));
        EXPECT_TRUE(object->isAt({10, 10}, false));
        EXPECT_TRUE(object->isAt({11, 10}, true));
        EXPECT_TRUE(object->isInside(10, 11, true));
        EXPECT_FALSE(object->isInside(11, 11, true));
        EXPECT_FALSE(object->isInside(9, 11, false));
        EXPECT_FALSE(object->testHit({12, 10}, false)) << "beyond the plane";
    }
}

TEST(CGraphicsObject, PixelsReadAndWriteInTheirDepth) {
    for (int depth : {15, 16}) {
        auto object = picture({3, 1}, {0, 0, 0}, {}, depth);
        object->SetPixel(1, 0, CColor(255, 16, 8));
        EXPECT_EQ(words(*object)[1], depth == 15 ? 31 << 10 | 2 << 5 | 1 : 31 << 11 | 4 << 5 | 1);
        CColor read = object->GetPixel(1, 0);
        EXPECT_EQ(read.getPixel().byte.red, 248);
        EXPECT_EQ(read.getPixel().byte.green, 16);
        EXPECT_EQ(read.GetInBPP(depth), words(*object)[1]);
        EXPECT_EQ(object->GetPixel(3, 0).GetInBPP(depth), 0);
        object->putPixel(2, 0, static_cast<short>(0xFFFF), 128, true);
        EXPECT_EQ(words(*object)[2] & 31, 31 * 128 >> 8);
        object->putPixel(2, 0, 0, 128, false);
        EXPECT_EQ(words(*object)[2] & 31, 15 * 127 >> 8);
        object->putPixel(2, 1, 1, 255, true); // beyond the plane
        object->Compress(kCompressionRle);
        EXPECT_EQ(object->GetPixel(1, 0).GetInBPP(depth), 0) << "coded";
    }
}

TEST(CGraphicsObject, OpacityStopsAtItsEnds) {
    CGraphicsObject object(nullptr);
    object.AddOpacity(-300);
    EXPECT_EQ(object.GetOpacity(), 0);
    object.AddOpacity(300);
    EXPECT_EQ(object.GetOpacity(), 255);
    object.AddOpacity(-5);
    EXPECT_EQ(object.GetOpacity(), 250);
}

TEST(CGraphicsObject, DepthsConvertByTheTable) {
    struct {
        int from, to;
        std::uint16_t before, after;
        int depth;
    } const cases[] = {
        {15, 16, 0x7FFF, 0xFFDF, 16}, {15, 32, 0x0421, 0x0841, 16}, {16, 15, 0xFFFF, 0x7FFF, 15},
        {16, 15, 0x0020, 0x0000, 15}, {16, 32, 0xABCD, 0xABCD, 16}, {24, 16, 0xABCD, 0xABCD, 24},
    };
    for (const auto & c : cases) {
        auto object = picture({2, 2}, {0, 0, 0, 0}, {}, c.from == 24 ? 24 : c.from);
        std::memcpy(object->GetDataPtr(), &c.before, 2);
        object->Convert(c.to);
        EXPECT_EQ(object->GetBpp(), c.depth);
        EXPECT_EQ(words(*object)[0], c.after) << c.from << " to " << c.to;
    }
    auto small = picture({3, 1}, {0x7FFF, 0, 0}, {}, 15); // below four pixels nothing is converted
    small->Convert(16);
    EXPECT_EQ(small->GetBpp(), 15);
}

// The pixels are shared, so a copy that changes its depth takes its own first.
TEST(CGraphicsObject, ASharingCopyLeavesTheOthersPlanesAlone) {
    auto object = picture({2, 2}, counting(4, 0x400), {1, 2, 3, 4}, 15);
    Words before = words(*object);
    {
        std::unique_ptr<CGraphicsObject> copy(object->clone());
        EXPECT_EQ(copy->GetDataPtr(), object->GetDataPtr());
        EXPECT_FALSE(copy->getOwnsPixels());
        copy->Convert(16);
        copy->Flush();
        copy.reset(object->clone());
        copy->Compress(kCompressionRle);
        copy->FlipH();
        copy->DeCompressRLE2();
        EXPECT_EQ(words(*copy)[0], before[2]);
        copy.reset(object->clone());
        copy->crop({0, 0, 1, 1});
        EXPECT_EQ(words(*copy), Words{before[0]});
    }
    EXPECT_EQ(words(*object), before);
    EXPECT_EQ(test::alpha(*object), (Bytes{1, 2, 3, 4}));
}

TEST(CGraphicsObject, CodedPlanesAreExpandedAndBroughtBack) {
    auto object = picture({4, 2}, {7, 7, 7, 7, 7, 7, 7, 9}, {0, 0, 0, 0, 0, 0, 0, 5}, 16);
    Words raw = words(*object);
    object->Compress(kCompressionRle);
    EXPECT_EQ(object->GetCompression(), kCompressionRle);
    EXPECT_EQ(object->GetChannelSize(3), 2 + 2);
    char * coded = object->GetDataPtr();
    auto brought = [&](const char * how) {
        EXPECT_EQ(object->GetCompression(), kCompressionRle) << how;
        EXPECT_EQ(object->GetDataPtr(), coded) << how;
        EXPECT_EQ(object->GetChannelSize(3), 4) << how;
    };
    object->DeCompressRLE2();
    EXPECT_EQ(words(*object), raw);
    EXPECT_EQ(object->GetChannelSize(3), 8);
    object->pack(true); // only after unpack
    EXPECT_EQ(object->GetCompression(), kCompressionNone);
    object->bringBackCompressed();
    brought("bringBackCompressed");
    object->unpack();
    object->bringBackCompressed(); // not after unpack
    EXPECT_EQ(words(*object), raw);
    // A copy made meanwhile shares what stays.
    std::unique_ptr<CGraphicsObject> copy(object->clone());
    object->pack(true);
    brought("pack");
    copy->DeCompressRLE2();
    EXPECT_EQ(words(*copy), raw);
}

TEST(CGraphicsObject, CopyTakesWhatTheClipShows) {
    auto source = picture({4, 3}, counting(12), Bytes(12, 9));
    source->setFileName("leaf");
    source->SetPosition(7, 8);
    source->Compress(kCompressionRle);
    CGraphicsObject copy(nullptr);
    copy.Copy(source.get());
    EXPECT_EQ(words(copy), counting(12));
    EXPECT_EQ(copy.getFileName(), "leafcopy");
    EXPECT_EQ(copy.GetPosition(), CXPoint(7, 8));
    EXPECT_EQ(source->GetCompression(), kCompressionRle);
    copy.Copy(source.get(), {1, 1, 3, 3});
    EXPECT_EQ(words(copy), (Words{6, 7, 10, 11}));
    EXPECT_EQ(test::alpha(copy), Bytes(4, 9));
    EXPECT_EQ(copy.GetPosition(), CXPoint(1, 1));
    EXPECT_EQ(copy.GetPitch(), 4);
    EXPECT_TRUE(source->GetClippingRect().IsEmpty());
    source->SetClippingRect({3, 2, 9, 9}); // partly outside
    copy.Copy(source.get());
    EXPECT_EQ(words(copy), Words{12});
}

TEST(CGraphicsObject, ChannelsSplitAndJoin) {
    CGraphicsObject object(nullptr, {2, 1}, 24);
    std::memcpy(object.GetDataPtr(), "bgrBGR", 6);
    object.Split();
    EXPECT_EQ(object.GetDataPtr(), nullptr);
    EXPECT_EQ(object.GetPixel(kChannelRed, {1, 0}), 'R');
    object.SetBpp(16); // the depth to come back to can't be reached from three bytes
    object.JoinChannels();
    EXPECT_EQ(object.GetBpp(), 24);
    EXPECT_EQ(std::string(object.GetDataPtr(), 6), "bgrBGR");
    object.SplitOn2(const_cast<char *>("abcdefgh"), 2);
    EXPECT_EQ(object.GetPixel(kChannelAlpha, {1, 0}), 'h');
    std::unique_ptr<char[]> joined(object.Join2Channels());
    EXPECT_EQ(std::string(joined.get(), 8), "abcdefgh");
}

TEST(CGraphicsObject, ChangesReachTheCanvasAndTheObservers) {
    test::Canvas canvas;
    std::string told;
    Observer a(told, 'a'), b(told, 'b');
    {
        CGraphicsObject object(nullptr, {10, 10}, 16);
        object.SetCanvas(&canvas);
        object.addInvalidateObserver(&a);
        object.addInvalidateObserver(&b);
        object.addInvalidateObserver(&a);
        object.SetPosition(5, 0);
        EXPECT_FALSE(object.isInvalidated());
        object.Invalidate();
        CXRect part(0, 0, 8, 3), outside(50, 50, 60, 60);
        object.Invalidate(&part);
        object.Invalidate(&outside);
        EXPECT_EQ(told, "a5-15 b5-15 a5-8 b5-8 ");
        EXPECT_TRUE(object.isInvalidated());
        EXPECT_FALSE(object.isInvalidated());
        object.Move(3, 4); // the old and the new box; the observers aren't told
        EXPECT_EQ(canvas.told, (std::vector<CXRect>{{5, 0, 15, 10}, {5, 0, 8, 3}, {5, 0, 18, 14}}));
        object.Visible(false); // no window, no change
        EXPECT_TRUE(object.isVisible());
        told.clear();
    }
    EXPECT_EQ(told, "a! b! ");
    EXPECT_EQ(canvas.left.size(), 1U);
}

TEST(CGraphicsObject, ObjectsDrawnOntoItComeBackOff) {
    auto ground = picture({4, 1}, {1, 1, 1, 1});
    auto low = picture({2, 1}, {2, 2}), high = picture({2, 1}, {3, 3});
    high->SetPosition(1, 0);
    ground->addObject(high.get(), 5);
    ground->addObject(low.get(), 1);
    ground->addObject(low.get(), 9); // known already
    ground->Redraw();
    EXPECT_EQ(words(*ground), (Words{2, 3, 3, 1}));
    high->SetPosition(2, 0);
    ground->Redraw();
    EXPECT_EQ(words(*ground), (Words{2, 2, 3, 3}));
    test::Canvas canvas;
    ground->SetCanvas(&canvas);
    low->Invalidate();
    EXPECT_EQ(canvas.told, (std::vector<CXRect>{{0, 0, 2, 1}}));
    low.reset(); // its end takes it off
    ground->Redraw();
    EXPECT_EQ(words(*ground), (Words{1, 1, 3, 3}));
    ground->removeObject(high.get());
    EXPECT_EQ(ground->getDrawnObjects(), nullptr);
    EXPECT_FALSE(ground->hasBackup());
    ground->addObject(high.get(), 0);
    ground.reset(); // stops observing
    high->Invalidate();
}

TEST(CGraphicsObject, DrawsItsVisiblePart) {
    struct {
        int x;
        CXRect clip;
        Words expected;
        CXRect clipAfter;
    } const cases[] = {
        {0, {}, {1, 2, 3, 4}, {0, 0, 4, 1}},
        {-3, {}, {4, 0, 0, 0}, {3, 0, 4, 1}},
        {2, {}, {0, 0, 1, 2}, {0, 0, 2, 1}},
        {-4, {}, {0, 0, 0, 0}, {}},
        {4, {}, {0, 0, 0, 0}, {}},
        {1, {1, 0, 4, 1}, {0, 0, 2, 3}, {1, 0, 3, 1}},
        {-2, {0, 0, 1, 1}, {0, 0, 0, 0}, {0, 0, 1, 1}}, // nothing in common: it stays
    };
    for (const auto & c : cases) {
        auto screen = picture({4, 1}, {0, 0, 0, 0}), object = picture({4, 1}, {1, 2, 3, 4});
        object->SetPosition(c.x, 0);
        object->SetClippingRect(c.clip);
        object->redraw(screen.get());
        EXPECT_EQ(words(*screen), c.expected) << c.x;
        EXPECT_EQ(object->GetClippingRect(), c.clipAfter) << c.x;
    }
}

// Without autoClip the caller sees to the limits; should he not, nothing is written outside.
TEST(CGraphicsObject, DrawsNothingOutsideWithoutAutoClip) {
    for (int x = -6; x <= 6; x++)
        for (int y = -3; y <= 3; y++)
            for (const CXRect & clip :
                 {CXRect(), CXRect(1, 0, 3, 2), CXRect(-2, -1, 9, 9), CXRect(3, 1, 1, 0)})
                for (bool asViewport : {false, true}) {
                    Words before(64, 0xFFFF), inside(16, 0);
                    auto memory = picture({8, 8}, before);
                    CGraphicsObject screen(nullptr, {4, 4}, 16, memory->GetDataPtr() + 24 * 2);
                    screen.setOwnsPixels(false);
                    test::fill(screen, inside);
                    auto object = picture({4, 2}, counting(8), Bytes(8, 255));
                    object->SetAutoClip(false);
                    object->SetPosition(x, y);
                    asViewport ? object->SetViewport(clip) : object->SetClippingRect(clip);
                    object->redraw(&screen);
                    Words after = words(*memory), ground = words(screen);
                    std::copy_n(before.begin(), 16, after.begin() + 24);
                    ASSERT_EQ(after, before);
                    bool onScreen = x + 4 > 0 && x < 4 && y + 2 > 0 && y < 4 && !asViewport;
                    for (int r = 0; r < 4 && onScreen; r++)
                        for (int c = 0; c < 4; c++) {
                            int sx = c - x, sy = r - y;
                            bool whole = clip.IsEmpty();
                            bool shown = sx >= 0 && sy >= 0 && sx < 4 && sy < 2 && clip.left <= clip.right &&
                                         (whole || (sx >= clip.left && sx < clip.right && sy >= clip.top &&
                                                    sy < clip.bottom));
                            ASSERT_EQ(ground[static_cast<std::size_t>(r * 4 + c)],
                                      shown ? sy * 4 + sx + 1 : 0);
                        }
                }
}

TEST(CGraphicsObject, ViewportCutsTheSourceWithoutMovingIt) {
    auto screen = picture({4, 2}, Words(8, 0)), object = picture({4, 2}, counting(8));
    object->SetAutoClip(false);
    object->SetViewport({1, 0, 3, 2});
    object->redraw(screen.get());
    EXPECT_EQ(words(*screen), (Words{2, 3, 0, 0, 6, 7, 0, 0}));
}

TEST(CGraphicsObject, PicksTheBlit) {
    struct {
        const char * what;
        Bytes alpha, targetAlpha;
        bool mask;
        int opacity;
        std::uint16_t expected;
        int targetAlphaAfter;
    } const cases[] = {
        {"opaque", {}, {}, false, 255, 31, -1},
        {"alpha", {128}, {}, false, 255, 16, -1},
        {"mask", {1}, {}, true, 255, 31, -1},
        {"opacity", {}, {}, false, 128, 15, -1},
        {"alpha and opacity", {128}, {}, true, 128, 7, -1},
        {"target's alpha", {}, {10}, false, 255, 31, 255},
        {"both alphas", {128}, {10}, false, 255, 16, 138},
        {"clear target", {128}, {0}, false, 255, 31, 128},
    };
    for (const auto & c : cases) {
        auto screen = picture({1, 1}, {0}, c.targetAlpha), object = picture({1, 1}, {31}, c.alpha);
        object->setAlphaAsMask(c.mask);
        object->SetOpacity(static_cast<unsigned char>(c.opacity));
        object->redraw(screen.get());
        EXPECT_EQ(words(*screen)[0] & 31, c.expected) << c.what;
        if (c.targetAlphaAfter >= 0) {
            EXPECT_EQ(test::alpha(*screen)[0], c.targetAlphaAfter) << c.what;
        }
    }
}

TEST_F(Window, ObjectsOfAWindowHideAndConvert) {
    test::Canvas canvas;
    CGraphicsObject object(&window(), {2, 2}, 16);
    object.SetCanvas(&canvas);
    object.Hide();
    EXPECT_FALSE(object.isVisible());
    EXPECT_EQ(canvas.told.size(), 1U);
}

TEST_F(Window, SavesTheClippedPart) {
    auto object = picture({4, 3}, counting(12), Bytes(12, 9));
    object->SetPosition(100, 200);
    object->SetClippingRect({1, 1, 3, 3});
    EXPECT_EQ(object->Save("a.img", kCompressionNone), 0);
    std::string file = get("a.img");
    ASSERT_EQ(file.size(), 40U + 8 + 4);
    auto at = [&](std::size_t i) { return static_cast<unsigned char>(file[i]); };
    EXPECT_EQ(file.substr(0, 4), std::string("TNK\0", 4));
    EXPECT_EQ(std::vector<int>({at(4), at(8), at(12), at(16), at(20), at(24), at(28), at(32), at(36)}),
              std::vector<int>({2, 2, 16, 8, 0, 0, 4, 101, 201}));
    EXPECT_EQ(file.substr(40), std::string("\6\0\7\0\12\0\13\0\11\11\11\11", 12));
}
