#include "sound/CSound4.h"

#include "app/CApplication.h"
#include "app/CWindow.h"
#include "files/CDataBuffer.h"
#include "platform/World.h"
#include "script/CMElement.h"
#include "sound/CSoundCodec.h"
#include "sound/CSoundManager.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr int kNoPrimaryBuffer = -997;
constexpr std::uint32_t kUsualRate = 22050; // what is above is told to the log
constexpr platform::SoundFormat kPrimary{1, 22050, 16};

// The tag of a file that lies at its start again; -1 for one that is no sound.
int tagOf(CFile & file) {
    std::uint32_t size = 0;
    unsigned char tag[2];
    bool found = wave::readHead(file) && wave::findChunk(file, "fmt ", size) && file.Read(tag, 2) == 2;
    file.Seek(0, 0);
    return found ? tag[0] | tag[1] << 8 : -1;
}

} // namespace

CSound4::CSound4(CWindow * window) : CPlayable(window), window_(window) {
    if (manager()) manager()->add(this, false);
}

CSound4::CSound4(CWindow * window, const CXString & name, bool preload, bool flushAfterPlayed)
    : CSound4(window) {
    SetFileName(name);
    flushAfterPlayed_ = flushAfterPlayed;
    if (preload) load();
}

CSound4::CSound4(CWindow * window, CMElement * element)
    : CSound4(window, window->GetSoundFXFullPath(element->getPropertyValue("FILENAME")), false,
              element->getPropertyBoolValue("FLUSHAFTERPLAYED")) {
    loop_ = element->getPropertyBoolValue("LOOP");
    if (element->getPropertyBoolValue("PRELOAD")) load();
}

CSound4::~CSound4() {
    if (manager()) manager()->remove(this);
    Stop();
}

bool CSound4::CreateDirectSoundInterface(CWindow * window) { return CreatePrimarySoundBuffer(window); }

bool CSound4::CreatePrimarySoundBuffer(CWindow * window) {
    if (platform::world().sound->setFormat(kPrimary)) return true;
    window->setErrorCode(kNoPrimaryBuffer);
    return false;
}

void CSound4::DestroySoundBuffer() {}

CSoundManager * CSound4::manager() const {
    CApplication * application = window_ ? window_->getApplication() : nullptr;
    return application ? application->getSoundManagerIfc() : nullptr;
}

// ---- the file

bool CSound4::load() {
    Flush();
    CXString name = getFileName();
    name.Upper();
    if (!name.IsString() || name.view().ends_with(".SPX")) return false; // that format has no codec
    CFile file(window_, getFileName(), CFile::kRead | CFile::kBinary);
    CSoundCodec * codec = file.LastError() == 0 ? CSoundCodec::getCodec(tagOf(file)) : nullptr;
    if (!codec || !codec->decode(&file) || !codec->getData()) {
        CWindow::toLog("CSound4 -> Loading file " + getFileName() + " - Failed.\n", false);
        return false;
    }
    const WAVEFORMATEX & format = *codec->getDesc();
    const CDataBuffer & data = *codec->getData();
    int bytes = data.getCount();
    if (format.nSamplesPerSec > kUsualRate)
        CWindow::toLog("Warning! Sound file fx > 22kHz => " + getFileName() + " (" +
                           CXString::toString(static_cast<int>(format.nSamplesPerSec)) +
                           " Hz data size: " + CXString::toString(bytes) + ")\n",
                       false);
    platform::SoundFormat wanted{format.nChannels, static_cast<int>(format.nSamplesPerSec),
                                 format.wBitsPerSample};
    bytes -= wanted.frame() > 0 ? bytes % wanted.frame() : 0;
    buffer_ = platform::world().sound->createBuffer(wanted, bytes);
    platform::SoundBuffer::Region region;
    if (buffer_ && buffer_->lock(0, bytes, region)) {
        std::memcpy(region.first, codec->getData()->getData(), static_cast<std::size_t>(bytes));
        buffer_->unlock(region);
        if (isSilenced()) buffer_->setVolume(platform::SoundBuffer::kSilence);
        CFileResolver::load();
    }
    codec->freeData();
    return buffer_ != nullptr;
}

bool CSound4::Load(const CXString & name) {
    SetFileName(name);
    return load();
}

void CSound4::Flush() {
    if (buffer_) Stop();
    buffer_.reset();
    release();
}

void CSound4::retire() {
    Flush();
    clearNotifiers();
}

bool CSound4::hasBuffer() {
    if (buffer_ && (buffer_->status() & platform::SoundBuffer::kLost))
        buffer_.reset(); // its samples are gone
    return buffer_ || load();
}

// ---- playing

void CSound4::Play() {
    if (!hasBuffer()) return;
    buffer_->setCursor(pausePosition_);
    if (manager()) manager()->play(this);
    buffer_->play(false);
    pausePosition_ = 0;
    reportFinish_ = true;
    bool wasPaused = status_ == kPaused;
    status_ = kPlaying;
    notify(wasPaused ? kResumed : kStarted);
}

void CSound4::Play(bool loop) {
    if (!hasBuffer()) return;
    buffer_->setCursor(0);
    buffer_->play(loop);
    pausePosition_ = 0;
    reportFinish_ = true;
    bool wasPaused = status_ == kPaused;
    status_ = kPlaying;
    notify(wasPaused ? kResumed : kStarted);
}

void CSound4::play() {
    pausePosition_ = 0;
    Play();
}

void CSound4::Stop() {
    if (buffer_) buffer_->stop();
    status_ = kStopped;
}

void CSound4::stop(bool report) {
    reportFinish_ = report;
    Stop();
}

bool CSound4::IsPlaying() { return buffer_ && (buffer_->status() & platform::SoundBuffer::kPlaying); }

void CSound4::pause() {
    if (!IsPlaying()) return;
    pausePosition_ = buffer_->cursor();
    buffer_->stop();
    status_ = kPaused;
}

void CSound4::resume() {
    if (status_ == kPaused) Play();
}

void CSound4::seek(int bytes) {
    if (buffer_) buffer_->setCursor(bytes);
}

void CSound4::OnWAVFinished() {
    status_ = kStopped;
    bool report = std::exchange(reportFinish_, true);
    if (report) notify(kFinished);
    // A script may have started it again.
    if (flushAfterPlayed_ && !IsPlaying() && status_ != kPaused) Flush();
}

// ---- how it sounds

bool CSound4::isSilenced() const { return window_ && !window_->IsSoundOn(); }

// What was set before there is a buffer is kept, but a buffer begins at the device's own values.
void CSound4::setVolume(int volume) {
    CPlayable::setVolume(volume);
    if (buffer_ && !isSilenced()) buffer_->setVolume(volume_);
}

void CSound4::setPanning(int panning) {
    CPlayable::setPanning(panning);
    if (buffer_) buffer_->setPan(panning_);
}

void CSound4::setFrequency(int frequency) {
    CPlayable::setFrequency(frequency);
    if (buffer_) buffer_->setFrequency(frequency_);
}
