#pragma once

// A JPEG file as pixels of the engine. The thread of the tick, as whoever asks for pictures; the class itself
// shares nothing.

#include <memory>
#include <string>

class CXString;
class JpegDecoder;

class JPEG {
public:
    explicit JPEG(const char * path);     // as CFile names it; not ready when it can't be opened
    JPEG(const char * buffer, long size); // the buffer stays the caller's, as long as this object
    JPEG(const JPEG &) = delete;
    JPEG & operator=(const JPEG &) = delete;
    ~JPEG();

    bool isReady() const;                   // the head makes sense: decompress may be called
    const char * error() const;             // why not
    int getWidth() const { return width_; } // pixels; 0 while not ready
    int getHeight() const { return height_; }
    // A new plane of words, the caller's: five bits a channel for the depth 15, else six of green. Once. Null
    // for a damaged file.
    char * decompress(int depth);

private:
    void prepare(const void * bytes, std::size_t size);

    std::string file_;
    std::unique_ptr<JpegDecoder> decoder_; // null when there's no file
    int width_ = 0, height_ = 0;
};
