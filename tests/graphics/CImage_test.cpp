#include "graphics/CImage.h"

#include "Picture.h"
#include "PictureFiles.h"
#include "files/CFile_Stream.h"
#include "files/CLZWCompression.h"
#include "files/CLZWCompression2.h"
#include "files/CRLECompression.h"
#include "files/InGame.h"
#include "graphics/CImageFile.h"
#include "graphics/ImgFile.h"
#include "graphics/JPEG.h"
#include "script/CMElement.h"
#include "script/CMElementCreator.h"

namespace {

using namespace std::string_literals;
using test::Bytes;
using test::number;
using test::plane;
using test::Tnk;
using test::Words;

std::string lzo(std::string bytes) {
    int size = 0;
    CLZWCompression2 coder(bytes.data(), static_cast<int>(bytes.size()));
    std::unique_ptr<char[]> made(coder.compress(size));
    return {made.get(), static_cast<std::size_t>(size) + 8};
}

std::string lzw(std::string bytes) {
    int size = 0;
    CLZWCompression coder(bytes.data(), static_cast<int>(bytes.size()));
    std::unique_ptr<char[]> made(coder.compress(size));
    return {made.get(), static_cast<std::size_t>(size)};
}

std::string rle(const std::string & bytes, bool words) {
    int size = 0, n = static_cast<int>(bytes.size());
    std::unique_ptr<char[]> made(words ? CRLECompression::__compress(bytes.data(), n, size)
                                       : CRLECompression::__compresschar(bytes.data(), n, size));
    return {made.get(), static_cast<std::size_t>(size)};
}

std::string nvi(int depth, int compression, const std::string & colour, const std::string & alpha) {
    return "NVI\0"s + number(2, 2) + number(2, 2) + number(depth, 1) +
           number(static_cast<int>(colour.size()), 4) + number(static_cast<int>(alpha.size()), 4) +
           number(-3, 2) + number(9, 2) + number(compression, 4) + std::string(12, 'u') + colour + alpha;
}

std::string legacy(int flags, const std::string & planes) {
    return std::string(80, 'l') + number(2, 2) + number(2, 2) + std::string(6, 'm') + number(flags, 2) +
           planes;
}

const Words kWords = {0x1234, 0xF800, 0x1234, 0x001F};
const std::string kColour = plane(kWords), kAlpha = "\x01\x80\xFF\0"s;
const Bytes kAlphaBytes = {1, 128, 255, 0};

class CImageTest : public test::InGame {
protected:
    CCommandLine6 logging_{"-log"};
    CWindow display_{nullptr, &logging_, &language_, {800, 600}, nullptr, "", true};
};

int loaded(CImage & image, const std::string & bytes) {
    std::vector<char> exact(bytes.begin(), bytes.end());
    CFile_Stream file(exact.data(), static_cast<int>(exact.size()));
    return image.Load(&file);
}

TEST_F(CImageTest, EveryLayoutAndCompression) {
    struct {
        const char * what;
        std::string bytes;
        int depth;
        Bytes alpha;
    } const cases[] = {
        {"raw", Tnk{.colour = kColour}.bytes(), 16, {}},
        {"raw with alpha", Tnk{.depth = 4, .colour = kColour, .alpha = kAlpha}.bytes(), 16, kAlphaBytes},
        {"depth code 2", Tnk{.depth = 2, .colour = kColour}.bytes(), 15, {}},
        {"colour size counts for JPEG alone", Tnk{.colourSize = 1, .colour = kColour}.bytes(), 16, {}},
        {"LZO", Tnk{.compression = 2, .colour = lzo(kColour), .alpha = lzo(kAlpha)}.bytes(), 16, kAlphaBytes},
        {"LZO without saying so", Tnk{.colour = lzo(kColour), .alpha = lzo(kAlpha)}.bytes(), 16, kAlphaBytes},
        {"LZO over runs",
         Tnk{.compression = 3, .colour = lzo(rle(kColour, true)), .alpha = lzo(rle(kAlpha, false))}.bytes(),
         16, kAlphaBytes},
        {"runs", Tnk{.compression = 4, .colour = rle(kColour, true), .alpha = rle(kAlpha, false)}.bytes(), 16,
         kAlphaBytes},
        {"older, raw", nvi(16, 0, kColour, ""), 16, {}},
        {"older, raw with alpha", nvi(15, 0, kColour, kAlpha), 15, kAlphaBytes},
        {"older, packed", nvi(16, 2, lzw(kColour), lzw(kAlpha)), 16, kAlphaBytes},
        {"oldest, raw", legacy(4, kColour), 16, {}},
        {"oldest, with alpha", legacy(2 | 1 << 10, kColour + kAlpha), 15, kAlphaBytes},
        {"oldest, packed, raw alpha", legacy(4 | 1 << 10, lzo(kColour) + kAlpha), 16, kAlphaBytes},
    };
    for (const auto & test : cases) {
        SCOPED_TRACE(test.what);
        CImage image(nullptr);
        ASSERT_EQ(loaded(image, test.bytes), 0);
        bool coded = image.GetCompression() == kCompressionRle;
        EXPECT_EQ(coded, "runs"s == test.what || "LZO over runs"s == test.what);
        EXPECT_EQ(image.GetPixel(kChannelAlpha, {1, 0}), test.alpha.empty() ? 0 : 128); // of coded planes too
        image.DeCompressRLE2();
        EXPECT_EQ(image.GetCompression(), kCompressionNone);
        EXPECT_EQ(image.Size(), CXSize(2, 2));
        EXPECT_EQ(image.GetPitch(), 2);
        EXPECT_EQ(image.GetBpp(), test.depth);
        EXPECT_EQ(test::words(image), kWords);
        EXPECT_EQ(test::alpha(image), test.alpha);
        EXPECT_EQ(image.GetChannelSize(3), static_cast<int>(test.alpha.size()));
    }
}

TEST_F(CImageTest, JpegInAPicture) {
    std::string file = test::jpeg(8, 8, std::vector<unsigned char>(192, 0xFF));
    Tnk tnk{8, 8, 15, static_cast<int>(file.size()), 5, 0, 0, file + "rest", lzo(std::string(64, 7))};
    CImage image(nullptr);
    ASSERT_EQ(loaded(image, tnk.bytes()), 0);
    EXPECT_EQ(test::words(image), Words(64, 0x7FFF));
    EXPECT_EQ(test::alpha(image), Bytes(64, 7));
    tnk.depth = 24; // words all the same
    ASSERT_EQ(loaded(image, tnk.bytes()), 0);
    EXPECT_EQ(image.GetBpp(), 16);
    EXPECT_EQ(test::words(image), Words(64, 0xFFFF));
    tnk.width = 9; // not the size of the picture in it
    EXPECT_NE(loaded(image, tnk.bytes()), 0);
}

TEST_F(CImageTest, PlacesAndShortPlanes) {
    CImage image(nullptr);
    loaded(image, Tnk{.x = 70000, .y = -5, .colour = kColour, .alpha = "\x01\x02"s}.bytes());
    EXPECT_EQ(image.GetPosition(), CXPoint(70000, -5));
    EXPECT_EQ(test::alpha(image), (Bytes{1, 2, 0, 0}));
    loaded(image, nvi(16, 0, kColour.substr(0, 5), ""));
    EXPECT_EQ(image.GetPosition(), CXPoint(-3, 9));
    EXPECT_EQ(test::words(image), (Words{0x1234, 0xF800, 0x34, 0}));
    // Planes in a coding that nobody knows are kept as they are, and never drawn.
    ASSERT_EQ(loaded(image, Tnk{.compression = 9, .colour = "xyz"}.bytes()), 0);
    EXPECT_EQ(image.GetPixel(1, 1).GetInBPP(16), 0);
    CGraphicsObject onto(nullptr, {2, 2}, 16);
    image.redraw(&onto);
}

TEST_F(CImageTest, DamagedFilesLeaveItEmpty) {
    struct {
        const char * what;
        std::string bytes;
    } const cases[] = {
        {"nothing", ""},
        {"half a head", Tnk{}.bytes().substr(0, 39)},
        {"half an older head", nvi(16, 0, "", "").substr(0, 36)},
        {"half an oldest head", legacy(4, "").substr(0, 91)},
        {"no width", Tnk{.width = 0, .colour = kColour}.bytes()},
        {"negative height", Tnk{.height = -2, .colour = kColour}.bytes()},
        {"a product beyond 32 bits", Tnk{.width = 0x10000, .height = 0x10001, .colour = kColour}.bytes()},
        {"too large", Tnk{.width = 1 << 14, .height = (1 << 13) + 1, .colour = kColour}.bytes()},
        {"unknown depth", Tnk{.depth = 17, .colour = kColour}.bytes()},
        {"no depth", legacy(0, kColour)},
        {"alpha beyond the end", Tnk{.alpha = kAlpha}.bytes().substr(0, 41)},
        {"an oldest one's alpha beyond the end", legacy(4 | 1 << 10, "abc")},
        {"no block", Tnk{.compression = 2, .colour = "abcdefghijkl"}.bytes()},
        {"raw but too short", Tnk{.colour = kColour.substr(1)}.bytes()},
        {"no JPEG", Tnk{.colourSize = 8, .compression = 5, .colour = kColour}.bytes()},
        {"no older block", nvi(16, 2, "abcd", "")},
    };
    std::size_t before = get("Tarnook.log").size();
    for (const auto & test : cases) {
        SCOPED_TRACE(test.what);
        CImage image(nullptr);
        image.setFileName("bad.img");
        EXPECT_EQ(loaded(image, test.bytes), CFile::kNotFound);
        EXPECT_EQ(image.GetDataPtr(), nullptr);
    }
    std::string lines = get("Tarnook.log").substr(before);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), static_cast<long>(std::size(cases)));
    EXPECT_NE(lines.find("Picture bad.img is damaged: the alpha plane is larger than the file\n"),
              std::string::npos);
}

TEST_F(CImageTest, LoadsByNameForTheDisplay) {
    put("sub/PICTURE.IMG", Tnk{.depth = 15, .colour = plane({0x7FFF, 0x03E0, 1, 0})}.bytes());
    ASSERT_EQ(display_.SetDisplayMode(800, 600, 16), 0);
    CImage image(&display_, "sub\\PICTURE.IMG");
    EXPECT_EQ(image.LastError(), 0);
    EXPECT_EQ(image.getFileName(), "sub\\picture.img");
    EXPECT_EQ(static_cast<CGraphicsObject &>(image).getFileName(), "sub\\picture.img");
    EXPECT_TRUE(image.isLoaded());
    EXPECT_EQ(image.GetBpp(), 16);
    EXPECT_EQ(test::words(image), (Words{0xFFDF, 0x07C0, 1, 0}));
    EXPECT_EQ(image.Load("sub\\picture.img", false), 0);
    EXPECT_EQ(image.GetBpp(), 15);
    EXPECT_EQ(image.Load("sub\\other.img", true), CFile::kNotFound);
    EXPECT_EQ(image.LastError(), CFile::kNotFound);
    EXPECT_EQ(image.GetDataPtr(), nullptr);
    EXPECT_FALSE(image.isLoaded());
}

TEST_F(CImageTest, JpegFilesUnderAnyOtherName) {
    std::vector<unsigned char> samples;
    for (int i = 0; i < 64; i++) samples.insert(samples.end(), {255, 128, 7});
    std::string file = test::jpeg(8, 8, samples);
    struct {
        const char * name;
        std::string bytes;
        std::uint16_t pixel; // 0: it can't be read
    } const cases[] = {
        {"a.jpg", file, 0xFC00},
        {"a.dat", test::jpeg(8, 8, samples, 3, true), 0xFC00},
        {"grey.jpeg", test::jpeg(8, 8, std::vector<unsigned char>(64, 136)), 0},
        {"print.jpg", test::jpeg(8, 8, std::vector<unsigned char>(256, 9), 4), 0},
        {"cut.jpg", file.substr(0, file.size() - 12), 0},
        {"without_end.jpg", file.substr(0, file.size() - 2), 0xFC00},
        {"head.jpg", file.substr(0, 100), 0},
        {"empty.jpg", "", 0},
        {"bitmap.bmp", "BM" + std::string(200, 'x'), 0},
    };
    ASSERT_EQ(display_.SetDisplayMode(800, 600, 32), 0);
    for (const auto & test : cases) {
        SCOPED_TRACE(test.name);
        std::string bytes =
            test.name == "grey.jpeg"s ? test::jpeg(8, 8, std::vector<unsigned char>(64, 136), 1) : test.bytes;
        std::uint16_t pixel = test.name == "grey.jpeg"s ? 0x8C51 : test.pixel;
        put(test.name, bytes);
        CImage image(&display_, test.name);
        EXPECT_EQ(image.LastError(), pixel ? 0 : CFile::kNotFound);
        EXPECT_EQ(test::words(image), pixel ? Words(64, pixel) : Words());
        EXPECT_EQ(image.GetChannelAlpha(), nullptr);
        EXPECT_FALSE(image.isLoaded());
    }
    EXPECT_EQ(CImage(&display_, "missing.jpg").LastError(), CFile::kNotFound);
    std::string bomb = test::jpeg(8, 8, samples);
    bomb.replace(bomb.find("\xFF\xC0") + 5, 4, "\xFF\xF0\xFF\xF0"); // 65520 x 65520
    EXPECT_EQ(JPEG(bomb.data(), static_cast<long>(bomb.size())).decompress(16), nullptr);
}

TEST_F(CImageTest, ReleaseAfterUse) {
    put("a.img", Tnk{.colour = kColour}.bytes());
    auto made = [&](std::initializer_list<std::pair<const char *, const char *>> keys) {
        CMElement element("I");
        for (auto [key, value] : keys) element.addProperty(key, value);
        return std::make_unique<CImage>(&window_, &element);
    };
    auto hidden = made({{"FILENAME", "a.img"}, {"RELEASEAFTERUSE", "TRUE"}});
    EXPECT_TRUE(hidden->isLoaded() && hidden->isToRelease() && !hidden->isVisible());
    hidden->hide();
    EXPECT_EQ(hidden->GetDataPtr(), nullptr);
    EXPECT_FALSE(hidden->isLoaded());
    hidden->show();
    EXPECT_TRUE(hidden->isLoaded() && hidden->isVisible() && test::words(*hidden) == kWords);

    auto late = made({{"FILENAME", "a.img"}, {"PRELOAD", "FALSE"}});
    EXPECT_FALSE(late->isLoaded());
    late->show();
    EXPECT_TRUE(late->isLoaded());
    late->hide();
    EXPECT_TRUE(late->isLoaded());
    EXPECT_TRUE(made({{"FILENAME", "a.img"}, {"PRELOAD", "FALSE"}, {"VISIBLE", "TRUE"}})->isLoaded());
    EXPECT_FALSE(made({{"VISIBLE", "FALSE"}, {"RELEASEAFTERUSE", "TRUE"}})->isToRelease());

    CMElement element("I");
    for (auto [key, value] : {std::pair{"TYPE", "IMAGE"}, {"FILENAME", "a.img"}})
        element.addProperty(key, value);
    std::unique_ptr<CXObject> object(CMElementCreator::createObject(&window_, &element));
    auto * image = dynamic_cast<CImage *>(object.get());
    ASSERT_TRUE(image);
    EXPECT_TRUE(image->isLoaded() && !image->isVisible());
}

TEST_F(CImageTest, CopiesShareThePixels) {
    CImage image(&window_);
    loaded(image, Tnk{.colour = kColour}.bytes());
    image.setFileName("a.img");
    std::unique_ptr<CGraphicsObject> clone(image.clone());
    CImage copy(image);
    EXPECT_EQ(copy.GetDataPtr(), image.GetDataPtr());
    EXPECT_EQ(clone->GetDataPtr(), image.GetDataPtr());
    EXPECT_EQ(static_cast<CGraphicsObject &>(copy).getFileName(), "");
    copy.flush();
    clone.reset();
    EXPECT_EQ(test::words(image), kWords);
}

TEST_F(CImageTest, SavesWhatTheClipShows) {
    CGraphicsObject object(&window_, {50, 60}, 16);
    object.alloc({50, 60}, 16, true);
    object.SetPosition(100, 100);
    for (int i = 0; i < 3000; i++) {
        object.GetDataPtr()[i * 2] = static_cast<char>(i);
        object.GetDataPtr()[i * 2 + 1] = static_cast<char>(i >> 8);
        object.GetChannelAlpha()[i] = static_cast<char>(i);
    }
    object.SetClippingRect({10, 20, 30, 40});
    CImageFile file(&window_);
    EXPECT_EQ(file.Save(&object, "clip.img", kCompressionNone), kFileImage);
    img::Head head;
    std::string bytes = get("clip.img");
    ASSERT_EQ(img::read(bytes, head), nullptr);
    EXPECT_EQ(bytes.size(), 40u + 800 + 400);
    EXPECT_EQ(number(head.width, 1) + number(head.height, 1) + number(head.x, 1) + number(head.y, 1),
              "\x14\x14\x6E\x78");
    EXPECT_EQ(bytes.substr(16, 8), number(800, 4) + number(0, 4));

    EXPECT_EQ(file.Load("CLIP.IMG"), kFileImage);
    std::unique_ptr<CGraphicsObject> again(file.GetGraphicsObject());
    EXPECT_EQ(test::words(*again)[0], 20 * 50 + 10);
    EXPECT_EQ(test::words(*again)[399], 39 * 50 + 29);
    EXPECT_EQ(test::alpha(*again)[1], static_cast<std::uint8_t>(20 * 50 + 11));
    EXPECT_EQ(file.Load("clip.pcx"), CImageFile::kUnknown);
    EXPECT_EQ(file.GetGraphicsObject(), nullptr);
}

} // namespace
