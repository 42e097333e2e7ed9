// Animations from files and into them.

#include "app/CWindow.h"
#include "files/CFile.h"
#include "files/WholeFile.h"
#include "graphics/AnnFile.h"
#include "graphics/CAnimo.h"
#include "graphics/CFrame.h"
#include "graphics/CSurface.h"

#include <algorithm>

int CAnimo::Load(const CXString & name) {
    Flush();
    setFilename(name);
    CXString line = "CAnimo -> Loading file " + name;
    CFile file(window_, name, CFile::kRead | CFile::kBinary);
    int error = file.LastError();
    if (error == 0) {
        error = Load(&file);
        file.Close();
    }
    CWindow::toLog(line + (error == 0 ? " - Succesfull.\n" : " - Failed.\n"), false);
    setErrorCode(error);
    Visible(true);
    if (error) return error;
    CGraphicsObject::setFileName(name);
    CPlayable::load();
    SetEventFrame(getFirstEvent(), 0);
    return 0;
}

int CAnimo::Load(CFile * file) {
    std::string bytes;
    const char * bad = wholefile::read(*file, bytes) ? take(bytes) : "it is too large";
    if (!bad) return 0;
    CWindow::toLog("CAnimo -> " + getFileName() + ": " + bad + "\n", false);
    CXString name = getFileName();
    Flush();
    return CFile::kNotFound;
}

const char * CAnimo::take(std::string_view bytes) {
    Flush();
    ann::File file;
    if (const char * bad = ann::read(bytes, file)) return bad;
    CSurface * surface = window_ ? window_->GetSurface() : nullptr;
    std::int64_t room = kKeptMemory;
    for (const ann::Frame & f : file.frames) {
        auto frame = std::make_unique<CFrame>(window_);
        int depth = f.depth ? f.depth : file.depth;
        auto compression = static_cast<_compression>(f.compression);
        // Raw planes are padded to their size, whatever the file holds of them.
        if (compression == kCompressionNone)
            room -= std::int64_t{__get_data_size(f.width, f.height, depth)} +
                    (f.alpha.empty() ? 0 : std::int64_t{f.width} * f.height);
        else
            room -= static_cast<std::int64_t>(f.colour.size() + f.alpha.size());
        if (room < 0) return "its frames are too large";
        frame->take({f.width, f.height}, {f.x, f.y}, depth, compression, f.colour, f.alpha);
        frame->setVersion(f.version);
        if (surface && compression == kCompressionNone) frame->Convert(surface->getDepth());
        frames_.push_back(std::move(frame));
    }
    events_ = std::move(file.events);
    bpp_ = file.depth;
    if (surface && surface->getDepth() <= 16) bpp_ = surface->getDepth();
    fps_ = file.fps;
    SetFlags(file.flags & 0xFF);
    animoFlags_ = file.flags & (kAnimoStoredFlags | kAnimoNewLayout);
    opacity_ = file.opacity;
    randomFrames_ = file.randomFrames;
    author_ = CXString(file.author);
    description_ = CXString(file.description);
    makeSounds();
    updateWithCurrentFrame();
    return nullptr;
}

int CAnimo::Save(CFile * file, _compression compression) { return Save3(file, compression); }

int CAnimo::Save3(CFile * file, _compression compression) {
    ann::File out;
    out.depth = bpp_ == 15 ? 15 : 16;
    out.fps = fps_;
    out.flags = (GetFlags() & 0xFF) | (animoFlags_ & kAnimoStoredFlags);
    out.opacity = opacity_;
    out.randomFrames = randomFrames_;
    out.author = author_.view();
    out.description = description_.view();
    out.events = events_;
    for (auto & frame : frames_) {
        frame->bringBackCompressed(); // one that was shown
        frame->Compress(compression);
        CXPoint at = frame->GetFramePosition();
        ann::Frame f;
        f.width = frame->getWidth();
        f.height = frame->getHeight();
        f.x = at.x;
        f.y = at.y;
        f.compression = frame->GetCompression();
        f.colour = frame->colourBytes();
        f.alpha = frame->alphaPlaneBytes();
        out.frames.push_back(f);
    }
    lastDrawn_ = -1;
    updateWithCurrentFrame();
    std::string bytes = ann::write(out);
    int n = static_cast<int>(bytes.size());
    return file->Write(bytes.data(), n) == n ? 0 : -1;
}
