#pragma once

// One JPEG picture in memory, row by row. The library's fatal errors jump, so all that they may jump over
// stands in this one file. Any damage of the data is a failure, also where the library would go on in grey.

#include <cstddef>

class JpegDecoder {
public:
    static constexpr long long kMostPixels = 1 << 27;

    JpegDecoder(const void * bytes, std::size_t size); // the bytes stay the caller's
    JpegDecoder(const JpegDecoder &) = delete;
    JpegDecoder & operator=(const JpegDecoder &) = delete;
    ~JpegDecoder();

    bool isReady() const { return ready_; } // the head was read and makes sense
    int getWidth() const { return width_; }
    int getHeight() const { return height_; }
    const char * error() const { return error_; } // why it isn't ready, or a row couldn't be read

    // The next row, three bytes a pixel: red, green, blue. False at an error.
    bool readRow(unsigned char * to);
    bool finish(); // after the last row

private:
    struct Library; // the library's records
    Library * library_;
    bool ready_ = false;
    int width_ = 0, height_ = 0;
    char error_[200]; // JMSG_LENGTH_MAX of the library
};
