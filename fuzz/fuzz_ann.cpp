// Animation files. What can be read is written in the present layout and must read back the same.

#include "graphics/AnnFile.h"

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    ann::File first, second;
    if (ann::read({reinterpret_cast<const char *>(data), size}, first)) return 0;
    std::size_t planes = 0;
    for (const ann::Frame & frame : first.frames) {
        require(frame.width >= 0 && frame.height >= 0);
        planes += frame.colour.size() + frame.alpha.size();
    }
    require(planes <= size);
    for (const _annEventInfo3 & event : first.events) require(event.frames.size() == event.infos.size());

    first.flags |= kAnimoNewLayout; // as it is for what comes from this layout
    std::string written = ann::write(first);
    require(ann::read(written, second) == nullptr);
    require(second.frames.size() == first.frames.size() && second.events.size() == first.events.size());
    for (std::size_t i = 0; i < first.frames.size(); i++) {
        require(second.frames[i].colour == first.frames[i].colour);
        require(second.frames[i].alpha == first.frames[i].alpha);
    }
    for (std::size_t i = 0; i < first.events.size(); i++)
        require(second.events[i].frames == first.events[i].frames);
    require(ann::write(second) == written);
    return 0;
}
