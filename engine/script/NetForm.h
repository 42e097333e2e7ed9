#pragma once

// The message form of values: an int32 type id, then the value, little-endian.

#include <cstring>

namespace netform {

template <class T>
void store(void * buffer, int type, T value) {
    std::memcpy(buffer, &type, sizeof type);
    std::memcpy(static_cast<char *>(buffer) + sizeof type, &value, sizeof value);
}

template <class T>
bool restore(const void * buffer, int size, int type, T & value) {
    int stored = 0;
    if (size < static_cast<int>(sizeof stored + sizeof value)) return false;
    std::memcpy(&stored, buffer, sizeof stored);
    if (stored != type) return false;
    std::memcpy(&value, static_cast<const char *>(buffer) + sizeof stored, sizeof value);
    return true;
}

} // namespace netform
