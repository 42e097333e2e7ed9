#include "graphics/CPSD.h"

#include "app/CWindow.h"
#include "files/WholeFile.h"
#include "graphics/PsdFile.h"

#include <algorithm>
#include <cstring>

struct CPSD::Layer {
    CXRect rect;
    int channelCount = 0;
    CXString name;
    std::unique_ptr<CGraphicsObject> object; // 24 bits
};

CPSD::CPSD(CWindow * window) : CGraphicsObject(window) {}

CPSD::CPSD(CWindow * window, const CXString & name) : CPSD(window) { setErrorCode(CPSD::Load(name)); }

CPSD::~CPSD() = default;

CPSD & CPSD::operator=(const CPSD & other) {
    CGraphicsObject::operator=(other);
    return *this;
}

void CPSD::Flush() {
    layers_.clear();
    selected_ = 0;
    CGraphicsObject::Flush();
}

int CPSD::Load(const CXString & name) {
    Flush();
    setFileName(name);
    CFile file;
    int error = file.Open(window_, name, CFile::kRead | CFile::kBinary);
    if (error) return error;
    error = Load(&file);
    file.Close();
    if (error) return error;
    Visible(true);
    return CGraphicsObject::Load(name);
}

int CPSD::Load(CFile * file) {
    Flush();
    std::string bytes;
    psd::File read;
    const char * bad = wholefile::read(*file, bytes) ? psd::read(bytes, read) : "the file is too large";
    if (bad) {
        CWindow::toLog("Picture " + getFileName() + " is damaged: " + bad + "\n", false);
        return CFile::kNotFound;
    }
    CXSize size(read.width, read.height);
    for (psd::Layer & from : read.layers) {
        auto layer = std::make_unique<Layer>();
        layer->rect = from.rect;
        layer->name = CXString(from.name);
        layer->channelCount = static_cast<int>(from.channels.size());
        CXSize area(from.rect.Width(), from.rect.Height());
        layer->object = std::make_unique<CGraphicsObject>(window_, area, 24);
        CGraphicsObject & object = *layer->object;
        object.setFileName(layer->name);
        object.SetPosition(from.rect.left, from.rect.top);
        for (psd::Channel & channel : from.channels) {
            if (!channel.plane || channel.id < kChannelAlpha || channel.id > kChannelBlue) continue;
            int place = channel.id == kChannelAlpha ? 3 : channel.id;
            // The last one of a kind counts.
            delete[](place == 0   ? object.GetChannelRed()
                     : place == 1 ? object.GetChannelGreen()
                     : place == 2 ? object.GetChannelBlue()
                                  : object.GetChannelAlpha());
            char * plane = channel.plane.release();
            if (place == 0) object.RedChannel(plane);
            if (place == 1) object.GreenChannel(plane);
            if (place == 2) object.BlueChannel(plane);
            if (place == 3) object.AlphaChannel(plane);
            object.SetChannelSize(place, area.cx * area.cy);
        }
        object.JoinChannels();
        if (read.width <= 0 || read.height <= 0) {
            size.cx = std::max(size.cx, from.rect.right);
            size.cy = std::max(size.cy, from.rect.bottom);
        }
        layers_.push_back(std::move(layer));
    }
    flatten(size);
    return 0;
}

namespace {

// A picture in the making: straight colours, blue first, and alpha.
struct Sheet {
    CXSize size;
    std::vector<unsigned char> bgr, alpha;

    std::size_t place(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(size.cx) + static_cast<std::size_t>(x);
    }
};

// b over a: weights of both colours in the result, and the result's alpha, all of 255.
void lay(unsigned char * under, unsigned char & underAlpha, const unsigned char * over, unsigned overAlpha) {
    unsigned rest = underAlpha * (255 - overAlpha); // of 255 x 255
    unsigned whole = overAlpha * 255 + rest;
    if (whole == 0) return;
    for (int c = 0; c < 3; c++)
        under[c] =
            static_cast<unsigned char>((over[c] * overAlpha * 255 + under[c] * rest + whole / 2) / whole);
    underAlpha = static_cast<unsigned char>((whole + 127) / 255);
}

void lay(Sheet & sheet, CGraphicsObject & layer) {
    const char * colours = layer.GetDataPtr();
    const char * alpha = layer.GetChannelAlpha();
    if (!colours) return;
    CXPoint at = layer.GetPosition();
    CXRect r = CXRect(at.x, at.y, at.x + layer.Width(), at.y + layer.Height())
                   .Common({0, 0, sheet.size.cx, sheet.size.cy});
    for (int y = r.top; y < r.bottom; y++)
        for (int x = r.left; x < r.right; x++) {
            auto from = static_cast<std::size_t>(y - at.y) * static_cast<std::size_t>(layer.Width()) +
                        static_cast<std::size_t>(x - at.x);
            std::size_t to = sheet.place(x, y);
            unsigned weight = alpha ? static_cast<unsigned char>(alpha[from]) : 255;
            lay(&sheet.bgr[to * 3], sheet.alpha[to],
                reinterpret_cast<const unsigned char *>(colours + from * 3), weight);
        }
}

} // namespace

void CPSD::flatten(CXSize size) {
    constexpr int kDepth = 16; // loading goes on to the display's
    int bytes = size.cx > 0 && size.cy > 0 ? __get_data_size(size.cx, size.cy, 32) : 0;
    if (bytes == 0 || layers_.empty()) return;
    auto pixels = static_cast<std::size_t>(bytes) / 4;
    Sheet sheet{size, std::vector<unsigned char>(pixels * 3), std::vector<unsigned char>(pixels)};
    for (const auto & layer : layers_) lay(sheet, *layer->object);

    bool open = std::any_of(sheet.alpha.begin(), sheet.alpha.end(), [](unsigned char a) { return a != 255; });
    std::unique_ptr<char[]> colour(new char[pixels * 2]), alpha(open ? new char[pixels] : nullptr);
    for (std::size_t i = 0; i < pixels; i++) {
        const unsigned char * p = &sheet.bgr[i * 3];
        auto word = static_cast<std::uint16_t>(p[2] >> 3 << 11 | p[1] >> 2 << 5 | p[0] >> 3);
        std::memcpy(&colour[i * 2], &word, 2);
    }
    if (open) std::memcpy(alpha.get(), sheet.alpha.data(), pixels);
    setSize(size);
    pitch_ = width_;
    bpp_ = kDepth;
    data_ = colour.release();
    channels_[3] = alpha.release();
    channelSizes_[3] = channels_[3] ? static_cast<int>(pixels) : 0;
    rawSize_ = colourSize_ = spareSize_ = static_cast<int>(pixels * 2);
}

int CPSD::GetLayerNo() const { return static_cast<int>(layers_.size()); }

CGraphicsObject * CPSD::GetCurrentLayer() const {
    return layers_.empty() ? nullptr : layers_[static_cast<std::size_t>(selected_)]->object.get();
}

void CPSD::SelectLayer(int i) {
    if (i >= 0 && i < GetLayerNo()) selected_ = i;
}

void CPSD::SelectLayer(const CXString & name) {
    for (int i = 0; i < GetLayerNo(); i++)
        if (layers_[static_cast<std::size_t>(i)]->name == name) return SelectLayer(i);
}

CXString CPSD::GetLayerName(int i) const {
    if (i == -1) i = selected_;
    return i >= 0 && i < GetLayerNo() ? layers_[static_cast<std::size_t>(i)]->name : CXString();
}

CXRect CPSD::GetLayerRect(int) const {
    return layers_.empty() ? CXRect() : layers_[static_cast<std::size_t>(selected_)]->rect;
}

void CPSD::SetPosition(CXPoint p) {
    CGraphicsObject::SetPosition(p.x, p.y);
    if (layers_.empty()) return;
    Layer & layer = *layers_[static_cast<std::size_t>(selected_)];
    layer.object->SetPosition(p);
    if (p.x >= 0) {
        layer.rect.right = place(std::int64_t{p.x} + layer.rect.Width());
        layer.rect.left = place(p.x);
    }
    if (p.y >= 0) {
        layer.rect.bottom = place(std::int64_t{p.y} + layer.rect.Height());
        layer.rect.top = place(p.y);
    }
}
