#pragma once

// A display that nobody sees: the picture stays in memory, for tests and screenshots.

#include "platform/display/Display.h"

#include <cstddef>
#include <vector>

namespace platform {

class MemoryDisplay : public Display {
public:
    explicit MemoryDisplay(int depth) : depth_(depth) {}

    const char * name() const override { return "memory"; }
    int depth() const override { return depth_; }
    bool setMode(int width, int height, int depth, bool) override {
        if (width < 1 || height < 1 || width > kMost || height > kMost) return false;
        width_ = width;
        height_ = height;
        depth_ = depth;
        pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
        return true;
    }
    int width() const override { return width_; }
    int height() const override { return height_; }
    std::uint16_t * pixels() override { return pixels_.empty() ? nullptr : pixels_.data(); }
    void show(int, int, int, int) override {}

private:
    static constexpr int kMost = 16384;

    int depth_;
    int width_ = 0, height_ = 0;
    std::vector<std::uint16_t> pixels_;
};

} // namespace platform
