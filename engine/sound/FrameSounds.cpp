#include "sound/FrameSounds.h"

#include "app/CWindow.h"
#include "core/CStringTokenizer.h"
#include "core/CXRandom.h"
#include "graphics/FrameSound.h"
#include "sound/CSndStream.h"
#include "sound/CSound4.h"

#include <memory>
#include <vector>

namespace {

class Effects : public FrameSound {
public:
    Effects(CWindow * window, const CXString & names) {
        CStringTokenizer tokens(names, ";");
        while (tokens.hasMoreTokens())
            sounds_.push_back(std::make_unique<CSound4>(
                window, window->GetSoundFXFullPath(tokens.nextToken()), true, false));
    }
    bool isEmpty() const { return sounds_.empty(); }
    void play() override {
        int count = static_cast<int>(sounds_.size());
        current_ = count > 1 ? CXRandom::random(count) : 0; // one alone draws no number
        sounds_[static_cast<std::size_t>(current_)]->play();
    }
    void stop() override { sounds_[static_cast<std::size_t>(current_)]->stop(false); }
    bool isPlaying() override { return sounds_[static_cast<std::size_t>(current_)]->isPlaying(); }
    void setVolume(int volume) override {
        for (auto & each : sounds_) each->setVolume(volume);
    }
    void setPanning(int panning) override {
        for (auto & each : sounds_) each->setPanning(panning);
    }
    void setFrequency(int frequency) override {
        for (auto & each : sounds_) each->setFrequency(frequency);
    }

private:
    std::vector<std::unique_ptr<CSound4>> sounds_;
    int current_ = 0;
};

class Stream : public FrameSound {
public:
    Stream(CWindow * window, const CXString & name) : stream_(window, window->GetSoundFXFullPath(name)) {}
    void play() override { stream_.Play(false); }
    void stop() override { stream_.Stop(); }
    bool isPlaying() override { return stream_.IsPlaying(); }
    void setVolume(int volume) override { stream_.setVolume(volume); }
    void setPanning(int panning) override { stream_.setPan(panning); }
    void setFrequency(int frequency) override { stream_.setFreq(frequency); }

private:
    CSndStream stream_;
};

FrameSound * load(CWindow * window, const CXString & names) {
    if (!window) return nullptr;
    auto made = std::make_unique<Effects>(window, names);
    return made->isEmpty() ? nullptr : made.release();
}

FrameSound * stream(CWindow * window, const CXString & name) {
    return window ? new Stream(window, name) : nullptr;
}

} // namespace

void framesounds::install() {
    FrameSound::load = load;
    FrameSound::stream = stream;
}
