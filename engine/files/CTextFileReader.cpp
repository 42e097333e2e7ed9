#include "files/CTextFileReader.h"

#include "files/CFile.h"

#include <algorithm>
#include <cstring>
#include <new>

CTextFileReader::CTextFileReader(CWindow * window, const char * name) {
    CFile file(window, name, CFile::kRead | CFile::kText);
    setErrorCode(file.LastError());
    if (LastError()) return;
    int length = std::max(file.Length(), 0);
    owned_.reset(new (std::nothrow) char[static_cast<std::size_t>(length)]);
    if (!owned_) {
        setErrorCode(CFile::kNotFound);
        return;
    }
    buffer_ = owned_.get();
    size_ = std::max(file.Read(owned_.get(), length), 0);
}

CTextFileReader::CTextFileReader(CWindow *, const char * buffer, int size)
    : size_(buffer ? std::max(size, 0) : 0), buffer_(buffer) {}

CXString CTextFileReader::getLine() { return CXString(nextLine()); }

std::string_view CTextFileReader::nextLine() {
    if (eof()) return {};
    const char * start = buffer_ + position_;
    const char * last = buffer_ + size_ - 1;
    const void * feed =
        start == last ? nullptr : std::memchr(start, '\n', static_cast<std::size_t>(last - start));
    const char * end = feed ? static_cast<const char *>(feed) : last;
    position_ = static_cast<int>(end - buffer_) + 1;
    return {start, static_cast<std::size_t>(end - start)};
}
