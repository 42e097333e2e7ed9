#pragma once

// A fixture that plays a small game of its own: definitions that a test writes, entered and ticked as the
// host does it.

#include "app/CApplication.h"
#include "app/CCommandLine6.h"
#include "app/CMC_Application.h"
#include "app/CMC_Episode.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "platform/dialogs/RecordingDialogs.h"
#include "support/InWorld.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace test {

// A window that tells of cursors and music: "cursor 3", "music A.WAV", "silence".
class TellingWindow : public CWindow {
public:
    TellingWindow(CCommandLine6 * commandLine, CLanguageOSVer * language, bool noInput,
                  std::vector<std::string> & told)
        : CWindow(nullptr, commandLine, language, CXSize(800, 600), nullptr, "", noInput), told_(told) {}

    void showCursorImage(HCURSOR cursor) override {
        if (tellsCursors)
            told_.push_back("cursor " + std::to_string(reinterpret_cast<std::uintptr_t>(cursor)));
    }
    void StartMusic(const CXString & file, bool) override {
        playing_ = true;
        told_.push_back("music " + std::string(file.view()));
    }
    void StopMusic() override {
        if (std::exchange(playing_, false)) told_.push_back("silence");
    }
    bool isMusicPlaying() override { return playing_; }

    bool tellsCursors = false;

private:
    std::vector<std::string> & told_;
    bool playing_ = false;
};

class InPlay : public InWorld {
protected:
    explicit InPlay(platform::Options options = {});
    ~InPlay() override;

    // Writes a definition file below the game's folder: a line for each key, "NAME KEY=VALUE".
    void define(const std::string & file, const std::string & lines);
    // Three scenes A, B and C in the folder Dane, in the episode E of the application GAME, unless another
    // application.def was written.
    bool start(const char * commandLine = ""); // whether an application was loaded
    void end();                                // the game and its window go
    void tick(int times = 1, unsigned step = 16);
    bool over() const { return over_; } // a tick ended the main loop

    TellingWindow & window() { return *window_; }
    CApplication & application() { return *application_; }
    CMC_Application & app() { return *application_->getMCApplicationIfc(); }
    CMC_Scene * scene(); // the running one, null between scenes
    std::string sceneName() { return scene() ? std::string(scene()->getName().view()) : "none"; }
    CMC_Object * object(const char * name) { return scene()->getObject(name); }

    void run(const std::string & code); // in the running scene, or in the application
    // What boxes and the window told since the last call, joined by "; "; after running the code.
    std::string told();
    std::string told(const std::string & code);

    bool opensDisplay = false;      // at the start
    std::vector<std::string> notes; // what the author was told, as "kind: what"

private:
    std::vector<std::string> * told_; // of the world's dialogs
    std::unique_ptr<CCommandLine6> commandLine_;
    CLanguageOSVer language_;
    std::unique_ptr<TellingWindow> window_;
    std::unique_ptr<CApplication> application_;
    bool over_ = false;
};

} // namespace test
