#pragma once

// The object CNVLOADER: loads the objects of a definition file into the running scene, or the application
// while there is none, and takes them away again. Owned by the application. Main thread.

#include "script/CMC_Object.h"

class CMC_Application;
class CWindow;

class CMC_CNVLoader : public CMC_Object {
public:
    CMC_CNVLoader(CWindow * window, CMC_Application * application);

    CMC_Runner * getRunner() override;
    void load(const CXString & file); // a file that is loaded already isn't loaded again
    void release(const CXString & file);

private:
    CMC_ObjectsContainer * target() const;

    CWindow * window_;
    CMC_Application * application_;
};
