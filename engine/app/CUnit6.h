#pragma once

// The bridge between the running scene and the window: background, music, edit boxes, drag state. There is
// one in a process, the default unit, which passes from scene to scene. Main thread.

#include "app/Listeners.h"
#include "core/CXArray.h"
#include "core/CXVector.h"
#include "graphics/CInvalidateObserver.h"
#include "input/CControlNotifier.h"
#include "sequence/CRandomPlayable.h"

#include <memory>

class CGraphicsObject;
class CMC_Scene;
class CMElements;
class CRefreshScreen;
class CResourcesManager;
class CWindow;

class CUnit6 : public CXObject,
               public CControlNotifier,
               public CPlayableObserver,
               public CKeyListener,
               public CMouseListener,
               public CInvalidateObserver,
               public CRandomPlayableNotifier {
public:
    static constexpr int kMousePriority = 100000; // above ordinary listeners
    static constexpr int kTab = 15;               // key code
    static constexpr int kDragged = 10000;        // priority of what is dragged

    CUnit6(CWindow * window, const CXString & name);
    ~CUnit6() override;

    virtual void initialize(CMC_Scene * scene,
                            CUnit6 * unit); // music runs on from unit, or is forgotten for null
    virtual void onInitialUpdate() { initiallyUpdated_ = true; }
    virtual void onCanvasRefreshed() {}
    virtual bool wasInitiallyUpdated() { return initiallyUpdated_; }
    virtual bool domodal() { return retCode_ != 0; }
    virtual void done(CMC_Scene * scene, CUnit6 * unit);
    virtual CWindow * getWindow() { return window_; }
    virtual CRefreshScreen * getCanvas(); // null without a display
    virtual CRefreshScreen * getRefreshScreenInterface() { return getCanvas(); }
    virtual bool isActive() { return active_; }
    virtual void startMusic(const char * file, bool force); // null for the scene's own
    virtual void stopMusic();
    virtual const CXString & getMusicFileName() { return musicPlaying_; }
    virtual const CXString & getBackgroundFileName() { return backgroundFile_; }
    virtual void setBackground(); // the canvas takes the picture, or black without one
    using CControlNotifier::onDragging;
    using CControlNotifier::onEndDragging;
    using CControlNotifier::onStartDragging;
    // A drag: object may be null, then it is only known that there is one. point: where it was caught. data:
    // who began it. An object that ends is forgotten, the drag goes on.
    virtual void onStartDragging(CGraphicsObject * object, CXPoint point, void * data);
    virtual void onDragging(CXPoint point);
    virtual void onEndDragging(CXPoint point);
    virtual void setCursor(CGraphicsObject *) {} // a derived unit may show it at the pointer
    void bringBackDraggingObjectPosition(CXPoint point);
    // While a scene runs. The playable stays the caller's.
    virtual void addRandomPlayable(CPlayable * playable, double rate, int series, const CXString & event);
    virtual void removeRandomPlayable(CPlayable * playable);
    virtual CResourcesManager * getResourcesManager() { return resources_.get(); }
    // A derived unit may filter a scene's elements.
    virtual CMElements * resolveObjects(CMC_Scene *, CMElements * elements) { return elements; }
    virtual void addEditBox(CXObject * box) { editBoxes_.add(box); }
    virtual void activateEditBox(int i) { currentEditBox_ = i; }
    virtual void removeEditBox(CXObject * box) { editBoxes_.remove(box); }
    virtual void flushEditBoxes();
    virtual int getCurrentEditBoxIndex() { return currentEditBox_; }
    virtual void nextEditBox();
    virtual void prevEditBox();
    // A timer of the window that was set for this unit fell due.
    virtual void onTimer(int) {}

    void onInvalidate(CGraphicsObject *, CXRect *) override {}
    void onDestroy(CGraphicsObject * object) override;
    void onReplaced(CGraphicsObject * object, CGraphicsObject * fresh) override;

    bool onKeyDown(int key) override;
    bool onMouseMove(CXPoint point) override;
    bool onClick(CXPoint point) override;
    bool onRelease(CXPoint point) override;

    const CXString & getUnitName() const { return name_; }
    void setUnitName(const CXString & name) { name_ = name; }
    void setBackgroundFileName(const CXString & name) { backgroundFile_ = name; }
    CMC_Scene * getScene() const { return scene_; } // the running one, null between scenes
    void setActivity(bool active) { active_ = active; }
    bool isDragging() const { return dragging_; }
    bool getDraggingMode() const { return draggingMode_; }
    void setDraggingMode(bool on) { draggingMode_ = on; } // click to drop, else release to drop
    void setRetCode(int code) { retCode_ = code; }
    int getRetCode() const { return retCode_; }
    void exit() { retCode_ = 1; }
    CXArray * getRetPath() { return &retPath_; }

private:
    void dragged(CGraphicsObject * object);

    CWindow * window_;
    CXString name_;
    CMC_Scene * scene_ = nullptr;
    bool dragging_ = false;
    bool draggingMode_ = false;
    CGraphicsObject * dragObject_ = nullptr; // not owned
    int dragPriority_ = 0;                   // of the object before the drag
    CXPoint dragStart_;
    bool initiallyUpdated_ = false;
    CXString backgroundFile_;
    int retCode_ = 0;
    CXArray retPath_{101, 0.75F};
    bool active_ = false;
    std::unique_ptr<CResourcesManager> resources_;
    std::unique_ptr<CRandomPlayable> randomPlayable_; // a scene's
    CXVector editBoxes_{101, 0.75F};                  // not owned
    int currentEditBox_ = -1;
    CXString musicPlaying_;
};
