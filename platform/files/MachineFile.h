#pragma once

// An open file of the machine. In text mode a read turns CR LF into LF.

#include "platform/files/FileSystem.h"

#include <cstdio>

namespace platform {

class MachineFile : public File {
public:
    // Takes over the stream, opened in binary form.
    MachineFile(std::FILE * stream, bool text) : stream_(stream), text_(text) {}
    ~MachineFile() override { std::fclose(stream_); }
    MachineFile(const MachineFile &) = delete;
    MachineFile & operator=(const MachineFile &) = delete;

    std::size_t read(void * to, std::size_t bytes) override;
    std::size_t write(const void * from, std::size_t bytes) override;
    int seek(std::int64_t offset, int whence) override;
    std::int64_t tell() override;
    int flush() override { return std::fflush(stream_); }
    bool eof() override { return std::feof(stream_) != 0; }
    bool gets(char * to, int size) override;

private:
    enum class Last { none, read, write };
    void turn(Last now);

    std::FILE * stream_; // owned
    bool text_;
    Last last_ = Last::none; // the stream wants a seek between reading and writing
};

} // namespace platform
