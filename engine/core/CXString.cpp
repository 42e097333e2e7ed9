#include "core/CXString.h"

#include "core/CStringTokenizer.h"
#include "core/CXArray.h"
#include "core/CXPoint.h"
#include "core/CXRect.h"
#include "core/NumberText.h"
#include "core/Text.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// No string holds a zero byte: whatever comes in ends at the first one.
std::string_view zeroEnded(std::string_view text) {
    if (text.empty()) return "";
    const void * zero = std::memchr(text.data(), 0, text.size());
    return zero ? text.substr(0, static_cast<std::size_t>(static_cast<const char *>(zero) - text.data()))
                : text;
}

std::string_view orEmpty(const char * text) { return text ? text : ""; }

int size(std::string_view text) { return static_cast<int>(text.size()); }

char * newBlock(std::size_t bytes) {
    char * block = static_cast<char *>(std::malloc(bytes));
    if (!block) std::abort(); // as everywhere in the engine, running out of memory isn't handled
    return block;
}

int capacityFor(int length) { return length < CXString::kStep ? CXString::kStep : length + CXString::kStep; }

constexpr const char * kListSeparators = ", \n\r";
constexpr const char * kCoordinateSeparators = ".|, ";

} // namespace

CXString::CXString(std::string_view text) {
    text = zeroEnded(text);
    begin(text.data(), text.size());
}

CXString::CXString(int size) {
    if (size > allocated_) {
        buffer_ = newBlock(static_cast<std::size_t>(size));
        allocated_ = size;
    }
    capacity_ = size;
    length_ = 1;
    // Not part of the contract, but a buffer that nobody wrote must still end.
    buffer_[allocated_ - 1] = 0;
}

void CXString::freeBlock() {
    std::free(buffer_);
    buffer_ = inline_;
    allocated_ = kInline;
}

void CXString::beginLong(const char * text, std::size_t n) {
    buffer_ = newBlock(n + 1);
    allocated_ = static_cast<int>(n) + 1;
    std::memcpy(buffer_, text, n);
    buffer_[n] = 0;
    length_ = static_cast<int>(n);
    capacity_ = length_ + kStep;
}

void CXString::store(std::string_view text) {
    // The text may lie inside this very buffer, so the old memory goes only after the copy.
    if (size(text) >= allocated_) {
        char * fresh = newBlock(text.size() + 1);
        std::memcpy(fresh, text.data(), text.size());
        if (onHeap()) freeBlock();
        buffer_ = fresh;
        allocated_ = size(text) + 1;
    } else if (!text.empty()) {
        std::memmove(buffer_, text.data(), text.size());
    }
    length_ = size(text);
    buffer_[length_] = 0;
}

void CXString::appendLong(const char * text, std::size_t n) {
    // Twice the room, whatever the capacity says: appending piece by piece stays linear.
    std::size_t kept = static_cast<std::size_t>(length_), needed = kept + n + 1;
    std::size_t bytes = std::max(needed, static_cast<std::size_t>(allocated_) * 2);
    if (bytes > std::size_t{INT_MAX}) bytes = needed;
    char * fresh = newBlock(bytes);
    std::memcpy(fresh, buffer_, kept);
    std::memcpy(fresh + kept, text, n);
    fresh[kept + n] = 0;
    if (onHeap()) freeBlock();
    buffer_ = fresh;
    allocated_ = static_cast<int>(bytes);
    length_ = static_cast<int>(kept + n);
}

CXString & CXString::operator=(const CXString & other) {
    if (this == &other) return *this;
    if (other.capacity_ > capacity_) capacity_ = other.length_ + kStep;
    store(other.view());
    return *this;
}

CXString & CXString::operator=(CXString && other) noexcept {
    if (this == &other) return *this;
    if (other.capacity_ > capacity_) capacity_ = other.length_ + kStep;
    if (other.onHeap())
        takeBlock(other);
    else
        store(other.view());
    return *this;
}

void CXString::takeBlock(CXString & other) {
    if (onHeap()) freeBlock();
    buffer_ = other.buffer_;
    allocated_ = other.allocated_;
    length_ = other.length_;
    other.buffer_ = other.inline_;
    other.allocated_ = kInline;
    other.inline_[0] = 0;
    other.length_ = 0;
}

CXString & CXString::operator=(const char * text) {
    if (!text) return *this;
    std::string_view view(text);
    if (size(view) >= capacity_) capacity_ = size(view) + kStep;
    store(view);
    return *this;
}

CXString & CXString::operator=(char c) {
    store(zeroEnded({&c, 1}));
    return *this;
}

CXString & CXString::operator=(int value) {
    store({});
    char digits[16];
    append({digits,
            static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, value).ptr - digits)});
    return *this;
}

CXString & CXString::operator=(double value) {
    store(number::significant(value, 9));
    return *this;
}

CXString & CXString::operator+=(std::string_view text) {
    text = zeroEnded(text);
    return add(text.data(), text.size());
}

CXString & CXString::operator+=(char c) {
    if (length_ >= capacity_ - 2) capacity_ *= 2;
    if (c) append({&c, 1});
    return *this;
}

CXString & CXString::operator+=(int value) {
    if (length_ >= capacity_ - 20) capacity_ *= 2;
    char digits[16];
    append({digits,
            static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, value).ptr - digits)});
    return *this;
}

char CXString::GetAt(int i) const {
    if (i == -1) i = length_ - 1;
    return i >= 0 && i < length_ ? buffer_[i] : '\0';
}

bool CXString::IsLower() const { return std::ranges::all_of(view(), text::isLower); }

bool CXString::IsUpper() const { return std::ranges::all_of(view(), text::isUpper); }

bool CXString::IsUpper(int i) const { return text::isUpper(GetAt(i)); }

int CXString::toNumber() const { return text::toInt(view()); }

double CXString::toDouble() const { return text::toDouble(view()); }

bool CXString::toBool() const { return text::equalIgnoringCase(view(), "TRUE"); }

CXPoint CXString::toPoint() const {
    CStringTokenizer tokens(*this, kCoordinateSeparators);
    int x = tokens.nextToken().toNumber();
    int y = tokens.nextToken().toNumber();
    return {x, y};
}

CXRect CXString::toRect() const {
    CStringTokenizer tokens(*this, kCoordinateSeparators);
    int edges[4];
    for (int & edge : edges) edge = tokens.nextToken().toNumber();
    return {edges[0], edges[1], edges[2], edges[3]};
}

CXArray * CXString::toVector() const { return toVector(kListSeparators); }

CXArray * CXString::toVector(const CXString & separators) const {
    auto * list = new CXArray(101, 0.75F);
    CStringTokenizer tokens(*this, separators);
    while (tokens.hasMoreTokens()) list->add(new CXString(tokens.nextToken()));
    return list;
}

void CXString::releaseToVector(CXArray * list) {
    if (!list) return;
    for (int i = 0; i < list->size; i++) delete list->stringAt(i);
    delete list;
}

bool CXString::equalsIgnoreCase(const CXString & other) const {
    return text::equalIgnoringCase(view(), other.view());
}

void CXString::cut(int start, int end) {
    start = std::clamp(start, 0, length_);
    end = std::clamp(end, start, length_);
    store(view().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
}

CXString CXString::Mid(int start, int end) const {
    start = std::clamp(start, 0, length_);
    end = std::clamp(end, start, length_);
    return CXString(view().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
}

CXString CXString::Left(int n) const { return Mid(0, n); }
CXString CXString::Right(int start) const { return Mid(start, length_); }
void CXString::left(int n) { cut(0, n); }
void CXString::mid(int start, int end) { cut(start, end); }
void CXString::right(int start) { cut(start, length_); }
void CXString::left(int n, CXString * out) const { *out = Left(n); }
void CXString::mid(int start, int end, CXString * out) const { *out = Mid(start, end); }
void CXString::right(int start, CXString * out) const { *out = Right(start); }

CXString & CXString::LTrim(char c) {
    int start = 0;
    while (start < length_ && buffer_[start] == c) start++;
    if (start > 0) cut(start, length_);
    return *this;
}

CXString & CXString::RTrim(char c) {
    int end = length_;
    while (end > 0 && buffer_[end - 1] == c) end--;
    if (end < length_) cut(0, end);
    return *this;
}

CXString & CXString::AllTrim(char c) {
    LTrim(c);
    return RTrim(c);
}

CXString & CXString::Lower() {
    std::transform(buffer_, buffer_ + view().size(), buffer_, text::lower);
    return *this;
}

CXString & CXString::Upper() {
    std::transform(buffer_, buffer_ + view().size(), buffer_, text::upper);
    return *this;
}

void CXString::FillWith(char c, int n) {
    store({});
    if (!c || n < 1) return;
    if (n >= capacity_) capacity_ = n + kStep;
    append(std::string(static_cast<std::size_t>(n), c));
}

void CXString::Replace(char a, char b) {
    std::replace(buffer_, buffer_ + view().size(), a, b);
    if (!b) length_ = static_cast<int>(std::strlen(buffer_));
}

CXString CXString::replace(const CXString & what, const CXString & with) const {
    CXString result;
    std::string_view rest = view();
    for (;;) {
        std::size_t hit = what.IsString() ? rest.find(what.view()) : std::string_view::npos;
        result += rest.substr(0, hit);
        if (hit == std::string_view::npos) return result;
        result += with;
        rest.remove_prefix(hit + what.view().size());
    }
}

void CXString::replaceOnce(const CXString & what, const CXString & with, int start) {
    CXString rest = Right(start);
    int hit = what.IsString() ? rest.indexOf(what, 0) : -1;
    if (hit >= 0) rest = rest.Left(hit) + with + rest.Right(hit + what.getLength());
    *this = rest;
}

void CXString::removeTag(const CXString & tag) {
    CXString result;
    std::string_view rest = view();
    while (!rest.empty()) {
        std::size_t open = rest.find('<');
        result += rest.substr(0, open);
        if (open == std::string_view::npos) break;
        rest.remove_prefix(open);
        if (rest.substr(1, tag.view().size()) == tag.view()) {
            std::size_t close = rest.find('>');
            rest.remove_prefix(close == std::string_view::npos ? rest.size() : close + 1);
        } else {
            result += '<';
            rest.remove_prefix(1);
        }
    }
    *this = result;
}

int CXString::Find(char c, int from) const {
    std::size_t hit = view().find(c, static_cast<std::size_t>(std::max(from, 0)));
    return hit == std::string_view::npos ? -1 : static_cast<int>(hit);
}

int CXString::FindLast(char c, int from) const {
    int i = from == -1 ? length_ : std::min(from, length_);
    while (--i >= 0)
        if (buffer_[i] == c) return i;
    return -1;
}

int CXString::FindSubString(const CXString & text, int from) const { return CXString::indexOf(text, from); }

int CXString::indexOf(const CXString & text, int from) const {
    std::size_t hit = view().find(text.view(), static_cast<std::size_t>(std::max(from, 0)));
    return hit == std::string_view::npos ? -1 : static_cast<int>(hit);
}

int CXString::findOneOf(const CXString & set, int from) const {
    std::size_t hit = view().find_first_of(set.view(), static_cast<std::size_t>(std::max(from, 0)));
    return hit == std::string_view::npos ? -1 : static_cast<int>(hit);
}

int CXString::getCount(unsigned char c) const {
    return static_cast<int>(std::ranges::count(view(), static_cast<char>(c)));
}

CXString CXString::getWord(int n) const {
    CStringTokenizer words(*this, " \n\t");
    for (int i = 0; i < n && words.hasMoreTokens(); i++) words.nextToken();
    return words.nextToken();
}

bool CXString::FilterFits(const CXString & name) const {
    if (name == "*" || name == "*.*") return true;
    for (int i = 0, p = 0; i < name.length_; i++, p++) {
        char wanted = p < length_ ? buffer_[p] : '\0';
        if (wanted == '?') continue;
        if (wanted == '*') {
            if (length_ > name.length_)
                p += length_ - name.length_;
            else if (p == length_ - 1)
                return true;
            continue;
        }
        if (wanted != name.buffer_[i]) return false;
    }
    return true;
}

namespace {

template <class... Args>
CXString formatted(const char * format, Args... args) {
    char area[256];
    std::snprintf(area, sizeof area, format, args...);
    return area;
}

} // namespace

// The formats come from the engine's own code, never from a script.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
void CXString::Format(const char * format, int a) { *this = formatted(format, a).c_str(); }
void CXString::Format(const char * format, int a, int b) { *this = formatted(format, a, b).c_str(); }
void CXString::Format(const char * format, const CXString & a) {
    *this = formatted(format, a.c_str()).c_str();
}
void CXString::Format(const char * format, const CXString & a, int b) {
    *this = formatted(format, a.c_str(), b).c_str();
}
void CXString::Format(const char * format, const CXString & a, int b, const CXString & c) {
    *this = formatted(format, a.c_str(), b, c.c_str()).c_str();
}
void CXString::Format(const char * format, const CXString & a, int b, int c) {
    *this = formatted(format, a.c_str(), b, c).c_str();
}
#pragma GCC diagnostic pop

CXString CXString::toString(bool value) { return value ? "TRUE" : "FALSE"; }

CXString CXString::toString(int value) {
    CXString result;
    result = value;
    return result;
}

CXString CXString::toString(double value) { return CXString(number::fiveDecimals(value)); }

// A new string of a's text, to which b's is added.
CXString joined(std::string_view a, std::string_view b, int capacity) {
    CXString result;
    std::size_t total = a.size() + b.size();
    result.capacity_ =
        total >= static_cast<std::size_t>(capacity) ? static_cast<int>(total) + CXString::kStep : capacity;
    if (total >= CXString::kInline) {
        result.buffer_ = newBlock(total + 1);
        result.allocated_ = static_cast<int>(total) + 1;
    }
    std::memcpy(result.buffer_, a.data(), a.size());
    std::memcpy(result.buffer_ + a.size(), b.data(), b.size());
    result.buffer_[total] = 0;
    result.length_ = static_cast<int>(total);
    return result;
}

CXString operator+(const CXString & a, const char * b) {
    return joined(a.view(), orEmpty(b), a.getCapacity());
}

CXString operator+(const char * a, const CXString & b) {
    std::string_view left = orEmpty(a);
    return joined(left, b.view(), capacityFor(size(left)));
}

CXString operator+(const CXString & a, const CXString & b) {
    return joined(a.view(), b.view(), a.getCapacity());
}
