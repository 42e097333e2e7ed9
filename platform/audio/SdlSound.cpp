#include "platform/audio/SdlSound.h"

#include <SDL2/SDL.h>

namespace platform {

namespace {

constexpr int kFrames = 512; // asked for at once: 23 ms

void fill(void * mix, unsigned char * bytes, int size) {
    auto * sounds = static_cast<SoundMix *>(mix);
    Lock turn(sounds->mutex);
    sounds->next({reinterpret_cast<std::int16_t *>(bytes), static_cast<std::size_t>(size) / 2});
}

} // namespace

std::unique_ptr<SdlSound> SdlSound::open(std::string & reason) {
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        reason = SDL_GetError();
        return nullptr;
    }
    std::unique_ptr<SdlSound> sound(new SdlSound(std::make_shared<SoundMix>()));
    SDL_AudioSpec wanted{}, got{};
    wanted.freq = SoundVoice::kRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 2;
    wanted.samples = kFrames;
    wanted.callback = fill;
    wanted.userdata = sound->mix_.get();
    sound->device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &got, 0); // converts to what the machine has
    if (sound->device_ == 0) {
        reason = SDL_GetError();
        return nullptr;
    }
    SDL_PauseAudioDevice(sound->device_, 0);
    return sound;
}

SdlSound::~SdlSound() {
    if (device_ != 0) SDL_CloseAudioDevice(device_); // waits for the turn that runs
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

} // namespace platform
