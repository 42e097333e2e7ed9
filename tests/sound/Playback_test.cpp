// Sound effects and SOUND, heard through a recording of the headless device.

#include "platform/audio/ClockedSound.h"
#include "platform/audio/WavRecorder.h"
#include "sound/CMC_Sound.h"
#include "sound/CSndStream.h"
#include "sound/CSound4.h"
#include "sound/CStreamedWAV.h"
#include "sound/MusicPlayer.h"
#include "support/InPlay.h"
#include "support/Waves.h"

#include <gtest/gtest.h>

namespace {

constexpr int kRate = 22050;

// A ramp that names each frame: 100, 101, ...
std::vector<int> ramp(int frames, int first = 100) {
    std::vector<int> values(static_cast<std::size_t>(frames));
    for (int i = 0; i < frames; i++) values[static_cast<std::size_t>(i)] = first + i;
    return values;
}

class Playback : public test::InPlay {
protected:
    Playback() {
        put("Wavs/a.wav", test::wav(1, kRate, 16, test::words(ramp(2205)))); // 100 ms
        put("Wavs/b.wav", test::wav(1, kRate, 16, test::words(ramp(441))));  // 20 ms
    }
    void play(const std::string & lines) {
        define("Dane/A.cnv", lines);
        ASSERT_TRUE(start());
        tick();
        told();
    }
    void record() { ASSERT_TRUE(world().sound->record(folder() + "/out.wav")); }
    // What was heard since record().
    test::Frames heard() {
        EXPECT_TRUE(world().sound->record(folder() + "/other.wav"));
        return test::framesOf(get("out.wav"));
    }
    std::string after(const std::string & code, int ticks, unsigned step = 10) {
        told();
        run(code);
        tick(ticks, step);
        return told();
    }
};

const char * const kTelling = "S TYPE=SOUND\n S FILENAME=a.wav\n S ONSTARTED={@MSGBOX(\"started\");}\n"
                              "S ONFINISHED={@MSGBOX(\"finished\");}\n S ONRESUMED={@MSGBOX(\"resumed\");}\n";

} // namespace

TEST_F(Playback, ArrivesSampleForSampleAndTellsItsEndInTheTickBehindIt) {
    play(kTelling);
    record();
    EXPECT_EQ(after("S^PLAY();@MSGBOX(S^ISPLAYING());", 10), "started; TRUE");
    EXPECT_EQ(after("", 1), "finished"); // 100 ms are over
    test::Frames frames = heard();
    ASSERT_GE(frames.size(), 2205u);
    for (int i = 0; i < 2205; i++)
        ASSERT_EQ(frames[static_cast<std::size_t>(i)], (test::Frame{100 + i, 100 + i})) << i;
    for (std::size_t i = 2205; i < frames.size(); i++) ASSERT_EQ(frames[i], (test::Frame{0, 0}));
    EXPECT_EQ(after("@MSGBOX(S^ISPLAYING());", 1), "FALSE");
}

TEST_F(Playback, StoppingPausingAndPlayingAgain) {
    play(kTelling);
    struct {
        const char * code;
        int ticks;
        const char * expected;
    } const rows[] = {
        {"S^STOP();S^RESUME();S^PAUSE();", 2, ""}, // nothing plays
        {"S^PLAY();", 3, "started"},
        {"S^STOP();@MSGBOX(S^ISPLAYING());", 2, "FALSE; finished"}, // told by the next tick
        {"S^PLAY();S^STOP(FALSE);", 3, "started"},
        {"S^PLAY();", 3, "started"}, // the next play reports again
        {"S^PAUSE();@MSGBOX(S^ISPLAYING());", 30, "FALSE"},
        {"S^RESUME();", 5, "resumed"}, // 30 ms were heard before
        {"", 4, "finished"},
        {"S^PLAY();S^PLAY();", 11, "started; started; finished"},
        {"S^PLAY();", 5, "started"},
        {"S^PLAY();", 8, "started"}, // from the start again
        {"", 4, "finished"},
        {"S^PLAY();S^PAUSE();S^STOP();", 2, "started; finished"},
        {"S^ADDBEHAVIOUR(\"ONFINISHED\",\"AGAIN\");", 1, ""},
        {"A^PAUSE();", 2, ""},
        {"S^PLAY();A^RESUME();A^PAUSE();", 20, "started"}, // the scene's pause takes what plays
        {"A^RESUME();", 3, "resumed"},
    };
    for (const auto & row : rows) EXPECT_EQ(after(row.code, row.ticks), row.expected) << row.code;
}

TEST_F(Playback, VolumePanAndFrequency) {
    put("Wavs/c.wav", test::wav(1, kRate, 16, test::words(std::vector<int>(22050, 10000))));
    play("S TYPE=SOUND\n S FILENAME=c.wav\n");
    struct {
        const char * code;
        int left, right;
    } const rows[] = {
        {"S^SETVOLUME(650);", 10000, 10000},            // no buffer yet: kept, but not heard
        {"S^SETPAN(400);", 10000, 10000},               // the pan alone is passed on
        {"S^SETVOLUME(650);", 5012, 5012},              // -6 dB
        {"S^SETVOLUME(1000);", 5012, 5012},             // refused
        {"S^SETVOLUME(25);", 0, 0},                     // silence
        {"S^SETVOLUME(26);", 282, 282},                 // -30.96 dB
        {"S^SETVOLUME(800);", 10000, 10000},            // full
        {"S^SETPAN(550);", 7079, 10000},                // the left is 3 dB lower
        {"S^SETPAN(100);", 10000, 5012},                // 6 dB
        {"S^SETPAN(2000);", 0, 10000},                  // all right
        {"S^SETPAN(-1200);", 10000, 0},                 // all left
        {"S^SETPAN(400);S^SETFREQ(50);", 10000, 10000}, // refused
    };
    for (const auto & row : rows) {
        run(row.code);
        record();
        run("S^PLAY();");
        tick(1, 10);
        test::Frames frames = heard();
        ASSERT_GT(frames.size(), 100u) << row.code;
        EXPECT_NEAR(frames[100][0], row.left, 3) << row.code;
        EXPECT_NEAR(frames[100][1], row.right, 3) << row.code;
    }
    run("S^SETFREQ(44100);S^PLAY();");
    tick(51, 10);
    EXPECT_EQ(told("@MSGBOX(S^ISPLAYING());"), "FALSE"); // a second of frames in half of one
}

TEST_F(Playback, SharedCreatedMissingAndDamaged) {
    put("Wavs/bad.wav", "RIFFxxxxWAVEfmt ");
    put("Wavs/none.wav", test::wav(1, kRate, 16, ""));
    put("Wavs/odd.wav", test::wav(1, kRate, 16, "abcd", 85));
    play(std::string(kTelling) +
         "T TYPE=SOUND\n T FILENAME=A.WAV\n T ONFINISHED={@MSGBOX(\"T\");}\n"
         "BAD TYPE=SOUND\n BAD FILENAME=bad.wav\n BAD ONSTARTED={@MSGBOX(\"bad\");}\n"
         "NONE TYPE=SOUND\n NONE FILENAME=none.wav\n NONE ONSTARTED={@MSGBOX(\"bad\");}\n"
         "ODD TYPE=SOUND\n ODD FILENAME=odd.wav\n ODD ONSTARTED={@MSGBOX(\"bad\");}\n"
         "GONE TYPE=SOUND\n GONE FILENAME=gone.wav\n GONE ONSTARTED={@MSGBOX(\"bad\");}\n");
    EXPECT_EQ(after("S^PLAY();T^STOP();", 2), "started; finished; T"); // one buffer for both
    EXPECT_EQ(after("BAD^PLAY();NONE^PLAY();ODD^PLAY();GONE^PLAY();BAD^STOP();@MSGBOX(GONE^ISPLAYING());", 2),
              "FALSE");
    EXPECT_EQ(
        after("@CREATE(\"SOUND\",\"N\");N^PLAY();@MSGBOX(N^LOAD(\"gone.wav\"),N^LOAD(\"b.wav\"));N^PLAY();"
              "@MSGBOX(N^ISPLAYING());",
              1),
        "FALSE, TRUE; TRUE");
    EXPECT_EQ(after("A^REMOVE(\"S\");T^PLAY();", 11), "T"); // the last user keeps it
    EXPECT_EQ(after("T^ADDBEHAVIOUR(\"ONFINISHED\",\"{A^REMOVE(\"T\");}\");T^PLAY();E^GOTO(\"B\");", 12), "");
}

TEST_F(Playback, ASoundMayRemoveOrPlayItselfWhenItEnds) {
    play("S TYPE=SOUND\n S FILENAME=b.wav\n S FLUSHAFTERPLAYED=TRUE\n N TYPE=INTEGER\n"
         "S ONFINISHED={N^INC();@MSGBOX(N);@IF(\"N<3\",{S^PLAY();},{A^REMOVE(\"S\");});}\n");
    EXPECT_EQ(after("S^PLAY();", 12), "1; 2; 3");
}

TEST_F(Playback, LostBuffersComeBack) {
    play(kTelling);
    after("S^PLAY();", 2);
    static_cast<platform::ClockedSound &>(*world().sound).lose();
    EXPECT_EQ(after("", 1), "finished");
    record();
    EXPECT_EQ(after("S^PLAY();", 2), "started");
    EXPECT_EQ(heard()[10][0], 110);
}

// ---- streams

TEST_F(Playback, AStreamLoopsWithoutAGap) {
    play("X TYPE=INTEGER\n");
    constexpr int kFrames = 30000; // 1.36 s, a little more than the ring
    put("music.wav", test::wav(1, kRate, 16, test::words(ramp(kFrames, -30000))));
    record();
    MusicPlayer player(&window());
    player.start(CXString(windowsFolder().c_str()) + "\\music.wav", true);
    ASSERT_TRUE(player.isPlaying());
    clock().advance(0);
    int loops = 0;
    for (int i = 0; i < 500; i++) {
        clock().advance(10);
        loops += player.takeLoops();
    }
    player.stop();
    test::Frames frames = heard();
    ASSERT_GT(frames.size(), 100000u);
    for (std::size_t i = 0; i < 100000; i++)
        ASSERT_EQ(frames[i][0], -30000 + static_cast<int>(i % kFrames)) << i;
    EXPECT_GE(loops, 3);
}

TEST_F(Playback, AStreamThatIsNotLoopedEndsInSilence) {
    play("X TYPE=INTEGER\n");
    put("m.wav", test::wav(2, 44100, 16, test::words(std::vector<int>(44100 * 2 * 2, 5000)))); // 2 s
    EXPECT_EQ(CStreamedWAV::ringSize([] {
                  WAVEFORMATEX format;
                  format.nChannels = 2, format.nAvgBytesPerSec = 176400, format.wBitsPerSample = 16;
                  return format;
              }()),
              211680);
    CSndStream stream(&window(), CXString(windowsFolder().c_str()) + "\\m.wav");
    ASSERT_EQ(stream.LastError(), 0);
    EXPECT_EQ(stream.GetBufferSize(), 211680);
    record();
    stream.Play(false);
    int over = 0;
    for (int ms = 0; ms < 4000; ms += 50) {
        clock().advance(50);
        if (stream.IsPlaying()) over = ms + 50;
    }
    EXPECT_NEAR(over, 2000, 150);
    test::Frames frames = heard();
    EXPECT_EQ(frames[static_cast<std::size_t>(kRate) * 2 - 200][0], 5000);
    for (std::size_t i = static_cast<std::size_t>(kRate) * 2 + 200; i < frames.size(); i++)
        ASSERT_EQ(frames[i][0], 0) << i;
    CSndStream missing(&window(), "C:\\missing.wav");
    EXPECT_EQ(missing.LastError(), 2000);
    missing.Play(true);
    EXPECT_FALSE(missing.IsPlaying());
}
