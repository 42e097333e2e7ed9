#pragma once

// Turns a sound file into plain samples in memory. The codec is chosen by the format tag in the file, never
// by its name. The codecs are the program's and used again and again: each holds the last sound until it is
// told to let go. Main thread.

#include "sound/WaveFile.h"

#include <memory>

class CDataBuffer;

class CSoundCodec {
public:
    static constexpr int kPcm = 1, kAdpcm = 2; // tags

    CSoundCodec();
    CSoundCodec(const CSoundCodec &) = delete;
    CSoundCodec & operator=(const CSoundCodec &) = delete;
    virtual ~CSoundCodec();

    virtual WAVEFORMATEX * getDesc() = 0; // of the decoded sound; this object's
    // From the file's position, which is the RIFF head. False, and no data, when nothing can be made of it.
    virtual bool decode(CFile * file) = 0;

    CDataBuffer * getData() const { return data_.get(); } // null without any
    void freeData();

    static void init_codecs(); // more than once does nothing more
    static void done_codecs();
    static CSoundCodec * getCodec(int tag); // null for a tag that has none, and without init_codecs

protected:
    std::unique_ptr<CDataBuffer> data_;

private:
    static CSoundCodec * codecs[3]; // owned, by tag
};
