#include "graphics/CAnimo6.h"

#include "graphics/CFrame.h"
#include "graphics/CImageFile.h"
#include "script/CMElement.h"
#include "script/CMElementCreator.h"

#include <algorithm>

namespace {

CPlayable * playable(CWindow * window, CMElement * element) {
    auto * animo = new CAnimo6(window, element->getPropertyValue("FILENAME"));
    animo->Visible(element->getPropertyBoolValue("VISIBLE"));
    return animo;
}

CXObject * object(CWindow * window, CMElement * element) {
    return static_cast<CGraphicsObject *>(static_cast<CAnimo6 *>(playable(window, element)));
}

CGraphicsObject * loaded(CWindow * window, const CXString & name) { return new CAnimo(window, name); }

[[maybe_unused]] const bool added =
    (CMElementCreator::addObject("ANIMO", object), CMElementCreator::addPlayable("ANIMO", playable),
     CImageFile::animationLoader = loaded, true);

} // namespace

CAnimo6::CAnimo6(CWindow * window, CMElement * element) : CAnimo(window) {
    bool releaseAfterUse = element->getPropertyBoolValue("RELEASEAFTERUSE");
    setFilename(element->getPropertyValue("FILENAME"));
    if (!getFileName().IsString()) return;
    loadAtStart_ = !element->isPropertyAvailable("PRELOAD") || element->getPropertyBoolValue("PRELOAD");
    if (loadAtStart_) Load(getFileName());
    if (element->getPropertyBoolValue("VISIBLE"))
        show();
    else
        hide();
    toRelease(releaseAfterUse); // last, so that the hiding above releases nothing
}

int CAnimo6::GetMaxWidth() const {
    int most = 0;
    for (const auto & frame : frames_) most = std::max(most, frame->getWidth());
    return most;
}

int CAnimo6::GetMaxHeight() const {
    int most = 0;
    for (const auto & frame : frames_) most = std::max(most, frame->getHeight());
    return most;
}

bool CAnimo6::isPlaying(const char * eventName) {
    return CAnimo::isPlaying() && getCurrentEventName().equalsIgnoreCase(eventName);
}
