#pragma once

// A text as a key: the key type of scopes and method tables. One object serves many lookups through set.

#include "core/CXObject.h"

#include <cstring>
#include <string_view>

// The engine's string hash, of signed bytes: sum of (1 << i % 16) + (i + 1) * text[i], wrapping. It decides
// the order of CHashtable::getKeys.
int nameHash(std::string_view text);

// What finds a text among others: its first and last eight bytes (they overlap in a text of fewer than 16)
// and a hash that spreads better than the engine's. Its low byte is the length, or kLong: texts up to 16
// bytes are equal when their marks are.
struct TextMark {
    static constexpr unsigned kLong = 0xFF;

    std::uint64_t ends[2];
    unsigned hash;

    explicit TextMark(std::string_view text);
    explicit TextMark(unsigned hash) : ends{}, hash(hash | kLong) {} // of a key that isn't a text
    bool tellsAll() const { return (hash & kLong) != kLong; }
};

class CStringHashCode final : public CXObject {
public:
    explicit CStringHashCode(const CXString & text) : CStringHashCode(text.view()) {}
    explicit CStringHashCode(const char * text) : CStringHashCode(std::string_view(text)) {}
    explicit CStringHashCode(std::string_view text) : mark_(text) { keep(text); }
    CStringHashCode(const CStringHashCode &) = delete;
    CStringHashCode & operator=(const CStringHashCode &) = delete;
    ~CStringHashCode() override {
        if (text_ != small_) delete[] text_;
    }
    // Keys come and go with every local variable: a thread keeps the blocks of a few for the next ones.
    static void * operator new(std::size_t bytes);
    static void operator delete(void * block, std::size_t bytes) noexcept;

    void set(const char * text) { set(std::string_view(text)); }
    void set(std::string_view text) {
        mark_ = TextMark(text);
        keep(text);
    }
    CXString getString() const { return CXString(view()); }
    std::string_view view() const {
        if (length_ <= 16) unpack();
        return {text_, length_};
    }
    const TextMark & mark() const { return mark_; }

    int getHashcode() override { return nameHash(view()); }
    bool equals(CXObject * other) override { return view() == static_cast<CStringHashCode *>(other)->view(); }
    const CStringHashCode * asStringKey() const override { return this; }

private:
    static constexpr std::size_t kSmall = 40;

    void keep(std::string_view text) {
        length_ = text.size();
        if (length_ > 16) keepLong(text);
    }
    void keepLong(std::string_view text);
    void unpack() const;

    TextMark mark_;
    std::size_t length_ = 0;
    std::size_t room_ = kSmall;
    char * text_ = small_; // small_, or owned; a text of up to 16 bytes gets here only when it is asked for
    mutable char small_[kSmall];
};

inline TextMark::TextMark(std::string_view text) {
    constexpr std::uint64_t kFirst = 0xA0761D6478BD642FULL, kLast = 0xE7037ED1A0B428DBULL;
    const char * p = text.data();
    std::size_t n = text.size();
    if (n >= 4) {
        // Four loads at places without a branch, which names of mixed lengths would make hard to guess.
        auto at = [p](std::size_t i) {
            std::uint32_t word = 0;
            std::memcpy(&word, p + i, 4);
            return static_cast<std::uint64_t>(word);
        };
        std::size_t end = n - 4;
        ends[0] = at(0) | at(end < 4 ? end : 4) << 32;
        ends[1] = at(end < 4 ? 0 : end - 4) | at(end) << 32;
    } else {
        auto at = [p](std::size_t i) { return static_cast<std::uint64_t>(static_cast<unsigned char>(p[i])); };
        ends[0] = n == 0 ? 0 : at(0) | at(n / 2) << 8 | at(n - 1) << 16;
        ends[1] = 0;
    }
    auto mixed = [](std::uint64_t a, std::uint64_t b) {
        __extension__ using Wide = unsigned __int128;
        Wide product = static_cast<Wide>(a) * b;
        return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
    };
    std::uint64_t middle = n * kLast;
    for (std::size_t i = 8; i + 8 < n; i += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, p + i, 8);
        middle = mixed(middle ^ word, kFirst);
    }
    hash = static_cast<unsigned>(mixed(ends[0] ^ kFirst, ends[1] ^ middle)) << 8 |
           (n <= 16 ? static_cast<unsigned>(n) : kLong);
}
