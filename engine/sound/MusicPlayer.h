#pragma once

// The window's music: one stream at a time, by the name of its file. Volume, pan and frequency, in the
// device's units, hold for the streams to come too; the device refuses those out of its range. Main thread.

#include "core/CXString.h"
#include "sound/CSndStream.h"

#include <memory>

class MusicPlayer {
public:
    explicit MusicPlayer(CWindow * window) : window_(window) {}

    void start(const CXString & path, bool loop); // nothing for the one that plays already
    void stop() { stream_.reset(); }
    bool isPlaying() const { return stream_ && stream_->IsPlaying(); }
    void setVolume(int volume) { volume_ = volume, apply(); }
    int getVolume() const { return volume_; }
    void setPan(int pan) { pan_ = pan, apply(); }
    void setFrequency(int hertz) { frequency_ = hertz, apply(); }
    // How often the music began anew since the last call.
    int takeLoops() { return stream_ ? stream_->takeLoops() : 0; }

private:
    void apply();

    CWindow * window_; // not owned
    std::unique_ptr<CSndStream> stream_;
    CXString path_;
    int volume_ = platform::SoundBuffer::kFull, pan_ = platform::SoundBuffer::kCentre;
    int frequency_ = platform::SoundBuffer::kOwnFrequency;
};
