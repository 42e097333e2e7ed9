#include "script/TypeTable.h"

#include "graphics/CAnimo6.h"
#include "graphics/CFrame.h"
#include "graphics/CImage.h"
#include "graphics/CMC_Animo.h"
#include "graphics/CMC_Image.h"
#include "input/CMC_Button.h"
#include "input/CMC_Joystick.h"
#include "input/CMC_Keyboard.h"
#include "input/CMC_Mouse.h"
#include "script/CMC_Array.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_Bool.h"
#include "script/CMC_ComplexCondition.h"
#include "script/CMC_Condition.h"
#include "script/CMC_Double.h"
#include "script/CMC_Expression.h"
#include "script/CMC_Groupped.h"
#include "script/CMC_Integer.h"
#include "script/CMC_MultiArray.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_Quene.h"
#include "script/CMC_String.h"
#include "script/CMC_Timer.h"
#include "script/CMC_Vector.h"
#include "script/CMElement.h"
#include "sound/CMC_Sound.h"
#include "sound/CSound4.h"

#include <algorithm>

namespace typetable {

namespace {

template <class Type>
CMC_Object * make(CMC_ObjectsContainer * scope, CMElement * element) {
    return new Type(scope, element);
}

template <class Type>
CMC_Object * create(CMC_ObjectsContainer * scope, const CXString & name) {
    return new Type(scope, name);
}

// One that a script asks for is on the screen, where a LOAD is to show it.
template <class Type>
CMC_Object * createPicture(CMC_ObjectsContainer * scope, const CXString & name) {
    CMElement element(name);
    element.addProperty("TOCANVAS", "TRUE");
    return new Type(scope, &element);
}

template <class Type>
constexpr TypeRow row(std::string_view word, int id, int pass) {
    return {word, id, pass, make<Type>, Type::kKeys, Type::kSignals};
}

CGraphicsObject * pictureOf(CMC_Object * object, const CXString &) {
    return static_cast<CMC_Image *>(object)->getImage();
}

CGraphicsObject * animationOf(CMC_Object * object, const CXString & frame) {
    CAnimo6 * animo = static_cast<CMC_Animo *>(object)->getAnimo();
    if (!frame.IsString()) return animo;
    return animo->getFrame(frame);
}

CPlayable * soundOf(CMC_Object * object) { return static_cast<CMC_Sound *>(object)->getSound(); }

// The order of objects in a scope follows from the passes: what later constructors look up comes first.
const TypeRow kRows[] = {
    row<CMC_Behaviour>("BEHAVIOUR", types::kBehaviour, 1),
    row<CMC_Bool>("BOOL", types::kBool, 2),
    row<CMC_Double>("DOUBLE", types::kDouble, 2),
    row<CMC_Integer>("INTEGER", types::kInteger, 2),
    row<CMC_String>("STRING", types::kString, 2),
    row<CMC_Condition>("CONDITION", types::kCondition, 3),
    row<CMC_ComplexCondition>("COMPLEXCONDITION", types::kComplexCondition, 3),
    row<CMC_Expression>("EXPRESSION", types::kExpression, 3),
    row<CMC_Array>("ARRAY", types::kArray, 3),
    row<CMC_MultiArray>("MULTIARRAY", types::kMultiArray, 3),
    {"IMAGE", types::kImage, 5, make<CMC_Image>, CMC_Image::kKeys, CMC_Image::kSignals, nullptr, pictureOf,
     nullptr, createPicture<CMC_Image>},
    {"ANIMO", types::kAnimo, 5, make<CMC_Animo>, CMC_Animo::kKeys, CMC_Animo::kSignals, nullptr, animationOf,
     nullptr, createPicture<CMC_Animo>},
    {"SOUND", types::kSound, 5, make<CMC_Sound>, CMC_Sound::kKeys, CMC_Sound::kSignals, nullptr, nullptr,
     soundOf, create<CMC_Sound>},
    row<CMC_Vector>("VECTOR", types::kVector, 5),
    {"MOUSE", types::kMouse, 6, make<CMC_Mouse>, CMC_Mouse::kKeys, CMC_Mouse::kSignals,
     CMC_Mouse::mergesWith},
    {"KEYBOARD", types::kKeyboard, 6, make<CMC_Keyboard>, CMC_Keyboard::kKeys, CMC_Keyboard::kSignals,
     CMC_Keyboard::mergesWith},
    row<CMC_Joystick>("JOYSTICK", types::kJoystick, 6),
    row<CMC_Timer>("TIMER", types::kTimer, 6),
    {"BUTTON", types::kButton, 6, make<CMC_Button>, CMC_Button::kKeys, CMC_Button::kSignals, nullptr, nullptr,
     nullptr, create<CMC_Button>},
    row<CMC_Groupped>("GROUP", types::kGroup, 6),
    row<CMC_Fifo>("FIFO", types::kFifo, 6),
    row<CMC_Lifo>("LIFO", types::kLifo, 6),
};

} // namespace

const TypeRow * find(std::string_view word) {
    const TypeRow * hit = std::ranges::find(kRows, word, &TypeRow::word);
    return hit == std::end(kRows) ? nullptr : hit;
}

const TypeRow * find(int id) {
    const TypeRow * hit = std::ranges::find(kRows, id, &TypeRow::id);
    return hit == std::end(kRows) ? nullptr : hit;
}

std::span<const TypeRow> rows() { return kRows; }

} // namespace typetable
