// Pictures turned from one format into another, and what is told of files.

#include "Tool.h"

namespace {

using namespace std::string_literals;

std::string img(int x, int y, const std::string & colour, const std::string & alpha, int compression = 0) {
    std::string out("TNK", 4);
    for (int v : {2, 2, 16, 8, 0, compression, static_cast<int>(alpha.size()), x, y})
        for (int shift = 0; shift < 32; shift += 8) out += static_cast<char>(v >> shift);
    return out + colour + alpha;
}

const std::string kColour = "\x00\xF8\xE0\x07\x1F\x00\xFF\xFF"s; // red, green, blue, white
const std::string kAlpha = "\xFF\x80\x01\x00"s;

class PictureTool : public test::Tool {
protected:
    void good(const std::string & arguments, const std::string & out = "") {
        Result result = run(arguments);
        EXPECT_EQ(result.err, "") << arguments;
        EXPECT_EQ(result.out, out) << arguments;
        EXPECT_EQ(result.status, 0) << arguments;
    }
};

} // namespace

TEST_F(PictureTool, ThereAndBack) {
    std::string source = img(7, -3, kColour, kAlpha);
    put("a.img", source);
    for (const char * how : {"raw", "lzo", "lzo-rle", "rle"}) {
        good("image a.img b.img --compression "s + how);
        good("image b.img c.img --compression raw");
        EXPECT_EQ(get("c.img"), source) << how;
    }
    good("image a.img b.png");
    good("image b.png c.img --compression raw --at 7 -3");
    EXPECT_EQ(get("c.img"), source);
    good("image a.img d.img --depth 15 --compression raw --at 0 0");
    EXPECT_EQ(get("d.img").substr(40), "\x00\x7C\xE0\x03\x1F\x00\xFF\x7F"s + kAlpha);
    put("opaque.img", img(0, 0, kColour, "\xFF\xFF\xFF\xFF"));
    good("image opaque.img e.img --compression raw");
    EXPECT_EQ(get("e.img").size(), 48u);
}

// A shade between two that 16 bits can tell: both are there, in the measure that gives the shade from afar.
TEST_F(PictureTool, Dithered) {
    std::string grey = "P5 16 16 255\n" + std::string(256, '\x64');
    put("grey.pgm", grey);
    ASSERT_EQ(std::system(("cd '" + folder() + "' && convert grey.pgm grey.png").c_str()), 0);
    good("image grey.png soft.img --compression raw --dither");
    std::string soft = get("soft.img").substr(40);
    ASSERT_EQ(soft.size(), 512u);
    int sum = 0, kinds[32] = {};
    for (std::size_t i = 0; i < soft.size(); i += 2) {
        int blue = soft[i] & 31;
        sum += blue;
        kinds[blue]++;
    }
    EXPECT_EQ(kinds[12] + kinds[13], 256);
    EXPECT_NEAR(sum / 256.0, 100 * 31 / 255.0, 0.02);
}

TEST_F(PictureTool, Jpeg) {
    put("white.img", img(0, 0, std::string(8, '\xFF'), ""));
    good("image white.img w.jpg --quality 100");
    good("image w.jpg back.img --compression raw");
    EXPECT_EQ(get("back.img").substr(40), std::string(8, '\xFF'));
    good("info w.jpg", "JPEG picture\nsize: 2 x 2\n");
    good("image white.img j.img --compression jpeg --quality 95");
    std::string bytes = get("j.img");
    good("info j.img",
         "IMG picture, current layout\nsize: 2 x 2, 16 bits a pixel\nplace: 0, 0\ncolours: JPEG, " +
             std::to_string(bytes.size() - 40) + " bytes\n");
    good("image j.img back.img --compression raw");
    EXPECT_EQ(get("back.img").substr(40), std::string(8, '\xFF'));
}

TEST_F(PictureTool, LayersOfAPsd) {
    std::string make =
        "cd '" + folder() +
        "' && convert -version 2>/dev/null | grep -q ImageMagick && convert -depth 8 -size 3x2 xc:white "
        "\\( xc:red -set label low \\) \\( -size 1x1 xc:#0000FF80 -repage +2+1 -set label high \\) p.psd";
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "ImageMagick isn't here";
    good("info p.psd", "PSD picture\nsize: 3 x 2\nlayer 1: low, 3 x 2 at 0, 0, 3 channels\n"
                       "layer 2: high, 1 x 1 at 2, 1, 4 channels\n");
    good("image p.psd l.img --layers --compression raw", "l_1.img low\nl_2.img high\n");
    EXPECT_EQ(get("l_2.img").substr(32), "\x02\0\0\0\x01\0\0\0\x1F\0\x80"s);
    good("image p.psd flat.img --compression raw");
    EXPECT_EQ(get("flat.img").substr(40), "\0\xF8\0\xF8\0\xF8\0\xF8\0\xF8\x10\x78"s);
}

TEST_F(PictureTool, InfoTellsWhatAFileHolds) {
    put("a.img", img(7, -3, kColour, kAlpha, 4));
    put("old.IMG", std::string(80, 'x') + "\2\0\2\0"s + "mmmmmm" + "\4\4"s + kColour + kAlpha);
    put("coded.def", "{<C:6>}\nPALCFQ>@<E>\n");
    good("info a.img", "IMG picture, current layout\nsize: 2 x 2, 16 bits a pixel\nplace: 7, -3\n"
                       "colours: runs, 8 bytes\nalpha: runs, 4 bytes\n");
    good("info old.IMG", "IMG picture, legacy layout\nsize: 2 x 2, 16 bits a pixel\nplace: 0, 0\n"
                         "colours: raw, 8 bytes\nalpha: raw, 4 bytes\n");
    good("info coded.def", "coded text\n");
    put("b.img", img(0, 0, kColour, kAlpha));
    good("image b.img b.png");
    good("info b.png", "PNG picture\nsize: 2 x 2, with alpha\n");
}

TEST_F(PictureTool, OneLineOfWhatIsWrong) {
    put("cut.img", img(0, 0, kColour, kAlpha).substr(0, 39));
    put("bad.png", "\x89PNG\r\n\x1A\nrest");
    put("bad.jpg", "\xFF\xD8\xFFrest");
    put("bad.psd", "8BPSrest");
    put("text", "hello");
    put("good.img", img(0, 0, kColour, ""));
    struct {
        const char *arguments, *word;
        int status;
    } const cases[] = {
        {"image missing.img a.png", "no such file", 1},
        {"image cut.img a.png", "within its head", 1},
        {"image bad.png a.img", "bad.png", 1},
        {"image bad.jpg a.img", "bad.jpg", 1},
        {"image bad.psd a.img", "within its head", 1},
        {"image text a.img", "pictures end in", 1},
        {"image good.img a.bmp", "pictures end in", 1},
        {"image good.img a.psd", "read only", 1},
        {"image good.img a.png --layers", "layers", 1},
        {"image good.img a.img --depth 24", "--depth", 2},
        {"info text", "no known kind", 1},
        {"info cut.img", "within its head", 1},
    };
    for (const auto & test : cases) {
        Result result = run(test.arguments);
        EXPECT_EQ(result.status, test.status) << test.arguments;
        EXPECT_NE(result.err.find(test.word), std::string::npos) << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_FALSE(exists("a.img") || exists("a.png") || exists("a.psd"));
    }
}
