#pragma once

// A block of memory that reads like an open file. One owner, one thread at a time.

#include "files/CFile.h"

class CFile_Stream : public CFile {
public:
    CFile_Stream(const char * buffer, int length); // the block stays the caller's and outlives this

    int Length() override { return length_; }
    int Tell() override { return position_; }
    platform::File * GetHandle() override { return nullptr; }
    // Only two kinds are known: whence 2 goes to the end whatever the offset, whence 1 moves by it, within
    // the block. Any other leaves the position, also 0. The result is 0.
    int Seek(int offset, int whence) override;
    int Read(void * to, int n) override; // what is left at most
    void GetLine(char *, int) override {}
    CXString getLine() override { return {}; }
    bool eof() override { return position_ == length_; }

private:
    const char * buffer_;
    int length_;
    int position_ = 0; // in 0..length_
};
