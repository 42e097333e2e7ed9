#pragma once

// An episode: scenes in an order, one of them entered. Owned by the application. Main thread.

#include "app/CMC_Scene.h"

class CMC_StructureParser;

class CMC_Episode : public CMC_Scene {
public:
    static const char * const kOwnKeys[2];

    CMC_Episode(CWindow * window, CMC_StructureParser * parser, CMElement * element);

    bool initialize(CMC_Scene * previous) override; // false without a scene to start with
    void unload(CMC_Scene * next) override;         // the current scene
    using CMC_Scene::unload;
    void leave() override { endScope(); }

    void next(); // these three set what is pending; at the ends nothing
    void prev();
    void back();
    const CXString & getLatestScene() const { return latestScene_; } // left last

private:
    CMC_Scene * startScene_ = nullptr;
    CXString latestScene_;
};
