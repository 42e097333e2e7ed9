#pragma once

// The engine's centre: it wraps the host's window, holds the paths, the log, the timers and the listeners,
// and drives the tick. The host owns the one window of a process. Main thread, but for the polling thread,
// which calls the pollers' tick with pollLock held.

#include "app/Listeners.h"
#include "app/PollThread.h"
#include "core/CPublicTrash.h"
#include "core/CSortedVector.h"
#include "core/CXSize.h"
#include "core/CXTimer.h"
#include "core/Diagnostics.h"
#include "core/Queues.h"

#include <memory>
#include <mutex>
#include <vector>

class CApplication;
class CCollisionInspector;
class CColor;
class CCommandLine6;
class CConfig;
class CDXMouse;
class CDirectDrawSurface;
class CFile;
class CGraphicsObject;
class CKeyboard;
class CLanguageOSVer;
class CMC_Object;
class CRefreshScreen;
class CSurface;
class MusicPlayer;

using HCURSOR = void *; // a cursor image of the host; null for none

class CWindow : public CXObject {
public:
    static constexpr const char * kLogFile = "Tarnook.log";
    static constexpr int kCapturePriority = 1000000; // of a mouse listener that took the mouse for itself

    // hwnd: the host's window handle. cursor: the main cursor. exePath: the folder of the host program. The
    // root path is the current directory of this moment. noInput: no devices and no polling thread. The
    // command line and the language object stay the host's.
    CWindow(HWND hwnd, CCommandLine6 * commandLine, CLanguageOSVer * language, CXSize size, HCURSOR cursor,
            const CXString & exePath, bool noInput);
    CWindow(const CWindow &) = delete;
    CWindow & operator=(const CWindow &) = delete;
    ~CWindow() override;

    // ---- what the host calls
    // Opens the display, in a window at its own depth or full screen; 0 for a size means the window's. The
    // error code, 0 for none.
    int CreateSurface(HWND hwnd);
    int SetDisplayMode(int width, int height, int bpp);
    virtual void Redraw();   // shows what changed since the last call
    virtual void OnCreate(); // installs the window's own timer
    virtual int OnInitialUpdate() { return 0; }
    virtual int OnTimer(int) { return 0; }
    virtual void OnActivateApp(bool on); // the program gained or lost the focus; no ticks without it
    virtual void OnDestroy();            // ends the polling thread
    virtual bool OnExit();               // whether the window may close
    virtual void OnMove(int, int) { Invalidate(); }

    // One step of the game, while the host's queue is empty; true when it is over.
    bool domodal();
    void Tick();
    void quit() { quitFlag_ = true; }

    // flags other than 0: the message is to be ignored. The result is what the hot spots said.
    int OnMouseMove(CXPoint point, int flags);
    int OnLButtonDown(CXPoint point, int flags);
    int OnLButtonUp(CXPoint point, int flags);
    int OnLButtonDblClk(CXPoint point, int flags);
    int OnMButtonDown(CXPoint point, int flags);
    int OnMButtonUp(CXPoint point, int flags);
    int OnRButtonDown(CXPoint point, int flags);
    int OnRButtonUp(CXPoint point, int flags);
    void OnKeyDown(int key, int flags);
    void OnKeyUp(int key, int flags);
    void OnChar(int code, int flags);

    // The engine's number for a key that types no character, from the system's code and data of it; others
    // come back as they are.
    static int __get_virtualkey_code(int code, int data);
    static char tranlateToChar(int index); // "A" to "Z", "0" to "9", a blank; 0 outside

    // ---- listeners; none is owned
    void registerKeyListener(CKeyListener * listener);
    void removeKeyListener(CKeyListener * listener);
    void registerMouseListener(CMouseListener * listener, int priority); // again: nothing
    void removeMouseListener(CMouseListener * listener);
    void setMouseCaption(CMouseListener * listener); // puts it above all others
    void registerMCListener(CMC_Object * object);    // its flush() runs each tick
    void removeMCListener(CMC_Object * object);
    void addIPoller(CInputPoller * poller);
    void removeIPoller(CInputPoller * poller);
    void removeAllIPollers();
    CKeyboard * getKeyboard() { return keyboard_.get(); }
    CXArray * getPollers() { return &pollers_; }
    CDXMouse * getDXMouseInterface() { return dxMouse_.get(); } // null without devices

    void SetTimer(int id, unsigned period, CUnit6 * unit, bool onlyWhenActive);
    void KillTimer(int id) { timer_.remove(id); }

    // ---- cursors: what is shown depends on locks; showCursorImage is the host's
    virtual void showCursorImage(HCURSOR) {}
    void BeginActiveCursor();
    void BeginWaitCursor();
    void EndWaitCursor() { showCursorImage(mainCursor_); } // a lock doesn't keep the main cursor away
    void SetCursor(HCURSOR cursor);
    virtual void ShowCursor() {}
    virtual void HideCursor() {}
    HCURSOR GetMainCursor() const { return mainCursor_; }
    void SetActiveCursor(HCURSOR cursor) { activeCursor_ = cursor; }
    void SetWaitCursor(HCURSOR cursor) { waitCursor_ = cursor; }
    void LockCursor() { cursorLock_ = true; }
    void UnLockCursor() { cursorLock_ = false; }
    void lockActiveCursor(bool on);
    void enableMouse(bool on); // while it is off no mouse event gets through
    virtual void minimize() {}

    // ---- music: its file is named from the root folder
    bool IsSoundOn() const { return soundOn_; }
    void SoundOn(bool on) { soundOn_ = on; }
    bool IsMusicOn() const { return musicOn_; }
    virtual void MusicOn(bool on) { musicOn_ = on; }
    virtual void StartMusic(const CXString & file, bool loop); // nothing while sound or music is off
    virtual void StopMusic();
    virtual bool isMusicPlaying();
    virtual void setMusicVolume(int volume); // hundredths of a decibel, -10,000 to 0
    virtual int getMusicVolume();
    virtual void setMusicPan(int pan);    // -10,000 to 10,000
    virtual void setMusicFreq(int hertz); // 0: the file's own

    // ---- the screen; all are null, and nothing happens, until the display is open
    virtual CSurface * GetSurface() { return surface_.get(); }
    CDirectDrawSurface * getDDSurface() { return ddSurface_.get(); } // what frames are painted onto
    CRefreshScreen * getCanvas() { return canvas_.get(); }
    char * GetScreenPtr();
    int GetBpp();                   // 16 without a display
    void Invalidate(CXRect * rect); // null: all of the screen
    void Invalidate() { Invalidate(nullptr); }
    void SetBackground(CGraphicsObject * picture);
    void SetBackground(CColor * colour);
    void SetBackground(const CXString & file);
    CCollisionInspector & getCollisionInspector() { return *collisions_; }
    virtual void onPositionChanged(CGraphicsObject * object); // of one whose collisions are monitored

    // ---- what it holds
    HWND getHandle() const { return hwnd_; }
    CLanguageOSVer * getLangIfc() { return language_; }
    CCommandLine6 * getCommandLine() { return commandLine_; }
    CXSize GetScreenSize() const { return size_; }
    void setShowsFps(bool on) { showsFps_ = on; } // frames a second, written over the picture
    CXTimer * getTimer() { return &timer_; }
    CPublicTrash * getPublicTrashInterface() { return &publicTrash_; }
    std::recursive_mutex & getCriticalSectionHandle() { return pollLock_; }
    void SetApplicationInterface(CApplication * application) { application_ = application; }
    CApplication * getApplication() { return application_; }
    virtual CConfig * getConfig(); // the application's settings file; null without one
    // The language was changed: whatever keeps texts or tables of it takes them anew from here.
    virtual void onLanguageChanged();
    bool isVMem() const { return vmem_; }
    bool isWindowMode() const { return windowMode_; }
    bool isActive() const { return active_; }
    void Activate(bool on) { active_ = on; }
    bool isWindowDragged() const { return windowDragged_; }
    CXPoint getCatchPoint() const { return catchPoint_; }
    void startDraggingWindow(CXPoint point);
    void stopDraggingWindow() { windowDragged_ = false; }

    void SetSoundFXPath(const CXString & path) { soundFXPath_ = path; }
    const CXString & GetSoundFXPath() const { return soundFXPath_; }
    CXString GetSoundFXFullPath(const CXString & name) const { return soundFXPath_ + "\\" + name; }

    // ---- errors: boxes for what a game can't run without
    void ShowError(const CXString & title); // by this window's error code, nothing for 0
    void QuitOnError(CXObject * object, const CXString & file, const CXString & title); // a file not found

    // A note for the developer, written as it is (the caller brings the line end) and flushed at once; with
    // the flag it goes to the debugger channel too. Nothing while the log is off.
    static void toLog(const CXString & text, bool toDebugger);

    // The second data root, with a backslash at its end.
    static const CXString & getCDPath() { return cdPath; }
    static void setCDPath(const CXString & path) { cdPath = path; }

    static bool isPaused() { return paused; }
    static void pause() { paused = true; }
    static void resume() { paused = false; }

    static CWindow * getWindow() { return theWindow; } // for code without one at hand; null without a window

    static CXString exePath;  // folder of the host program
    static CXString rootPath; // the first data root, with a backslash at its end
    static bool logEnabled;

private:
    struct MouseEntry;

    void openLog();
    void tellMusicLoops();
    int open(std::unique_ptr<CSurface> surface);
    bool hears(int flags) const { return flags == 0 && mouseEnabled_; }
    int hotSpots(int event, CXPoint point);
    template <class Tell>
    bool tellMouse(Tell && tell);
    template <class Tell>
    void tellKeys(Tell && tell);

    static CXString cdPath;
    static std::unique_ptr<CFile> log;
    static CWindow * theWindow;
    static bool paused;

    HWND hwnd_;
    CCommandLine6 * commandLine_;
    CLanguageOSVer * language_;
    CApplication * application_ = nullptr;
    CXSize size_;
    bool quitFlag_ = false;
    bool vmem_ = false;
    bool mouseEnabled_ = true;
    bool cursorLock_ = false;
    HCURSOR mainCursor_, activeCursor_ = nullptr, waitCursor_ = nullptr;
    bool activeCursorLocked_ = false;
    bool soundOn_ = true, musicOn_ = true;
    bool windowMode_ = false;
    bool windowDragged_ = false;
    CXPoint catchPoint_;
    bool active_ = false;
    bool showsFps_ = false;
    std::unique_ptr<CSurface> surface_;
    std::unique_ptr<CDirectDrawSurface> ddSurface_;
    std::unique_ptr<CRefreshScreen> canvas_;
    std::unique_ptr<CCollisionInspector> collisions_; // never null
    std::unique_ptr<MusicPlayer> musicPlayer_;        // the same
    CXTimer timer_;
    CPublicTrash publicTrash_;
    CXString soundFXPath_;
    CXArray keyListeners_{101, 0.75F};  // CKeyListener, in order of registration
    CSortedVector mouseListeners_{101}; // MouseEntry, owned, by priority
    CXVector mcListeners_{101, 0.75F};  // CMC_Object
    CXArray pollers_{101, 0.75F};       // CInputPoller
    CFifoQuene messages_;
    std::recursive_mutex pollLock_; // guards the pollers' queues and the list of them
    std::unique_ptr<CKeyboard> keyboard_;
    std::unique_ptr<CDXMouse> dxMouse_;      // null without devices
    std::unique_ptr<PollThread> pollThread_; // the same
};
