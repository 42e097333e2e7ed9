#pragma once

// The base of everything with pixels: a colour plane of 15- or 16-bit pixels and perhaps an alpha plane of
// bytes, a place on the screen, a clipping rectangle and an opacity; it draws itself onto another one. Planes
// are blocks from new char[], row by row without padding. The thread of the tick.

#include "core/CColor.h"
#include "core/CXObject.h"
#include "core/CXRect.h"
#include "graphics/CInvalidateObserver.h"
#include "graphics/Compression.h"
#include "graphics/Records.h"

class CCanvasIfc;
class CDataBuffer2Dim;
class CFile;
class CRefreshScreen;
class CValidationQuene;
class CWindow;
class CXArray;
struct _palette;

class CGraphicsObject : public CXObject, public CInvalidateObserver {
public:
    static constexpr int kGfxObject = 0, kGfxAnimation = 2; // getGfxType
    static constexpr int kLargestPlane = 1 << 28;           // bytes; a larger or negative size gets no plane
    static constexpr int kFarthest = 1 << 28;               // pixels; positions and rectangles are held to it

    explicit CGraphicsObject(CWindow * window);
    CGraphicsObject(CWindow * window, CXSize size, int depth);              // a colour plane, not cleared
    CGraphicsObject(CWindow * window, CXSize size, int depth, char * data); // owns data from now on
    // A sharing copy: the other's planes, not owned; the other must live longer.
    CGraphicsObject(CWindow * window, CGraphicsObject & other);
    // Plain copies: pointers and ownership included, so the caller sees to it that one side alone deletes.
    // Who observes an object, and what is drawn onto it, stays with that object.
    CGraphicsObject(const CGraphicsObject & other);
    CGraphicsObject & operator=(const CGraphicsObject & other);
    ~CGraphicsObject() override;
    CGraphicsObject * clone() override; // a new sharing copy

    // ---- the operations that subclasses replace
    virtual void pack(bool free); // undoes unpack; free: the expanded planes are deleted
    virtual void unpack();
    virtual int getGfxType() { return kGfxObject; }
    virtual void setMonitorCollisions(bool on) {
        monitorCollisions_ = on;
        wasMonitored_ |= on;
    }
    virtual bool getMonitorCollisionsFlag() { return monitorCollisions_; }
    virtual void SetOpacity(unsigned char opacity) { opacity_ = opacity; }
    virtual void DeCompress(); // undoes the coding of a file, which leaves raw or run-length planes
    virtual void DeCompressRLE2();
    virtual void bringBackCompressed(); // undoes a DeCompressRLE2 that didn't come from unpack
    virtual char * GetDataPtr() { return data_; }
    virtual bool testHit(CXPoint p, bool ignoreAlpha);
    virtual CXPoint getCenterPoint() { return {width_ / 2, height_ / 2}; } // in own coordinates
    virtual void setPosition(int x, int y);
    virtual void setPosition(CXPoint p);
    virtual void SetPosition(CXPoint p);
    virtual void SetPosition(int x, int y); // where the anchor comes to stand; tells the canvas nothing
    virtual void Move(CXPoint d);
    virtual void Move(int dx, int dy);
    virtual void setAnchor(int x, int y); // counts from the next SetPosition on
    virtual void setAnchor(CXPoint p);
    virtual CXPoint getAnchor() { return anchor_; }
    virtual void Visible(bool on);
    virtual void Flush(); // without planes afterwards
    virtual int GetPixelSize() { return __get_pixel_size(bpp_); }
    virtual unsigned char GetPixel(_channel channel, CXPoint p); // 0 outside
    virtual CColor GetPixel(CXPoint p);
    virtual CColor GetPixel(int x, int y); // black outside, and of a coded plane
    virtual void FlipH();                  // upside down
    virtual void FlipV();                  // left to right
    virtual void resetFlips();
    virtual void Fill(CColor * colour);
    virtual void Fill(CXRect rect, CColor * colour);
    virtual void redraw(CGraphicsObject * onto);
    virtual void Redraw(); // with what is drawn onto this, onto the destiny
    virtual void Blend(char *, int *, int, int) {}
    virtual int Load(const CXString & name); // here: brings loaded pixels to the display's depth
    virtual int Load(CFile * file);
    virtual int Save(const CXString & name, _compression compression); // the error code
    virtual int Save(CFile * file, _compression compression);
    virtual int Width() { return width_; }
    virtual int Height() { return height_; }
    virtual CXSize Size() { return {width_, height_}; }
    virtual void setSize(CXSize size);
    virtual CXPoint getPosition() { return {x_, y_}; }
    virtual CXPoint GetPosition() { return {x_, y_}; }
    virtual CXRect getRect() { return {x_, y_, x_ + width_, y_ + height_}; }
    virtual int getWidth() { return width_; }
    virtual int getHeight() { return height_; }
    virtual CXRect GetBoundingBox();         // what can be seen on the destiny
    virtual CXRect GetAbsoluteBoundingBox(); // the same without the destiny's limits
    virtual bool isNear(CXRect rect, int percent);
    virtual bool isNear(CGraphicsObject * other, int percent);
    virtual CXPoint ClientCoords(CXPoint p);
    virtual void SetClippingRect(CXRect rect);
    virtual void Invalidate(CXRect * rect);
    virtual void Invalidate();
    virtual void addInvalidateObserver(CInvalidateObserver * observer);
    virtual void removeInvalidateObserver(CInvalidateObserver * observer);
    virtual void notifyInvalidate(CXRect * rect);
    void handOver(CGraphicsObject * fresh); // observers may go over to the object that takes this one's place
    virtual CGraphicsObject * getDrawn() { return this; } // the object that this one stands for

    void onInvalidate(CGraphicsObject * object, CXRect * rect) override;
    void onDestroy(CGraphicsObject * object) override;

    // ---- planes
    void alloc(CXSize size, int depth, bool withAlpha); // neither plane is cleared
    void Alloc();                                       // a colour plane for the present size
    void Split();                                       // a 24-bit plane into the red, green and blue planes
    void JoinChannels();                                // and back; a missing plane counts as 0
    char * Join2Channels(); // a new buffer of 4 bytes a pixel: the three of a 24-bit plane and the alpha
    void SplitOn2(char * rgba, int pixels);
    void Compress(_compression kind);
    bool Convert(int depth);
    void Copy(CGraphicsObject * source); // deep
    void Copy(CGraphicsObject * source, CXRect part);
    void crop(CXRect rect);

    // ---- geometry
    void FitRect(CXRect rect); // centred there
    void FitObject(CGraphicsObject * object);
    void FitCanvas() {}
    bool isAt(CXPoint p, bool useAlpha);
    bool isInside(int x, int y, bool useAlpha);

    // ---- pixels
    void SetPixel(int x, int y, const CColor & colour);
    // Mixed by alpha over the pixel there, or over black.
    void putPixel(int x, int y, short colour, int alpha, bool ignoreBackground);
    void putPixel15(int x, int y, short colour, int alpha, bool ignoreBackground);
    void putPixel16(int x, int y, short colour, int alpha, bool ignoreBackground);
    void replace_color(short from, short to);
    void AddOpacity(short delta);

    // ---- objects drawn onto this one
    void addObject(CGraphicsObject * object, int priority);
    void removeObject(CGraphicsObject * object);
    void removeAllObjects();
    void Show() { Visible(true); }
    void Hide() { Visible(false); }
    bool isInvalidated(); // whether it changed since the last call

    // ---- effects, all on 16-bit words
    void Scale(double fx, double fy);
    void Scale2x(); // to the half
    void ToGrayScale();
    void InvertColors();
    void outline(const CColor & colour, int thickness); // needs an alpha plane
    // map: an offset for each pixel. A pixel whose source lies outside stays as it was. Without freeOld the
    // replaced planes are the caller's.
    void displacementFilter(const CXPoint * map, bool withAlpha, bool freeOld);
    // Lays the mask's alpha over this object's at p; what it covers is kept in the mask.
    void mergeAlpha(CXPoint p, CGraphicsObject * mask);
    void restoreAlpha(CGraphicsObject * mask);
    void mergeAlpha2(CXPoint p, CGraphicsObject * mask, bool reset);

    // ---- flood fill: prepared once, painted in any colour. This plane is the map, a word of 0 a wall;
    // target has the same size; spans has room for (width + 1) / 2 x height, and stays the caller's. The
    // result is the box round the fill.
    CXRect PrepareFloodFill(CXPoint seed, const CColor & colour, char * target, _floodfill * spans);
    void FloodFill(const CColor & colour, char * target);
    int getFFEnterances() const { return floodCount_; }
    _floodfill * getFFArray() const { return floodSpans_; }

    // ---- fields
    const CXString & getFileName() const { return name_; }
    void setFileName(const CXString & name) { name_ = name; }
    CWindow * getWindow() const { return window_; }
    CRefreshScreen * GetCanvas() const;
    CCanvasIfc * getCanvasIfc() const { return canvas_; }
    void SetCanvas(CCanvasIfc * canvas) { canvas_ = canvas; }
    CGraphicsObject * GetDestiny() const { return destiny_; }
    void SetDestiny(CGraphicsObject * destiny) { destiny_ = destiny; }
    int GetPitch() const { return pitch_; } // pixels
    void SetPitch(int pitch) { pitch_ = pitch; }
    void SetDataPtr(char * data) { data_ = data; }
    int GetBpp() const { return bpp_; }
    void SetBpp(int bpp) { bpp_ = bpp; }
    int GetFlags() const { return flags_; }
    void SetFlags(int flags) { flags_ = flags; }
    bool GetAutoClip() const { return autoClip_; }
    void SetAutoClip(bool on) { autoClip_ = on; }
    CXRect GetClippingRect() const { return clippingRect_; }
    void SetViewport(CXRect rect) { viewport_ = rect; }
    CXRect GetViewport() const { return viewport_; }
    bool isFlippedH() const { return flippedH_; }
    bool isFlippedV() const { return flippedV_; }
    int GetChannelSize(int i) const { return i >= 0 && i < 4 ? channelSizes_[i] : 0; }
    void SetChannelSize(int i, int bytes);
    char * GetChannelRed() const { return channels_[0]; }
    char * GetChannelGreen() const { return channels_[1]; }
    char * GetChannelBlue() const { return channels_[2]; }
    char * GetChannelAlpha() const { return channels_[3]; }
    char * RedChannel(char * plane) { return setChannel(0, plane); }
    char * GreenChannel(char * plane) { return setChannel(1, plane); }
    char * BlueChannel(char * plane) { return setChannel(2, plane); }
    char * AlphaChannel(char * plane) { return channels_[3] = plane; }
    void setAlphaAsMask(bool on) { alphaAsMask_ = on; }
    bool getOwnsPixels() const { return ownsPixels_; }
    void setOwnsPixels(bool on) { ownsPixels_ = on; }
    _compression GetCompression() const { return compression_; }
    void SetCompression(_compression compression) { compression_ = compression; }
    unsigned char GetOpacity() const { return opacity_; }
    bool isVisible() const { return visible_; }
    bool hasBackup() const { return backup_ != nullptr; }
    CValidationQuene * getDrawnObjects() const { return drawn_; } // null without any

    // ---- shared by all objects
    static int __get_pixel_size(int depth);
    static int __get_data_size(int width, int height, int depth); // 0 when it is more than kLargestPlane
    static int GetRealBpp(int code);                              // the depth of a file's code
    static int GetFlagBpp(int depth);
    static int __get_convert_code(int from, int to);
    // Brings a plane to another depth; the plane may be replaced by a new one. False when it can't be.
    static bool __convert_bpp(char *& data, int width, int height, int from, int to, _palette * palette);
    static void _convert15to16(char * data, int width, int height);
    static void _convert16to15(char * data, int width, int height);
    static void _convert32to15(char * data, int width, int height);
    static char * _convert32to16(const char * data, int width, int height); // new; 3 bytes a pixel in data
    // The multiplication table: 512 x 256 products of -256..255 and 0..255.
    static void __initialize_mul_array();
    static std::uint16_t * __get_mul_array();
    static void __done_mul_array();
    static void ReleaseGraphics() { __done_mul_array(); }

    // ---- blits; true when there was nothing wrong with the two. See blits/Blits.h.
    static bool __copy(const _canvas & source, const _canvas & onto);
    static bool __copy_alpha(const _canvas & source, const _canvas & onto);
    static bool __copy_blend(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_bpp15_16(const _canvas & source, const _canvas & onto);
    static bool __copy_bpp24(const _canvas & source, const _canvas & onto); // the 24-bit ones draw nothing
    static bool __copy_bpp32(const _canvas & source, const _canvas & onto);
    static bool __copy_alpha15(const _canvas & source, const _canvas & onto);
    static bool __copy_alpha16(const _canvas & source, const _canvas & onto);
    static bool __copy_alpha24(const _canvas & source, const _canvas & onto);
    static bool __copy_alpha32(const _canvas & source, const _canvas & onto);
    static bool __copy_blend15(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_blend16(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_blend24(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_blend32(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_alpha_blend15(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_alpha_blend16(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_alpha_blend24(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_alpha_blend32(const _canvas & source, const _canvas & onto, int opacity);
    static bool __copy_alpha_as_mask(const _canvas & source, const _canvas & onto);
    static bool copyToCanvas(const _canvas & source, const _canvas & onto);

protected:
    std::uint16_t * words() const { return reinterpret_cast<std::uint16_t *>(data_); }
    unsigned char * alphaBytes() const { return reinterpret_cast<unsigned char *>(channels_[3]); }
    bool isRaw16() const; // a colour plane of words that isn't coded
    std::ptrdiff_t count() const { return static_cast<std::ptrdiff_t>(width_) * height_; } // pixels
    char * setChannel(int i, char * plane);
    // New planes in place of the present ones, which are deleted if owned; passing a present one keeps it. A
    // sharing copy has planes of its own from then on.
    void replacePlanes(char * colour, char * alpha);
    void onMoved(); // the window's collisions
    void tellCanvas(CXRect rect);
    static int limited(std::int64_t v, int low, int high) {
        return v < low ? low : v > high ? high : static_cast<int>(v);
    }
    static int place(std::int64_t v) { return limited(v, -kFarthest, kFarthest); }

    CXString name_;
    CWindow * window_;                    // not owned
    CCanvasIfc * canvas_ = nullptr;       // not owned
    CGraphicsObject * destiny_ = nullptr; // not owned
    CDataBuffer2Dim * backup_ = nullptr;  // owned: the pixels before other objects were drawn onto them
    _palette * palette_ = nullptr;
    int width_ = 0, height_ = 0;
    int pitch_ = 0;
    char * data_ = nullptr; // owned when ownsPixels_
    int bpp_ = 0;
    int flags_ = 0;
    bool autoClip_ = true;
    CXRect clippingRect_;
    CXRect viewport_;
    int x_ = 0, y_ = 0;
    CXPoint anchor_;
    bool flippedH_ = false, flippedV_ = false;
    int frameWord_ = 0;
    int channelSizes_[4] = {};
    char * channels_[4] = {}; // owned when ownsPixels_: red, green, blue, alpha
    bool alphaAsMask_ = false;
    bool ownsPixels_ = true;
    int rawSize_ = 0, colourSize_ = 0, spareSize_ = 0; // bytes: expanded, as held, and a copy of that
    _compression compression_ = kCompressionNone;
    CColor colours_[2];
    unsigned char opacity_ = 255;
    int floodCount_ = 0;
    _floodfill * floodSpans_ = nullptr; // not owned
    CXRect savedRect_;
    char * savedAlpha_ = nullptr; // owned: what mergeAlpha overwrote elsewhere with this mask
    bool invalidated_ = false;
    CXArray * observers_ = nullptr; // owned; CInvalidateObserver, null without any
    char * packedColour_ = nullptr; // while expanded; these and the coded planes change places
    char * packedAlpha_ = nullptr;
    int packedDepth_ = 0;
    int packedSize_ = 0, packedAlphaSize_ = 0; // bytes
    bool expandedHere_ = false; // the expanded planes are this object's, whoever owns the coded
    bool monitorCollisions_ = false;
    bool wasMonitored_ = false; // the window's inspector may know this object
    bool unpacked_ = false;
    CValidationQuene * drawn_ = nullptr; // owned; objects drawn onto this one, null without any
    bool visible_ = true;

private:
    void takePlain(const CGraphicsObject & other);
    void putBack(bool free); // the packed planes
    void endDrawn();
    template <class Step>
    void onExpanded(Step && step);
};
