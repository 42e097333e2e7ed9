#include "graphics/ImgFile.h"

#include "files/LittleEndian.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>

namespace img {

namespace {

using namespace std::string_view_literals;

constexpr int kLegacyAlpha = 1 << 10, kLegacyDepth = 15; // of the flags

short shortAt(const char * at) { return static_cast<short>(little::word(at)); }

const char * measure(Head & head) {
    if (head.width <= 0 || head.height <= 0) return "the size is none";
    if (head.depth != 15 && head.depth != 16 && head.depth != 24 && head.depth != 32)
        return "the depth is none of 15, 16, 24 and 32";
    head.rawSize = CGraphicsObject::__get_data_size(head.width, head.height, head.depth);
    if (head.rawSize == 0) return "the picture is too large";
    head.rawAlphaSize = head.width * head.height;
    return nullptr;
}

int depthOfCode(int depth) {
    return depth == 2 || depth == 4 || depth == 8 ? CGraphicsObject::GetRealBpp(depth) : depth;
}

// The colour plane is what lies between the head and the alpha plane.
const char * takePlanes(std::string_view planes, long long alphaSize, Head & head) {
    if (alphaSize < 0 || alphaSize > static_cast<long long>(planes.size()))
        return "the alpha plane is larger than the file";
    head.colour = planes.substr(0, planes.size() - static_cast<std::size_t>(alphaSize));
    head.alpha = planes.substr(head.colour.size());
    // Pictures were packed without saying so.
    if (head.compression == kCompressionNone && head.colour.size() != static_cast<std::size_t>(head.rawSize))
        head.compression = kCompressionLzo;
    return nullptr;
}

const char * readTnk(std::string_view bytes, Head & head) {
    const char * at = bytes.data();
    head.layout = Layout::tnk;
    head.width = little::integer(at + 4);
    head.height = little::integer(at + 8);
    head.depth = depthOfCode(little::integer(at + 12));
    head.compression = little::integer(at + 24);
    head.x = little::integer(at + 32);
    head.y = little::integer(at + 36);
    if (const char * bad = measure(head)) return bad;
    if (const char * bad = takePlanes(bytes.substr(kTnkHead), little::integer(at + 28), head)) return bad;
    head.jpegSize = std::clamp(little::integer(at + 16), 0, static_cast<int>(head.colour.size()));
    return nullptr;
}

const char * readNvi(std::string_view bytes, Head & head) {
    const char * at = bytes.data();
    head.layout = Layout::nvi;
    head.width = shortAt(at + 4);
    head.height = shortAt(at + 6);
    head.depth = static_cast<unsigned char>(at[8]);
    head.x = shortAt(at + 17);
    head.y = shortAt(at + 19);
    head.compression = little::integer(at + 21);
    if (const char * bad = measure(head)) return bad;
    int colourSize = little::integer(at + 9), alphaSize = little::integer(at + 13);
    if (colourSize < 0) return "the colour plane's size is negative";
    // A file that ends early has shorter planes.
    std::string_view planes = bytes.substr(kNviHead);
    head.colour = planes.substr(0, static_cast<std::size_t>(colourSize));
    head.alpha =
        planes.substr(head.colour.size()).substr(0, static_cast<std::size_t>(std::max(alphaSize, 0)));
    return nullptr;
}

const char * readLegacy(std::string_view bytes, Head & head) {
    const char * at = bytes.data();
    head.layout = Layout::legacy;
    int flags = little::word(at + 90);
    head.width = shortAt(at + 80);
    head.height = shortAt(at + 82);
    head.depth = depthOfCode(flags & kLegacyDepth);
    if (const char * bad = measure(head)) return bad;
    return takePlanes(bytes.substr(kLegacyHead), flags & kLegacyAlpha ? head.rawAlphaSize : 0, head);
}

} // namespace

const char * read(std::string_view bytes, Head & head) {
    head = {};
    if (bytes.size() > static_cast<std::size_t>(CGraphicsObject::kLargestPlane))
        return "the file is too large";
    bool tnk = bytes.starts_with("TNK\0"sv), nvi = bytes.starts_with("NVI\0"sv);
    std::size_t least = tnk ? kTnkHead : nvi ? kNviHead : kLegacyHead;
    if (bytes.size() < least) return "the file ends within its head";
    return tnk ? readTnk(bytes, head) : nvi ? readNvi(bytes, head) : readLegacy(bytes, head);
}

} // namespace img
