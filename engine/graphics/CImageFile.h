#pragma once

// Picks the class for a picture file by the name's extension. The objects that it makes belong to the
// caller. The thread of the tick.

#include "core/CXObject.h"
#include "graphics/Compression.h"

class CGraphicsObject;
class CWindow;

enum _filetype : int { kFileImage = 1, kFileLayered = 4, kFileAnimation = 5 };

class CImageFile : public CXObject {
public:
    static constexpr int kUnknown = 0; // the result for an extension that nothing reads

    explicit CImageFile(CWindow * window) : window_(window) {}

    // The file's type; the object is new, whether the file could be read or not. None for kUnknown.
    int Load(const CXString & name);
    int Save(CGraphicsObject * object, const CXString & name, _compression compression);
    CGraphicsObject * GetGraphicsObject() const { return object_; } // of the last call; null when new

    // Animations are made by the room that holds them.
    static CGraphicsObject * (*animationLoader)(CWindow * window, const CXString & name);

private:
    CWindow * window_;                   // not owned
    CGraphicsObject * object_ = nullptr; // not owned
};
