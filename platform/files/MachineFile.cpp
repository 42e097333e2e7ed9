#include "platform/files/MachineFile.h"

#include <cstring>

namespace platform {

void MachineFile::turn(Last now) {
    if (last_ != Last::none && last_ != now) std::fseek(stream_, 0, SEEK_CUR);
    last_ = now;
}

std::size_t MachineFile::read(void * to, std::size_t bytes) {
    turn(Last::read);
    auto * out = static_cast<char *>(to);
    if (!text_) return std::fread(out, 1, bytes, stream_);
    std::size_t filled = 0;
    while (filled < bytes) {
        std::size_t got = std::fread(out + filled, 1, bytes - filled, stream_);
        if (got == 0) break;
        // A carriage return at the end of what came belongs to a line feed that is still in the file.
        char * from = out + filled;
        char * end = from + got;
        if (end[-1] == '\r') {
            int next = std::getc(stream_);
            if (next == '\n')
                end[-1] = '\n';
            else if (next != EOF)
                std::ungetc(next, stream_);
        }
        char * kept = from;
        for (char * c = from; c < end; c++) {
            if (*c == '\r' && c + 1 < end && c[1] == '\n') continue;
            *kept++ = *c;
        }
        filled = static_cast<std::size_t>(kept - out);
    }
    return filled;
}

std::size_t MachineFile::write(const void * from, std::size_t bytes) {
    turn(Last::write);
    return std::fwrite(from, 1, bytes, stream_);
}

int MachineFile::seek(std::int64_t offset, int whence) {
    last_ = Last::none;
    return fseeko(stream_, offset, whence);
}

std::int64_t MachineFile::tell() { return ftello(stream_); }

bool MachineFile::gets(char * to, int size) {
    turn(Last::read);
    if (size < 2) return false;
    int filled = 0;
    while (filled < size - 1) {
        int c = std::getc(stream_);
        if (c == EOF) break;
        if (c == '\r' && text_) {
            int next = std::getc(stream_);
            if (next == '\n')
                c = next;
            else if (next != EOF)
                std::ungetc(next, stream_);
        }
        to[filled++] = static_cast<char>(c);
        if (c == '\n') break;
    }
    to[filled] = 0;
    return filled > 0;
}

} // namespace platform
