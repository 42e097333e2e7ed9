#include "platform/audio/WavRecorder.h"

#include "platform/audio/SoundVoice.h"

#include <vector>

namespace platform {

namespace {

constexpr std::uint32_t kHead = 44, kFrame = 4; // bytes
constexpr std::uint32_t kFull = 0xFFFFFFFFU - kHead - 0xFFFFF;

} // namespace

std::unique_ptr<WavRecorder> WavRecorder::make(const std::string & file) {
    std::FILE * opened = std::fopen(file.c_str(), "wb");
    if (!opened) return nullptr;
    std::unique_ptr<WavRecorder> recorder(new WavRecorder(opened));
    if (!recorder->putHead()) return nullptr;
    return recorder;
}

WavRecorder::~WavRecorder() {
    if (std::fseek(file_, 0, SEEK_SET) == 0) putHead();
    std::fclose(file_);
}

bool WavRecorder::putHead() {
    std::string head;
    auto number = [&head](std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; i++) head += static_cast<char>(value >> 8 * i);
    };
    head += "RIFF";
    number(kHead - 8 + bytes_, 4);
    head += "WAVEfmt ";
    number(16, 4); // bytes of the format
    number(1, 2);  // plain samples
    number(2, 2);  // channels
    number(SoundVoice::kRate, 4);
    number(SoundVoice::kRate * kFrame, 4);
    number(kFrame, 2);
    number(16, 2); // bits
    head += "data";
    number(bytes_, 4);
    return std::fwrite(head.data(), 1, head.size(), file_) == head.size();
}

void WavRecorder::write(std::span<const std::int16_t> samples) {
    if (bytes_ > kFull) return;
    std::vector<unsigned char> out;
    out.reserve(samples.size() * 2);
    for (std::int16_t sample : samples) {
        auto value = static_cast<std::uint16_t>(sample);
        out.push_back(static_cast<unsigned char>(value));
        out.push_back(static_cast<unsigned char>(value >> 8));
    }
    bytes_ += static_cast<std::uint32_t>(std::fwrite(out.data(), 1, out.size(), file_));
}

} // namespace platform
