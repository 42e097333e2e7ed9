#include "input/CKeyboard.h"

#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "input/KeyCodes.h"
#include "platform/World.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kCzechLanguage = 2, kHungarianLanguage = 6; // of CLanguageOSVer

// Names of keys that scripts ask for; a name with two codes means either. Letters, digits and the blank go by
// their characters.
constexpr struct {
    const char * name;
    int code, other;
} kNames[] = {
    {"left", keys::kLeft, 0},
    {"up", keys::kUp, 0},
    {"down", keys::kDown, 0},
    {"right", keys::kRight, 0},
    {"lshift", keys::kLeftShift, 0},
    {"rshift", keys::kRightShift, 0},
    {"shift", keys::kLeftShift, keys::kRightShift},
    {"lctrl", keys::kLeftCtrl, 0},
    {"rctrl", keys::kRightCtrl, 0},
    {"ctrl", keys::kLeftCtrl, keys::kRightCtrl},
    {"lalt", keys::kLeftAlt, 0},
    {"ralt", keys::kRightAlt, 0},
    {"alt", keys::kLeftAlt, keys::kRightAlt},
    {"space", keys::kSpace, 0},
};

} // namespace

// Letters of the US keyboard and what they type with Alt, in Windows-1250.
const CKeyboard::National CKeyboard::kCzech[] = {
    {'A', 0xE1, 0xC1}, {'C', 0xE8, 0xC8}, {'D', 0xEF, 0xCF}, {'E', 0xE9, 0xC9},
    {'W', 0xEC, 0xCC}, {'I', 0xED, 0xCD}, {'N', 0xF2, 0xD2}, {'O', 0xF3, 0xD3},
    {'R', 0xF8, 0xD8}, {'S', 0x9A, 0x8A}, {'T', 0x9D, 0x8D}, {'U', 0xFA, 0xDA},
    {'J', 0xF9, 0xD9}, {'Y', 0xFD, 0xDD}, {'Z', 0x9E, 0x8E}, {0, 0, 0}};
const CKeyboard::National CKeyboard::kHungarian[] = {
    {'A', 0xE1, 0xC1}, {'E', 0xE9, 0xC9}, {'I', 0xED, 0xCD}, {'O', 0xF3, 0xD3}, {'P', 0xF6, 0xD6},
    {'L', 0xF5, 0xD5}, {'U', 0xFA, 0xDA}, {'Y', 0xFC, 0xDC}, {'J', 0xFB, 0xDB}, {0, 0, 0}};

CKeyboard::CKeyboard(CWindow * window) : window_(window), device_(*platform::world().keyboard) {
    initLanguage();
    window_->addIPoller(this);
}

CKeyboard::~CKeyboard() { window_->removeIPoller(this); }

void CKeyboard::tick() {
    items_.clear();
    if (!device_.read(items_, kItems)) return;
    for (const platform::Keyboard::Item & each : items_) {
        if (each.code < 0 || each.code >= kKeys) continue;
        auto k = static_cast<std::size_t>(each.code);
        state_[k] = each.down ? 128 : 0;
        if (held_[k] == each.down) continue;
        held_[k] = each.down;
        if (each.down) {
            keysDown_.push_back({each.code, false, false});
            keysHeld_.push_back(each.code);
        } else {
            release(each.code);
        }
    }
}

void CKeyboard::release(int code) {
    keysUp_.push_back(code);
    std::erase(keysHeld_, code);
    if (!autoRepeat_) return;
    // A held key stays among those down; one that nobody heard of yet is told all the same.
    std::erase_if(keysDown_, [code](const Pressed & each) { return each.code == code && each.told; });
    for (Pressed & each : keysDown_)
        if (each.code == code) each.ended = true;
}

void CKeyboard::flushSignals(bool deliver) {
    std::uint32_t now = platform::world().clock->tickCount();
    if (everFlushed_ && now - flushed_ < kRepeat) return;
    everFlushed_ = true;
    flushed_ = now;
    const std::vector<Pressed> down = keysDown_;
    const std::vector<int> up = std::exchange(keysUp_, {});
    std::erase_if(keysDown_, [this](const Pressed & each) { return !autoRepeat_ || each.ended; });
    for (Pressed & each : keysDown_) each.told = true;
    if (!deliver) return;
    for (const Pressed & each : down) window_->OnKeyDown(each.code, 0);
    for (int code : up) window_->OnKeyUp(code, 0);
}

bool CKeyboard::isKeyPressed(const CXString & name) const {
    for (const auto & each : kNames)
        if (name.equalsIgnoreCase(each.name)) return isDown(each.code) || (each.other && isDown(each.other));
    if (name.getLength() != 1) return false;
    CXString letter = name;
    int code = keys::codeOf(letter.Upper().GetAt(0));
    return code != 0 && isDown(code);
}

// ----------------------------------------------------------------------------------------------- characters

void CKeyboard::initLanguage() {
    int language = window_->getLangIfc()->getLang();
    layout_ = language == kCzechLanguage ? kCzech : language == kHungarianLanguage ? kHungarian : nullptr;
}

int CKeyboard::getChar(int code) const {
    const char * name = code == keys::kSpace ? " " : keys::nameOf(code);
    if (name[0] == 0 || name[1] != 0) return 0;
    bool isLetter = name[0] >= 'A' && name[0] <= 'Z';
    if (!isLetter) return static_cast<unsigned char>(name[0]);
    bool shift = device_.isDown(keys::kLeftShift) || device_.isDown(keys::kRightShift);
    bool upper = shift || device_.isCapsLockOn();
    if (device_.isDown(keys::kLeftAlt) || device_.isDown(keys::kRightAlt))
        for (const National * each = layout_; each && each->letter; each++)
            if (each->letter == name[0]) return upper ? each->upper : each->lower;
    return upper ? name[0] : name[0] - 'A' + 'a';
}

void CKeyboard::onChar(int code) {
    if (int typed = getChar(code)) window_->OnChar(typed, 0);
}
