#include "sound/CSoundCodec.h"

#include "files/CDataBuffer.h"
#include "sound/CSoundCodec_ADPCM.h"
#include "sound/CSoundCodec_PCM.h"

#include <iterator>

CSoundCodec * CSoundCodec::codecs[3] = {};

CSoundCodec::CSoundCodec() = default;

CSoundCodec::~CSoundCodec() = default;

void CSoundCodec::freeData() { data_.reset(); }

void CSoundCodec::init_codecs() {
    if (codecs[kPcm]) return;
    codecs[kPcm] = new CSoundCodec_PCM;
    codecs[kAdpcm] = new CSoundCodec_ADPCM;
}

void CSoundCodec::done_codecs() {
    for (CSoundCodec *& codec : codecs) {
        delete codec;
        codec = nullptr;
    }
    CSoundCodec_ADPCM::done();
}

CSoundCodec * CSoundCodec::getCodec(int tag) {
    return tag >= 0 && tag < static_cast<int>(std::size(codecs)) ? codecs[tag] : nullptr;
}
