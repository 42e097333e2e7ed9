#include "graphics/CImage.h"

#include "app/CWindow.h"
#include "files/CLZWCompression.h"
#include "files/WholeFile.h"
#include "graphics/CCanvasIfc.h"
#include "graphics/ImgFile.h"
#include "graphics/JPEG.h"
#include "script/CMElement.h"
#include "script/CMElementCreator.h"

#include <algorithm>

namespace {

constexpr int kDepthWithoutDisplay = 16;

// A plane's bytes in a block of `room`; what they lack is zero.
char * plane(std::string_view bytes, std::size_t room) {
    char * made = new char[room];
    std::size_t taken = std::min(bytes.size(), room);
    std::copy_n(bytes.data(), taken, made);
    std::fill(made + taken, made + room, '\0');
    return made;
}

// A block of the older coder, in exactly `room` bytes; null for a block without sense.
char * unpacked(std::string_view block, std::size_t room) {
    CLZWCompression coder(const_cast<char *>(block.data()), static_cast<int>(block.size())); // reads only
    std::unique_ptr<char[]> made(coder.decompress(static_cast<int>(room)));
    return made ? plane({made.get(), static_cast<std::size_t>(coder.getSize())}, room) : nullptr;
}

CXObject * create(CWindow * window, CMElement * element) {
    auto * image = new CImage(window, element->getPropertyValue("FILENAME"));
    image->Visible(element->getPropertyBoolValue("VISIBLE"));
    return static_cast<CGraphicsObject *>(image);
}

[[maybe_unused]] const bool added = (CMElementCreator::addObject("IMAGE", create), true);

} // namespace

CImage::CImage(CWindow * window) : CGraphicsObject(window), CPlayable(window) {}

CImage::CImage(CWindow * window, const CXString & name) : CImage(window) {
    setFileName(name);
    setErrorCode(CImage::Load(name, true));
}

CImage::CImage(CWindow * window, CGraphicsObject * shared)
    : CGraphicsObject(window, *shared), CPlayable(window) {
    setFileName({});
}

CImage::CImage(CImage & shared) : CImage(shared.getWindow(), &shared) {}

CImage::CImage(CWindow * window, CMElement * element) : CImage(window) {
    bool releaseAfterUse = element->getPropertyBoolValue("RELEASEAFTERUSE");
    setFilename(element->getPropertyValue("FILENAME"));
    if (CFileResolver::getFileName().getLength() == 0) return;
    if (!element->isPropertyAvailable("PRELOAD") || element->getPropertyBoolValue("PRELOAD"))
        CImage::Load(CFileResolver::getFileName(), true);
    if (element->getPropertyBoolValue("VISIBLE"))
        CImage::show();
    else
        CImage::hide();
    toRelease(releaseAfterUse); // last, so that the hiding above releases nothing
}

CImage & CImage::operator=(const CImage & other) = default;

void CImage::takeAfter(CImage & other) {
    Copy(&other);
    if (other.isLoaded()) CFileResolver::load();
}

CGraphicsObject * CImage::clone() { return new CImage(*this); }

int CImage::Load(const CXString & given, bool convert) {
    Invalidate(); // the old picture's place is drawn anew
    flush();
    CXString name = given;
    name.Lower();
    if (!name.view().ends_with(".img")) return load(window_ ? CFile::getPath(window_, name) : name);

    int error = CFile::kNotFound;
    CFile file(window_, name, CFile::kRead | CFile::kBinary);
    if (file.LastError() == 0) {
        setFileName(name); // for the log
        error = Load(&file);
        int closed = file.Close();
        if (error == 0) error = closed;
        if (error == 0) {
            Visible(true);
            setFilename(name);
            CPlayable::load();
        }
    }
    setErrorCode(error);
    if (error) return error;
    Invalidate();
    if (convert) CGraphicsObject::Load(name);
    return 0;
}

int CImage::Load(CFile * file) {
    std::string bytes;
    if (!wholefile::read(*file, bytes)) return damaged("the file is too large");
    return take(bytes);
}

int CImage::Load3(CFile * file) { return Load(file); }

int CImage::take(std::string_view bytes) {
    Flush();
    img::Head head;
    if (const char * bad = img::read(bytes, head)) return damaged(bad);
    width_ = pitch_ = head.width;
    height_ = head.height;
    bpp_ = head.depth;
    x_ = place(head.x);
    y_ = place(head.y);
    rawSize_ = head.rawSize;
    compression_ = static_cast<_compression>(head.compression);

    auto raw = static_cast<std::size_t>(head.rawSize), rawAlpha = static_cast<std::size_t>(head.rawAlphaSize);
    bool older = head.layout == img::Layout::nvi && head.compression == kCompressionLzo;
    bool expanded = older || compression_ == kCompressionNone;
    if (older) {
        data_ = unpacked(head.colour, raw);
        if (!head.alpha.empty()) channels_[3] = unpacked(head.alpha, rawAlpha);
        compression_ = kCompressionNone;
    } else {
        data_ = plane(head.colour, expanded ? raw : head.colour.size());
        // An old picture's alpha plane is never packed.
        bool rawAlphaPlane = expanded || head.layout == img::Layout::legacy;
        if (!head.alpha.empty() && head.layout != img::Layout::legacy)
            channels_[3] = plane(head.alpha, rawAlphaPlane ? rawAlpha : head.alpha.size());
    }
    if (!data_) return damaged("the colour plane can't be unpacked");
    colourSize_ = spareSize_ = expanded ? head.rawSize : static_cast<int>(head.colour.size());
    if (channels_[3]) channelSizes_[3] = expanded ? head.rawAlphaSize : static_cast<int>(head.alpha.size());

    if (!older && head.layout != img::Layout::nvi) {
        if (compression_ == kCompressionJpeg) colourSize_ = head.jpegSize;
        DeCompress();
        if (compression_ == kCompressionLzo || compression_ == kCompressionLzoRle ||
            compression_ == kCompressionJpeg)
            return damaged("the colour plane can't be unpacked");
    }
    if (head.layout == img::Layout::legacy && !head.alpha.empty()) {
        channels_[3] = plane(head.alpha, rawAlpha);
        channelSizes_[3] = head.rawAlphaSize;
    }
    return 0;
}

int CImage::damaged(const char * why) {
    Flush();
    CWindow::toLog("Picture " + CGraphicsObject::getFileName() + " is damaged: " + why + "\n", false);
    return CFile::kNotFound;
}

int CImage::load(const CXString & path) {
    Flush();
    setErrorCode(CFile::kNotFound);
    if (path.getLength() == 0) return CFile::kNotFound;
    JPEG jpeg(path.c_str());
    int depth = window_ ? window_->GetBpp() : kDepthWithoutDisplay;
    char * pixels = jpeg.decompress(depth);
    if (!pixels) {
        CWindow::toLog("Picture " + path + ": " + jpeg.error() + "\n", false);
        return CFile::kNotFound;
    }
    data_ = pixels;
    width_ = pitch_ = jpeg.getWidth();
    height_ = jpeg.getHeight();
    bpp_ = depth == 15 ? 15 : 16; // a wider display takes words too
    rawSize_ = colourSize_ = spareSize_ = __get_data_size(width_, height_, bpp_);
    setErrorCode(0);
    return 0;
}

void CImage::flush() {
    Flush();
    CPlayable::release();
}

void CImage::show() {
    if (!isLoaded() && CFileResolver::getFileName().getLength() > 0) Load(CFileResolver::getFileName(), true);
    Visible(true);
}

void CImage::hide() {
    if (isToRelease()) flush();
    Visible(false);
}

void CImage::retire() {
    flush();
    if (canvas_) *canvas_ >> this;
}
