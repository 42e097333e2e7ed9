#pragma once

#include "core/CXString.h"

class CFolder {
public:
    // Folders of a data root.
    static const CXString DATA_FOLDER;   // definitions and graphics
    static const CXString WAVS_FOLDER;   // sound
    static const CXString SFX_FOLDER;    // sound effects
    static const CXString COMMON_FOLDER; // shared classes and media
};
