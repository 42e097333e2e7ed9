#pragma once

// Writes a WAV file of 16 bits, stereo, 22,050 Hz, from its first frame to its last.

#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

namespace platform {

class WavRecorder {
public:
    static std::unique_ptr<WavRecorder> make(const std::string & file); // null when it can't be written
    ~WavRecorder(); // the file says how long it is from here on
    WavRecorder(const WavRecorder &) = delete;
    WavRecorder & operator=(const WavRecorder &) = delete;

    // Samples, left and right in turn. A file that is full takes no more.
    void write(std::span<const std::int16_t> samples);

private:
    explicit WavRecorder(std::FILE * file) : file_(file) {}
    bool putHead();

    std::FILE * file_; // owned
    std::uint32_t bytes_ = 0;
};

} // namespace platform
