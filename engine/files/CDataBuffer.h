#pragma once

// A raw block of items with a cursor and one backup copy.

#include "core/CXObject.h"
#include "core/CXSize.h"

class CDataBuffer : public CXObject {
public:
    static constexpr int kLargest = 1 << 28; // bytes; a larger or negative wish gives a buffer of size 0

    CDataBuffer(int count, int itemSize);                    // zeroed
    CDataBuffer(const char * data, int count, int itemSize); // a copy; zeroed when data is null
    CDataBuffer(const CDataBuffer &) = delete;
    CDataBuffer & operator=(const CDataBuffer &) = delete;
    ~CDataBuffer() override;

    virtual void flush();            // frees both blocks
    virtual void backup();           // a fresh copy of the data
    virtual void restore(bool drop); // the copy back, if there is one; with drop it goes

    char * getData() { return data_; }
    int getCount() const { return count_; }
    char * getCursor() { return cursor_; }
    void start() { cursor_ = data_; }
    CDataBuffer & operator++() { return *this += 1; }
    CDataBuffer & operator--() { return *this -= 1; }
    CDataBuffer & operator+=(int items) {
        cursor_ += static_cast<std::ptrdiff_t>(items) * itemSize_;
        return *this;
    }
    CDataBuffer & operator-=(int items) { return *this += -items; }
    void zero();
    int getMemoryUsage() const { return count_ * itemSize_; } // bytes
    CXObject * clone() override;

protected:
    char * data_ = nullptr;   // owned
    char * backup_ = nullptr; // owned
    char * cursor_ = nullptr;
    int count_ = 0;
    int itemSize_ = 1;
};

// The same as rows of a picture.
class CDataBuffer2Dim : public CDataBuffer {
public:
    CDataBuffer2Dim(CXSize size, int itemSize);
    CDataBuffer2Dim(const char * data, CXSize size, int itemSize);

    virtual int getWidth() { return width_; }
    virtual int getHeight() { return height_; }
    virtual void at(int x, int y) {
        cursor_ = data_ + (static_cast<std::ptrdiff_t>(y) * width_ + x) * itemSize_;
    }
    virtual void nextLine() { *this += width_; }
    virtual void prevLine() { *this -= width_; }
    CXObject * clone() override;

private:
    int width_, height_;
};
