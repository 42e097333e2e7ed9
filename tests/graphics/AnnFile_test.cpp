#include "graphics/AnnFile.h"

#include "Picture.h"
#include "files/CFile.h"
#include "graphics/CAnimo6.h"
#include "graphics/CFrame.h"
#include "graphics/CSurface.h"
#include "support/InScope.h"

#include <random>

namespace {

// Bytes of a file, lowest first.
struct Bits {
    Bits & w(int v) { return number(v, 2); }
    Bits & d(int v) { return number(v, 4); }
    Bits & s(const std::string & text, std::size_t size = 0) {
        out += text;
        if (size > text.size()) out.append(size - text.size(), '\0');
        return *this;
    }
    Bits & z(std::size_t n) {
        out.append(n, '\0');
        return *this;
    }
    Bits & number(int v, int n) {
        for (int i = 0; i < n; i++) out += static_cast<char>(v >> 8 * i);
        return *this;
    }
    std::string out;
};

// What a file holds, as text.
std::string told(const ann::File & f) {
    std::string text = "depth " + std::to_string(f.depth) + " by " + f.author + ": " + f.description;
    for (const auto & e : f.events) {
        text += "\n" + std::string(e.name.view()) + " " + std::to_string(e.loopStart) + "-" +
                std::to_string(e.loopEnd) + "x" + std::to_string(e.loopCount) + " fps " +
                std::to_string(e.fps);
        for (std::size_t i = 0; i < e.frames.size(); i++)
            text += " " + std::to_string(e.frames[i]) + std::string(e.infos[i].name.view()) + "(" +
                    std::to_string(e.infos[i].x) + "," + std::to_string(e.infos[i].y) + "," +
                    std::to_string(e.infos[i].opacity) + ")" + std::string(e.infos[i].soundName.view());
    }
    for (const auto & r : f.frames)
        text += "\n" + std::to_string(r.width) + "x" + std::to_string(r.height) + " at " +
                std::to_string(r.x) + "," + std::to_string(r.y) + " " + std::to_string(r.depth) + "/" +
                std::to_string(r.compression) + " " + std::string(r.colour) + "/" + std::string(r.alpha);
    return text;
}

std::string read(const std::string & bytes) {
    ann::File file;
    const char * bad = ann::read(bytes, file);
    return bad ? bad : told(file);
}

void shortFrame(Bits & b, int compression, int colour, int alpha) {
    b.w(2).w(1).w(-3).w(4).w(compression).d(colour).w(alpha ? 4 : 0).z(12).d(alpha);
}

std::string newer(const char * magic, std::size_t rest) {
    Bits b;
    b.s(magic, 4).w(1).w(15).w(1).z(13).d(24).d(0x00550033).z(1).w(7).z(10);
    b.d(2).s("me").d(3).s("why");
    b.s("Walk", 32).w(2).d(-1).w(1).w(2).w(3).w(9).d(12).d(0x100).number(200, 1).z(12);
    b.w(0).w(0);
    b.d(1).d(0).w(-5).w(6).d(-1).d(77).d(0).number(128, 1).z(5).d(2).s("A", 2).d(6).s("x.wav", 6);
    b.d(0).d(1).w(0).w(0).d(-1).d(0).d(0).number(255, 1).z(5).d(3).s("xy", 3);
    shortFrame(b, 0, 4, 2);
    b.z(rest).s("abcdAB");
    return b.out;
}

std::string packed(int events) {
    Bits b;
    b.s("PAK", 4).w(2).s("me", 128).s("why", 256).w(0).w(events).z(13);
    if (events) b.s("E", 32).w(1).w(0).w(1).w(2).w(1).w(-1).w(8).z(6);
    shortFrame(b, 4, 1, 0);
    shortFrame(b, 2, 2, 1);
    b.s("a").s("bcA");
    return b.out;
}

std::string old(int version, bool chunks) {
    Bits b;
    b.s(version == 1 ? "TNK" : version == 2 ? "TN2" : "TN3", 4).w(2).w(2).z(4);
    if (chunks) {
        b.s("EXT").d(9).d(2).s("me").d(3).s("why");
        b.s("SEQ").d(3 | 0x10000).w(1).w(0).w(9);
        b.s("POS");
        for (int i = 1; i <= 2; i++) b.d(i).d(-i).d(100 + i).z(21);
    }
    for (int i = 0; i < 2; i++) {
        if (version == 1) b.d(2).d(i);
        b.w(2).w(-3).w(1).w(4).w(0).w(4);
        if (version > 1) b.d(4).d(2).d(0).d(0).d(i);
    }
    b.s("ab").s("cdA");
    return b.out;
}

class AnnFiles : public test::InScope {};

} // namespace

TEST(AnnFile, ReadsEveryLayout) {
    const std::string walk = "depth 15 by me: why\nWalk 1-2x3 fps 12 0A(-5,6,128)x.wav 0(0,0,255)\n"
                             "2x1 at -3,4 0/0 abcd/AB";
    const std::string places = " 1(2,-2,102) 0(1,-1,101) 9(0,0,255)";
    auto frames = [](int compression) {
        std::string c = std::to_string(compression);
        return "\n2x1 at -3,4 16/" + c + " ab/\n2x1 at -3,4 16/" + c + " cd/A";
    };
    const std::string all = "\nstandard 0-0x0 fps 15 0(0,0,255) 1(0,0,255)",
                      turned = "\nstandard 0-0x0 fps 15 1(0,0,255) 0(0,0,255)";
    const struct {
        const char * what;
        std::string bytes, expected;
    } cases[] = {
        {"NVP", newer("NVP", 20), walk},
        {"NVI", newer("NVI", 20), walk},
        {"NV+", newer("NV+", 0), walk},
        {"PAK", packed(1),
         "depth 15 by me: why\nE 0-1x2 fps 15 1(-1,8,255)\n2x1 at -3,4 0/4 a/\n2x1 at -3,4 0/2 bc/A"},
        {"PAK without events", packed(0),
         "depth 15 by me: why" + all + all + turned + "\n2x1 at -3,4 0/4 a/\n2x1 at -3,4 0/2 bc/A"},
        {"TNK", old(1, false), "depth 15 by : " + all + all + turned + frames(0)},
        {"TNK with chunks", old(1, true), "depth 15 by me: why\n 0-0x0 fps 15" + places + frames(0)},
        {"TN2", old(2, true), "depth 15 by me: why\n 0-0x0 fps 15" + places + frames(1)},
        {"TN3", old(3, false), "depth 15 by : " + all + all + turned + frames(2)},
        {"unknown", std::string("XYZ\0........", 12), "it is no animation file"},
        {"nothing", "NVP", "it ends too early"},
    };
    for (const auto & c : cases) EXPECT_EQ(read(c.bytes), c.expected) << c.what;
}

TEST(AnnFile, WritesWhatItReads) {
    ann::File first, second;
    std::string bytes = newer("NVP", 20);
    ASSERT_EQ(ann::read(bytes, first), nullptr);
    EXPECT_EQ(first.fps, 24);
    EXPECT_EQ(first.flags, 0x00750033);
    EXPECT_EQ(first.randomFrames, 7);
    std::string written = ann::write(first);
    ASSERT_EQ(ann::read(written, second), nullptr);
    EXPECT_EQ(told(second), told(first));
    EXPECT_EQ(second.flags, first.flags);
    EXPECT_EQ(second.randomFrames, 7);
    EXPECT_EQ(written.size(), bytes.size());
}

TEST_F(AnnFiles, DamagedOnesLeaveItEmpty) {
    std::mt19937 r(5);
    std::vector<std::string> good{newer("NVP", 20), newer("NV+", 0), packed(1),   packed(0),
                                  old(1, true),     old(2, false),   old(3, true)};
    CAnimo6 animo(&window());
    auto take = [&](const std::string & bytes) {
        put("a.ann", bytes);
        return animo.Load("a.ann");
    };
    auto screen = test::picture({8, 8}, test::Words(64, 0));
    for (const std::string & bytes : good) {
        EXPECT_EQ(take(bytes), 0);
        EXPECT_GT(animo.GetNOF(), 0);
        EXPECT_TRUE(animo.isLoaded());
        for (std::size_t n = 0; n < bytes.size(); n += 7) {
            EXPECT_EQ(take(bytes.substr(0, n)), CFile::kNotFound) << n;
            EXPECT_EQ(animo.GetNOF() + animo.GetNOE(), 0) << n;
            EXPECT_FALSE(animo.isLoaded());
        }
        for (int i = 0; i < 60; i++) { // whatever comes out, it can be used
            std::string bad = bytes;
            for (int k = 0; k < 3; k++) bad[r() % bad.size()] = static_cast<char>(r() % 3 ? r() : 0xFF);
            take(bad);
            animo.play();
            for (int step = 0; step < 4; step++) {
                animo.redraw(screen.get());
                animo.next();
            }
            animo.unpack();
            animo.FlipV();
        }
    }
    EXPECT_EQ(animo.Load("nowhere.ann"), CFile::kNotFound);
    EXPECT_EQ(animo.GetNOF(), 0);
}

// Heads alone can claim more than all memory.
TEST_F(AnnFiles, ClaimsAreNotBelieved) {
    Bits b;
    b.s("NV+", 4).w(2000).w(16).w(0).z(13).d(0).d(0).number(255, 1).w(0).z(10).d(0).d(0);
    for (int i = 0; i < 2000; i++) b.w(8000).w(8000).w(0).w(0).w(0).d(0).w(0).z(16);
    put("a.ann", b.out);
    CAnimo6 animo(&window());
    EXPECT_EQ(animo.Load("a.ann"), CFile::kNotFound);
    for (std::size_t i = 0; i < 2000; i++) b.out[52 + i * 32 + 8] = 4; // run-length data: kept as they are
    put("a.ann", b.out);
    EXPECT_EQ(animo.Load("a.ann"), 0);
    animo.unpack(); // they don't all fit
    EXPECT_EQ(animo.GetFrame(0)->GetCompression(), kCompressionRle);
}

TEST_F(AnnFiles, SavesItsFrames) {
    CAnimo6 animo(&window());
    animo.AddFrame(test::picture({4, 1}, {7, 7, 7, 7}, {1, 1, 1, 2}).get());
    auto second = test::picture({2, 1}, {8, 9});
    second->SetPosition(3, 4);
    animo.AddFrame(second.get());
    animo.AddEvent("E");
    animo.AddFrame(0, 1);
    animo.setFrameName(0, 0, "name");
    animo.SetFPS(9);
    for (auto compression : {kCompressionNone, kCompressionRle}) {
        animo.redraw(test::picture({4, 4}, test::Words(16, 0)).get());
        EXPECT_EQ(animo.Save("b.ann", compression), 0);
        CAnimo6 again(&window(), "b.ann");
        EXPECT_EQ(again.LastError(), 0);
        ASSERT_EQ(again.GetNOF(), 2);
        EXPECT_EQ(again.GetFrame(1)->GetFramePosition(), CXPoint(3, 4));
        EXPECT_EQ(again.GetFrame(0)->GetCompression(), compression);
        again.unpack();
        EXPECT_EQ(test::words(*again.GetFrame(0)), (test::Words{7, 7, 7, 7}));
        EXPECT_EQ(test::alpha(*again.GetFrame(0)), (test::Bytes{1, 1, 1, 2}));
        EXPECT_EQ(again.GetFrame(1)->GetChannelAlpha(), nullptr);
        EXPECT_EQ(again.getFrameName(0, 0), "name");
        EXPECT_EQ(again.GetFPS(), 9);
        EXPECT_EQ(again.Author(), "Anton Velmorek");
    }
}

TEST_F(AnnFiles, ReleasesAndLoadsAgain) {
    put("a.ann", packed(0));
    CAnimo6 animo(&window(), "a.ann");
    EXPECT_EQ(animo.GetNOF(), 2);
    EXPECT_EQ(animo.getFirstEvent(), 0);
    animo.toRelease(true);
    animo.hide();
    EXPECT_EQ(animo.GetNOF(), 0);
    EXPECT_FALSE(animo.isVisible());
    animo.show();
    EXPECT_EQ(animo.GetNOF(), 2);
    EXPECT_TRUE(animo.isVisible());
}
