#include "graphics/CSurface.h"

std::uint32_t * CSurface::bpp_cnv_table = nullptr;

void CSurface::prepareBppConversionTable(int depth) {
    if (depth < 24 || bpp_cnv_table) return;
    bpp_cnv_table = new std::uint32_t[0x10000];
    for (std::uint32_t v = 0; v < 0x10000; v++)
        bpp_cnv_table[v] = (v & 0xF800) << 8 | (v & 0x07E0) << 5 | (v & 0x001F) << 3;
}

void CSurface::releaseBppConversionTable() {
    delete[] bpp_cnv_table;
    bpp_cnv_table = nullptr;
}
