#include "graphics/AnnFile.h"

#include "graphics/CGraphicsObject.h"

#include <algorithm>

namespace ann {

namespace {

constexpr char kEarlyEnd[] = "it ends too early";
constexpr std::size_t kMostEntries = 1 << 19; // of all events: an entry takes more memory than its record

// Behind the end everything reads as zero; ok() tells.
class Cursor {
public:
    explicit Cursor(std::string_view bytes) : bytes_(bytes) {}

    bool ok() const { return ok_; }
    std::size_t left() const { return bytes_.size() - at_; }
    std::string_view take(std::int64_t n) {
        if (n < 0 || n > static_cast<std::int64_t>(left())) {
            ok_ = false;
            at_ = bytes_.size();
            return {};
        }
        std::string_view taken = bytes_.substr(at_, static_cast<std::size_t>(n));
        at_ += taken.size();
        return taken;
    }
    void skip(std::size_t n) { take(static_cast<std::int64_t>(n)); }
    bool tag(std::string_view text) { // taken only when it is there
        if (bytes_.substr(at_, text.size()) != text) return false;
        at_ += text.size();
        return true;
    }
    unsigned byte() { return number(1); }
    int word() { return static_cast<std::int16_t>(number(2)); }
    unsigned uword() { return number(2); }
    int dword() { return static_cast<std::int32_t>(number(4)); }
    std::string_view counted() { return take(dword()); }

private:
    std::uint32_t number(int n) {
        std::uint32_t v = 0;
        int shift = 0;
        for (char c : take(n)) {
            v |= static_cast<std::uint32_t>(static_cast<unsigned char>(c)) << shift;
            shift += 8;
        }
        return v;
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    bool ok_ = true;
};

// Up to the terminating zero.
CXString text(std::string_view bytes) { return CXString(bytes.substr(0, bytes.find('\0'))); }

// A frame list, behind which an entry of `entry` bytes for each frame has room.
bool readList(Cursor & in, _annEventInfo3 & event, int count, std::size_t entry, std::size_t & entries) {
    if (count < 0) return false;
    auto n = static_cast<std::size_t>(count);
    entries += n;
    if (n * (2 + entry) > in.left() || entries > kMostEntries) return false;
    event.frames.reserve(n);
    event.infos.reserve(n);
    for (int i = 0; i < count; i++) event.frames.push_back(static_cast<std::uint16_t>(in.uword()));
    return true;
}

// ---- the newer layouts

bool readEntry(Cursor & in, _anmFrameInfo3 & info) {
    bool hasName = in.dword() != 0, hasText = in.dword() != 0;
    info.x = static_cast<std::int16_t>(in.word());
    info.y = static_cast<std::int16_t>(in.word());
    info.mark = in.dword();
    bool hasSound = in.dword() != 0;
    in.skip(4); // a pointer
    info.opacity = static_cast<unsigned char>(in.byte());
    in.skip(5);
    if (hasName) info.name = text(in.counted());
    if (hasText) info.text = text(in.counted());
    if (hasSound) info.soundName = text(in.counted());
    return in.ok();
}

bool readEvent(Cursor & in, _annEventInfo3 & event, std::size_t & entries) {
    event.name = text(in.take(32));
    unsigned count = in.uword();
    in.skip(4); // a pointer
    event.loopStart = static_cast<std::uint16_t>(in.uword());
    event.loopEnd = static_cast<std::uint16_t>(in.uword());
    event.loopCount = static_cast<std::uint16_t>(in.uword());
    in.skip(2); // the turns done
    event.fps = in.dword();
    event.flags = in.dword();
    event.opacity = static_cast<unsigned char>(in.byte());
    in.skip(12);
    if (!readList(in, event, static_cast<int>(count), kEntry, entries)) return false;
    for (unsigned i = 0; i < count; i++) {
        event.infos.emplace_back();
        if (!readEntry(in, event.infos.back())) return false; // before the next is made
    }
    return in.ok();
}

const char * readFrames(Cursor & in, int count, std::size_t head, File & file) {
    if (static_cast<std::size_t>(count) * head > in.left()) return kEarlyEnd;
    std::vector<std::pair<int, int>> sizes; // of the planes
    for (int i = 0; i < count; i++) {
        Frame frame;
        frame.width = in.word();
        frame.height = in.word();
        frame.x = in.word();
        frame.y = in.word();
        frame.compression = in.word();
        int colourSize = in.dword();
        in.skip(2 + 3 * 4); // how many channels, and the sizes of those that have a plane of their own
        int alphaSize = in.dword();
        in.skip(head - kShortFrame);
        if (frame.width < 0 || frame.height < 0) return "a frame has no size";
        sizes.emplace_back(colourSize, alphaSize);
        file.frames.push_back(frame);
    }
    for (std::size_t i = 0; i < sizes.size(); i++) {
        file.frames[i].colour = in.take(sizes[i].first);
        if (sizes[i].second > 0) file.frames[i].alpha = in.take(sizes[i].second);
        if (!in.ok()) return kEarlyEnd;
    }
    return nullptr;
}

bool isDepth(int depth) { return depth == 15 || depth == 16; }

const char * readNew(std::string_view bytes, File & file) {
    Cursor in(bytes);
    bool shortFrames = in.take(4).substr(0, 3) == "NV+";
    int frames = in.word();
    file.depth = in.word();
    int events = in.word();
    in.skip(13);
    file.fps = in.dword();
    file.flags = in.dword() & (kAnimoStoredFlags | 0xFF);
    if (bytes[2] != 'I') file.flags |= kAnimoNewLayout;
    file.opacity = static_cast<unsigned char>(in.byte());
    file.randomFrames = in.word();
    in.skip(10);
    if (!in.ok()) return kEarlyEnd;
    if (frames < 0 || events < 0 || !isDepth(file.depth)) return "its head is damaged";
    file.author = in.counted();
    file.description = in.counted();
    std::size_t entries = 0;
    for (int i = 0; i < events; i++) {
        if (in.left() < kEvent) return kEarlyEnd;
        file.events.emplace_back();
        if (!readEvent(in, file.events.back(), entries)) return "an event is damaged";
    }
    return readFrames(in, frames, shortFrames ? kShortFrame : kFrame, file);
}

const char * readPacked(std::string_view bytes, File & file) {
    Cursor in(bytes);
    in.skip(4);
    int frames = in.word();
    file.author = text(in.take(128)).view();
    file.description = text(in.take(256)).view();
    file.depth = in.word();
    int events = in.word();
    in.skip(13);
    if (!in.ok()) return kEarlyEnd;
    if (file.depth == 0) file.depth = 15;
    if (frames < 0 || events < 0 || !isDepth(file.depth)) return "its head is damaged";
    std::size_t entries = 0;
    for (int i = 0; i < events; i++) {
        _annEventInfo3 event;
        event.name = text(in.take(32));
        int count = in.word();
        event.loopStart = static_cast<std::uint16_t>(in.uword());
        event.loopEnd = static_cast<std::uint16_t>(in.uword());
        event.loopCount = static_cast<std::uint16_t>(in.uword());
        if (!readList(in, event, count, kPackedEntry, entries)) return "an event is damaged";
        for (int entry = 0; entry < count && in.ok(); entry++) {
            event.infos.emplace_back();
            event.infos.back().x = static_cast<std::int16_t>(in.word());
            event.infos.back().y = static_cast<std::int16_t>(in.word());
            in.skip(kPackedEntry - 4);
        }
        if (!in.ok()) return kEarlyEnd;
        file.events.push_back(std::move(event));
    }
    if (events == 0) file.events = defaultEvents(frames);
    return readFrames(in, frames, kShortFrame, file);
}

// ---- the oldest ones: optional chunks, then heads and data of the frames

const char * readOld(std::string_view bytes, int version, File & file) {
    Cursor in(bytes);
    in.skip(4);
    int frames = in.word();
    int depth = CGraphicsObject::GetRealBpp(in.word());
    in.skip(4);
    if (frames < 0) return "its head is damaged";
    file.depth = isDepth(depth) ? depth : 16;
    if (in.tag("EXT")) {
        in.skip(4);
        file.author = in.counted();
        file.description = in.counted();
    }
    bool hasList = in.tag("SEQ");
    if (hasList) {
        file.events.emplace_back();
        std::size_t entries = 0;
        if (!readList(in, file.events.back(), in.dword() & 0xFFFF, 0, entries)) return "its event is damaged";
        file.events.back().infos.resize(file.events.back().frames.size());
    } else {
        file.events = defaultEvents(frames);
    }
    if (in.tag("POS")) {
        if (static_cast<std::size_t>(frames) * kOldEntry > in.left()) return kEarlyEnd;
        std::vector<_anmFrameInfo3> places(static_cast<std::size_t>(frames));
        for (_anmFrameInfo3 & place : places) {
            place.x = static_cast<std::int16_t>(in.dword());
            place.y = static_cast<std::int16_t>(in.dword());
            place.opacity = static_cast<unsigned char>(in.byte());
            in.skip(kOldEntry - 9);
        }
        for (_annEventInfo3 & event : file.events)
            for (std::size_t i = 0; i < event.frames.size(); i++)
                if (event.frames[i] < places.size()) event.infos[i] = places[event.frames[i]];
    }
    std::size_t head = version == 1 ? kOldFrame : kShortFrame;
    if (static_cast<std::size_t>(frames) * head > in.left()) return kEarlyEnd;
    std::vector<std::pair<int, int>> sizes;
    for (int i = 0; i < frames; i++) {
        Frame frame;
        int colourSize = 0, alphaSize = 0;
        if (version == 1) {
            colourSize = in.dword();
            alphaSize = in.dword();
        }
        frame.version = version;
        frame.compression = version - 1;
        frame.width = in.word();
        frame.x = in.word();
        frame.height = in.word();
        frame.y = in.word();
        in.skip(2);
        frame.depth = CGraphicsObject::GetRealBpp(in.word());
        if (!isDepth(frame.depth)) frame.depth = 0;
        if (version > 1) {
            in.skip(4); // how many channels
            colourSize = in.dword();
            in.skip(8);
            alphaSize = in.dword();
        }
        if (frame.width < 0 || frame.height < 0) return "a frame has no size";
        sizes.emplace_back(colourSize, alphaSize);
        file.frames.push_back(frame);
    }
    for (std::size_t i = 0; i < sizes.size(); i++) {
        file.frames[i].colour = in.take(sizes[i].first);
        if (sizes[i].second > 0) file.frames[i].alpha = in.take(sizes[i].second);
    }
    return in.ok() ? nullptr : kEarlyEnd;
}

// ---- writing

class Writer {
public:
    void word(int v) { number(v, 2); }
    void dword(int v) { number(v, 4); }
    void byte(int v) { number(v, 1); }
    void zeros(std::size_t n) { out.append(n, '\0'); }
    void add(std::string_view bytes) { out += bytes; }
    void fixed(std::string_view text, std::size_t size) {
        text = text.substr(0, size - 1);
        add(text);
        zeros(size - text.size());
    }
    void counted(std::string_view bytes) {
        dword(static_cast<int>(bytes.size()));
        add(bytes);
    }
    void terminated(const CXString & text) {
        if (text.getLength() == 0) return;
        dword(text.getLength() + 1);
        add(text.view());
        byte(0);
    }
    std::string out;

private:
    void number(int v, int n) {
        for (int i = 0; i < n; i++) out += static_cast<char>(static_cast<unsigned>(v) >> 8 * i);
    }
};

void write(Writer & to, const _annEventInfo3 & event) {
    to.fixed(event.name.view(), _annEventInfo3::kStoredName + 1);
    to.word(event.size());
    to.dword(0);
    to.word(event.loopStart);
    to.word(event.loopEnd);
    to.word(event.loopCount);
    to.word(0);
    to.dword(event.fps);
    to.dword(event.flags);
    to.byte(event.opacity);
    to.zeros(12);
    for (std::uint16_t frame : event.frames) to.word(frame);
    for (const _anmFrameInfo3 & info : event.infos) {
        to.dword(info.name.getLength() > 0);
        to.dword(info.text.getLength() > 0);
        to.word(info.x);
        to.word(info.y);
        to.dword(info.mark);
        to.dword(info.soundName.getLength() > 0);
        to.dword(0);
        to.byte(info.opacity);
        to.zeros(5);
        to.terminated(info.name);
        to.terminated(info.text);
        to.terminated(info.soundName);
    }
}

void write(Writer & to, const Frame & frame) {
    to.word(frame.width);
    to.word(frame.height);
    to.word(frame.x);
    to.word(frame.y);
    to.word(frame.compression);
    to.dword(static_cast<int>(frame.colour.size()));
    to.word(frame.alpha.empty() ? 0 : 4);
    to.zeros(12);
    to.dword(static_cast<int>(frame.alpha.size()));
    to.zeros(kFrame - kShortFrame);
}

} // namespace

const char * read(std::string_view bytes, File & file) {
    if (bytes.size() < kMagic) return kEarlyEnd;
    std::string_view magic = bytes.substr(0, 4);
    auto is = [&](const char * name) { return magic == std::string_view(name, 4); }; // with its zero
    if (is("NVP") || is("NV+") || is("NVI")) return readNew(bytes, file);
    if (is("PAK")) return readPacked(bytes, file);
    if (is("TNK")) return readOld(bytes, 1, file);
    if (is("TN2")) return readOld(bytes, 2, file);
    if (is("TN3")) return readOld(bytes, 3, file);
    return "it is no animation file";
}

std::string write(const File & file) {
    Writer to;
    to.add(std::string_view("NVP\0", 4));
    to.word(static_cast<int>(file.frames.size()));
    to.word(file.depth);
    to.word(static_cast<int>(file.events.size()));
    to.zeros(13);
    to.dword(file.fps);
    to.dword(file.flags);
    to.byte(file.opacity);
    to.word(file.randomFrames);
    to.zeros(10);
    to.counted(file.author);
    to.counted(file.description);
    for (const _annEventInfo3 & event : file.events) write(to, event);
    for (const Frame & frame : file.frames) write(to, frame);
    for (const Frame & frame : file.frames) {
        to.add(frame.colour);
        to.add(frame.alpha);
    }
    return std::move(to.out);
}

std::vector<_annEventInfo3> defaultEvents(int frames) {
    std::vector<_annEventInfo3> events(3);
    for (_annEventInfo3 & event : events) {
        event.name = "standard";
        for (int i = 0; i < frames; i++) event.add(static_cast<std::uint16_t>(i));
    }
    std::reverse(events[2].frames.begin(), events[2].frames.end());
    return events;
}

} // namespace ann
