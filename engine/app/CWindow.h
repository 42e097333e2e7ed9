#pragma once

// The engine's centre: it wraps the host's window, holds the paths, the log and the timers, and drives the
// tick. The host owns the one window of a process. Main thread.

#include "core/CPublicTrash.h"
#include "core/CXSize.h"
#include "core/CXTimer.h"
#include "core/Diagnostics.h"

#include <memory>

class CCommandLine6;
class CConfig;
class CFile;
class CLanguageOSVer;

class CWindow : public CXObject {
public:
    static constexpr const char * kLogFile = "Tarnook.log";

    // hwnd: the host's window handle. The root path is the current directory of this moment. The command
    // line and the language object stay the host's.
    CWindow(HWND hwnd, CCommandLine6 * commandLine, CLanguageOSVer * language, CXSize size,
            const CXString & exePath);
    CWindow(const CWindow &) = delete;
    CWindow & operator=(const CWindow &) = delete;
    ~CWindow() override;

    // A timer of the window itself fell due.
    virtual int OnTimer(int) { return 0; }

    // The host's window goes out of the way; nothing without one.
    virtual void minimize() {}

    // The language was changed: whatever keeps texts or tables of it takes them anew from here.
    virtual void onLanguageChanged() {}

    // The application's settings file; null without one.
    virtual CConfig * getConfig() { return nullptr; }

    HWND getHandle() const { return hwnd_; }
    CLanguageOSVer * getLangIfc() { return language_; }
    CCommandLine6 * getCommandLine() { return commandLine_; }
    CXSize GetScreenSize() const { return size_; }
    CXTimer * getTimer() { return &timer_; }
    CPublicTrash * getPublicTrashInterface() { return &publicTrash_; }

    void SetSoundFXPath(const CXString & path) { soundFXPath_ = path; }
    const CXString & GetSoundFXPath() const { return soundFXPath_; }
    CXString GetSoundFXFullPath(const CXString & name) const { return soundFXPath_ + "\\" + name; }

    // A note for the developer, written as it is (the caller brings the line end) and flushed at once; with
    // the flag it goes to the debugger channel too. Nothing while the log is off.
    static void toLog(const CXString & text, bool toDebugger);

    // The second data root, with a backslash at its end.
    static const CXString & getCDPath() { return cdPath; }
    static void setCDPath(const CXString & path) { cdPath = path; }

    static CWindow * getWindow() { return theWindow; } // for code without one at hand; null without a window

    static CXString exePath;  // folder of the host program
    static CXString rootPath; // the first data root, with a backslash at its end
    static bool logEnabled;

private:
    void openLog();

    static CXString cdPath;
    static std::unique_ptr<CFile> log;
    static CWindow * theWindow;

    HWND hwnd_;
    CCommandLine6 * commandLine_;
    CLanguageOSVer * language_;
    CXSize size_;
    CXTimer timer_;
    CPublicTrash publicTrash_;
    CXString soundFXPath_;
};
