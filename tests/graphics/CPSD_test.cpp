#include "graphics/CPSD.h"

#include "Picture.h"
#include "PictureFiles.h"
#include "files/CFile.h"
#include "files/InGame.h"
#include "graphics/CImageFile.h"
#include "graphics/PsdFile.h"

#include <cstdlib>

namespace {

using namespace std::string_literals;

std::string big(long long value, int bytes) { return test::number(value, bytes, true); }

struct Layer {
    CXRect rect;
    std::string name;
    std::vector<std::pair<int, std::string>> channels; // id, the coded data behind a word of how it's coded
    std::string more;                                  // further information
    std::string mask;
};

std::string raw(const std::string & bytes) { return big(0, 2) + bytes; }

std::string psd(CXSize size, const std::vector<Layer> & layers, int count = 0) {
    std::string records, data;
    for (const Layer & layer : layers) {
        for (int v : {layer.rect.top, layer.rect.left, layer.rect.bottom, layer.rect.right})
            records += big(v, 4);
        records += big(static_cast<int>(layer.channels.size()), 2);
        for (const auto & [id, bytes] : layer.channels) {
            records += big(id, 2) + big(static_cast<int>(bytes.size()), 4);
            data += bytes;
        }
        std::string name = layer.name;
        name.resize(name.size() | 3);
        std::string extra = big(static_cast<int>(layer.mask.size()), 4) + layer.mask + big(8, 4) +
                            "rangesrr" + big(static_cast<int>(layer.name.size()), 1) + name + layer.more;
        records += "8BIMnorm\xFF\0\0\0"s + big(static_cast<int>(extra.size()), 4) + extra;
    }
    std::string all = big(count ? count : static_cast<int>(layers.size()), 2) + records + data;
    all = big(static_cast<int>(all.size()), 4) + all;
    return "8BPS\0\1\0\0\0\0\0\0"s + big(3, 2) + big(size.cy, 4) + big(size.cx, 4) + big(8, 2) + big(3, 2) +
           big(0, 4) + big(6, 4) + "abcdef" + big(static_cast<int>(all.size()), 4) + all;
}

// A layer of one colour, its alpha in rows of a run each.
Layer flat(CXRect rect, const char * name, unsigned rgb, int alpha) {
    auto pixels = static_cast<std::size_t>(rect.Width() * rect.Height());
    Layer layer{rect, name, {}, "", ""};
    for (int c = 0; c < 3; c++)
        layer.channels.emplace_back(c, raw(std::string(pixels, static_cast<char>(rgb >> (16 - 8 * c)))));
    if (alpha < 0) return layer;
    std::string lengths, rows;
    for (int y = 0; y < rect.Height(); y++) {
        lengths += big(2, 2);
        rows += static_cast<char>(1 - rect.Width());
        rows += static_cast<char>(alpha);
    }
    layer.channels.emplace_back(-1, big(1, 2) + lengths + rows);
    return layer;
}

class CPSDTest : public test::InGame {
protected:
    CCommandLine6 logging_{"-log"};
    CWindow display_{nullptr, &logging_, &language_, {800, 600}, nullptr, "", true};
};

TEST_F(CPSDTest, LayersBecomePixelObjects) {
    Layer low = flat({0, 0, 3, 2}, "ground", 0xFF8008, -1);
    low.more = "8BIMluni" + big(5, 4) + "12345" + "8BIMlyid" + big(0, 4);
    low.mask = std::string(20, 'm');
    Layer high = flat({1, 1, 3, 3}, "sky", 0x0000FF, 128);
    high.channels.emplace_back(-2, raw("mask"));                 // dropped
    high.channels.emplace_back(7, big(9, 2) + "not to be read"); // coded in an unknown way
    high.more = "8B64abcd" + big(0, 8);
    put("p.psd", psd({4, 3}, {low, high, flat({-2, -2, 0, 0}, "", 0x123456, 255)}, -3));
    CPSD picture(&window_, "p.psd");
    ASSERT_EQ(picture.GetLayerNo(), 3);
    EXPECT_EQ(picture.GetSelLayer(), 0);
    EXPECT_EQ(picture.GetLayerName(-1), "ground");
    EXPECT_EQ(picture.GetLayerName(1), "sky");
    EXPECT_EQ(picture.GetLayerName(2) + picture.GetLayerName(3) + picture.GetLayerName(-2), "");

    CGraphicsObject * ground = picture.GetCurrentLayer();
    EXPECT_EQ(ground->GetBpp(), 24);
    EXPECT_EQ(std::string(ground->GetDataPtr(), 6), "\x08\x80\xFF\x08\x80\xFF");
    EXPECT_EQ(ground->GetChannelAlpha(), nullptr);
    EXPECT_EQ(ground->getFileName(), "ground");
    picture.SelectLayer("sky");
    picture.SelectLayer("nothing");
    picture.SelectLayer(9);
    EXPECT_EQ(picture.GetSelLayer(), 1);
    CGraphicsObject * sky = picture.GetCurrentLayer();
    EXPECT_EQ(sky->GetPosition(), CXPoint(1, 1));
    EXPECT_EQ(test::alpha(*sky), test::Bytes(4, 128));

    picture.SetPosition({5, -7});
    EXPECT_EQ(picture.GetLayerRect(0), CXRect(5, 1, 7, 3)); // a negative place doesn't move it
    EXPECT_EQ(sky->GetPosition(), CXPoint(5, -7));
    EXPECT_EQ(picture.GetPosition(), CXPoint(5, -7));
}

TEST_F(CPSDTest, ShowsItsLayersFlattened) {
    put("p.psd", psd({3, 2}, {flat({0, 0, 2, 2}, "a", 0xFFFFFF, -1), flat({1, 0, 4, 1}, "b", 0x0000FF, 128),
                              flat({0, 1, 1, 9}, "c", 0x00FF00, 255)}));
    ASSERT_EQ(display_.SetDisplayMode(800, 600, 15), 0);
    CImageFile file(&display_);
    EXPECT_EQ(file.Load("P.PSD"), kFileLayered);
    std::unique_ptr<CGraphicsObject> picture(file.GetGraphicsObject());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->Size(), CXSize(3, 2));
    EXPECT_EQ(picture->GetBpp(), 15);
    // white; half blue over white; half blue over nothing / green over white; white; nothing
    EXPECT_EQ(test::words(*picture),
              (test::Words{0x7FFF, 15 << 10 | 15 << 5 | 31, 31, 0x1F << 5 & 0x3E0, 0x7FFF, 0}));
    EXPECT_EQ(test::alpha(*picture), (test::Bytes{255, 255, 128, 255, 255, 0}));

    put("full.psd", psd({2, 2}, {flat({-5, 0, 2, 2}, "a", 0xFF0000, 255)}));
    CPSD full(&display_, "full.psd");
    EXPECT_EQ(test::words(full), test::Words(4, 0x7C00));
    EXPECT_EQ(full.GetChannelAlpha(), nullptr);
}

TEST_F(CPSDTest, DamagedFilesLeaveItEmpty) {
    std::string good = psd({2, 2}, {flat({0, 0, 2, 2}, "a", 0, 255)});
    std::vector<std::string> files;
    for (std::size_t n = 0; n < good.size(); n++) files.push_back(good.substr(0, n)); // cut anywhere
    files.push_back(psd({2, 2}, {{{0, 0, 100000, 100000}, "huge", {{0, raw("abc")}}, "", ""}}));
    files.push_back(psd({2, 2}, {{{5, 0, 2, 2}, "turned", {{0, raw("abc")}}, "", ""}}));
    files.push_back(
        psd({2, 2}, {{{0, 0, 30000, 1}, "from nothing", {{0, big(1, 2) + big(2, 2) + "ab"}}, "", ""}}));
    std::string deep = good;
    deep[23] = 16;
    files.push_back(deep);
    for (const std::string & bytes : files) {
        psd::File file;
        ASSERT_NE(psd::read(bytes, file), nullptr) << bytes.size();
    }
    put("bad.psd", files.back());
    CPSD picture(&window_, "bad.psd");
    EXPECT_EQ(picture.LastError(), CFile::kNotFound);
    EXPECT_EQ(picture.GetLayerNo(), 0);
    EXPECT_EQ(picture.GetCurrentLayer(), nullptr);
    EXPECT_EQ(picture.GetDataPtr(), nullptr);
    EXPECT_EQ(picture.GetLayerRect(0), CXRect());
    EXPECT_NE(get("Tarnook.log").find("Picture bad.psd is damaged: only eight bits a channel are read\n"),
              std::string::npos);
    EXPECT_EQ(CPSD(&window_, "missing.psd").LastError(), CFile::kNotFound);
}

// A file that another program wrote, where that program is there.
TEST_F(CPSDTest, FilesOfAnotherProgram) {
    std::string command =
        "cd '" + folder() +
        "' && convert -version 2>/dev/null | grep -q ImageMagick && convert -depth 8 -size 7x5 xc:white "
        "\\( -size 7x5 xc:red -set label red \\) \\( -size 3x4 xc:#0000FF80 -repage +2+1 -set label "
        "blue \\) made.psd 2>/dev/null";
    if (std::system(command.c_str()) != 0) GTEST_SKIP() << "ImageMagick isn't here";
    CPSD picture(&window_, "made.psd");
    ASSERT_GE(picture.GetLayerNo(), 2);
    picture.SelectLayer(picture.GetLayerNo() - 1);
    EXPECT_EQ(picture.GetLayerName(-1), "blue");
    EXPECT_EQ(picture.GetLayerRect(0), CXRect(2, 1, 5, 5));
    EXPECT_EQ(test::alpha(*picture.GetCurrentLayer()), test::Bytes(12, 128));
    EXPECT_EQ(test::words(picture)[0], 0xF800);
    EXPECT_EQ(test::words(picture)[7 + 2], 15 << 11 | 16);
}

} // namespace
