#include "files/CDataBuffer.h"
#include "files/CFile_Stream.h"
#include "files/InGame.h"
#include "platform/dialogs/RecordingDialogs.h"
#include "platform/modules/ListedModules.h"
#include "platform/modules/SystemModules.h"
#include "sound/CSoundCodec_ADPCM.h"
#include "sound/CSoundCodec_PCM.h"

#include <cmath>
#include <cstdlib>

namespace {

using namespace std::string_literals;

std::string number(long long value, int bytes) {
    std::string out;
    for (int i = 0; i < bytes; i++) out += static_cast<char>(value >> 8 * i);
    return out;
}

std::string chunk(const std::string & id, const std::string & body) {
    return id + number(static_cast<long long>(body.size()), 4) + body;
}

std::string format(int tag, int channels, int rate, int align, int bits) {
    return number(tag, 2) + number(channels, 2) + number(rate, 4) +
           number(static_cast<long long>(rate) * align, 4) + number(align, 2) + number(bits, 2);
}

std::string wav(const std::string & chunks) { return chunk("RIFF", "WAVE" + chunks); }

class CSoundCodecTest : public test::InGame {
protected:
    CSoundCodecTest() { CSoundCodec::init_codecs(); }
    ~CSoundCodecTest() override { CSoundCodec::done_codecs(); }
};

std::string samples(CSoundCodec & codec) {
    CDataBuffer * data = codec.getData();
    return data ? std::string(data->getData(), static_cast<std::size_t>(data->getCount())) : "none";
}

std::string decoded(CSoundCodec & codec, const std::string & bytes) {
    std::vector<char> exact(bytes.begin(), bytes.end());
    CFile_Stream file(exact.data(), static_cast<int>(exact.size()));
    bool good = codec.decode(&file);
    EXPECT_EQ(good, codec.getData() != nullptr);
    return samples(codec);
}

TEST_F(CSoundCodecTest, TheTagPicksTheCodec) {
    EXPECT_TRUE(dynamic_cast<CSoundCodec_PCM *>(CSoundCodec::getCodec(1)));
    EXPECT_TRUE(dynamic_cast<CSoundCodec_ADPCM *>(CSoundCodec::getCodec(2)));
    for (int tag : {-1, 0, 3, 0x11, 0xFFFE}) EXPECT_EQ(CSoundCodec::getCodec(tag), nullptr) << tag;
    CSoundCodec * pcm = CSoundCodec::getCodec(1);
    CSoundCodec::init_codecs();
    EXPECT_EQ(CSoundCodec::getCodec(1), pcm);
    CSoundCodec::done_codecs();
    EXPECT_EQ(CSoundCodec::getCodec(1), nullptr);
}

TEST_F(CSoundCodecTest, PcmIsTakenAsItStands) {
    std::string stereo = format(1, 2, 44100, 4, 16), plain = chunk("fmt ", format(1, 1, 8000, 1, 8));
    struct {
        const char * what;
        std::string bytes, samples;
    } const cases[] = {
        {"plain", wav(plain + chunk("data", "abcd")), "abcd"},
        {"an extra field", wav(chunk("fmt ", stereo + number(0, 2)) + chunk("data", "abcd")), "abcd"},
        {"a longer format",
         wav(chunk("fmt ", stereo + number(22, 2) + std::string(22, 'x')) + chunk("data", "ab")), "ab"},
        {"other chunks",
         wav(chunk("LIST", "data") + plain + chunk("fact", "four") + chunk("data", "abcd") + "tail"), "abcd"},
        {"an odd chunk and no byte behind it", wav(chunk("odd ", "123") + plain + chunk("data", "ab")), "ab"},
        {"no samples", wav(plain + chunk("data", "")), ""},
        {"fewer than stated", wav(plain + "data" + number(1000, 4) + "abc"), "abc"},
        {"an endless stream", wav(plain + "data" + number(-1, 4) + "abc"), "abc"},
        {"data before the format", wav(chunk("data", "no") + plain + chunk("data", "yes")), "yes"},
        {"no data", wav(plain), "none"},
        {"no format", wav(chunk("data", "abcd")), "none"},
        {"half a format", wav(plain).substr(0, 30), "none"},
        {"a chunk beyond the end", wav("LIST" + number(0x7FFFFFFF, 4) + plain + chunk("data", "ab")), "none"},
        {"no channels", wav(chunk("fmt ", format(1, 0, 8000, 1, 8)) + chunk("data", "ab")), "none"},
        {"no rate", wav(chunk("fmt ", format(1, 1, 0, 1, 8)) + chunk("data", "ab")), "none"},
        {"a byte order of others", "RIFX" + wav(plain + chunk("data", "ab")).substr(4), "none"},
        {"another kind", chunk("RIFF", "AVI " + plain + chunk("data", "ab")), "none"},
        {"nothing", "", "none"},
    };
    CSoundCodec * codec = CSoundCodec::getCodec(1);
    for (const auto & test : cases) EXPECT_EQ(decoded(*codec, test.bytes), test.samples) << test.what;

    decoded(*codec, cases[1].bytes);
    WAVEFORMATEX & desc = *codec->getDesc();
    EXPECT_EQ(desc.wFormatTag * 10 + desc.nChannels, 12);
    EXPECT_EQ(desc.nSamplesPerSec, 44100u);
    EXPECT_EQ(desc.nAvgBytesPerSec, 176400u);
    EXPECT_EQ(desc.nBlockAlign * 100 + desc.wBitsPerSample, 416);
    codec->freeData();
    EXPECT_EQ(codec->getData(), nullptr);
}

// One block whose samples all are equal: no step moves them.
std::string adpcm(int channels, int rate, int level, int steps) {
    std::string coefficients;
    for (int c : {256, 0, 512, -256, 0, 0, 192, 64, 240, 0, 460, -208, 392, -232})
        coefficients += number(c, 2);
    int bytes = 7 * channels + steps * channels / 2, inBlock = steps + 2;
    std::string body(static_cast<std::size_t>(channels), '\0');
    for (int value : {16, level, level})
        for (int c = 0; c < channels; c++) body += number(value, 2);
    body.append(static_cast<std::size_t>(steps * channels / 2), '\0');
    return wav(chunk("fmt ", number(2, 2) + number(channels, 2) + number(rate, 4) + number(rate, 4) +
                                 number(bytes, 2) + number(4, 2) + number(32, 2) + number(inBlock, 2) +
                                 number(7, 2) + coefficients) +
               chunk("fact", number(inBlock, 4)) + chunk("data", body));
}

TEST_F(CSoundCodecTest, AdpcmThroughTheSystemsLibrary) {
    if (!platform::SystemModules().openSystem("libsndfile.so.1")) GTEST_SKIP() << "libsndfile isn't here";
    put("Wavs/mono.wav", adpcm(1, 11025, 1000, 8));
    put("stereo.dat", adpcm(2, 22050, -2, 12));
    struct {
        const char * name;
        int channels;
        unsigned rate;
        int level;
        std::size_t count;
    } const cases[] = {{"wavs\\MONO.WAV", 1, 11025, 1000, 10}, {"stereo.dat", 2, 22050, -2, 28}};
    CSoundCodec * codec = CSoundCodec::getCodec(2);
    for (const auto & test : cases) {
        CFile file(&window_, test.name, CFile::kRead | CFile::kBinary);
        ASSERT_TRUE(codec->decode(&file)) << test.name;
        std::string expected;
        for (std::size_t i = 0; i < test.count; i++) expected += number(test.level, 2);
        EXPECT_EQ(samples(*codec), expected);
        WAVEFORMATEX & desc = *codec->getDesc();
        EXPECT_EQ(desc.wFormatTag, 1);
        EXPECT_EQ(desc.nChannels, test.channels);
        EXPECT_EQ(desc.nSamplesPerSec, test.rate);
        EXPECT_EQ(desc.nBlockAlign, test.channels * 2);
        EXPECT_EQ(desc.nAvgBytesPerSec, test.rate * static_cast<unsigned>(test.channels) * 2);
        EXPECT_EQ(desc.wBitsPerSample * 10 + desc.cbSize, 160);
    }
    put("bad.wav", "RIFFnothing");
    CFile bad(&window_, "bad.wav", CFile::kRead | CFile::kBinary), missing(&window_, "no.wav", CFile::kRead);
    EXPECT_FALSE(codec->decode(&bad) || codec->decode(&missing));
    EXPECT_EQ(samples(*codec), "none");
    EXPECT_EQ(decoded(*codec, get("Wavs/mono.wav")), "none"); // of no path
}

// A tone that another program packed, where that program is there.
TEST_F(CSoundCodecTest, AdpcmOfAnotherProgram) {
    std::string command =
        "cd '" + folder() +
        "' && sox -n -r 22050 -c 1 -e ms-adpcm tone.wav synth 0.5 sine 441 gain -3 2>/dev/null";
    if (std::system(command.c_str()) != 0) GTEST_SKIP() << "sox isn't here";
    CSoundCodec * codec = CSoundCodec::getCodec(2);
    CFile file(&window_, "tone.wav", CFile::kRead | CFile::kBinary);
    ASSERT_TRUE(codec->decode(&file));
    std::string bytes = samples(*codec);
    ASSERT_GE(bytes.size(), 22050u);
    double error = 0;
    for (std::size_t i = 0; i < 10000; i++) {
        auto low = static_cast<unsigned char>(bytes[i * 2]);
        int value = static_cast<short>(low | bytes[i * 2 + 1] << 8);
        double tone = 32767 * 0.7079 * std::sin(static_cast<double>(i) * 441 * 2 * 3.14159265358979 / 22050);
        error = std::max(error, std::abs(value - tone));
    }
    EXPECT_LT(error, 1500);
}

int closed = 0;

TEST_F(CSoundCodecTest, TheLibraryBesideTheProgramComesFirst) {
    using Info = CSoundCodec_ADPCM::SF_INFO;
    auto owner = std::make_unique<platform::ListedModules>();
    platform::ListedModules & modules = *owner;
    world().modules = std::move(owner);
    CWindow::exePath = path("") + "\\";
    using Open = void * (*)(const char *, int, Info *);
    using Read = std::int64_t (*)(void *, short *, std::int64_t);
    Open open = [](const char * name, int mode, Info * info) -> void * {
        EXPECT_EQ(mode, 16);
        std::string_view text(name);
        info->frames = text.ends_with("huge") ? 1LL << 40 : text.ends_with("none") ? 0 : 2;
        info->samplerate = 8000;
        info->channels = text.ends_with("mute") ? 0 : 1;
        return info;
    };
    Read read = [](void *, short * to, std::int64_t frames) {
        std::fill_n(to, frames, short{0x4241});
        return frames;
    };
    int (*close)(void *) = [](void *) { return ++closed; };
    platform::ListedModules::Symbols symbols = {{"sf_open", reinterpret_cast<void *>(open)},
                                                {"sf_readf_short", reinterpret_cast<void *>(read)},
                                                {"sf_close", reinterpret_cast<void *>(close)}};
    modules.libraries[folder() + "/sndDLL.dll"] = symbols;
    modules.libraries["libsndfile.so.1"] = {};
    CSoundCodec * codec = CSoundCodec::getCodec(2);
    auto sound = [&](const char * name) {
        put(name, "bytes");
        CFile file(&window_, name, CFile::kRead | CFile::kBinary);
        codec->decode(&file);
        return samples(*codec);
    };
    EXPECT_EQ(sound("a.wav"), "ABAB");
    EXPECT_EQ(sound("none"), "");
    EXPECT_EQ(sound("huge"), "none");
    EXPECT_EQ(sound("mute"), "none");
    EXPECT_EQ(closed, 4);
    EXPECT_EQ(modules.asked, std::vector{folder() + "/sndDLL.dll"});
    EXPECT_EQ(modules.opened, 1);
    CSoundCodec::done_codecs();
    EXPECT_EQ(modules.opened, 0);

    // None of the two: a box with each sound.
    modules.libraries.erase(folder() + "/sndDLL.dll");
    auto boxes = std::make_unique<platform::RecordingDialogs>();
    platform::RecordingDialogs & shown = *boxes;
    world().dialogs = std::move(boxes);
    CSoundCodec::init_codecs();
    codec = CSoundCodec::getCodec(2);
    EXPECT_EQ(sound("a.wav") + sound("b.wav"), "nonenone");
    ASSERT_EQ(shown.texts.size(), 2u);
    EXPECT_EQ(shown.texts[1],
              "Error while loading dll: " + std::string(CWindow::exePath.view()) + "sndDLL.dll.\n");
    EXPECT_EQ(modules.opened, 0);
    CWindow::exePath = "";
}

} // namespace
