#pragma once

// An animated sprite: frames, and named events that are lists of them with their own loops, places and
// sounds. Its own pixel fields mirror the frame on show; the planes stay the frame's. Every observer that it
// tells may run scripts, which may change it, load another file into it or delete it. The thread of the tick.

#include "graphics/AnnRecords.h"
#include "graphics/CGraphicsObject.h"
#include "sequence/CPlayable.h"

#include <functional>
#include <memory>
#include <vector>

class CFrame;

enum _animoevent : int {};
enum _astatus : int { kAnimoPlaying = 0, kAnimoStopped = 1, kAnimoPaused = 2 };
enum _direction : int { kForward = 0, kBackward = 1 };

class CAnimo : public CGraphicsObject, public CPlayable {
public:
    static constexpr int kDefaultFps = _annEventInfo3::kDefaultFps;
    static constexpr int kMostSounds = 200;     // of a file
    static constexpr int kKeptMemory = 1 << 28; // bytes that all frames of a file may take expanded

    explicit CAnimo(CWindow * window);
    CAnimo(CWindow * window, const CXString & name); // loads; LastError() tells how that went
    // Frames that share the other's planes, and tables of its own. The other must live longer.
    CAnimo(CAnimo & shared);
    CAnimo & operator=(const CAnimo &) = delete;
    ~CAnimo() override;
    CGraphicsObject * clone() override { return new CAnimo(*this); }

    // ---- files
    using CGraphicsObject::Save;
    int Load(const CXString & name) override; // 0 or the error code
    int Load(CFile * file) override;          // from its position; empty when it is damaged, the log tells
    int Save(CFile * file, _compression compression) override;
    int Save3(CFile * file, _compression compression); // layout NVP; codes the frames first
    void Flush() override;
    bool getLoadAtStart() const { return loadAtStart_; }

    // ---- frames; null outside
    void AddFrame(CGraphicsObject * picture); // a deep copy, at the end
    void RemoveFrame(int frame);              // from the events' lists too, where later ones move up
    CFrame * GetFrame(int frame) const;
    CFrame * getFrame(const CXString & name) const; // the first entry of that name, without case
    int GetNOF() const { return static_cast<int>(frames_.size()); }
    int Current() const { return current_; }
    CXPoint getCurrFramePosition() const;
    void clearLastRefreshed() { lastDrawn_ = -1; }

    // ---- events. Numbers outside change nothing; entries are places in an event's list.
    int AddEvent(const CXString & name); // empty; its number
    void AddFrame(int event, int frame); // an entry at the end
    void RemoveEvent(int event);
    void RemoveAllEvents();
    void RemoveFrame(int event, int entry);
    void RemoveAllFrames(int event);
    void ExchangeFrames(int event, int a, int b);
    int GetNOE() const { return static_cast<int>(events_.size()); }
    int GetEventNo(const CXString & name) const; // without case; -1 when there is none
    int resolveEventName(const CXString & name) const { return GetEventNo(name); }
    CXString GetEventName(int event) const; // outside a message box and empty
    CXString getCurrentEventName() const;
    // The entry's name, "Frame n" without one; of entry -1 the event's, "Default" without one. Behind it
    // suffix.
    CXString GetName(int event, int entry, const CXString & suffix) const;
    CXString getFrameName(int event, int entry) const;
    void setFrameName(int event, int entry, const CXString & name);
    int getFirstEvent() const; // that has frames, else 0
    int GetNOFInEvent(int event) const;
    int GetFrameNo(int event, const CXString & name) const; // the entry of that name, -1 without
    int GetEventFrame(int event, int entry) const;          // the frame's number, -1 outside
    int GetLoop(int event, CXPoint * loop) const;           // the count; loop: start and end
    int GetCurrentEvent() const { return currentEvent_; }
    int getLastPlayedEvent() const { return lastPlayed_; }
    int getIndexInEvent() const { return index_; }
    _annEventInfo3 * getEventInfo(int event);            // null outside
    _anmFrameInfo3 * getFrameInfo(int event, int entry); // null outside

    // ---- playing
    virtual void Play(_animoevent event, int entry, int flag);
    virtual void Play(const CXString & name, int entry, int flag);
    virtual void playReverse(const CXString & name, int flag); // makes the event "NAME_reverse" at need
    virtual void Stop();
    virtual void StopNoNotify();
    virtual void Pause();
    virtual void Resume();
    virtual bool Continue();
    virtual bool Next(); // whether the frame changed
    virtual bool Prev();
    virtual void Seek(int entry);
    virtual void SetEventFrame(int event, int entry);
    virtual void SetFrame(int frame);
    virtual void Set(int frame, bool tell);
    _astatus GetStatus() const { return animoStatus_; }
    _direction GetDirection() const { return direction_; }
    void SetDirection(_direction direction) { direction_ = direction; }
    int GetFPS() const { return fps_; }
    void SetFPS(int fps) { fps_ = fps; }
    int GetAnimoFlags() const { return animoFlags_; }
    void SetAnimoFlags(int flags) { animoFlags_ = flags; }
    int RandomFramesNumber() const { return randomFrames_; }
    const CXString & Author() const { return author_; }
    const CXString & Description() const { return description_; }
    // Where the animation was put; its frames lie relative to it. SetPosition and Move change it.
    void SetGlobalPosition(CXPoint p) { globalPosition_ = {place(p.x), place(p.y)}; }
    CXPoint GetGlobalPosition() const { return globalPosition_; }

    // ---- as a playable
    using CPlayable::play;
    void play() override;
    void stop(bool report) override;
    void pause() override { Pause(); }
    void resume() override { Resume(); }
    void next() override;
    void previous() override { Prev(); }
    void seek(int entry) override { Seek(entry); }
    bool isPlaying() override { return animoStatus_ == kAnimoPlaying; }
    bool isPaused() override { return animoStatus_ == kAnimoPaused; }
    int getFPS() override { return fps_ > 0 ? fps_ : kDefaultFps; }
    Kind getKind() override { return kAnimation; }
    int getEventsNumber() override { return GetNOE(); }
    CXString getPlayedEvent() override { return GetNOE() ? GetEventName(lastPlayed_) : CXString(); }
    void playEvent(int event, int flag) override { Play(static_cast<_animoevent>(event), 0, flag); }
    void playEvent(const CXString & name) override { Play(name, 0, kWholeEvent); }
    void show() override;
    void hide() override;
    void setVolume(int volume) override;
    void setPanning(int panning) override;
    void setFrequency(int frequency) override;
    void retire() override;

    // ---- as a pixel object: the frame on show, or all frames
    CXPoint GetPosition() override;
    CXRect getRect() override;
    void Move(int dx, int dy) override;
    using CGraphicsObject::Move;
    void SetPosition(int x, int y) override;
    using CGraphicsObject::SetPosition;
    void redraw(CGraphicsObject * onto) override;
    void FlipH() override;
    void FlipV() override;
    void resetFlips() override;
    void replace_color(short from, short to);
    void pack(bool free) override;
    void unpack() override; // all or none: they may take kKeptMemory
    void DeCompress() override;
    void decodeFrame(CFrame * frame); // of the blocks of a file
    using CGraphicsObject::GetPixel;
    unsigned char GetPixel(_channel channel, CXPoint p) override; // also before the frame was first drawn
    CColor GetPixel(int x, int y) override;
    void DeCompressRLE2() override;
    void bringBackCompressed() override;

    // ---- both bases have these
    int LastError() const { return static_cast<const CGraphicsObject *>(this)->LastError(); }
    void setErrorCode(int code) { static_cast<CGraphicsObject *>(this)->setErrorCode(code); }
    bool isToDelete() override { return CGraphicsObject::isToDelete(); }
    void setToDelete() override { CGraphicsObject::setToDelete(); }
    bool equals(CXObject * other) override { return CGraphicsObject::equals(other); }
    int compare(CXObject * other) override { return CGraphicsObject::compare(other); }
    int getHashcode() override { return CGraphicsObject::getHashcode(); }
    CXString toString() override { return CGraphicsObject::toString(); }
    CXString getFileName() override { return CFileResolver::getFileName(); }
    void setPosition(int x, int y) override { SetPosition(x, y); }
    void setPosition(CXPoint p) override { SetPosition(p.x, p.y); }
    void move(int dx, int dy) override { Move(dx, dy); }
    bool isVisible() override { return CGraphicsObject::isVisible(); }
    void setVisibility(bool visible) override { Visible(visible); }

protected:
    class Watch;

    bool has(int event) const { return event >= 0 && event < GetNOE() && events_[at(event)].size() > 0; }
    bool has(int event, int entry) const {
        return has(event) && entry >= 0 && entry < events_[at(event)].size();
    }
    static std::size_t at(int i) { return static_cast<std::size_t>(i); }
    const char * take(std::string_view bytes); // the reason why not, or null
    void updateWithCurrentFrame();
    void mirror(CFrame * frame);
    bool mirrors(CFrame * frame) const;
    void dropMirror();
    void eachFrame(const std::function<void(CFrame &)> & act);
    void eachSound(const std::function<void(FrameSound &)> & act);
    void makeSounds();
    void PlaySoundFX(int event, int entry);
    bool soundPlays();
    FrameSound * frameSound();
    bool showEntry(int entry);  // the end of a step; whether the frame changed
    bool finish(int entry);     // stops, tells, and shows the entry if nobody changed anything
    bool endOfEvent(int entry); // as finish, unless the next event takes over
    void silence(bool frameSoundToo);

    std::vector<_annEventInfo3> events_;
    std::unique_ptr<FrameSound> stream_; // the sound that was opened with its frame
    int index_ = 0;                      // in the current event's list
    CXString author_{"Anton Velmorek"}, description_;
    int current_ = 0; // frame
    int currentEvent_ = 0, lastPlayed_ = 0;
    int animoFlags_ = 0;
    std::vector<std::unique_ptr<CFrame>> frames_;
    int lastDrawn_ = -1;
    CXPoint globalPosition_;
    _astatus animoStatus_ = kAnimoStopped;
    _direction direction_ = kForward;
    int fps_ = 0;
    int randomFrames_ = 0;
    bool loadAtStart_ = true;
    bool turned_ = false;              // a ping-pong event set the direction
    unsigned char shownOpacity_ = 255; // of the entry on show
    bool * gone_ = nullptr;            // set when this object goes while it tells somebody
};
