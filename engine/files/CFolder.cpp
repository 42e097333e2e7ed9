#include "files/CFolder.h"

const CXString CFolder::DATA_FOLDER = "Dane";
const CXString CFolder::WAVS_FOLDER = "WAVS";
const CXString CFolder::SFX_FOLDER = "Wavs\\Sfx";
const CXString CFolder::COMMON_FOLDER = "COMMON";
