#pragma once

// A game's picture: pixel objects by priority over a background. Each frame repaints what changed, onto a
// surface. Objects aren't owned; they leave by themselves when they end. The thread of the tick.

#include "graphics/CBackgroundManager.h"
#include "graphics/CCanvasIfc.h"
#include "graphics/CRefreshRegion.h"
#include "graphics/CValidationQuene.h"

#include <memory>
#include <vector>

class CCanvasObserver;
class CSurface;

class CRefreshScreen : public CGraphicsObject, public CCanvasIfc {
public:
    static constexpr int kGray = 2; // refresh flag: the picture is shown in gray
    // What notify tells the observers.
    enum Notice {
        kInitialUpdate = 0,
        kUpdate = 1,
        kUpdated = 2,
        kFocusOn = 3,
        kFocusOff = 4,
        kInitialUpdated = 5
    };

    // The size and depth of the window's screen. ownSurface: it can be painted by Redraw().
    CRefreshScreen(CWindow * window, bool ownSurface);
    ~CRefreshScreen() override;

    using CGraphicsObject::operator=;
    void put(CGraphicsObject * object, int priority);
    void operator<<(CGraphicsObject * object) { put(object, 0); }
    void operator>>(CGraphicsObject * object) override;
    CRefreshScreen * getScreen() override { return this; }
    void SetPriority(CGraphicsObject * object, int priority); // goes above its equals
    int GetPriority(CGraphicsObject * object);                // 0 for an object that isn't here
    int getIndex(CGraphicsObject * object) { return queue_.getIndex(object); } // -1 for such a one
    int getRefreshFlags() const { return refreshFlags_; }
    void setRefreshFlags(int flags) { refreshFlags_ = flags; }
    void Empty(); // no objects
    void flush(); // a new scene: everything is painted anew

    void Invalidate(CXRect * rect) override; // null: all
    void Invalidate() override { Invalidate(static_cast<CXRect *>(nullptr)); }
    void Invalidate(CGraphicsObject * object); // if it is visible and here
    void Visible(bool on) override;            // every object

    // Paints what changed onto its own surface.
    void Redraw() override;
    // The tick's: a scene's first picture has its notices. finished: all is to be shown once more. Whether
    // there was anything to paint.
    bool Redraw(CDirectDrawSurface * onto, CSurface * surface, bool * finished);
    bool __redraw(CDirectDrawSurface * onto);

    void SetBackground(CGraphicsObject * picture);
    void SetBackground(CColor * colour);
    void SetBackground(const CXString & file); // it stays as it was when the file can't be loaded
    void setBackground(std::unique_ptr<CDirectDrawSurface> picture);
    CDirectDrawSurface * getBackgroundIfc() const { return background_.getBackground(); }

    void addNotifier(CCanvasObserver * observer);
    void removeNotifier(CCanvasObserver * observer);
    void notify(int code);
    void enableNotifyFlag(bool on) { notifies_ = on; }
    void onFocusOn() { notify(kFocusOn); }
    void onFocusOff() { notify(kFocusOff); }

    CValidationQuene * getRefreshList() { return &queue_; }
    CRefreshRegion & getRegion() { return region_; }
    CDirectDrawSurface * GetLocalDestiny() const { return destination_; } // of the last frame
    int getFrames() const { return frames_; }

    // A copy of the present picture, kept until _release.
    void _catch();
    void _release() { caught_.reset(); }
    CDirectDrawSurface * getCaught() const { return caught_.get(); }

private:
    void paint(CValidationElement & element, CDirectDrawSurface * onto);
    void paintPart(CValidationElement & element, CDirectDrawSurface * onto, CXRect part);
    CXRect screen() const { return {0, 0, width_, height_}; }

    CDirectDrawSurface * destination_ = nullptr; // not owned
    int refreshFlags_ = 0;
    int frames_ = 0;
    std::unique_ptr<CDirectDrawSurface> own_, caught_;
    CRefreshRegion region_;
    std::vector<CCanvasObserver *> observers_; // not owned
    bool notifies_ = false;
    CBackgroundManager background_;
    std::unique_ptr<CGraphicsObject> backgroundFile_; // what SetBackground loaded last
    CValidationQuene queue_;
};
