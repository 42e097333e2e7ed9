#include "app/CWindow.h"

#include "app/CApplication.h"
#include "app/CCommandLine6.h"
#include "app/CMC_Scene.h"
#include "app/CUnit6.h"
#include "core/CXVersion.h"
#include "files/CFile.h"
#include "files/CLanguageOSVer.h"
#include "graphics/CCollisionInspector.h"
#include "graphics/CRefreshScreen.h"
#include "graphics/CSurface.h"
#include "input/CDXMouse.h"
#include "input/CHotSpot.h"
#include "input/CKeyboard.h"
#include "input/CMC_Mouse.h"
#include "platform/World.h"
#include "script/CMC_Object.h"
#include "sound/CSound4.h"
#include "sound/MusicPlayer.h"

#include <algorithm>

CXString CWindow::exePath;
CXString CWindow::rootPath;
CXString CWindow::cdPath;
bool CWindow::logEnabled = false;
bool CWindow::paused = false;
std::unique_ptr<CFile> CWindow::log;
CWindow * CWindow::theWindow = nullptr;

namespace {

constexpr int kLogMode = 6; // write, with reading allowed

// Ids of the window's timers; script objects count from 1.
constexpr int kOwnTimer = 0, kTrashTimer = -1;

enum Button { kLeft = 0, kMiddle = 1, kRight = 2 };

// The system's own texts, in Windows-1250.
constexpr struct {
    int code;
    const char * text;
} kErrors[] = {
    {-998, "Nieprawid\xB3owe dzia\xB3"
           "anie karty graficznej."},
    {-997, "Nieprawid\xB3owe dzia\xB3"
           "anie karty d\x9Fwi\xEAkowej."},
};
constexpr const char * kUnknownError = "Nieznany b\xB3\xB9"
                                       "d krytyczny.";

} // namespace

struct CWindow::MouseEntry : public CXObject {
    MouseEntry(CMouseListener * who, int rank) : listener(who), priority(rank) {}
    int compare(CXObject * other) override {
        int theirs = static_cast<MouseEntry *>(other)->priority;
        return priority < theirs ? -1 : priority > theirs ? 1 : 0;
    }
    CMouseListener * listener;
    int priority;
};

CWindow::CWindow(HWND hwnd, CCommandLine6 * commandLine, CLanguageOSVer * language, CXSize size,
                 HCURSOR cursor, const CXString & exe, bool noInput)
    : hwnd_(hwnd),
      commandLine_(commandLine),
      language_(language),
      size_(size),
      mainCursor_(cursor),
      windowMode_(commandLine->isWindowMode()),
      collisions_(std::make_unique<CCollisionInspector>()),
      musicPlayer_(std::make_unique<MusicPlayer>(this)) {
    exePath = exe;
    rootPath = CFile::getCurrentDirectory();
    platform::world().random->seed(platform::world().clock->tickCount());
    theWindow = this;
    paused = false;
    language_->setWindow(this);
    CSound4::CreateDirectSoundInterface(this);
    if (!windowMode_ && !cursorLock_) SetCursor(nullptr);
    timer_.add(kTrashTimer, CPublicTrash::kInterval, &publicTrash_);
    musicOn_ = commandLine_->isMusicEnabled();
    soundOn_ = commandLine_->isSoundEnabled();
    vmem_ = commandLine_->isVMem();
    keyboard_ = std::make_unique<CKeyboard>(this);
    if (!noInput) {
        dxMouse_ = std::make_unique<CDXMouse>(this);
        pollThread_ = std::make_unique<PollThread>([this] {
            std::lock_guard hold(pollLock_);
            for (int i = 0; i < pollers_.size; i++) static_cast<CInputPoller *>(pollers_.at(i))->tick();
        });
        pollThread_->suspend(true); // until the program is active
    }
    if (commandLine_->isLogEnabled()) openLog();
}

CWindow::~CWindow() {
    pollThread_.reset();
    musicPlayer_.reset();
    keyboard_.reset();
    dxMouse_.reset();
    CHotSpot::done();
    CGraphicsObject::ReleaseGraphics();
    CSurface::releaseBppConversionTable();
    for (CXObject * entry : mouseListeners_) delete entry;
    log.reset();
    logEnabled = false;
    language_->setWindow(nullptr);
    theWindow = nullptr;
}

void CWindow::openLog() {
    log = std::make_unique<CFile>(this, kLogFile, kLogMode);
    if (log->LastError()) log.reset();
    logEnabled = true;
    const CXString line = "============================\n";
    toLog(CXVersion::getCurrentVersion().toString() + "\n" + line + line, false);
    toLog(CXString(platform::world().describe()), false);
}

void CWindow::toLog(const CXString & text, bool toDebugger) {
    if (!logEnabled) return;
    if (toDebugger) {
        platform::world().debugger->write(text.view());
        platform::world().debugger->write("\n");
    }
    if (!log) return;
    log->Write(text.c_str(), text.getLength());
    log->GetHandle()->flush();
}

CConfig * CWindow::getConfig() { return application_ ? application_->GetConfigInterface() : nullptr; }

// ------------------------------------------------------------------------------------------------ the tick

bool CWindow::domodal() {
    Tick();
    bool over = application_ && application_->domodal();
    return over || quitFlag_;
}

namespace {

// Over those that are listed now, each only while it still is: what is done may change the list.
template <class List, class Act>
void forEach(List & list, Act && act) {
    std::vector items(list.begin(), list.end());
    for (std::size_t i = 0; i < items.size(); i++) {
        int place = static_cast<int>(i);
        bool unmoved = place < list.size && list.at(place) == items[i];
        if (unmoved || list.contains(items[i])) act(items[i]);
    }
}

} // namespace

// The order is part of what games see: the screen first, with what the last tick left, input last.
void CWindow::Tick() {
    if (!active_) return;
    life::Guard guard; // what scripts remove stays in memory until the tick is over
    Redraw();
    if (!pollThread_)
        for (int i = 0; i < pollers_.size; i++) static_cast<CInputPoller *>(pollers_.at(i))->tick();
    timer_.domodal();
    if (application_) application_->stepMedia();
    tellMusicLoops();
    collisions_->tick();
    std::unique_lock hold(pollLock_, std::defer_lock);
    if (pollThread_) hold.lock();
    forEach(pollers_, [](void * each) { static_cast<CInputPoller *>(each)->flushSignals(true); });
    forEach(mcListeners_, [](CXObject * each) { static_cast<CMC_Object *>(each)->flush(); });
}

void CWindow::onPositionChanged(CGraphicsObject * object) { collisions_->onPositionChanged(object); }

// The music began anew on the timer's thread; scripts hear of it here.
void CWindow::tellMusicLoops() {
    for (int i = musicPlayer_->takeLoops(); i > 0; i--) {
        CUnit6 * unit = CMC_Scene::getDefUnit();
        if (unit && unit->getScene()) unit->getScene()->onSignal("ONMUSICLOOPED");
    }
}

void CWindow::StartMusic(const CXString & file, bool loop) {
    if (soundOn_ && musicOn_) musicPlayer_->start(rootPath + file, loop);
}

void CWindow::StopMusic() { musicPlayer_->stop(); }
bool CWindow::isMusicPlaying() { return musicPlayer_->isPlaying(); }
void CWindow::setMusicVolume(int volume) { musicPlayer_->setVolume(volume); }
int CWindow::getMusicVolume() { return musicPlayer_->getVolume(); }
void CWindow::setMusicPan(int pan) { musicPlayer_->setPan(pan); }
void CWindow::setMusicFreq(int hertz) { musicPlayer_->setFrequency(hertz); }

void CWindow::OnCreate() { timer_.add(kOwnTimer, 1, this); }

void CWindow::OnActivateApp(bool on) {
    if (active_ == on) return;
    active_ = on;
    if (on && canvas_) canvas_->onFocusOn();
    if (on) CMC_Mouse::restore();
    if (pollThread_) pollThread_->suspend(!on);
    if (!on && canvas_) canvas_->onFocusOff();
    if (on) return;
    CMC_Mouse::reset(false);
    windowDragged_ = false;
}

void CWindow::OnDestroy() { pollThread_.reset(); }

bool CWindow::OnExit() { return !application_ || application_->OnExit(); }

void CWindow::SetTimer(int id, unsigned period, CUnit6 * unit, bool onlyWhenActive) {
    if (unit)
        timer_.add(id, period, unit, onlyWhenActive);
    else
        timer_.add(id, period, this);
}

// ----------------------------------------------------------------------------------------------- the screen

int CWindow::CreateSurface(HWND) { return open(std::make_unique<CSurface>(size_)); }

int CWindow::SetDisplayMode(int width, int height, int bpp) {
    CXSize size(width ? width : size_.cx, height ? height : size_.cy);
    canvas_.reset();
    return open(std::make_unique<CSurface>(size, bpp, commandLine_->isPageFlippingEnabled()));
}

int CWindow::open(std::unique_ptr<CSurface> surface) {
    int error = surface->LastError();
    if (error) return error;
    size_ = surface->getSize();
    surface_ = std::move(surface);
    ddSurface_ = std::make_unique<CDirectDrawSurface>(this, size_, surface_->getDepth());
    canvas_ = std::make_unique<CRefreshScreen>(this, false);
    return 0;
}

void CWindow::Redraw() {
    if (!canvas_ || !active_) return;
    bool again = false;
    if (canvas_->Redraw(ddSurface_.get(), surface_.get(), &again)) {
        CRefreshRegion & region = canvas_->getRegion();
        if (surface_->IsFlippingEnabled() || region.isWhole())
            surface_->Flip(ddSurface_.get());
        else
            for (CXRect rect : region.rects()) surface_->Blt(ddSurface_.get(), rect.left, rect.top, &rect);
        region.removeAll();
    }
    if (showsFps_ && surface_) surface_->ShowFPS(CXPoint(0, 0), ddSurface_.get());
    if (again) canvas_->Invalidate();
}

char * CWindow::GetScreenPtr() { return ddSurface_ ? ddSurface_->GetDataPtr() : nullptr; }

int CWindow::GetBpp() { return surface_ ? surface_->getDepth() : 16; }

void CWindow::Invalidate(CXRect * rect) {
    if (canvas_) canvas_->Invalidate(rect);
}

void CWindow::SetBackground(CGraphicsObject * picture) {
    if (canvas_) canvas_->SetBackground(picture);
}

void CWindow::SetBackground(CColor * colour) {
    if (canvas_) canvas_->SetBackground(colour);
}

void CWindow::SetBackground(const CXString & file) {
    if (canvas_) canvas_->SetBackground(file);
}

// ------------------------------------------------------------------------------------------------ cursors

void CWindow::SetCursor(HCURSOR cursor) {
    if (!cursorLock_) showCursorImage(cursor);
}

void CWindow::BeginActiveCursor() {
    if (activeCursor_ && !activeCursorLocked_) SetCursor(activeCursor_);
}

void CWindow::BeginWaitCursor() {
    if (waitCursor_) SetCursor(waitCursor_);
}

void CWindow::lockActiveCursor(bool on) {
    EndWaitCursor();
    activeCursorLocked_ = on;
}

void CWindow::enableMouse(bool on) {
    mouseEnabled_ = on;
    if (on)
        EndWaitCursor();
    else
        BeginWaitCursor();
}

void CWindow::startDraggingWindow(CXPoint point) {
    windowDragged_ = true;
    catchPoint_ = point;
}

// ------------------------------------------------------------------------------------------------ listeners

void CWindow::registerKeyListener(CKeyListener * listener) { keyListeners_.add(listener); }

void CWindow::removeKeyListener(CKeyListener * listener) { keyListeners_.remove(listener); }

void CWindow::registerMouseListener(CMouseListener * listener, int priority) {
    for (CXObject * each : mouseListeners_)
        if (static_cast<MouseEntry *>(each)->listener == listener) return;
    mouseListeners_.add(new MouseEntry(listener, priority));
}

void CWindow::removeMouseListener(CMouseListener * listener) {
    for (int i = 0; i < mouseListeners_.size; i++) {
        auto * entry = static_cast<MouseEntry *>(mouseListeners_.at(i));
        if (entry->listener != listener) continue;
        mouseListeners_.removeAt(i);
        delete entry;
        return;
    }
}

void CWindow::setMouseCaption(CMouseListener * listener) {
    if (mouseListeners_.size == 0) return;
    CMouseListener * top = static_cast<MouseEntry *>(mouseListeners_.at(mouseListeners_.size - 1))->listener;
    if (top == listener) return;
    top->onLooseFocus();
    removeMouseListener(listener);
    listener->onLooseFocus();
    registerMouseListener(listener, kCapturePriority);
}

void CWindow::registerMCListener(CMC_Object * object) { mcListeners_.add(object); }

void CWindow::removeMCListener(CMC_Object * object) { mcListeners_.remove(object); }

void CWindow::addIPoller(CInputPoller * poller) {
    std::lock_guard hold(pollLock_);
    if (!pollers_.contains(poller)) pollers_.add(poller);
}

void CWindow::removeIPoller(CInputPoller * poller) {
    std::lock_guard hold(pollLock_);
    pollers_.remove(poller);
}

void CWindow::removeAllIPollers() {
    std::lock_guard hold(pollLock_);
    pollers_.removeAll();
}

// ------------------------------------------------------------------------------------------------ input

// Hot spots go before listeners.
int CWindow::hotSpots(int event, CXPoint point) {
    life::Guard guard;
    return CHotSpot::OnMouseEvent(static_cast<CHotSpot::_event>(event), point, 0);
}

// From the highest priority down, to those that are still registered; a true answer ends the walk.
template <class Tell>
bool CWindow::tellMouse(Tell && tell) {
    life::Guard guard;
    std::vector<CMouseListener *> listeners;
    for (int i = mouseListeners_.size; i-- > 0;)
        listeners.push_back(static_cast<MouseEntry *>(mouseListeners_.at(i))->listener);
    for (CMouseListener * each : listeners) {
        bool there = std::ranges::any_of(mouseListeners_, [each](CXObject * entry) {
            return static_cast<MouseEntry *>(entry)->listener == each;
        });
        if (there && tell(*each)) return true;
    }
    return false;
}

int CWindow::OnMouseMove(CXPoint point, int flags) {
    if (!hears(flags)) return 0;
    int result = hotSpots(CHotSpot::kMove, point);
    if (result == 0 && tellMouse([&](CMouseListener & l) { return l.onMouseMove(point); })) return 1;
    return result;
}

int CWindow::OnLButtonDown(CXPoint point, int flags) {
    if (!hears(flags)) return 0;
    int result = hotSpots(CHotSpot::kLeftDown, point);
    if (result == 0)
        tellMouse([&](CMouseListener & l) { return l.onClick(point) || l.onClick(kLeft, point); });
    return result;
}

int CWindow::OnLButtonUp(CXPoint point, int flags) {
    if (!hears(flags)) return 0;
    int result = hotSpots(CHotSpot::kLeftUp, point);
    // Always, so that a drag ends even on a hot spot.
    tellMouse([&](CMouseListener & l) { return l.onRelease(point) || l.onRelease(kLeft, point); });
    return result;
}

int CWindow::OnLButtonDblClk(CXPoint point, int) {
    if (!mouseEnabled_) return 0;
    int result = hotSpots(CHotSpot::kLeftDouble, point);
    tellMouse([&](CMouseListener & l) { return l.onDblClick(point); });
    return result;
}

int CWindow::OnMButtonDown(CXPoint point, int flags) {
    if (!hears(flags)) return 0;
    int result = hotSpots(CHotSpot::kMiddleDown, point);
    tellMouse([&](CMouseListener & l) { return l.onClick(kMiddle, point); });
    return result;
}

int CWindow::OnMButtonUp(CXPoint point, int flags) {
    if (!hears(flags)) return 0;
    int result = hotSpots(CHotSpot::kMiddleUp, point);
    tellMouse([&](CMouseListener & l) { return l.onRelease(kMiddle, point); });
    return result;
}

int CWindow::OnRButtonDown(CXPoint point, int flags) {
    if (!hears(flags)) return 0;
    int result = hotSpots(CHotSpot::kRightDown, point);
    tellMouse([&](CMouseListener & l) { return l.onClick(kRight, point); });
    return result;
}

int CWindow::OnRButtonUp(CXPoint point, int flags) {
    if (!hears(flags)) return 0;
    int result = hotSpots(CHotSpot::kRightUp, point);
    tellMouse([&](CMouseListener & l) { return l.onRelease(kRight, point); });
    return result;
}

template <class Tell>
void CWindow::tellKeys(Tell && tell) {
    life::Guard guard;
    std::vector<void *> listeners(keyListeners_.begin(), keyListeners_.end());
    for (void * each : listeners)
        if (keyListeners_.contains(each)) tell(*static_cast<CKeyListener *>(each));
}

void CWindow::OnKeyDown(int key, int flags) {
    if (!application_) return;
    application_->OnKeyDown(key, flags);
    tellKeys([&](CKeyListener & l) { l.onKeyDown(key); });
}

void CWindow::OnKeyUp(int key, int) {
    tellKeys([&](CKeyListener & l) { l.onKeyUp(key); });
}

void CWindow::OnChar(int code, int) {
    tellKeys([&](CKeyListener & l) { l.onChar(static_cast<unsigned char>(code)); });
}

void CWindow::onLanguageChanged() { keyboard_->initLanguage(); }

int CWindow::__get_virtualkey_code(int code, int data) {
    constexpr int kData16 = 0x1D0001, kData17 = 0x2A0001;
    switch (code) {
    case 13: return -50;
    case 16: return data == kData16 ? -45 : -46;
    case 17: return data == kData17 ? -48 : -49;
    case 32: return -39;
    case 33: return -52;
    case 34: return -51;
    case 35: return -53;
    case 36: return -54;
    case 37: return -43;
    case 38: return -41;
    case 39: return -42;
    case 40: return -40;
    case 45: return -56;
    case 46: return -55;
    default: return code;
    }
}

char CWindow::tranlateToChar(int index) {
    constexpr std::string_view kCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 ";
    return index >= 0 && static_cast<std::size_t>(index) < kCharacters.size()
               ? kCharacters[static_cast<std::size_t>(index)]
               : '\0';
}

// ------------------------------------------------------------------------------------------------ errors

void CWindow::ShowError(const CXString & title) {
    if (LastError() == 0) return;
    const char * text = kUnknownError;
    for (const auto & each : kErrors)
        if (each.code == LastError()) text = each.text;
    platform::world().dialogs->messageBox(std::string(title.view()), text);
}

void CWindow::QuitOnError(CXObject * object, const CXString & file, const CXString & title) {
    if (object->LastError() != CFile::kNotFound) return;
    CXString text = "Wyst\xB9pi\xB3 b\xB3\xB9"
                    "d krytyczny, plik: " +
                    file + " nie zosta\xB3 odnaleziony.";
    platform::world().dialogs->messageBox(std::string(title.view()), std::string(text.view()));
}
