#pragma once

#include "sound/CSoundCodec.h"

// Samples as they stand in the file. A file that ends early gives those that are there.
class CSoundCodec_PCM : public CSoundCodec {
public:
    WAVEFORMATEX * getDesc() override { return &format_; }
    bool decode(CFile * file) override;

private:
    WAVEFORMATEX format_;
};
