#include "sound/CSndStream.h"

#include "platform/World.h"

#include <algorithm>
#include <cstring>
#include <utility>

using Region = platform::SoundBuffer::Region;

bool CSndStream::Open(const CXString & name) {
    Close();
    source_ = std::make_unique<CStreamedWAV>(window_, name, buffer_, format_);
    if (!buffer_) {
        setErrorCode(source_->LastError() ? source_->LastError() : CFile::kNotFound);
        source_.reset();
        return false;
    }
    foundEnd_ = donePlaying_ = false;
    progress_ = bytesRemaining_ = nextWrite_ = 0;
    FillDataBuffer();
    buffer_->setCursor(0);
    return true;
}

void CSndStream::FillDataBuffer() {
    Region region;
    if (!buffer_->lock(0, buffer_->size(), region)) return;
    std::memset(region.first, silence(), static_cast<std::size_t>(region.firstBytes));
    int count = source_->Read(region.firstBytes, region.first);
    if (count < region.firstBytes) readAround(region.first + count, region.firstBytes - count);
    buffer_->unlock(region);
}

void CSndStream::readAround(unsigned char * to, int bytes) {
    while (bytes > 0) {
        source_->StartRead();
        int count = source_->Read(bytes, to);
        if (count < 1) { // nothing is in it
            std::memset(to, silence(), static_cast<std::size_t>(bytes));
            return;
        }
        to += count;
        bytes -= count;
    }
}

void CSndStream::Play(bool loop) {
    if (!buffer_) return;
    Stop();
    looped_ = loop;
    donePlaying_ = false;
    buffer_->setCursor(0);
    playing_ = true;
    timer_ = platform::world().timers->set(kPeriod, [this] { timeFunc(); });
    buffer_->play(true); // always: the end of the file isn't that of the ring
}

void CSndStream::Stop() {
    if (timer_) platform::world().timers->kill(std::exchange(timer_, 0)); // no callback runs from here on
    if (buffer_) buffer_->stop();
    playing_ = false;
}

void CSndStream::Pause() { Stop(); }

void CSndStream::Resume() {
    if (!source_ || playing_) return;
    long size = buffer_->size();
    source_->setPosition(source_->Tell() > 2 * size ? source_->Tell() - 2 * size : 0);
    foundEnd_ = false;
    bytesRemaining_ = nextWrite_ = 0;
    FillDataBuffer();
    Play(false);
}

void CSndStream::Close() {
    Stop();
    source_.reset();
    buffer_.reset();
}

// Writes what the cursor has left behind since the last time.
void CSndStream::timeFunc() {
    bool lost = (buffer_->status() & platform::SoundBuffer::kLost) != 0;
    if (lost && !buffer_->restore()) return;
    int play = buffer_->cursor(), next = nextWrite_;
    if (lost) buffer_->play(true);
    if (play == next && !lost) return;
    if (foundEnd_ && bytesRemaining_ == 0) {
        donePlaying_ = true;
        buffer_->stop();
        return;
    }
    int size = buffer_->size();
    int freed = play - next + (play < next ? size : 0);
    int count = lost ? 2 * size / 6 : freed;
    count -= count % std::max<int>(format_.nBlockAlign, 1);
    progress_ += freed;
    Region region;
    if (!buffer_->lock(next, count, region)) {
        platform::world().debugger->write("TimeFunc() could not lock DirectSoundBuffer");
        return;
    }
    if (foundEnd_) {
        bytesRemaining_ = std::max(bytesRemaining_ - freed, 0);
        std::memset(region.first, silence(), static_cast<std::size_t>(region.firstBytes));
        if (region.second)
            std::memset(region.second, silence(), static_cast<std::size_t>(region.secondBytes));
    } else {
        int ahead = next - play;
        fill(region.first, region.firstBytes, ahead + (ahead < 0 ? size : 0), true);
        if (region.second) fill(region.second, region.secondBytes, ahead, false);
    }
    buffer_->unlock(region);
    advance(count);
}

// ifEnded: how many bytes are still to be heard when the file ends here.
bool CSndStream::fill(unsigned char * region, int bytes, int ifEnded, bool tellLoops) {
    if (donePlaying_ || foundEnd_) {
        std::memset(region, silence(), static_cast<std::size_t>(bytes));
        return false;
    }
    int count = std::max(source_->Read(bytes, region), 0);
    if (count == bytes) return true;
    if (looped_) {
        readAround(region + count, bytes - count);
        if (tellLoops) loopStarted();
        return true;
    }
    std::memset(region + count, silence(), static_cast<std::size_t>(bytes - count));
    foundEnd_ = true;
    bytesRemaining_ = std::max(ifEnded, 0);
    return false;
}
