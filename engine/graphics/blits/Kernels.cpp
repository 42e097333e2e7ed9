#include "graphics/blits/Kernels.h"

namespace blits {

#ifdef TARNOOK_VECTORS
extern const Kernels kVectors;
#endif
#ifdef TARNOOK_AVX2
extern const Kernels kAvx2;
#endif

namespace {

const Kernels * chosen = nullptr;

}

std::vector<const Kernels *> all() {
    std::vector<const Kernels *> list{&kPlain};
#ifdef TARNOOK_VECTORS
    list.push_back(&kVectors);
#endif
#ifdef TARNOOK_AVX2
    if (__builtin_cpu_supports("avx2")) list.push_back(&kAvx2);
#endif
    return list;
}

const Kernels & inUse() {
    if (!chosen) chosen = all().back();
    return *chosen;
}

void use(const Kernels * kernels) { chosen = kernels; }

} // namespace blits
