#include "script/CMC_Rand_Runner.h"

#include "core/CXRandom.h"
#include "script/CMC_Array.h"
#include "script/Notes.h"

#include <string>
#include <vector>

namespace {

CMC_Variable * get(Call & call) {
    if (call.count() > 1) return result(CXRandom::random(call.integer(0), call.integer(1)));
    return result(CXRandom::random(call.integer(0)));
}

CMC_Variable * getPlenty(Call & call) {
    life::Handle array(call.named<CMC_Array>(0, types::kArray));
    if (!array.get())
        notes::add(notes::Kind::unknownObject, std::string(call.text(0).view()) + " names no array");
    // The array tells of each item, and what runs then may draw again or remove the array.
    auto drawn = CXRandom::random_vector(call.integer(1), call.integer(2), call.integer(3), call.boolean(4));
    if (drawn.empty())
        notes::add(notes::Kind::other, "no such series of numbers: " + std::to_string(call.integer(3)) +
                                           " out of " + std::to_string(call.integer(2)));
    const std::vector<int> values(drawn.begin(), drawn.end());
    life::Guard guard;
    for (int value : values) {
        CMC_Integer item("temp");
        item.put(value);
        if (CMC_Object * alive = array.get()) static_cast<CMC_Array *>(alive)->add(&item);
    }
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "GET", "n, or from, n", 1, get},
    {2, "GETPLENTY", "array name, from, n, count (0: n - from), unique", 5, getPlenty},
};

} // namespace

CMC_Rand_Runner::CMC_Rand_Runner() : CMC_Runner(kRows) {}
