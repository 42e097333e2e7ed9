#pragma once

// A typed stream over an open file: little-endian numbers and counted bytes, without tags or padding, so that
// a reader must ask for exactly what the writer wrote. Past the end of the file, or past a length that can't
// be right, all reads give 0 or the empty text, and failed() says so. The file stays the caller's and
// outlives the archive. One thread at a time.

#include <cstdint>
#include <string>

class CFile;
class CXRect;
class CXString;

class CXArchive {
public:
    CXArchive(CFile * file, bool storing) : file_(file), storing_(storing) {}

    bool isStoring() const { return storing_; }
    bool failed() const {
        return failed_;
    }             // something could not be read or written; nothing can from then on
    void Close(); // the file
    void Separator(unsigned char separator) { separator_ = separator; } // no binary operation uses it

    CXArchive & operator<<(int value);
    CXArchive & operator<<(std::int64_t value);
    CXArchive & operator<<(bool value);
    CXArchive & operator<<(double value); // as thousandths in 32 bits, cut towards zero
    CXArchive & operator<<(const CXRect & value);
    CXArchive & operator<<(const CXString & value); // 32-bit length, then the bytes
    CXArchive & operator<<(const char * value);     // the same; null counts as empty

    CXArchive & operator>>(int & value);
    CXArchive & operator>>(std::int64_t & value);
    CXArchive & operator>>(bool & value);
    CXArchive & operator>>(double & value);
    CXArchive & operator>>(CXRect & value);
    CXArchive & operator>>(CXString & value);
    CXArchive & operator>>(char *& value); // a new block with a zero at its end, from new[]; never null
    CXArchive & operator>>(char & value);

    // One byte of length, which reads as signed: a text of 128 bytes or more comes back empty, and the reader
    // then stands in its middle.
    void writeShortString(const CXString & text);
    void readShortString(CXString * text);
    // Text without a length; it reads as one word, up to white space.
    void FWrite(const CXString & text);
    void FRead(CXString & text);
    void CopyFile(const CXString & name); // appends that file's bytes

private:
    void write(const void * from, int bytes);
    bool read(void * to, int bytes); // all of them, or the archive has failed
    std::string readBytes(int length);
    template <class Number>
    void writeNumber(Number value);
    template <class Number>
    Number readNumber();

    CFile * file_; // not owned
    bool storing_;
    bool failed_ = false;
    unsigned char separator_ = 0;
};
