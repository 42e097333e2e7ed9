#include "Commands.h"
#include "Files.h"
#include "Picture.h"

#include "files/CTextCoder.h"
#include "graphics/AnnFile.h"
#include "graphics/Compression.h"
#include "graphics/ImgFile.h"
#include "graphics/JpegDecoder.h"
#include "graphics/PsdFile.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace tool {

namespace {

using namespace std::string_view_literals;

std::string coding(int compression) {
    switch (compression) {
    case kCompressionNone: return "raw";
    case kCompressionLzo: return "LZO";
    case kCompressionLzoRle: return "runs in LZO";
    case kCompressionRle: return "runs";
    case kCompressionJpeg: return "JPEG";
    default: return "unknown (" + std::to_string(compression) + ")";
    }
}

void describeImg(const std::string & name, std::string_view bytes) {
    img::Head head;
    if (const char * bad = img::read(bytes, head)) throw Failure(name + ": " + bad);
    const char * layouts[] = {"current", "NVI", "legacy"};
    bool older = head.layout == img::Layout::nvi && head.compression == kCompressionLzo;
    std::printf("IMG picture, %s layout\nsize: %d x %d, %d bits a pixel\nplace: %d, %d\n",
                layouts[static_cast<int>(head.layout)], head.width, head.height, head.depth, head.x, head.y);
    std::printf("colours: %s, %zu bytes\n", older ? "LZW" : coding(head.compression).c_str(),
                head.colour.size());
    if (head.alpha.empty()) return;
    bool raw = head.layout == img::Layout::legacy, jpeg = head.compression == kCompressionJpeg;
    std::printf("alpha: %s, %zu bytes\n",
                older  ? "LZW"
                : raw  ? "raw"
                : jpeg ? "LZO"
                       : coding(head.compression).c_str(),
                head.alpha.size());
}

void describePsd(const std::string & name, std::string_view bytes) {
    psd::File file;
    if (const char * bad = psd::read(bytes, file)) throw Failure(name + ": " + bad);
    std::printf("PSD picture\nsize: %d x %d\n", file.width, file.height);
    for (std::size_t i = 0; i < file.layers.size(); i++) {
        const psd::Layer & layer = file.layers[i];
        std::string text = layer.name.substr(0, layer.name.find('\0'));
        std::printf("layer %zu: %s, %d x %d at %d, %d, %zu channels\n", i + 1, shown(text).c_str(),
                    layer.rect.Width(), layer.rect.Height(), layer.rect.left, layer.rect.top,
                    layer.channels.size());
    }
}

void describeJpeg(const std::string & name, std::string_view bytes) {
    JpegDecoder decoder(bytes.data(), bytes.size());
    if (!decoder.isReady()) throw Failure(name + ": " + decoder.error());
    std::printf("JPEG picture\nsize: %d x %d\n", decoder.getWidth(), decoder.getHeight());
}

void describePng(const std::string & name, std::string_view bytes) {
    Picture picture = decode(name, bytes, Format::png);
    std::printf("PNG picture\nsize: %d x %d%s\n", picture.width, picture.height,
                picture.opaque() ? "" : ", with alpha");
}

void describeAnn(const std::string & name, std::string_view bytes) {
    ann::File file;
    if (const char * bad = ann::read(bytes, file)) throw Failure(name + ": " + bad);
    std::printf("ANN animation, layout %.3s\ndepth: %d bits a pixel\nframes: %zu\n", bytes.data(), file.depth,
                file.frames.size());
    if (!file.author.empty()) std::printf("author: %s\n", shown(file.author).c_str());
    if (!file.description.empty()) std::printf("description: %s\n", shown(file.description).c_str());
    for (const _annEventInfo3 & event : file.events) {
        std::printf("event %s: %d entries, %d fps", shown(event.name.view()).c_str(), event.size(),
                    event.fps);
        if (event.loopEnd) std::printf(", loop %d to %d", event.loopStart, event.loopEnd);
        if (event.loopEnd && event.loopCount) std::printf(", %d times", event.loopCount);
        std::printf("\n");
    }
    for (std::size_t i = 0; i < file.frames.size(); i++) {
        const ann::Frame & frame = file.frames[i];
        std::printf("frame %zu: %d x %d at %d, %d, %s%s\n", i, frame.width, frame.height, frame.x, frame.y,
                    coding(frame.compression).c_str(), frame.alpha.empty() ? "" : ", with alpha");
    }
}

void describeCoded(const std::string &, std::string_view) { std::printf("coded text\n"); }

// A file's first bytes tell what it is.
struct Kind {
    std::string_view sign;
    void (*describe)(const std::string & name, std::string_view bytes);
};

const Kind kKinds[] = {
    {"TNK\0"sv, describeImg},         {"NVI\0"sv, describeImg},
    {"NVP\0"sv, describeAnn},         {"NV+\0"sv, describeAnn},
    {"PAK\0"sv, describeAnn},         {"TN2\0"sv, describeAnn},
    {"TN3\0"sv, describeAnn},         {"8BPS"sv, describePsd},
    {"\xFF\xD8\xFF"sv, describeJpeg}, {"\x89PNG\r\n\x1A\n"sv, describePng},
    {"{<C:"sv, describeCoded},        {"{<D:"sv, describeCoded},
};

void info(const std::string & name) {
    std::string bytes = readBytes(name);
    if (endsIn(name, ".ann")) return describeAnn(name, bytes); // two layouts have the signs of pictures
    for (const Kind & kind : kKinds)
        if (bytes.starts_with(kind.sign)) return kind.describe(name, bytes);
    if (endsIn(name, ".img")) return describeImg(name, bytes); // the oldest ones have no sign
    throw Failure(name + ": is of no known kind");
}

} // namespace

void addInfo(CLI::App & program) {
    CLI::App * command = program.add_subcommand("info", "Tells what a file holds.");
    auto name = std::make_shared<std::string>();
    command->add_option("FILE", *name, "file of a game")->required();
    command->callback([name] { info(*name); });
}

} // namespace tool
