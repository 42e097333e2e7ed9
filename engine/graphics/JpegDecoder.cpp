#include "graphics/JpegDecoder.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstring>

#include <jpeglib.h>

#include <jerror.h>

namespace {

constexpr long kMostMemory = 1L << 29;   // bytes that the library may take for one picture
constexpr long long kPixelsAByte = 4096; // more can't be told by a byte of a stream

} // namespace

// No part of these has a destructor that a jump could leave out.
struct JpegDecoder::Library {
    jpeg_decompress_struct info;
    jpeg_error_mgr errors;
    jpeg_source_mgr source;
    std::jmp_buf back;
    char * text; // the decoder's
};

JpegDecoder::JpegDecoder(const void * bytes, std::size_t size) : library_(new Library()), error_("") {
    static_assert(sizeof error_ >= JMSG_LENGTH_MAX);
    Library & library = *library_;
    library.text = error_;
    jpeg_decompress_struct & info = library.info;
    info.err = jpeg_std_error(&library.errors);
    info.client_data = &library;
    library.errors.error_exit = [](j_common_ptr common) {
        auto * failed = static_cast<Library *>(common->client_data);
        common->err->format_message(common, failed->text);
        std::longjmp(failed->back, 1);
    };
    library.errors.output_message = [](j_common_ptr) {};
    library.errors.emit_message = [](j_common_ptr common, int level) {
        if (level >= 0) return;
        switch (common->err->msg_code) {
        case JWRN_JPEG_EOF:
        case JWRN_HIT_MARKER:
        case JWRN_HUFF_BAD_CODE:
        case JWRN_ARITH_BAD_CODE:
        case JWRN_MUST_RESYNC: common->err->error_exit(common);
        default: break;
        }
    };
    if (setjmp(library.back)) return;
    jpeg_create_decompress(&info);
    info.mem->max_memory_to_use = kMostMemory;

    library.source.next_input_byte = static_cast<const JOCTET *>(bytes);
    library.source.bytes_in_buffer = size;
    library.source.init_source = [](j_decompress_ptr) {};
    // Some files lack their last marker only. One that ends earlier is found out by meeting it too soon.
    library.source.fill_input_buffer = [](j_decompress_ptr at) -> boolean {
        static const JOCTET end[2] = {0xFF, JPEG_EOI};
        at->src->next_input_byte = end;
        at->src->bytes_in_buffer = sizeof end;
        return TRUE;
    };
    library.source.skip_input_data = [](j_decompress_ptr at, long bytes) {
        if (bytes <= 0) return;
        jpeg_source_mgr & source = *at->src;
        std::size_t skipped = std::min(static_cast<std::size_t>(bytes), source.bytes_in_buffer);
        source.next_input_byte += skipped;
        source.bytes_in_buffer -= skipped;
    };
    library.source.resync_to_restart = jpeg_resync_to_restart;
    library.source.term_source = [](j_decompress_ptr) {};
    info.src = &library.source;

    jpeg_read_header(&info, TRUE);
    long long pixels = static_cast<long long>(info.image_width) * info.image_height;
    if (pixels > kMostPixels || pixels / kPixelsAByte > static_cast<long long>(size)) {
        std::snprintf(error_, sizeof error_, "%u x %u pixels are more than it can hold", info.image_width,
                      info.image_height);
        return;
    }
    // Grey pictures come out in colours too; those for print can't.
    info.out_color_space = JCS_RGB;
    jpeg_start_decompress(&info);
    width_ = static_cast<int>(info.output_width);
    height_ = static_cast<int>(info.output_height);
    ready_ = info.output_components == 3;
}

JpegDecoder::~JpegDecoder() {
    jpeg_destroy_decompress(&library_->info);
    delete library_;
}

bool JpegDecoder::readRow(unsigned char * to) {
    if (setjmp(library_->back)) return false;
    JSAMPROW row = to;
    return jpeg_read_scanlines(&library_->info, &row, 1) == 1;
}

bool JpegDecoder::finish() {
    if (setjmp(library_->back)) return false;
    return jpeg_finish_decompress(&library_->info);
}
