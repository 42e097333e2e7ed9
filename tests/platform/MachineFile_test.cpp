// Open files: modes, text reading, positions.

#include "platform/files/FileSystem.h"

#include "support/InWorld.h"

namespace {

class File : public test::InWorld {
protected:
    std::unique_ptr<platform::File> open(const char * mode, const char * name = "f") {
        return world().files->open(name, mode);
    }
    static std::string read(platform::File & file, std::size_t bytes) {
        std::string block(bytes, '\0');
        block.resize(file.read(block.data(), bytes));
        return block;
    }
    static bool write(platform::File & file, std::string_view bytes) {
        return file.write(bytes.data(), bytes.size()) == bytes.size();
    }
};

TEST_F(File, Modes) {
    struct {
        const char * mode;
        bool opensNew, reads, writes;
        const char * then; // the file that held "old", after writing X where it stands
    } const cases[] = {
        {"r", false, true, false, "old"},  {"rb", false, true, false, "old"},
        {"rt", false, true, false, "old"}, {"r+b", false, true, true, "Xld"},
        {"rb+", false, true, true, "Xld"}, {"r+t", false, true, true, "Xld"},
        {"w", true, false, true, "X"},     {"wb", true, false, true, "X"},
        {"w+b", true, true, true, "X"},    {"wt+", true, true, true, "X"},
        {"ab", true, false, true, "oldX"}, {"a+b", true, true, true, "oldX"},
    };
    for (const auto & c : cases) {
        put("f", "old");
        auto file = open(c.mode);
        ASSERT_TRUE(file) << c.mode;
        EXPECT_EQ(write(*file, "X") && file->flush() == 0, c.writes) << c.mode;
        EXPECT_EQ(file->seek(0, 0), 0) << c.mode;
        EXPECT_EQ(read(*file, 1) != "", c.reads) << c.mode;
        file.reset();
        EXPECT_EQ(get("f"), c.then) << c.mode;
        EXPECT_EQ(open(c.mode, ("new" + std::string(c.mode)).c_str()) != nullptr, c.opensNew) << c.mode;
        EXPECT_EQ(exists("new" + std::string(c.mode)), c.opensNew) << c.mode;
        EXPECT_FALSE(open(c.mode, ".")) << c.mode;
    }
    for (const char * wrong : {"", "x", "b", "+r"}) EXPECT_FALSE(open(wrong)) << wrong;
}

TEST_F(File, TextReadingTurnsLineEnds) {
    struct {
        const char *raw, *text;
    } const cases[] = {
        {"a\r\nb\r\n", "a\nb\n"},
        {"a\rb\nc", "a\rb\nc"},
        {"\r\r\n\r", "\r\n\r"},
        {"\n\r\n\r\r", "\n\n\r\r"},
        {"", ""},
    };
    for (const auto & c : cases) {
        put("f", c.raw);
        for (std::size_t step : {1, 2, 3, 100}) {
            auto file = open("rt");
            std::string text, part;
            while (!(part = read(*file, step)).empty()) {
                EXPECT_TRUE(part.size() == step || file->eof()) << c.raw;
                text += part;
            }
            EXPECT_EQ(text, c.text) << "in steps of " << step;
            EXPECT_TRUE(file->eof());
        }
        EXPECT_EQ(read(*open("rb"), 100), c.raw);
    }
}

// A line end that the stream's own buffer cuts in two, whatever that buffer's size.
TEST_F(File, TextReadingAcrossBuffers) {
    std::string raw, text;
    for (int i = 0; i < 40000; i++) {
        raw += i % 3 ? "\r\n" : "\r\n-\r";
        text += i % 3 ? "\n" : "\n-\r";
    }
    for (const char * shift : {"", "x"}) {
        put("f", shift + raw);
        EXPECT_EQ(read(*open("r"), 200000), shift + text);
    }
    auto file = open("w");
    EXPECT_TRUE(write(*file, "a\nb\r\n"));
    file.reset();
    EXPECT_EQ(get("f"), "a\nb\r\n") << "a write adds nothing";
}

TEST_F(File, Lines) {
    put("f", "one\r\nlonger line\n\nlast");
    for (bool text : {true, false}) {
        auto file = open(text ? "r" : "rb");
        char line[8];
        std::string all;
        while (file->gets(line, sizeof line)) all += std::string(line) + "|";
        EXPECT_EQ(all, text ? "one\n|longer |line\n|\n|last|" : "one\r\n|longer |line\n|\n|last|");
        EXPECT_TRUE(file->eof());
        line[0] = '!';
        EXPECT_FALSE(file->gets(line, sizeof line));
        EXPECT_FALSE(file->gets(line, 0));
    }
}

TEST_F(File, PositionsAndTheEnd) {
    put("f", "0123456789");
    auto file = open("r+b");
    EXPECT_EQ(read(*file, 10), "0123456789");
    EXPECT_FALSE(file->eof()) << "the end has not been met yet";
    EXPECT_EQ(read(*file, 1), "");
    EXPECT_TRUE(file->eof());
    EXPECT_EQ(file->seek(-3, 2), 0);
    EXPECT_FALSE(file->eof());
    EXPECT_EQ(file->tell(), 7);
    EXPECT_EQ(read(*file, 1), "7");
    EXPECT_EQ(file->seek(-2, 1), 0);
    EXPECT_EQ(read(*file, 2), "67");
    EXPECT_NE(file->seek(-1, 0), 0);
    EXPECT_NE(file->seek(0, 3), 0);
    EXPECT_NE(file->seek(0, -1), 0);
    EXPECT_EQ(file->tell(), 8);
    // Turning from reading to writing and back without a seek between them goes on where it stands.
    EXPECT_TRUE(write(*file, "X"));
    EXPECT_EQ(read(*file, 5), "9");
    EXPECT_EQ(file->seek(1, 0), 0);
    EXPECT_TRUE(write(*file, "YZ"));
    file.reset();
    EXPECT_EQ(get("f"), "0YZ34567X9");
}

} // namespace
