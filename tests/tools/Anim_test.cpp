// Animations taken apart and put together.

#include "Tool.h"
#include "graphics/AnnFile.h"
#include "graphics/Compression.h"

namespace {

using namespace std::string_literals;

class AnimTool : public test::Tool {
protected:
    AnimTool() {
        for (const char * name : {"up", "down"}) std::filesystem::create_directory(folder() + "/" + name);
    }
    // A PNG file of 2 x 2 pixels of which the last is transparent.
    void picture(const std::string & name, char shade) {
        std::string img("TNK", 4);
        for (int v : {2, 2, 16, 8, 0, 0, 4, 0, 0})
            for (int shift = 0; shift < 32; shift += 8) img += static_cast<char>(v >> shift);
        put("one.img", img + std::string(8, shade) + "\xFF\xFF\xFF"s + '\0');
        ASSERT_EQ(run("image one.img " + name).status, 0);
    }
    ann::File read(const std::string & name) {
        bytes = get(name);
        ann::File file;
        EXPECT_EQ(ann::read(bytes, file), nullptr);
        return file;
    }
    std::string bytes; // what the last file's planes look into
};

} // namespace

TEST_F(AnimTool, ThereAndBackWithoutLoss) {
    ann::File file;
    for (int depth : {15, 16}) {
        file = {};
        file.depth = depth;
        file.fps = 25;
        file.flags = kAnimoExclusive | kAnimoStreamsSounds;
        file.opacity = 200;
        file.randomFrames = 3;
        file.author = "J\xF3zef \"the\\pen\"\x01\x81";
        file.description = "two\r\nlines # no comment";
        ann::Frame solid, open, none;
        solid.width = 2, solid.height = 1, solid.x = -3, solid.y = 4;
        std::string colours = "\x34\x12\x21\x43", opaque = "\xFF\xFF", mixed("\x00\x7F", 2);
        solid.colour = open.colour = colours;
        open.width = 1, open.height = 2;
        open.alpha = mixed;
        ann::Frame kept = solid;
        kept.alpha = opaque;
        file.frames = {solid, open, none, kept};
        _annEventInfo3 walk, empty;
        walk.name = "Walk \xBFwawo";
        for (std::uint16_t i : {3, 0, 0, 2}) walk.add(i);
        walk.loopStart = 1, walk.loopEnd = 3, walk.loopCount = 7;
        walk.fps = -1;
        walk.flags = kAnimoPingPong | kAnimoRunsOn;
        walk.opacity = 9;
        walk.infos[1].name = "#1";
        walk.infos[1].text = "a b";
        walk.infos[1].x = -5, walk.infos[1].y = 6;
        walk.infos[1].mark = 77;
        walk.infos[2].soundName = "a.wav;b.wav";
        walk.infos[2].opacity = 0;
        empty.name = "";
        file.events = {walk, walk, empty};
        put("a.ann", ann::write(file));
        std::filesystem::remove_all(folder() + "/apart");
        Result apart = run("anim a.ann apart");
        EXPECT_EQ(apart.out + apart.err, "4 frames, 3 events\n");
        Result again = run("anim apart b.ann");
        EXPECT_EQ(again.out + again.err, "4 frames, 3 events\n");
        EXPECT_EQ(get("b.ann"), get("a.ann")) << get("apart/animation.txt");
    }
}

TEST_F(AnimTool, FromNamesAndFromAText) {
    picture("up/walk_02.png", 2);
    picture("up/walk_01.png", 1);
    picture("up/Jump_1.png", 3);
    EXPECT_EQ(run("anim up a.ann --compression raw").out, "3 frames, 2 events\n");
    ann::File file = read("a.ann");
    ASSERT_EQ(file.events.size(), 2u);
    EXPECT_EQ(file.events[0].name, "JUMP");
    EXPECT_EQ(file.events[1].name, "WALK");
    EXPECT_EQ(file.events[1].frames, (std::vector<std::uint16_t>{1, 2}));
    EXPECT_EQ(file.frames[2].colour[0], 2);
    EXPECT_EQ(run("info a.ann").out,
              "ANN animation, layout NVP\ndepth: 16 bits a pixel\nframes: 3\nevent JUMP: 1 entries, 15 fps\n"
              "event WALK: 2 entries, 15 fps\nframe 0: 2 x 2 at 0, 0, raw, with alpha\n"
              "frame 1: 2 x 2 at 0, 0, raw, with alpha\nframe 2: 2 x 2 at 0, 0, raw, with alpha\n");

    put("up/animation.txt", "# A walk.\ndepth 15\n\nevent WALK fps 8 loop\nentry 1 sound step.wav at 1 -1\n"
                            "event BACK loop 0 1 2\nshow walk_02.png name \"the last\"\nshow walk_01.png\n");
    EXPECT_EQ(run("anim up a.ann --at 10 20").out, "3 frames, 2 events\n");
    file = read("a.ann");
    EXPECT_EQ(file.depth, 15);
    EXPECT_EQ(file.events[0].fps, 8);
    EXPECT_EQ(file.events[0].loopEnd, 1);
    EXPECT_EQ(file.events[0].infos[1].soundName, "step.wav");
    EXPECT_EQ(file.events[0].infos[1].y, -1);
    EXPECT_EQ(file.events[1].frames, (std::vector<std::uint16_t>{2, 1}));
    EXPECT_EQ(file.events[1].loopCount, 2);
    EXPECT_EQ(file.events[1].infos[0].name, "the last");
    EXPECT_EQ(file.frames[0].y, 20);
}

TEST_F(AnimTool, SaysWhatIsWrong) {
    picture("up/walk_01.png", 1);
    struct {
        const char * text;
        const char * words;
    } const cases[] = {
        {"show walk_01.png\n", "1: an event must be declared first"},
        {"\nevent A\nshow nine.png\n", "2: shows nine.png, which is no frame"},
        {"event WALK\nentry 1 mark 5\n", "1: has no entry 1; they count from 0"},
        {"event WALK fps fast\n", "1: fps is a number from -2147483648 to 2147483647, not fast"},
        {"event WALK lop\n", "1: an event has fps, loop, opacity and flags, not lop"},
        {"depth 24\n", "1: the depth is a number from 15 to 16, not 24"},
        {"author \"half\n", "1: a closing quote is missing"},
        {"depth 16 17\n", "1: too many words: 17"},
    };
    for (const auto & each : cases) {
        put("up/animation.txt", each.text);
        Result result = run("anim up a.ann");
        EXPECT_NE(result.status, 0) << each.text;
        EXPECT_EQ(result.err, "tarnook-tool: up/animation.txt:"s + each.words + "\n");
    }
    EXPECT_EQ(run("anim down a.ann").err,
              "tarnook-tool: down: holds neither PNG files nor an animation.txt\n");
    put("bad.ann", "NVP");
    EXPECT_NE(run("anim bad.ann x").status, 0);
}
