#pragma once

// Music: a WAV file played through a small ring that the multimedia timer refills behind the play cursor. The
// timer's callback may run on a thread of its own; everything else is the main thread's. Stop and Close wait
// for a callback that is running.

#include "platform/audio/SoundDevice.h"
#include "sound/CStreamedWAV.h"

#include <atomic>
#include <memory>

class CSndStream : public CXObject {
public:
    static constexpr int kPeriod = 50; // milliseconds

    explicit CSndStream(CWindow * window) : window_(window) {}
    CSndStream(CWindow * window, const CXString & name) : CSndStream(window) { Open(name); }
    CSndStream(const CSndStream &) = delete;
    CSndStream & operator=(const CSndStream &) = delete;
    ~CSndStream() override { Close(); }

    bool Open(const CXString & name); // else the error code says why
    void Play(bool loop);             // from the start of the ring; loop: what happens at the end of the file
    void Stop();
    void Pause();
    void Resume(); // from near where it stopped, without looping any more
    void Close();
    bool IsPlaying() const { return playing_ && !donePlaying_; }

    // As a sound effect's; false, and nothing changes, for a value out of range.
    bool setVolume(int volume) { return buffer_ && buffer_->setVolume(volume); }
    bool setPan(int pan) { return buffer_ && buffer_->setPan(pan); }
    bool setFreq(int hertz) { return buffer_ && buffer_->setFrequency(hertz); }

    int GetProgress() const { return progress_; } // bytes played since the start
    int GetNextWriteOffset() const { return nextWrite_; }
    int GetBytesRemaining() const { return bytesRemaining_; }
    int GetBufferSize() const { return buffer_ ? buffer_->size() : 0; }
    int GetBitsPerSample() const { return format_.wBitsPerSample; }
    bool DonePlaying() const { return donePlaying_; }
    bool IsLooped() const { return looped_; }
    bool FoundEnd() const { return foundEnd_; }

    // How often the file began anew since the last call. For the main thread, which tells the scene.
    int takeLoops() { return loops_.exchange(0); }

private:
    void FillDataBuffer();
    void timeFunc(); // the callback
    bool fill(unsigned char * region, int bytes, int ifEnded, bool tellLoops);
    void readAround(unsigned char * to, int bytes); // from the start of the samples, as often as it takes
    void advance(int bytes) { nextWrite_ = (nextWrite_ + bytes) % buffer_->size(); }
    unsigned char silence() const { return format_.wBitsPerSample == 8 ? 128 : 0; }
    void loopStarted() { loops_++; }

    CWindow * window_; // not owned
    std::unique_ptr<platform::SoundBuffer> buffer_;
    std::unique_ptr<CStreamedWAV> source_;
    WAVEFORMATEX format_;
    std::uint32_t timer_ = 0; // 0 without one
    bool playing_ = false;
    // What the callback changes.
    std::atomic<bool> donePlaying_ = false, foundEnd_ = false;
    std::atomic<int> progress_ = 0, bytesRemaining_ = 0, nextWrite_ = 0;
    std::atomic<int> loops_ = 0;
    bool looped_ = false;
};
