#pragma once

// A sound that an animation plays with a frame. The room of sounds sets the makers; without them animations
// are silent. Main thread.

class CWindow;
class CXString;

class FrameSound {
public:
    virtual ~FrameSound() = default;
    virtual void play() = 0; // from its start
    virtual void stop() = 0;
    virtual bool isPlaying() = 0;
    virtual void setVolume(int) {}
    virtual void setPanning(int) {}
    virtual void setFrequency(int) {}

    // New, or null when there is no such sound. The name is a file's, or a list of names with ";" between, of
    // which every play picks one.
    using Maker = FrameSound * (*)(CWindow * window, const CXString & name);
    static Maker load;   // held whole in memory
    static Maker stream; // read while it plays
};
