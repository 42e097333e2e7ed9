#pragma once

// BUTTON: a button that tells scripts of the pointer. Owned by its scope. Main thread.

#include "input/CButton.h"
#include "input/CControlNotifier.h"
#include "script/CMC_Object.h"

#include <array>
#include <memory>

class CPlayable;

class CMC_Button : public CMC_Object, public CControlNotifier {
public:
    static const char * const kSignals[12];
    static const char * const kKeys[12];
    enum Signal {
        kOnFocusOn = 3,
        kOnFocusOff,
        kOnPaused, // nothing raises it
        kOnClicked,
        kOnReleased,
        kOnAction,
        kOnStartDragging,
        kOnDragging,
        kOnEndDragging
    };

    CMC_Button(CMC_ObjectsContainer * scope, CMElement * element);
    CMC_Button(CMC_ObjectsContainer * scope, const CXString & name); // no region, pictures or sounds
    ~CMC_Button() override;

    bool done(bool all) override;
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;
    CMC_Object * clone() override; // over the same region and pictures

    void onControlFocusOn(CControl * control, CXPoint point) override;
    void onControlFocusOff(CControl * control, CXPoint point) override;
    void onControlClicked(CControl * control, CXPoint point) override;
    void onControlReleased(CControl * control, CXPoint point) override;
    void onControlAction(CControl * control, CXPoint point) override;
    void onStartDragging(CControl * control, CXPoint point) override;
    void onDragging(CControl * control, CXPoint point) override;
    void onEndDragging(CControl * control, CXPoint point) override;

    CButton * getButton() const { return control_.get(); } // never null
    // A picture by its name; no name takes the picture away, an unknown one changes nothing.
    void setPicture(CButton::Picture which, const CXString & name);
    CXString getPicture(CButton::Picture which) const; // its name, empty without one
    bool setRegion(const CXString & name);             // a picture's; false for an unknown name
    void accent(const CXString & name, bool on);
    // The sound by what the definition names, if it is there now; else null.
    CPlayable * getSound(CButton::_soundtype which);

private:
    explicit CMC_Button(const CMC_Button & source);
    void own();
    void createButton(CMElement * element);
    void raise(int signal);

    std::unique_ptr<CButton> control_;
    std::array<CXString, CButton::kPictures> pictures_; // names
    std::array<CXString, 3> sounds_;                    // names, by _soundtype
};
