#pragma once

// A whole text in memory, handed out line by line. One owner; main thread.

#include "core/CXObject.h"

#include <memory>
#include <string_view>

class CWindow;

class CTextFileReader : public CXObject {
public:
    // Loads the file of that name as text, found by the usual search; the error code is the file's. Of a file
    // beyond 2 GB the front is read.
    CTextFileReader(CWindow * window, const char * name);
    // Over a block that stays the caller's and outlives the reader.
    CTextFileReader(CWindow * window, const char * buffer, int size);

    bool eof() const { return position_ >= size_; }
    void reset() { position_ = 0; }
    // The next line without its line feed, up to its first zero byte; empty behind the end. The very last
    // byte of the text ends a line whatever it is: files are expected to end in a line feed, and one that
    // doesn't loses that byte.
    CXString getLine();
    // The same bytes where they stand, zero bytes and all.
    std::string_view nextLine();

private:
    int position_ = 0;
    int size_ = 0; // bytes at buffer_
    const char * buffer_ = nullptr;
    std::unique_ptr<char[]> owned_; // behind buffer_, unless that is the caller's
};
