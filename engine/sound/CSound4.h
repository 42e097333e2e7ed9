#pragma once

// A sound effect: a WAV file decoded whole into a buffer of the sound device. The application's sound manager
// tells it when the buffer has run out. Volume is in hundredths of a decibel from -10,000 to 0, panning from
// -10,000 (left) to 10,000, frequency in hertz, 0 being the file's own. Values are kept when there is no
// buffer, and reach no later one by themselves; one out of range is refused by the buffer. Main thread.

#include "platform/audio/SoundDevice.h"
#include "sequence/CPlayable.h"

#include <memory>

class CMElement;
class CSoundManager;

class CSound4 : public CPlayable {
public:
    explicit CSound4(CWindow * window);
    CSound4(CWindow * window, const CXString & name, bool preload, bool flushAfterPlayed); // a path
    CSound4(CWindow * window, CMElement * element); // FILENAME, PRELOAD, LOOP, FLUSHAFTERPLAYED
    CSound4(const CSound4 &) = delete;
    CSound4 & operator=(const CSound4 &) = delete;
    ~CSound4() override;

    // The device's working format, once a world. False, and -997 is the window's error, when it has none.
    static bool CreateDirectSoundInterface(CWindow * window);
    static bool CreatePrimarySoundBuffer(CWindow * window);
    static void DestroySoundBuffer();

    bool load(); // the file of its name; false when it can't be read or its format has no codec
    bool Load(const CXString & name);
    void Flush(); // lets the buffer go
    void SetFileName(const CXString & name) { setFilename(name); }
    void SetPosition(int bytes) { pausePosition_ = bytes; } // where the next Play begins

    Kind getKind() override { return kSound; }
    void play() override; // from the start
    void stop(bool report) override;
    void pause() override;
    void resume() override;
    void seek(int bytes) override;
    bool isPlaying() override { return IsPlaying(); }
    void setVolume(int volume) override;
    void setPanning(int panning) override;
    void setFrequency(int frequency) override;
    void retire() override;

    virtual void Mute(bool) {}
    virtual void Play();
    virtual void Play(bool loop); // its end is never told
    virtual void Stop();
    virtual bool IsPlaying(); // what the buffer says
    virtual void OnWAVFinished();

private:
    CSoundManager * manager() const; // null without an application
    bool hasBuffer();                // loads it when it can
    bool isSilenced() const;         // the game plays without sound

    CWindow * window_; // not owned; may be null
    std::unique_ptr<platform::SoundBuffer> buffer_;
    bool loop_ = false;
    bool flushAfterPlayed_ = false;
    bool reportFinish_ = true;
    int pausePosition_ = 0; // bytes
};
