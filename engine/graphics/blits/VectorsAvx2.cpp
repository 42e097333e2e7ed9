// Compiled with AVX2, and called only where it is found.

#ifdef TARNOOK_AVX2
#define KERNELS kAvx2
#define KERNELS_NAME "AVX2"
#include "graphics/blits/Vectors.inl"
#endif
