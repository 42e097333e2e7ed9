#pragma once

// A file of the machine behind the C library's stream.

#include "platform/files/FileSystem.h"

#include <cstdio>
#include <optional>

namespace platform {

// What a mode of open asks for.
struct OpenMode {
    int flags = 0;            // open(2)'s
    const char * stream = ""; // fdopen's, always binary
    bool text = false;
    bool creates() const;

    static std::optional<OpenMode> parse(const char * mode);
};

class MachineFile : public File {
public:
    MachineFile(std::FILE * stream, bool text) : stream_(stream), text_(text) {}
    ~MachineFile() override { std::fclose(stream_); }
    MachineFile(const MachineFile &) = delete;
    MachineFile & operator=(const MachineFile &) = delete;

    std::size_t read(void * to, std::size_t bytes) override;
    std::size_t write(const void * from, std::size_t bytes) override;
    int seek(std::int64_t offset, int whence) override;
    std::int64_t tell() override;
    int flush() override;
    bool eof() override;
    bool gets(char * to, int size) override;

private:
    int character();

    std::FILE * stream_; // owned
    bool text_;
};

} // namespace platform
