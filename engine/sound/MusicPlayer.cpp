#include "sound/MusicPlayer.h"

void MusicPlayer::start(const CXString & path, bool loop) {
    if (isPlaying() && path_.equalsIgnoreCase(path)) return;
    stream_.reset();
    auto stream = std::make_unique<CSndStream>(window_, path);
    if (stream->LastError() != 0) return;
    path_ = path;
    stream_ = std::move(stream);
    apply();
    stream_->Play(loop);
}

void MusicPlayer::apply() {
    if (!stream_) return;
    stream_->setVolume(volume_);
    stream_->setPan(pan_);
    stream_->setFreq(frequency_);
}
