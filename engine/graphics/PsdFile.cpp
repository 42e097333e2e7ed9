#include "graphics/PsdFile.h"

#include "files/CRLECompression2.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <cstring>

namespace psd {

namespace {

constexpr int kRaw = 0, kRows = 1; // how a channel is coded
constexpr int kBlendData = 12;     // bytes

// Goes on in zeros behind the end; ok() tells.
class Cursor {
public:
    explicit Cursor(std::string_view bytes) : bytes_(bytes) {}

    bool ok() const { return ok_; }
    std::size_t at() const { return at_; }
    std::size_t left() const { return bytes_.size() - at_; }
    std::string_view take(long long n) {
        if (n < 0 || n > static_cast<long long>(left())) {
            ok_ = false;
            at_ = bytes_.size();
            return {};
        }
        std::string_view taken = bytes_.substr(at_, static_cast<std::size_t>(n));
        at_ += taken.size();
        return taken;
    }
    void skip(long long n) { take(n); }
    void back(std::size_t n) { at_ -= n; }
    void seek(std::size_t to) { at_ = to; }
    unsigned byte() { return number(1); }
    int word() { return static_cast<short>(number(2)); }
    int dword() { return static_cast<int>(number(4)); }
    std::uint32_t length() { return number(4); }

private:
    std::uint32_t number(int bytes) { // highest byte first
        std::uint32_t value = 0;
        for (char c : take(bytes)) value = value << 8 | static_cast<unsigned char>(c);
        return value;
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    bool ok_ = true;
};

void readName(Cursor & in, Layer & layer) {
    unsigned length = in.byte();
    // A name and its length fill whole groups of four bytes.
    std::string_view name = in.take(length | 3);
    layer.name = name.substr(0, std::min<std::size_t>(length, name.size()));
}

void readRecord(Cursor & in, Layer & layer) {
    int top = in.dword(), left = in.dword(), bottom = in.dword(), right = in.dword();
    layer.rect = {left, top, right, bottom};
    int count = in.word();
    for (int i = 0; i < count && in.ok(); i++) {
        Channel channel;
        channel.id = in.word();
        channel.length = in.dword();
        layer.channels.push_back(std::move(channel));
    }
    in.skip(kBlendData);
    std::uint32_t extra = in.length();
    std::size_t end = in.at() + std::min<std::size_t>(extra, in.left());
    in.skip(in.length()); // mask
    in.skip(in.length()); // blending ranges
    readName(in, layer);
    while (in.ok() && in.left() >= 4) { // further information
        if (in.take(4) != "8BIM") {
            in.back(4);
            break;
        }
        in.skip(4);
        in.skip(in.length());
    }
    // There are blocks with other signatures.
    if (in.ok() && in.at() < end) in.seek(end);
}

// The rows' lengths, highest byte first, and the rows.
std::unique_ptr<char[]> rows(Cursor & in, CXSize size) {
    std::string_view table = in.take(2LL * size.cy);
    if (!in.ok()) return nullptr;
    auto * lengths = new short[static_cast<std::size_t>(size.cy)];
    long long sum = 0;
    for (std::size_t y = 0; y < static_cast<std::size_t>(size.cy); y++) {
        lengths[y] = static_cast<short>(static_cast<unsigned char>(table[y * 2]) << 8 |
                                        static_cast<unsigned char>(table[y * 2 + 1]));
        sum += lengths[y];
    }
    std::string_view data = in.take(sum);
    // Two bytes stand for 129 at most: a larger plane isn't worth its memory.
    if (static_cast<long long>(size.cx) * size.cy > static_cast<long long>(data.size()) * 65) in.skip(-1);
    if (!in.ok()) {
        delete[] lengths;
        return nullptr;
    }
    char * from = const_cast<char *>(data.data()); // reads only
    return std::unique_ptr<char[]>(
        CRLECompression2(size, lengths, from, static_cast<int>(data.size())).Decompress());
}

void readChannel(Cursor & in, CXSize size, Channel & channel) {
    std::size_t begin = in.at();
    int coded = in.word();
    long long pixels = static_cast<long long>(size.cx) * size.cy;
    if (coded == kRaw) {
        std::string_view data = in.take(pixels);
        if (!in.ok()) return;
        channel.plane = std::make_unique<char[]>(static_cast<std::size_t>(pixels));
        std::copy_n(data.data(), data.size(), channel.plane.get());
    } else if (coded == kRows) {
        channel.plane = rows(in, size);
    } else if (channel.length > 2) {
        in.seek(begin);
        in.skip(channel.length);
    }
}

} // namespace

const char * read(std::string_view bytes, File & file) {
    file = {};
    Cursor in(bytes);
    in.skip(12); // signature, version, reserved
    file.channels = in.word();
    file.height = in.dword();
    file.width = in.dword();
    file.depth = in.word();
    file.mode = in.word();
    if (file.depth > 8) return "only eight bits a channel are read";
    in.length();          // of the colour mode data, of which files in RGB have none
    in.skip(in.length()); // resources
    in.length();          // layers and masks
    in.length();          // layers
    int count = std::abs(in.word());
    if (!in.ok()) return "the file ends within its head";
    for (int i = 0; i < count; i++) {
        file.layers.emplace_back();
        readRecord(in, file.layers.back());
        if (!in.ok()) return "the file ends within its layers";
    }
    // What all the planes together may take is a file's own limit.
    long long total = 0;
    for (Layer & layer : file.layers) {
        const CXRect & r = layer.rect;
        long long width = static_cast<long long>(r.right) - r.left,
                  height = static_cast<long long>(r.bottom) - r.top;
        if (width < 0 || height < 0 || width > 0x7FFF * 10LL || height > 0x7FFF * 10LL)
            return "a layer's rectangle makes no sense";
        // Beside its channels a layer takes three bytes a pixel.
        total += width * height * (static_cast<long long>(layer.channels.size()) + 3);
        if (total > CGraphicsObject::kLargestPlane) return "the layers are too large";
    }
    for (Layer & layer : file.layers)
        for (Channel & channel : layer.channels) {
            readChannel(in, {layer.rect.Width(), layer.rect.Height()}, channel);
            if (!in.ok()) return "the file ends within its channels";
        }
    return nullptr;
}

} // namespace psd
