#pragma once

// A WAV file that is read bit by bit: from the disk, or from the open archive when the disk has no such file.
// One thread at a time.

#include "files/CFile.h"
#include "platform/audio/SoundDevice.h"
#include "sound/WaveFile.h"

#include <memory>

class CStreamedWAV : public CXObject {
public:
    // Opens the file, takes its format, and makes a buffer for 1.2 seconds of it. The error code tells when
    // there is no file; then, and for what is no sound, neither is touched.
    CStreamedWAV(CWindow * window, const CXString & name, std::unique_ptr<platform::SoundBuffer> & buffer,
                 WAVEFORMATEX & format);

    bool Open(const CXString & name);
    bool Open(CFile * file); // from its position; the caller keeps the file
    void Close();
    void StartRead() { setPosition(0); }
    void setPosition(long bytes); // behind the start of the samples
    int Read(int n, unsigned char * to);
    int Tell() const { return readPosition_; } // bytes behind the start of the samples
    int getDataSize() const { return dataSize_; }
    static int ringSize(const WAVEFORMATEX & format); // bytes, whole frames

private:
    CXString name_;
    CWindow * window_; // not owned
    WAVEFORMATEX format_;
    std::unique_ptr<CFile> own_; // null for the archive's
    CFile * file_ = nullptr;     // null when closed
    int dataSize_ = 0;
    int dataStart_ = 0; // of the file
    int readPosition_ = 0;
};
