#pragma once

// A text as a key: the key type of scopes and method tables. One object serves many lookups through set.

#include "core/CXObject.h"

#include <cstring>
#include <string_view>

// The engine's string hash, of signed bytes: sum of (1 << i % 16) + (i + 1) * text[i], wrapping. It decides
// the order of CHashtable::getKeys.
int nameHash(std::string_view text);

class CStringHashCode : public CXObject {
public:
    explicit CStringHashCode(const CXString & text) : CStringHashCode(text.view()) {}
    explicit CStringHashCode(const char * text) : CStringHashCode(std::string_view(text)) {}
    explicit CStringHashCode(std::string_view text) {
        small_[0] = 0;
        set(text);
    }
    CStringHashCode(const CStringHashCode &) = delete;
    CStringHashCode & operator=(const CStringHashCode &) = delete;
    ~CStringHashCode() override;

    void set(const char * text) { set(std::string_view(text)); }
    void set(std::string_view text) {
        if (text.size() >= static_cast<std::size_t>(room_)) makeRoom(text.size());
        std::memcpy(text_, text.data(), text.size());
        text_[text.size()] = 0;
        length_ = static_cast<unsigned>(text.size());
        mixed_ = mix(text);
    }
    CXString getString() const { return CXString(view()); }
    std::string_view view() const { return {text_, length_}; }
    // A hash that spreads better than the engine's, for finding; nothing visible depends on it.
    unsigned mixed() const { return mixed_; }
    static unsigned mix(std::string_view text);

    int getHashcode() override { return nameHash(view()); }
    bool equals(CXObject * other) override { return view() == static_cast<CStringHashCode *>(other)->view(); }
    const CStringHashCode * asStringKey() const override { return this; }

private:
    static constexpr unsigned kSmall = 64;

    void makeRoom(std::size_t length);

    unsigned mixed_ = 0;
    unsigned length_ = 0;
    unsigned room_ = kSmall;
    char * text_ = small_; // small_, or owned
    char small_[kSmall];
};

inline unsigned CStringHashCode::mix(std::string_view text) {
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15ULL, kMultiplier = 0xD6E8FEB86659FD93ULL;
    const char * p = text.data();
    std::size_t n = text.size();
    std::uint64_t h = n * kOdd, word = 0;
    for (; n >= 8; n -= 8, p += 8) {
        std::memcpy(&word, p, 8);
        h = (h ^ word) * kMultiplier;
        h ^= h >> 32;
    }
    if (n >= 4) {
        std::uint32_t head = 0, tail = 0; // they overlap for fewer than eight bytes
        std::memcpy(&head, p, 4);
        std::memcpy(&tail, p + n - 4, 4);
        word = static_cast<std::uint64_t>(tail) << 32 | head;
    } else if (n > 0) {
        auto byte = [p](std::size_t i) {
            return static_cast<std::uint64_t>(static_cast<unsigned char>(p[i]));
        };
        word = byte(0) | byte(n / 2) << 8 | byte(n - 1) << 16;
    } else {
        word = 0;
    }
    h = (h ^ word) * kMultiplier;
    h ^= h >> 32;
    return static_cast<unsigned>((h * kOdd) >> 32);
}
