#include "files/CXArchive.h"

#include "core/CXRect.h"
#include "core/CXString.h"
#include "files/CFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>

namespace {

constexpr double kUnits = 1000.0; // of a double in its stored form
constexpr int kChunk = 1 << 16;   // bytes that a length alone may allocate
constexpr int kReadMode = CFile::kRead | CFile::kBinary;
constexpr std::string_view kSpace = " \t\n\v\f\r";

// What doesn't fit becomes the smallest number, as the processor of the time had it.
int thousandths(double value) {
    double scaled = value * kUnits;
    if (!(scaled > -2147483649.0 && scaled < 2147483648.0)) return std::numeric_limits<int>::min();
    return static_cast<int>(scaled);
}

} // namespace

void CXArchive::Close() {
    if (file_) file_->Close();
}

void CXArchive::write(const void * from, int bytes) {
    if (bytes < 1 || failed_) return;
    failed_ = !file_ || file_->Write(from, bytes) != bytes;
}

bool CXArchive::read(void * to, int bytes) {
    if (!failed_) failed_ = !file_ || file_->Read(to, bytes) != bytes;
    return !failed_;
}

template <class Number>
void CXArchive::writeNumber(Number value) {
    auto bits = static_cast<std::make_unsigned_t<Number>>(value);
    unsigned char bytes[sizeof value];
    for (std::size_t i = 0; i < sizeof value; i++) bytes[i] = static_cast<unsigned char>(bits >> (8 * i));
    write(bytes, sizeof bytes);
}

template <class Number>
Number CXArchive::readNumber() {
    unsigned char bytes[sizeof(Number)];
    if (!read(bytes, sizeof bytes)) return 0;
    std::make_unsigned_t<Number> bits = 0;
    for (std::size_t i = 0; i < sizeof bytes; i++)
        bits |= static_cast<std::make_unsigned_t<Number>>(bytes[i]) << (8 * i);
    return static_cast<Number>(bits);
}

// A damaged length doesn't allocate more than the file holds.
std::string CXArchive::readBytes(int length) {
    std::string bytes;
    while (!failed_ && static_cast<int>(bytes.size()) < length) {
        std::size_t had = bytes.size();
        std::size_t part = static_cast<std::size_t>(std::min(length - static_cast<int>(had), kChunk));
        bytes.resize(had + part);
        if (!read(bytes.data() + had, static_cast<int>(part))) bytes.clear();
    }
    return bytes;
}

CXArchive & CXArchive::operator<<(int value) {
    writeNumber(value);
    return *this;
}

CXArchive & CXArchive::operator<<(std::int64_t value) {
    writeNumber(value);
    return *this;
}

CXArchive & CXArchive::operator<<(bool value) {
    unsigned char byte = value ? 1 : 0;
    write(&byte, 1);
    return *this;
}

CXArchive & CXArchive::operator<<(double value) { return *this << thousandths(value); }

CXArchive & CXArchive::operator<<(const CXRect & value) {
    return *this << value.left << value.top << value.right << value.bottom;
}

CXArchive & CXArchive::operator<<(const CXString & value) {
    *this << value.getLength();
    write(value.c_str(), value.getLength());
    return *this;
}

CXArchive & CXArchive::operator<<(const char * value) {
    std::string_view text = value ? value : "";
    *this << static_cast<int>(text.size());
    write(text.data(), static_cast<int>(text.size()));
    return *this;
}

CXArchive & CXArchive::operator>>(int & value) {
    value = readNumber<int>();
    return *this;
}

CXArchive & CXArchive::operator>>(std::int64_t & value) {
    value = readNumber<std::int64_t>();
    return *this;
}

CXArchive & CXArchive::operator>>(bool & value) {
    unsigned char byte = 0;
    value = read(&byte, 1) && byte != 0;
    return *this;
}

CXArchive & CXArchive::operator>>(double & value) {
    value = readNumber<int>() * (1.0 / kUnits);
    return *this;
}

CXArchive & CXArchive::operator>>(CXRect & value) {
    return *this >> value.left >> value.top >> value.right >> value.bottom;
}

CXArchive & CXArchive::operator>>(CXString & value) {
    value = CXString(readBytes(readNumber<int>()));
    return *this;
}

CXArchive & CXArchive::operator>>(char *& value) {
    std::string bytes = readBytes(readNumber<int>());
    value = new char[bytes.size() + 1];
    std::memcpy(value, bytes.c_str(), bytes.size() + 1);
    return *this;
}

CXArchive & CXArchive::operator>>(char & value) {
    if (!read(&value, 1)) value = 0;
    return *this;
}

void CXArchive::writeShortString(const CXString & text) {
    int length = text.getLength() & 0xFF;
    auto byte = static_cast<unsigned char>(length);
    write(&byte, 1);
    write(text.c_str(), text.getLength());
}

void CXArchive::readShortString(CXString * text) {
    signed char length = 0;
    read(&length, 1);
    *text = CXString(readBytes(length));
}

void CXArchive::FWrite(const CXString & text) { write(text.c_str(), text.getLength()); }

void CXArchive::FRead(CXString & text) {
    std::string word;
    char c = 0;
    while (read(&c, 1)) {
        bool space = kSpace.find(c) != std::string_view::npos;
        if (!space) {
            word += c;
        } else if (!word.empty()) {
            file_->Seek(-1, SEEK_CUR); // the white space stays for the next reader
            break;
        }
    }
    // The end of the file ends a word too.
    if (!word.empty()) failed_ = false;
    text = CXString(word);
}

void CXArchive::CopyFile(const CXString & name) {
    CFile source(nullptr, name, kReadMode);
    if (source.LastError()) return;
    char area[kChunk];
    for (int n = source.Read(area, kChunk); n > 0; n = source.Read(area, kChunk)) write(area, n);
}
