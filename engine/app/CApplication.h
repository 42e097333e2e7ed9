#pragma once

// The running game: its settings, its media, its script application, and the hand-over to a next game. Made
// by the host, once a process; a host may derive from it. Main thread.

#include "core/CXObject.h"

#include <memory>

class CAnimationManager;
class CCommandLine6;
class CConfig;
class CMC_Application;
class CMC_StructureParser;
class CResourcesManager;
class CSoundManager;
class CWindow;

class CApplication : public CXObject {
public:
    static constexpr int kNoApplication = 3000; // error code: no script application could be loaded

    // configName: settings file below the root path, none when empty. bigFileName: archive to open, none when
    // empty. Window and command line stay the host's.
    CApplication(CWindow * window, const CXString & configName, const CXString & bigFileName,
                 CCommandLine6 * commandLine);
    CApplication(const CApplication &) = delete;
    CApplication & operator=(const CApplication &) = delete;
    ~CApplication() override;

    // Reads the game and enters its first scene; the result is in LastError(). The flag has no effect.
    virtual void preinitializeApplication(bool);
    // One step of the game, each tick; always false: the window's quit flag ends the main loop.
    virtual bool domodal();
    virtual bool OnExit() { return true; }
    virtual void OnWindowCommand(int) {}
    virtual int OnKeyDown(int, int) { return 0; }
    virtual CXString getWAVPath(const CXString & name);

    // Animations and sounds step here, in this order, between the timers and the collisions.
    virtual void stepMedia();

    CCommandLine6 * getCommandLine() { return commandLine_; }
    CConfig * GetConfigInterface() { return config_.get(); } // null without a settings file
    CAnimationManager * getAnimoManagerIfc() { return animationManager_.get(); }
    CSoundManager * getSoundManagerIfc() { return soundManager_.get(); }
    CResourcesManager * getGeneralResourcesManager() { return resources_.get(); }
    CMC_Application * getMCApplicationIfc() { return mcApplication_.get(); }

private:
    void enter();
    bool load();

    CWindow * window_;
    CCommandLine6 * commandLine_;
    std::unique_ptr<CAnimationManager> animationManager_; // null while the application ends
    std::unique_ptr<CSoundManager> soundManager_;         // the same
    std::unique_ptr<CConfig> config_;
    std::unique_ptr<CResourcesManager> resources_;
    std::unique_ptr<CMC_StructureParser> parser_;
    std::unique_ptr<CMC_Application> mcApplication_; // gone before the parser that made it
};
