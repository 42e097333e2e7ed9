#pragma once

// The script application: root of the tree of episodes and scenes, and owner of them all. Main thread.

#include "app/CMC_Scene.h"

class CMC_StructureParser;
class CXVersion;

class CMC_Application : public CMC_Scene {
public:
    static const char * const kOwnKeys[5];
    static const char * const kSignals[9];

    // The parser made the scenes and episodes, and gives them by name; it is asked here only.
    CMC_Application(CWindow * window, CMC_StructureParser * parser, CMElement * element);
    ~CMC_Application() override;

    SignalList getBehavioursList() override { return kSignals; }
    bool initialize(CMC_Scene * previous) override; // runs the application up to its first scene
    bool domodal() override;                        // true when a next game is named
    void restart() override;
    void unload(CMC_Scene * next) override; // the current child
    using CMC_Scene::unload;
    CMC_Application * getMCApplication() override { return this; }

    virtual void exit();
    virtual void storeBinary();
    virtual const CXString & getNextGame() { return nextGame_; } // folder; empty for none
    virtual void setNextGame(const CXString & folder) { nextGame_ = folder; }
    bool check4Upgrade(bool) { return true; }

private:
    CMC_Scene * startScene_ = nullptr;
    CXVector owned_{101, 0.75F}; // all scenes and episodes
    std::unique_ptr<CXVersion> version_;
    CXString nextGame_;
};
