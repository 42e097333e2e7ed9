#include "sound/CSoundCodec_PCM.h"

#include "files/CDataBuffer.h"

#include <algorithm>

bool CSoundCodec_PCM::decode(CFile * file) {
    freeData();
    std::uint32_t size = 0;
    if (!wave::readFormat(*file, format_) || !wave::findChunk(*file, "data", size)) return false;
    if (format_.nChannels == 0 || format_.nSamplesPerSec == 0 || format_.nBlockAlign == 0) return false;
    long long there = static_cast<long long>(file->Length()) - file->Tell();
    long long bytes = std::min<long long>(size, there);
    if (bytes < 0 || bytes > CDataBuffer::kLargest) return false;
    data_ = std::make_unique<CDataBuffer>(static_cast<int>(bytes), 1);
    file->Read(data_->getData(), data_->getCount());
    return true;
}
