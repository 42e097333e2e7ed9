#include "sound/CMC_Sound_Runner.h"

#include "sound/CMC_Sound.h"
#include "sound/CSound4.h"

namespace {

CSound4 * sound(const Call & call) { return call.self<CMC_Sound>()->getSound(); }

template <void (CSound4::*Method)()>
CMC_Variable * plain(Call & call) {
    if (CSound4 * each = sound(call)) (each->*Method)();
    return nullptr;
}

CMC_Variable * stop(Call & call) {
    if (CSound4 * each = sound(call)) each->stop(!call.has(0) || call.boolean(0));
    return nullptr;
}

CMC_Variable * load(Call & call) { return result(call.self<CMC_Sound>()->load(call.text(0))); }

// Scripts count from 0: 800 is full volume, 25 and below silence.
CMC_Variable * setVolume(Call & call) {
    auto d = (static_cast<std::int64_t>(call.integer(0)) - 800) * 4;
    if (CSound4 * each = sound(call))
        each->setVolume(d > -3100 ? static_cast<int>(std::min<std::int64_t>(d, INT32_MAX)) : -10000);
    return nullptr;
}

// 400 is the centre.
CMC_Variable * setPan(Call & call) {
    auto d = (static_cast<std::int64_t>(call.integer(0)) - 400) * 2;
    if (CSound4 * each = sound(call))
        each->setPanning(d < -3099 ? -10000 : d >= 3100 ? 10000 : static_cast<int>(d));
    return nullptr;
}

CMC_Variable * setFreq(Call & call) {
    if (CSound4 * each = sound(call)) each->setFrequency(call.integer(0));
    return nullptr;
}

CMC_Variable * isPlaying(Call & call) { return result(call.self<CMC_Sound>()->isPlaying()); }

constexpr MethodRow kRows[] = {
    {1, "PLAY", "", 0, plain<&CSound4::play>},
    {2, "STOP", "report = TRUE", 0, stop},
    {3, "PAUSE", "", 0, plain<&CSound4::pause>},
    {4, "RESUME", "", 0, plain<&CSound4::resume>},
    {5, "LOAD", "file", 1, load},
    {6, "SETVOLUME", "integer", 1, setVolume},
    {7, "SETPAN", "integer", 1, setPan},
    {8, "SETFREQ", "hertz", 1, setFreq},
    {9, "ISPLAYING", "", 0, isPlaying},
};

} // namespace

CMC_Sound_Runner::CMC_Sound_Runner() : CMC_Runner(kRows) {}
