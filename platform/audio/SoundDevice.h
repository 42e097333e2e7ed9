#pragma once

// What plays sound: buffers of plain samples, each with a cursor that moves while it plays. A static sound
// fills one buffer; a stream writes behind the cursor of one that loops. Any thread.

#include <cstdint>
#include <memory>
#include <string>

namespace platform {

struct SoundFormat {
    int channels = 1; // 1 or 2, interleaved
    int rate = 22050; // frames a second
    int bits = 16;    // of a sample: 8, unsigned around 128, or 16, signed and lowest byte first

    int frame() const { return channels * bits / 8; } // bytes
    bool operator==(const SoundFormat &) const = default;
};

class SoundBuffer {
public:
    enum Status : unsigned { kPlaying = 1, kLost = 2, kLooping = 4 }; // combined
    static constexpr int kSilence = -10000, kFull = 0;                // volume, in hundredths of a decibel
    static constexpr int kLeft = -10000, kCentre = 0,
                         kRight = 10000;                   // pan: how much the other side is lowered
    static constexpr int kLowest = 100, kHighest = 200000; // frequency, in hertz
    static constexpr int kOwnFrequency = 0;                // that of the format

    // The bytes of a lock: a part up to the end of the buffer, and another at its start or none.
    struct Region {
        unsigned char * first = nullptr;
        unsigned char * second = nullptr;
        int firstBytes = 0, secondBytes = 0;
    };

    virtual ~SoundBuffer() = default; // stops; may outlive the device, silently
    virtual int size() const = 0;     // bytes

    // For writing, until unlock. False for a place or a count outside the buffer, and while it is lost.
    virtual bool lock(int offset, int bytes, Region & region) = 0;
    virtual void unlock(const Region & region) = 0;
    // From the cursor on, to the end or without one. At the end the buffer stops with its cursor at 0.
    virtual bool play(bool looping) = 0; // false while it is lost
    virtual void stop() = 0;             // the cursor stays
    virtual unsigned status() = 0;
    virtual int cursor() = 0; // byte offset of the frame that is heard next
    virtual bool setCursor(int offset) = 0;
    // False, and nothing is changed, for a value out of range.
    virtual bool setVolume(int volume) = 0;
    virtual bool setPan(int pan) = 0;
    virtual bool setFrequency(int hertz) = 0;
    // Makes a lost buffer usable again; its samples are gone. False when the device can't yet.
    virtual bool restore() = 0;
};

class SoundDevice {
public:
    static constexpr int kLargest = 1 << 28; // bytes of a buffer

    virtual ~SoundDevice() = default;
    virtual const char * name() const = 0;

    // The format to work in; a wish, which changes nothing in what sounds are. False for one that no device
    // has.
    virtual bool setFormat(const SoundFormat & format) = 0;
    // A silent buffer, at full volume in the centre. Null for a format that can't be played and for a size
    // that isn't a number of whole frames.
    virtual std::unique_ptr<SoundBuffer> createBuffer(const SoundFormat & format, int bytes) = 0;
    // Writes all that is heard from now on to a file of the machine: WAV, 16 bits, stereo, 22,050 Hz. False
    // when the file can't be made or the device can't record.
    virtual bool record(const std::string & file) = 0;
};

} // namespace platform
