// WAVE files: the chunks and the samples.

#include "files/CDataBuffer.h"
#include "files/CFile_Stream.h"
#include "sound/CSoundCodec_PCM.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    CFile_Stream file(reinterpret_cast<const char *>(data), static_cast<int>(size));
    CSoundCodec_PCM codec;
    bool good = codec.decode(&file);
    if (good != (codec.getData() != nullptr)) std::abort();
    if (good && (codec.getData()->getCount() > static_cast<int>(size) || codec.getDesc()->nBlockAlign == 0))
        std::abort();
    return 0;
}
