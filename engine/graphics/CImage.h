#pragma once

// The still picture: a pixel object that is shown and hidden as animations are. It reads the engine's own
// files (.img) and, under any other name, JPEG files. A file that isn't there and one that is damaged give
// the error code CFile::kNotFound and an empty picture; of a damaged one the log tells. The thread of the
// tick.

#include "graphics/CGraphicsObject.h"
#include "sequence/CPlayable.h"

class CMElement;

class CImage : public CGraphicsObject, public CPlayable {
public:
    explicit CImage(CWindow * window);
    CImage(CWindow * window, const CXString & name);    // loads; LastError() tells how that went
    CImage(CWindow * window, CGraphicsObject * shared); // a sharing copy: shared must live longer
    CImage(CImage & shared);                            // the same
    CImage(CWindow * window, CMElement * element);      // RELEASEAFTERUSE, FILENAME, PRELOAD, VISIBLE
    CImage & operator=(const CImage & other);           // pointers and ownership included
    CGraphicsObject * clone() override;                 // a new sharing copy

    virtual int load(const CXString & path); // a JPEG file at a path, as CFile::getPath gives it
    virtual int Load(const CXString & name,
                     bool convert);  // 0 or the error code; convert: to the display's depth
    virtual int Load3(CFile * file); // the older layout, from the file's position
    virtual void flush();
    // Copy of the other's planes, size and position; no file is read for them when this one is shown.
    void takeAfter(CImage & other);

    int Load(const CXString & name) override { return Load(name, true); }
    int Load(CFile * file) override; // any layout of an open .img file, from its position
    void show() override;
    void hide() override;

    // Both bases have these.
    int LastError() const { return static_cast<const CGraphicsObject *>(this)->LastError(); }
    void setErrorCode(int code) { static_cast<CGraphicsObject *>(this)->setErrorCode(code); }
    bool isToDelete() override { return CGraphicsObject::isToDelete(); }
    void setToDelete() override { CGraphicsObject::setToDelete(); }
    bool equals(CXObject * other) override { return CGraphicsObject::equals(other); }
    int compare(CXObject * other) override { return CGraphicsObject::compare(other); }
    int getHashcode() override { return CGraphicsObject::getHashcode(); }
    CXString toString() override { return CGraphicsObject::toString(); }
    CXString getFileName() override { return CFileResolver::getFileName(); }
    void setPosition(int x, int y) override { CGraphicsObject::setPosition(x, y); }
    void setPosition(CXPoint p) override { CGraphicsObject::setPosition(p); }
    void move(int dx, int dy) override { Move(dx, dy); }
    bool isVisible() override { return CGraphicsObject::isVisible(); }
    void setVisibility(bool visible) override { Visible(visible); }
    void retire() override; // leaves the screen too

private:
    int take(std::string_view bytes); // the file's; 0 or the error code
    int damaged(const char * why);    // empty from now on, and a line in the log
};
