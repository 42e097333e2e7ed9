#include "sound/CStreamedWAV.h"

#include "files/CBigFileIfc.h"
#include "platform/World.h"

#include <algorithm>

CStreamedWAV::CStreamedWAV(CWindow * window, const CXString & name,
                           std::unique_ptr<platform::SoundBuffer> & buffer, WAVEFORMATEX & format)
    : window_(window) {
    if (!Open(name)) return;
    platform::SoundFormat wanted{format_.nChannels, static_cast<int>(format_.nSamplesPerSec),
                                 format_.wBitsPerSample};
    buffer = platform::world().sound->createBuffer(wanted, ringSize(format_));
    if (buffer) format = format_;
}

// 1.2 seconds, in unsigned arithmetic.
int CStreamedWAV::ringSize(const WAVEFORMATEX & format) {
    std::uint32_t bytes = format.nAvgBytesPerSec * 1200U / 1000U;
    if (bytes > static_cast<std::uint32_t>(platform::SoundDevice::kLargest)) return 0;
    std::uint32_t frame = std::max<std::uint32_t>(format.nChannels * format.wBitsPerSample / 8U, 1);
    return static_cast<int>(bytes - bytes % frame);
}

bool CStreamedWAV::Open(const CXString & name) {
    Close();
    name_ = name;
    own_ = std::make_unique<CFile>(window_, name, CFile::kRead | CFile::kBinary);
    if (own_->LastError() == 0) return Open(own_.get());
    own_.reset();
    CBigFileIfc * archive = CFile::getBigFileIfc();
    if (!archive || archive->Seek(name) < 0) {
        setErrorCode(CFile::kNotFound);
        return false;
    }
    int start = archive->Tell();
    if (!Open(archive->GetFile())) return false;
    dataSize_ = std::min(dataSize_, archive->GetSize(name) - (dataStart_ - start));
    return true;
}

bool CStreamedWAV::Open(CFile * file) {
    std::uint32_t size = 0;
    if (!wave::readFormat(*file, format_) || !wave::findChunk(*file, "data", size) ||
        format_.nBlockAlign == 0) {
        setErrorCode(CFile::kNotFound);
        own_.reset();
        return false;
    }
    file_ = file;
    dataStart_ = file->Tell();
    dataSize_ = static_cast<int>(std::min<long long>(size, std::max(file->Length() - dataStart_, 0)));
    readPosition_ = 0;
    return true;
}

void CStreamedWAV::Close() {
    own_.reset();
    file_ = nullptr;
}

void CStreamedWAV::setPosition(long bytes) {
    readPosition_ = static_cast<int>(std::clamp<long>(bytes, 0, dataSize_));
}

// The archive's handle is shared: it stands elsewhere, and is put back.
int CStreamedWAV::Read(int n, unsigned char * to) {
    if (!file_) return 0;
    n = std::min(n, dataSize_ - readPosition_);
    if (n < 1) return 0;
    int before = file_->Tell(), here = dataStart_ + readPosition_;
    if (before != here) file_->Seek(here, 0);
    int count = file_->Read(to, n);
    if (!own_ && before != here) file_->Seek(before, 0);
    readPosition_ += std::max(count, 0);
    return count;
}
