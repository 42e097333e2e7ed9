#include "input/CMC_Button.h"

#include "app/CMC_Scene.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "graphics/CRefreshScreen.h"
#include "input/CHotSpot.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"
#include "script/TypeTable.h"

const char * const CMC_Button::kSignals[12] = {
    "ONINIT",    "ONDONE",     "ONSIGNAL", "ONFOCUSON",       "ONFOCUSOFF", "ONPAUSED",
    "ONCLICKED", "ONRELEASED", "ONACTION", "ONSTARTDRAGGING", "ONDRAGGING", "ONENDDRAGGING"};
const char * const CMC_Button::kKeys[12] = {"ACCENT",      "GFXSTANDARD", "GFXONMOVE",  "GFXONCLICK",
                                            "SNDSTANDARD", "SNDONMOVE",   "SNDONCLICK", "DRAG",
                                            "RECT",        "ENABLE",      "DRAGGABLE",  "PRIORITY"};

CMC_Button::CMC_Button(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kButton),
      sounds_{element->getPropertyValue("SNDSTANDARD"), element->getPropertyValue("SNDONMOVE"),
              element->getPropertyValue("SNDONCLICK")} {
    createButton(element);
    initializeBehaviours(scope, element);
}

CMC_Button::CMC_Button(CMC_ObjectsContainer * scope, const CXString & name)
    : CMC_Object(name, types::kButton),
      control_(std::make_unique<CButton>(scope->getWindow(), CXRect(0), 0, CMC_Scene::getDefUnit())) {
    scene_ = scope;
    own();
    initializeBehaviours(scope, nullptr);
}

CMC_Button::CMC_Button(const CMC_Button & source)
    : CMC_Object(CXString(), types::kButton),
      control_(source.control_->clone()),
      pictures_(source.pictures_),
      sounds_(source.sounds_) {
    scene_ = source.scene_;
    own();
}

CMC_Button::~CMC_Button() = default;

void CMC_Button::own() {
    control_->addNotifier(this);
    control_->setMCButton(this);
    control_->setUnit(CMC_Scene::getDefUnit());
    control_->getHotSpot()->setUnit(CMC_Scene::getDefUnit());
}

void CMC_Button::createButton(CMElement * element) {
    const CXString rect = element->getPropertyValue("RECT");
    CMC_ObjectsContainer * scope = scene();
    CWindow * window = scope ? scope->getWindow() : nullptr;
    CGraphicsObject * region = scope ? scope->getGraphicsObject(rect) : nullptr;
    int priority = element->getPropertyIntValue("PRIORITY");
    if (region && window && window->getCanvas()) priority = window->getCanvas()->GetPriority(region);
    control_ = std::make_unique<CButton>(window, region ? CXRect(0) : rect.toRect(), priority, nullptr);
    own();
    if (region) control_->SetRegion(region);
    control_->EnableDragging(element->getPropertyBoolValue("DRAGGABLE"));
    if (const CXString drag = element->getPropertyValue("DRAG"); scope && drag.IsString())
        control_->SetDragging(scope->getGraphicsObject(drag));
    control_->Enable(element->getPropertyBoolValue("ENABLE"));
    if (const CXString name = element->getPropertyValue("ACCENT"); name.IsString()) {
        CGraphicsObject * picture = scope ? scope->getGraphicsObject(name) : nullptr;
        if (CUnit6 * unit = CMC_Scene::getDefUnit(); unit && picture) unit->setCursor(picture);
        accent(name, false); // until it is pressed
    }
    setPicture(CButton::kStandard, element->getPropertyValue("GFXSTANDARD"));
    setPicture(CButton::kOnMove, element->getPropertyValue("GFXONMOVE"));
    setPicture(CButton::kOnClick, element->getPropertyValue("GFXONCLICK"));
    control_->SYN();
}

CMC_Runner * CMC_Button::getRunner() { return CMC_RunnerFactory::getRunner(types::kButton); }

bool CMC_Button::done(bool all) {
    bool ended = CMC_Object::done(all);
    control_->Freeze(true); // the pictures end by themselves
    control_->Enable(false);
    return ended;
}

CMC_Object * CMC_Button::clone() { return new CMC_Button(*this); }

// ------------------------------------------------------------------------------------------------- pictures

void CMC_Button::setPicture(CButton::Picture which, const CXString & name) {
    CGraphicsObject * picture = name.IsString() && scene() ? scene()->getGraphicsObject(name) : nullptr;
    if (name.IsString() && !picture) return;
    pictures_[which] = name;
    switch (which) {
    case CButton::kStandard: control_->Set(picture); break;
    case CButton::kOnMove: control_->SetOnMove(picture); break;
    case CButton::kOnClick: control_->SetOnClick(picture); break;
    default: break;
    }
}

CXString CMC_Button::getPicture(CButton::Picture which) const {
    return control_->getPicture(which) ? pictures_[which] : CXString();
}

bool CMC_Button::setRegion(const CXString & name) {
    CGraphicsObject * picture = scene() ? scene()->getGraphicsObject(name) : nullptr;
    if (picture) control_->SetRegion(picture);
    return picture != nullptr;
}

void CMC_Button::accent(const CXString & name, bool on) {
    CGraphicsObject * picture = scene() ? scene()->getGraphicsObject(name) : nullptr;
    if (!picture) return;
    pictures_[CButton::kAccent] = name;
    control_->Accent(picture, on);
}

// By name each time: the sound may come later, and go before the button.
CPlayable * CMC_Button::getSound(CButton::_soundtype which) {
    const CXString & name = sounds_[which];
    CMC_Object * object = name.IsString() && scene() ? scene()->getObject(name) : nullptr;
    const TypeRow * row = object ? typetable::find(object->getType()) : nullptr;
    return row && row->sound ? row->sound(object) : nullptr;
}

// -------------------------------------------------------------------------------------------------- signals

void CMC_Button::raise(int signal) {
    if (isSignalBound(signal)) onSignal(kSignals[signal]);
}

void CMC_Button::onControlFocusOn(CControl *, CXPoint) { raise(kOnFocusOn); }
void CMC_Button::onControlFocusOff(CControl *, CXPoint) { raise(kOnFocusOff); }
void CMC_Button::onControlClicked(CControl *, CXPoint) { raise(kOnClicked); }
void CMC_Button::onControlReleased(CControl *, CXPoint) { raise(kOnReleased); }
void CMC_Button::onControlAction(CControl *, CXPoint) { raise(kOnAction); }
void CMC_Button::onStartDragging(CControl *, CXPoint) { raise(kOnStartDragging); }
void CMC_Button::onDragging(CControl *, CXPoint) { raise(kOnDragging); }

// The scene knows what was dropped as long as the signal runs.
void CMC_Button::onEndDragging(CControl *, CXPoint) {
    CUnit6 * unit = CMC_Scene::getDefUnit();
    CMC_Scene * scene = unit ? unit->getScene() : nullptr;
    if (scene) scene->setDraggedName(getName());
    life::Guard guard;
    raise(kOnEndDragging);
    if (scene) scene->setDraggedName("");
}
