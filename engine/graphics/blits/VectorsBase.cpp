// For whatever vectors every processor of the kind has.

#ifdef TARNOOK_VECTORS
#define KERNELS kVectors
#define KERNELS_NAME "vectors"
#include "graphics/blits/Vectors.inl"
#endif
