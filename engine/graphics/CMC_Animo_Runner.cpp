#include "graphics/CMC_Animo_Runner.h"

#include "core/CXRandom.h"
#include "graphics/CAnimo6.h"
#include "graphics/CFrame.h"
#include "graphics/CMC_Animo.h"
#include "graphics/PictureMethods.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr int kLoudest = 800, kMiddle = 400; // of volume and panning as scripts give them
constexpr int kRange = 3200;                 // hundredths of a decibel for a whole of the former

CMC_Animo & self(const Call & call) { return *call.self<CMC_Animo>(); }
CAnimo6 & animo(const Call & call) { return *self(call).getAnimo(); }

bool isNumber(const Call & call, int i) {
    CMC_Variable * value = call.value(i);
    return value && (value->getType() == types::kInteger || value->getType() == types::kDouble);
}

// An event by its number or name; -1 when there is none of that name.
int eventAt(const Call & call, int i) {
    return isNumber(call, i) ? call.integer(i) : animo(call).GetEventNo(call.text(i));
}

CMC_Variable * show(Call & call) {
    animo(call).show();
    return nullptr;
}

CMC_Variable * hide(Call & call) {
    self(call).getOwnAnimo()->hide();
    return nullptr;
}

CMC_Variable * pause(Call & call) {
    self(call).pause();
    return nullptr;
}

CMC_Variable * resume(Call & call) {
    animo(call).resume();
    return nullptr;
}

CMC_Variable * load(Call & call) {
    self(call).load(call.text(0), true);
    return nullptr;
}

CMC_Variable * play(Call & call) {
    int event = eventAt(call, 0);
    if (event >= 0) animo(call).Play(static_cast<_animoevent>(event), 0, CPlayable::kWholeEvent);
    return nullptr;
}

CMC_Variable * nPlay(Call & call) {
    int event = call.integer(0), entry = call.integer(1);
    CAnimo6 & self = animo(call);
    if (event >= 0 && event < self.GetNOE())
        self.Play(self.GetEventName(event), entry, CPlayable::kWholeEvent);
    return nullptr;
}

CMC_Variable * playRand(Call & call) {
    int event = eventAt(call, 0);
    int first = call.integer(1), last = call.integer(2);
    std::int64_t width = std::clamp<std::int64_t>(std::int64_t{last} - first + 1, 1, INT32_MAX);
    int entry = CXRandom::random(first, static_cast<int>(width));
    if (event >= 0) animo(call).Play(static_cast<_animoevent>(event), entry, CPlayable::kWholeEvent);
    return nullptr;
}

CMC_Variable * playReverse(Call & call) {
    int event = eventAt(call, 0);
    CAnimo6 & self = animo(call);
    if (event >= 0 && event < self.GetNOE())
        self.playReverse(self.GetEventName(event), call.integer(1, CPlayable::kWholeEvent));
    return nullptr;
}

CMC_Variable * setFrame(Call & call) {
    CAnimo6 & self = animo(call);
    if (call.count() > 1) {
        int event = eventAt(call, 0);
        int entry = isNumber(call, 1) ? call.integer(1) : self.GetFrameNo(event, call.text(1));
        self.SetEventFrame(event, entry);
        return nullptr;
    }
    if (isNumber(call, 0)) {
        self.SetFrame(call.integer(0));
        return nullptr;
    }
    CFrame * wanted = self.getFrame(call.text(0));
    for (int i = 0; wanted && i < self.GetNOF(); i++)
        if (self.GetFrame(i) == wanted) {
            self.SetFrame(i);
            break;
        }
    return nullptr;
}

CMC_Variable * stop(Call & call) {
    animo(call).stop(call.boolean(0, true));
    return nullptr;
}

CMC_Variable * isPlaying(Call & call) {
    CAnimo6 & self = animo(call);
    bool playing = static_cast<CAnimo &>(self).isPlaying();
    if (call.count() > 0) playing = playing && eventAt(call, 0) == self.GetCurrentEvent();
    return result(playing);
}

CMC_Variable * getFrame(Call & call) { return result(animo(call).Current()); }

CMC_Variable * getFrameName(Call & call) {
    return result(animo(call).getFrameName(eventAt(call, 0), call.integer(1)));
}

CMC_Variable * setFrameName(Call & call) {
    animo(call).setFrameName(eventAt(call, 0), call.integer(1), call.text(2));
    return nullptr;
}

CMC_Variable * getFrameNo(Call & call) {
    return result(animo(call).GetFrameNo(eventAt(call, 0), call.text(1)));
}

CMC_Variable * getEventName(Call & call) {
    return result(call.count() > 0 ? animo(call).GetEventName(call.integer(0))
                                   : animo(call).getCurrentEventName());
}

CMC_Variable * getEventNumber(Call & call) { return result(animo(call).GetEventNo(call.text(0))); }

CMC_Variable * monitorCollision(Call & call) {
    call.self<CMC_Animo>()->monitorCollisions(call.boolean(0));
    return nullptr;
}

CMC_Variable * removeMonitorCollision(Call & call) {
    call.self<CMC_Animo>()->removeMonitorCollisions();
    return nullptr;
}

template <_direction Direction>
CMC_Variable * setDirection(Call & call) {
    animo(call).SetDirection(Direction);
    return nullptr;
}

CMC_Variable * nextFrame(Call & call) {
    animo(call).Next();
    return nullptr;
}

CMC_Variable * prevFrame(Call & call) {
    animo(call).Prev();
    return nullptr;
}

// The frame of the first parameter, when the other two lie on it.
CFrame * frameAt(const Call & call, CXPoint & p) {
    CFrame * frame = animo(call).GetFrame(call.integer(0));
    p = CXPoint(call.integer(1), call.integer(2));
    bool inside = frame && p.x >= 0 && p.y >= 0 && p.x < frame->getWidth() && p.y < frame->getHeight();
    return inside ? frame : nullptr;
}

CMC_Variable * getAlpha(Call & call) {
    CXPoint p;
    CFrame * frame = frameAt(call, p);
    if (frame) animo(call).decodeFrame(frame);
    bool has = frame && frame->GetChannelAlpha();
    return result(has ? static_cast<int>(frame->GetPixel(kChannelAlpha, p)) : 0);
}

CMC_Variable * getPixel(Call & call) {
    CXPoint p;
    CFrame * frame = frameAt(call, p);
    if (!frame) return result(0);
    animo(call).decodeFrame(frame);
    bool coded = frame->GetCompression() == kCompressionRle;
    frame->DeCompressRLE2();
    const auto * words = reinterpret_cast<const std::uint16_t *>(frame->GetDataPtr());
    int word = words && frame->GetCompression() == kCompressionNone
                   ? words[static_cast<std::ptrdiff_t>(p.y) * frame->getWidth() + p.x]
                   : 0;
    if (coded) frame->bringBackCompressed(); // the frame on show stays expanded
    return result(word);
}

CMC_Variable * setFps(Call & call) {
    animo(call).SetFPS(call.integer(0));
    return nullptr;
}

CMC_Variable * getFps(Call & call) { return result(animo(call).GetFPS()); }
CMC_Variable * getCurrFramePosX(Call & call) { return result(animo(call).getCurrFramePosition().x); }
CMC_Variable * getCurrFramePosY(Call & call) { return result(animo(call).getCurrFramePosition().y); }
CMC_Variable * getNoe(Call & call) { return result(animo(call).GetNOE()); }
CMC_Variable * getNof(Call & call) { return result(animo(call).GetNOF()); }
CMC_Variable * getNofInEvent(Call & call) { return result(animo(call).GetNOFInEvent(eventAt(call, 0))); }
CMC_Variable * getMaxWidth(Call & call) { return result(animo(call).GetMaxWidth()); }
CMC_Variable * getMaxHeight(Call & call) { return result(animo(call).GetMaxHeight()); }
CMC_Variable * isVisible(Call & call) { return result(animo(call).isVisible()); }
CMC_Variable * getCFrameInEvent(Call & call) { return result(animo(call).getIndexInEvent()); }

CMC_Variable * setAsButton(Call & call) {
    self(call).setAsButton(call.boolean(0), call.boolean(1));
    return nullptr;
}

CMC_Variable * setOnFF(Call & call) {
    self(call).setOnFirstFrame(call.boolean(0));
    return nullptr;
}

CMC_Variable * setVolume(Call & call) {
    animo(call).setVolume(static_cast<int>((std::int64_t{call.integer(0)} - kLoudest) * kRange / kLoudest));
    return nullptr;
}

CMC_Variable * setPan(Call & call) {
    animo(call).setPanning(static_cast<int>((std::int64_t{call.integer(0)} - kMiddle) * kRange / kLoudest));
    return nullptr;
}

CMC_Variable * setFreq(Call & call) {
    animo(call).setFrequency(call.integer(0));
    return nullptr;
}

CMC_Variable * getAnchor(Call & call) {
    CXPoint anchor = animo(call).getAnchor();
    return result(CXString::toString(anchor.x) + "," + CXString::toString(anchor.y));
}

CMC_Variable * flipH(Call & call) {
    self(call).getOwnAnimo()->FlipH();
    return nullptr;
}

CMC_Variable * flipV(Call & call) {
    self(call).getOwnAnimo()->FlipV();
    return nullptr;
}

CMC_Variable * resetFlips(Call & call) {
    self(call).getOwnAnimo()->resetFlips();
    return nullptr;
}

CMC_Variable * replaceColor(Call & call) {
    CAnimo6 & own = *self(call).getOwnAnimo();
    int depth = own.GetBpp();
    own.replace_color(picture::wordAt(call, 0, depth), picture::wordAt(call, 3, depth));
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "SHOW", "", 0, show},
    {2, "HIDE", "", 0, hide},
    {3, "PAUSE", "", 0, pause},
    {4, "RESUME", "", 0, resume},
    {5, "SETPOSITION", "x, y", 2, picture::setPosition},
    {6, "MOVE", "dx, dy", 2, picture::move},
    {7, "LOAD", "file", 1, load},
    {8, "CLEARCLIPPING", "", 0, picture::clearClipping},
    {9, "SETCLIPPING", "left, top, right, bottom | object name", 1, picture::setClipping},
    {10, "PLAY", "event name | number", 1, play},
    {11, "SETFRAME", "frame | event, frame", 1, setFrame},
    {12, "STOP", "tell = TRUE", 0, stop},
    {13, "ISPLAYING", "event = any", 0, isPlaying},
    {14, "GETPOSITIONX", "own = none", 0, picture::getPositionX},
    {15, "GETPOSITIONY", "own = none", 0, picture::getPositionY},
    {16, "GETWIDTH", "", 0, picture::getWidth},
    {17, "GETHEIGHT", "", 0, picture::getHeight},
    {18, "GETFRAME", "", 0, getFrame},
    {19, "GETFRAMENAME", "event, frame", 2, getFrameName},
    {20, "SETFRAMENAME", "event, frame, name", 3, setFrameName},
    {21, "GETFRAMENO", "event, frame name", 2, getFrameNo},
    {22, "GETEVENTNAME", "number = current", 0, getEventName},
    {23, "GETEVENTNUMBER", "event name", 1, getEventNumber},
    {24, "ISNEAR", "object name, percent | left, top, right, bottom, percent", 1, picture::isNear},
    {25, "ISINSIDE", "x, y, by alpha", 2, picture::isInside},
    {26, "PLAYRAND", "event name, first frame, last frame", 3, playRand},
    {27, "MONITORCOLLISION", "by alpha", 0, monitorCollision},
    {28, "REMOVEMONITORCOLLISION", "", 0, removeMonitorCollision},
    {29, "SETFORWARD", "", 0, setDirection<kForward>},
    {30, "SETBACKWARD", "", 0, setDirection<kBackward>},
    {31, "NEXTFRAME", "", 0, nextFrame},
    {32, "PREVFRAME", "", 0, prevFrame},
    {33, "SETPRIORITY", "priority", 1, picture::setPriority},
    {34, "GETPRIORITY", "", 0, picture::getPriority},
    {35, "GETALPHA", "frame, x, y", 3, getAlpha},
    {36, "GETPIXEL", "frame, x, y", 3, getPixel},
    {37, "SETFPS", "frames a second", 1, setFps},
    {38, "GETFPS", "", 0, getFps},
    {39, "MERGEALPHA", "x, y, object name", 3, picture::mergeAlpha},
    {40, "INVALIDATE", "", 0, picture::invalidate},
    {41, "GETCURRFRAMEPOSX", "", 0, getCurrFramePosX},
    {42, "GETCURRFRAMEPOSY", "", 0, getCurrFramePosY},
    {43, "GETCENTERX", "", 0, picture::getCenterX},
    {44, "GETCENTERY", "", 0, picture::getCenterY},
    {45, "GETNOE", "", 0, getNoe},
    {46, "GETNOF", "", 0, getNof},
    {47, "GETNOFINEVENT", "event", 1, getNofInEvent},
    {48, "GETMAXWIDTH", "", 0, getMaxWidth},
    {49, "GETMAXHEIGHT", "", 0, getMaxHeight},
    {50, "ISVISIBLE", "", 0, isVisible},
    {51, "GETCFRAMEINEVENT", "", 0, getCFrameInEvent},
    {52, "SETASBUTTON", "on, keep", 1, setAsButton},
    {53, "SETONFF", "on", 1, setOnFF},
    {54, "SETOPACITY", "opacity", 1, picture::setOpacity},
    {55, "GETOPACITY", "", 0, picture::getOpacity},
    {56, "SETVOLUME", "volume to 800", 1, setVolume},
    {57, "SETPAN", "panning, 400 is the middle", 1, setPan},
    {58, "SETFREQ", "samples a second", 1, setFreq},
    {59, "SETANCHOR", "x, y | place", 1, picture::setAnchor},
    {60, "GETANCHOR", "", 0, getAnchor},
    {61, "FLIPH", "", 0, flipH},
    {62, "FLIPV", "", 0, flipV},
    {63, "RESETFLIPS", "", 0, resetFlips},
    {64, "DRAWONTO", "object name, priority", 1, picture::drawOnto},
    {65, "PLAYREVERSE", "event, flag", 1, playReverse},
    {66, "NPLAY", "event number, frame", 2, nPlay},
    {67, "ISAT", "x, y, by alpha", 2, picture::isAt},
    {68, "REPLACECOLOR", "red, green, blue, red, green, blue", 6, replaceColor},
};

} // namespace

CMC_Animo_Runner::CMC_Animo_Runner() : CMC_Runner(kRows) {}
