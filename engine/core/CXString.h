#pragma once

// The engine's string: owned zero-ended bytes (Windows-1250), passed by value, with no zero byte inside.
// Its capacity follows fixed rules, told at each operation's code; the memory behind it may be larger, and
// short texts live inside the object. Positions that lie outside are cut to the text; nothing reports errors.

#include <cstring>
#include <string>
#include <string_view>

class CXArray;
class CXPoint;
class CXRect;

class CXString {
public:
    static constexpr int kStep = 32; // capacity of a new string, and the room that growing adds

    CXString() { inline_[0] = 0; }
    CXString(const char * text) { // null counts as empty
        if (!text) text = "";
        begin(text, std::strlen(text));
    }
    explicit CXString(std::string_view text);
    explicit CXString(const std::string & text) : CXString(std::string_view(text)) {}
    // Room for a caller who writes the buffer himself; contents unset, the length reads 1.
    explicit CXString(int size);
    CXString(const CXString & other) {
        begin(other.buffer_, static_cast<std::size_t>(other.length_));
        capacity_ = other.capacity_;
    }
    CXString(CXString && other) noexcept {
        if (other.onHeap())
            takeBlock(other);
        else
            begin(other.buffer_, static_cast<std::size_t>(other.length_));
        capacity_ = other.capacity_;
    }
    virtual ~CXString() {
        if (onHeap()) freeBlock();
    }

    CXString & operator=(const CXString & other);
    CXString & operator=(CXString && other) noexcept;
    CXString & operator=(const char * text); // null leaves the string as it is
    CXString & operator=(char c);
    CXString & operator=(int value);
    CXString & operator=(double value); // nine significant digits; script values print by toString(double)
    CXString & operator+=(const CXString & other) {
        return add(other.buffer_, static_cast<std::size_t>(other.length_));
    }
    CXString & operator+=(const char * text) { return text ? add(text, std::strlen(text)) : *this; }
    CXString & operator+=(std::string_view text);
    CXString & operator+=(char c);
    CXString & operator+=(int value);

    const char * c_str() const { return buffer_; }
    char * getBuffer() { return buffer_; } // capacity bytes
    int getLength() const { return length_; }
    int getCapacity() const { return capacity_; }
    std::string_view view() const { return {buffer_, static_cast<std::size_t>(length_)}; }

    char GetAt(int i) const; // -1 is the last byte; 0 outside
    char lastChar() const { return GetAt(-1); }
    bool IsString() const { return length_ > 0; }
    bool IsLower() const;
    bool IsUpper() const;
    bool IsUpper(int i) const;
    bool isNumber() const { return toNumber() != 0; } // so "0" is none
    int toNumber() const;
    long toLong() const { return toNumber(); }
    double toDouble() const;
    bool toBool() const; // "true" in any case
    static int toNumber(const CXString & text) { return text.toNumber(); }
    static long toLong(const CXString & text) { return text.toLong(); }
    static double toDouble(const CXString & text) { return text.toDouble(); }
    static bool toBool(const CXString & text) { return text.toBool(); }
    CXPoint toPoint() const;
    CXRect toRect() const;
    // New CXArray of new CXString, given back with releaseToVector.
    CXArray * toVector() const;
    CXArray * toVector(const CXString & separators) const;
    static void releaseToVector(CXArray * list);

    bool equals(const CXString & other) const { return view() == other.view(); }
    bool equalsIgnoreCase(const CXString & other) const;
    bool startsWith(const CXString & text) const { return view().starts_with(text.view()); }
    bool endsWith(const CXString & text) const { return view().ends_with(text.view()); }

    // Upper-case names return a new string, lower-case names write into out or change the string itself.
    // Mid's second argument is an end position, Right's argument a start position: neither is a count.
    CXString Left(int n) const;
    void left(int n, CXString * out) const;
    void left(int n);
    CXString Mid(int start, int end) const;
    void mid(int start, int end, CXString * out) const;
    void mid(int start, int end);
    CXString Right(int start) const;
    void right(int start, CXString * out) const;
    void right(int start);

    CXString & LTrim(char c);
    CXString & RTrim(char c);
    CXString & AllTrim(char c);
    CXString & Lower();
    CXString & Upper();
    void FillWith(char c, int n);
    void Replace(char a, char b);
    CXString replace(const CXString & what, const CXString & with) const;
    void replaceOnce(const CXString & what, const CXString & with,
                     int start); // drops what stands before start
    void removeTag(const CXString & tag);

    int Find(char c, int from = 0) const;
    int FindLast(char c, int from = -1) const;
    int FindSubString(const CXString & text, int from = 0) const;
    virtual int indexOf(const CXString & text, int from = 0) const;
    virtual int findOneOf(const CXString & set, int from = 0) const;
    virtual int getCount(unsigned char c) const;
    CXString getWord(int n) const; // the first is number 0
    // Whether name fits this pattern, in the archive's own reading of * and ?.
    bool FilterFits(const CXString & name) const;

    // sprintf, cut at 255 bytes.
    void Format(const char * format, int a);
    void Format(const char * format, int a, int b);
    void Format(const char * format, const CXString & a);
    void Format(const char * format, const CXString & a, int b);
    void Format(const char * format, const CXString & a, int b, const CXString & c);
    void Format(const char * format, const CXString & a, int b, int c);

    static CXString toString(bool value);
    static CXString toString(int value);
    static CXString toString(double value); // always five decimals, but "0" for zero

private:
    friend CXString joined(std::string_view a, std::string_view b, int capacity);

    static constexpr std::size_t kInline = 36;

    // A new string's first text, n bytes without a zero.
    void begin(const char * text, std::size_t n) {
        if (n >= kInline) {
            beginLong(text, n);
            return;
        }
        std::memcpy(inline_, text, n);
        inline_[n] = 0;
        length_ = static_cast<int>(n);
        if (n >= static_cast<std::size_t>(kStep)) capacity_ = length_ + kStep;
    }
    void beginLong(const char * text, std::size_t n);
    // More text, which may lie inside this very buffer.
    CXString & add(const char * text, std::size_t n) {
        std::size_t total = static_cast<std::size_t>(length_) + n;
        if (total >= static_cast<std::size_t>(capacity_)) capacity_ = static_cast<int>(total) + kStep;
        append(text, n);
        return *this;
    }
    void append(const char * text, std::size_t n) {
        std::size_t total = static_cast<std::size_t>(length_) + n;
        if (total >= static_cast<std::size_t>(allocated_)) {
            appendLong(text, n);
            return;
        }
        std::memcpy(buffer_ + length_, text, n);
        buffer_[total] = 0;
        length_ = static_cast<int>(total);
    }
    void appendLong(const char * text, std::size_t n);
    void append(std::string_view text) { append(text.data(), text.size()); }
    void store(std::string_view text); // text in place of the contents, capacity untouched
    void cut(int start, int end);      // keeps start..end of the contents
    void takeBlock(CXString & other);  // the heap block of a string that is about to go, with its text
    void freeBlock();
    bool onHeap() const { return buffer_ != inline_; }

    int length_ = 0;
    int capacity_ = kStep;
    char * buffer_ = inline_; // inline_, or from malloc and owned
    int allocated_ = kInline; // bytes at buffer_
    char inline_[kInline];
};

inline bool operator==(const CXString & a, const CXString & b) { return a.view() == b.view(); }
inline bool operator==(const CXString & a, const char * b) {
    return a.view() == std::string_view(b ? b : "");
}

CXString operator+(const CXString & a, const char * b);
CXString operator+(const char * a, const CXString & b);
CXString operator+(const CXString & a, const CXString & b);
