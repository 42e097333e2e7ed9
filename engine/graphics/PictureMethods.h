#pragma once

// Script methods that ANIMO and IMAGE share; each works on what the object shows. The two runners list them
// in tables of their own.

#include "script/CMC_Runner.h"

class CGraphicsObject;

namespace picture {

// What the method's object shows; null when there is nothing. What a parameter names: "NAME" or "NAME!FRAME".
CGraphicsObject * shown(const Call & call);
CGraphicsObject * named(const Call & call, int i);

CMC_Variable * setPosition(Call & call);
CMC_Variable * move(Call & call);
CMC_Variable * clearClipping(Call & call);
CMC_Variable * setClipping(Call & call);
CMC_Variable * getPositionX(Call & call);
CMC_Variable * getPositionY(Call & call);
CMC_Variable * getWidth(Call & call);
CMC_Variable * getHeight(Call & call);
CMC_Variable * isNear(Call & call);
CMC_Variable * isInside(Call & call);
CMC_Variable * setPriority(Call & call);
CMC_Variable * getPriority(Call & call);
CMC_Variable * mergeAlpha(Call & call);
CMC_Variable * invalidate(Call & call);
CMC_Variable * getCenterX(Call & call);
CMC_Variable * getCenterY(Call & call);
CMC_Variable * setOpacity(Call & call);
CMC_Variable * getOpacity(Call & call);
CMC_Variable * setAnchor(Call & call);
CMC_Variable * flipH(Call & call);
CMC_Variable * flipV(Call & call);
CMC_Variable * resetFlips(Call & call);
CMC_Variable * drawOnto(Call & call);
CMC_Variable * isAt(Call & call);

// A colour of three channels from a parameter on, as a word of the display's depth.
short wordAt(const Call & call, int i, int depth);

} // namespace picture
