#pragma once

// A whole file in memory, read bit by bit (most significant first) or in little-endian whole numbers.
// Behind the end everything reads as zero.

#include <memory>

class CDataBuffer;
class CFile;

class CMemStream {
public:
    explicit CMemStream(CFile * file); // reads it from its start
    CMemStream(const CMemStream &) = delete;
    CMemStream & operator=(const CMemStream &) = delete;
    virtual ~CMemStream();

    int get_bit();
    unsigned get_bits(int n);   // n in 0..32; below 1 gives 0
    int get_signed_bits(int n); // the first bit is the sign
    // These skip the rest of a partly read byte first.
    char get_char();
    short get_shortint();
    int get_int();
    void move(int n); // by n bytes, not beyond either end
    // n bytes from the read pointer, whatever the bit position.
    void get_bytes(void * to, int n);
    char * getPtr() { return at_; }
    int getSize() const { return size_; }

private:
    unsigned number(int bytes);
    void wholeByte();

    int size_ = 0;
    std::unique_ptr<CDataBuffer> data_;
    char * at_ = nullptr;
    char * end_ = nullptr;
    int bit_ = 0; // 0 to 7, in the byte at at_
};
