#pragma once

#include "core/CXString.h"
#include "sound/CSoundCodec.h"

namespace platform {
class SharedLibrary;
}

// Packed samples, by a library with libsndfile's interface that is taken in when the first such sound comes:
// the file sndDLL.dll beside the program or, where there is none, the system's own.
class CSoundCodec_ADPCM : public CSoundCodec {
public:
    WAVEFORMATEX * getDesc() override { return &format_; }
    // The library opens the file again, by its path: what is no file of its own can't be decoded.
    bool decode(CFile * file) override;

    // A message box when there's no library; that comes again with each sound that needs it.
    static void initialize(CWindow * window);
    static void done();

    // As libsndfile publishes it.
    struct SF_INFO {
        std::int64_t frames;
        int samplerate, channels, format, sections, seekable;
    };

private:
    using Open = void * (*)(const char * path, int mode, SF_INFO * info);
    using ReadShort = std::int64_t (*)(void * file, short * to, std::int64_t frames);
    using Close = int (*)(void * file);

    bool read(void * sound, const SF_INFO & info);

    static platform::SharedLibrary * hModule; // owned
    static Open sf_open;
    static ReadShort sf_readf_short;
    static Close sf_close;

    WAVEFORMATEX format_;
};
