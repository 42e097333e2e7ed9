#include "platform/files/MachineFile.h"

#include <fcntl.h>

namespace platform {

bool OpenMode::creates() const { return (flags & O_CREAT) != 0; }

std::optional<OpenMode> OpenMode::parse(const char * mode) {
    if (!mode || !*mode) return std::nullopt;
    bool update = false, binary = false;
    for (const char * c = mode + 1; *c; c++) {
        switch (*c) {
        case '+': update = true; break;
        case 'b': binary = true; break;
        case 't': break;
        default: return std::nullopt;
        }
    }
    OpenMode result;
    result.text = !binary;
    switch (*mode) {
    case 'r':
        result.flags = update ? O_RDWR : O_RDONLY;
        result.stream = update ? "r+b" : "rb";
        break;
    case 'w':
        result.flags = (update ? O_RDWR : O_WRONLY) | O_CREAT | O_TRUNC;
        result.stream = update ? "w+b" : "wb";
        break;
    case 'a':
        result.flags = (update ? O_RDWR : O_WRONLY) | O_CREAT | O_APPEND;
        result.stream = update ? "a+b" : "ab";
        break;
    default: return std::nullopt;
    }
    return result;
}

// One character as a text reader sees it. The look behind a carriage return may cross the stream's buffer.
int MachineFile::character() {
    int c = getc_unlocked(stream_);
    if (c != '\r') return c;
    int next = getc_unlocked(stream_);
    if (next == '\n') return next;
    if (next != EOF) std::ungetc(next, stream_);
    return c;
}

std::size_t MachineFile::read(void * to, std::size_t bytes) {
    if (!text_) return std::fread(to, 1, bytes, stream_);
    auto * out = static_cast<unsigned char *>(to);
    std::size_t count = 0;
    for (; count < bytes; count++) {
        int c = character();
        if (c == EOF) break;
        out[count] = static_cast<unsigned char>(c);
    }
    return count;
}

std::size_t MachineFile::write(const void * from, std::size_t bytes) {
    return std::fwrite(from, 1, bytes, stream_);
}

int MachineFile::seek(std::int64_t offset, int whence) {
    constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    if (whence < 0 || whence > 2) return -1;
    return fseeko(stream_, offset, kWhence[whence]);
}

std::int64_t MachineFile::tell() { return ftello(stream_); }

int MachineFile::flush() { return std::fflush(stream_); }

bool MachineFile::eof() { return std::feof(stream_) != 0; }

bool MachineFile::gets(char * to, int size) {
    if (size < 1) return false;
    int count = 0;
    while (count < size - 1) {
        int c = text_ ? character() : getc_unlocked(stream_);
        if (c == EOF) break;
        to[count++] = static_cast<char>(c);
        if (c == '\n') break;
    }
    if (count == 0) return false;
    to[count] = 0;
    return true;
}

} // namespace platform
