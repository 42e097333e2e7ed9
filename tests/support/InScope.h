#pragma once

// A fixture with one scope, in which a test's definitions and code run; no application stands round it.

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "platform/dialogs/RecordingDialogs.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/Notes.h"
#include "support/InWorld.h"

#include <memory>
#include <string>
#include <vector>

namespace test {

class InScope : public InWorld {
protected:
    explicit InScope(const char * commandLine = "");
    ~InScope() override;

    CMC_ObjectsContainer & scope() { return *scope_; } // named "SCENE"
    CWindow & window() { return *window_; }

    // Makes the objects of a definition text ("OBJECT=A\nA:TYPE=INTEGER\n") and runs init on each.
    void load(const std::string & definitions);
    // Runs code as a behaviour of the scope, with the arguments for $1, $2, ...; whether a BREAK ended it.
    bool run(const std::string & code, const std::vector<std::string> & arguments = {});
    // Moves the time by steps and lets the window's timers fire.
    void tick(int times = 1, unsigned step = 16);

    // The texts of the message boxes since the last call.
    std::vector<std::string> boxes();
    // The same of one piece of code, joined by "; ".
    std::string shown(const std::string & code);
    // What the author was told, as "kind: what".
    std::vector<std::string> notes;

private:
    platform::RecordingDialogs * dialogs_;
    CCommandLine6 commandLine_;
    CLanguageOSVer language_;
    std::unique_ptr<CWindow> window_;
    std::unique_ptr<CMC_ObjectsContainer> scope_;
};

} // namespace test
