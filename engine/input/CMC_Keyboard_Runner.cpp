#include "input/CMC_Keyboard_Runner.h"

#include "input/CKeyboard.h"
#include "input/CMC_Keyboard.h"
#include "script/CMC_Array.h"
#include "script/CMC_String.h"

namespace {

CMC_Keyboard & keyboard(const Call & call) { return *call.self<CMC_Keyboard>(); }

template <bool On>
CMC_Variable * enable(Call & call) {
    keyboard(call).enable(On);
    return nullptr;
}

CMC_Variable * isEnabled(Call & call) { return result(keyboard(call).isEnabled()); }

CMC_Variable * setAutoRepeat(Call & call) {
    if (CKeyboard * device = keyboard(call).getKeyboard()) device->setAutoRepeat(call.boolean(0));
    return nullptr;
}

CMC_Variable * isKeyDown(Call & call) {
    CKeyboard * device = keyboard(call).getKeyboard();
    return result(device && device->isKeyPressed(call.text(0)));
}

CMC_Variable * getLatestKey(Call & call) { return result(keyboard(call).getLatestKeys(1)); }

// An array takes the place of the count: the characters become its items.
CMC_Variable * getLatestKeys(Call & call) {
    if (auto * array = call.named<CMC_Array>(0, types::kArray)) {
        const CXString all = keyboard(call).getLatestKeys(CMC_Keyboard::kLatestKeys);
        life::Alive alive(array);
        array->removeAll();
        for (char each : all.view()) {
            CXString letter;
            letter += each;
            CMC_String item(letter, "temp");
            if (alive) array->add(&item);
        }
        return result(all);
    }
    return result(keyboard(call).getLatestKeys(call.integer(0, CMC_Keyboard::kLatestKeys)));
}

constexpr MethodRow kRows[] = {
    {1, "ENABLE", "", 0, enable<true>},
    {2, "DISABLE", "", 0, enable<false>},
    {3, "ISENABLED", "", 0, isEnabled},
    {4, "SETAUTOREPEAT", "on", 1, setAutoRepeat},
    {5, "ISKEYDOWN", "key name", 1, isKeyDown},
    {6, "GETLATESTKEY", "", 0, getLatestKey},
    {7, "GETLATESTKEYS", "count = all | array name", 0, getLatestKeys},
};

} // namespace

CMC_Keyboard_Runner::CMC_Keyboard_Runner() : CMC_Runner(kRows) {}
