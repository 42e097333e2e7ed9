#pragma once

// The picture in a window on a person's screen, through SDL. Video starts with the first mode. Main thread.

#include "platform/display/MemoryDisplay.h"
#include "platform/display/Placement.h"

#include <string>

struct SDL_Renderer;
struct SDL_Texture;
struct SDL_Window;

namespace platform {

class SdlDisplay : public MemoryDisplay {
public:
    explicit SdlDisplay(int depth);
    SdlDisplay(const SdlDisplay &) = delete;
    SdlDisplay & operator=(const SdlDisplay &) = delete;
    ~SdlDisplay() override;

    const char * name() const override { return "SDL"; }
    bool setMode(int width, int height, int depth, bool inWindow) override;
    std::string problem() const override { return problem_; }
    void show(int left, int top, int right, int bottom) override;

    // ---- for the window
    SDL_Window * window() { return window_; } // null before a mode was set
    const Placement & placement() const { return placement_; }
    void present();  // nothing when it is seen already
    void uncover();  // what lay over the window is gone, or its size changed
    void recreate(); // the machine lost the picture
    void toggleFullScreen();

private:
    bool open();
    bool makeTexture();
    void upload();

    bool started_ = false;
    std::string problem_;
    SDL_Window * window_ = nullptr; // owned, as are the next two
    SDL_Renderer * renderer_ = nullptr;
    SDL_Texture * texture_ = nullptr;
    Placement placement_;
    bool due_ = false;                                // to be presented
    int left_ = 0, top_ = 0, right_ = 0, bottom_ = 0; // the part to be uploaded, empty for none
};

} // namespace platform
