#include "app/CMC_CNVLoader_Runner.h"

#include "app/CMC_CNVLoader.h"

namespace {

CMC_Variable * load(Call & call) {
    call.self<CMC_CNVLoader>()->load(call.text(0));
    return nullptr;
}

CMC_Variable * release(Call & call) {
    call.self<CMC_CNVLoader>()->release(call.text(0));
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "LOAD", "file name", 1, load},
    {2, "RELEASE", "file name", 1, release},
};

} // namespace

CMC_CNVLoader_Runner::CMC_CNVLoader_Runner() : CMC_Runner(kRows) {}
