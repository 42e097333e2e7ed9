#include "sound/CSoundCodec_ADPCM.h"

#include "app/CWindow.h"
#include "core/Diagnostics.h"
#include "files/CDataBuffer.h"
#include "platform/World.h"

namespace {

constexpr const char * kLibrary = "sndDLL.dll";
constexpr const char * kSystemLibrary = "libsndfile.so.1";
constexpr int kRead = 16; // mode of sf_open

} // namespace

platform::SharedLibrary * CSoundCodec_ADPCM::hModule = nullptr;
CSoundCodec_ADPCM::Open CSoundCodec_ADPCM::sf_open = nullptr;
CSoundCodec_ADPCM::ReadShort CSoundCodec_ADPCM::sf_readf_short = nullptr;
CSoundCodec_ADPCM::Close CSoundCodec_ADPCM::sf_close = nullptr;

void CSoundCodec_ADPCM::initialize(CWindow *) {
    if (hModule) return;
    platform::World & world = platform::world();
    CXString path = CWindow::exePath + kLibrary;
    auto take = [](std::unique_ptr<platform::SharedLibrary> library) {
        if (!library) return;
        sf_open = reinterpret_cast<Open>(library->symbol("sf_open"));
        sf_readf_short = reinterpret_cast<ReadShort>(library->symbol("sf_readf_short"));
        sf_close = reinterpret_cast<Close>(library->symbol("sf_close"));
        if (sf_open && sf_readf_short && sf_close) hModule = library.release();
    };
    take(world.modules->open(world.files->toMachine(std::string(path.view()))));
    if (!hModule) take(world.modules->openSystem(kSystemLibrary));
    if (!hModule) dispMsgBox(nullptr, "Error while loading dll: " + path + ".\n");
}

void CSoundCodec_ADPCM::done() {
    delete hModule;
    hModule = nullptr;
    sf_open = nullptr;
    sf_readf_short = nullptr;
    sf_close = nullptr;
}

bool CSoundCodec_ADPCM::decode(CFile * file) {
    freeData();
    initialize(file->getWindow());
    if (!hModule || !file->getOpenedPath().IsString()) return false;
    std::string path = platform::world().files->toMachine(std::string(file->getOpenedPath().view()));
    SF_INFO info{};
    void * sound = path.empty() ? nullptr : sf_open(path.c_str(), kRead, &info);
    if (!sound) return false;
    bool good = read(sound, info);
    sf_close(sound);
    return good;
}

bool CSoundCodec_ADPCM::read(void * sound, const SF_INFO & info) {
    if (info.channels < 1 || info.channels > 0x7FFF || info.samplerate < 1 || info.frames < 0 ||
        info.frames > CDataBuffer::kLargest / 2 / info.channels)
        return false;
    format_ = {};
    format_.wFormatTag = kPcm;
    format_.nChannels = static_cast<std::uint16_t>(info.channels);
    format_.nSamplesPerSec = static_cast<std::uint32_t>(info.samplerate);
    format_.nBlockAlign = static_cast<std::uint16_t>(info.channels * 2);
    format_.nAvgBytesPerSec = format_.nSamplesPerSec * format_.nBlockAlign;
    format_.wBitsPerSample = 16;
    int frame = info.channels * 2;
    data_ = std::make_unique<CDataBuffer>(static_cast<int>(info.frames) * frame, 1);
    // Samples are words of the machine, which are the file's: little-endian ones.
    sf_readf_short(sound, reinterpret_cast<short *>(data_->getData()), info.frames);
    return true;
}
