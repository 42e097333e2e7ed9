#include "files/CRLECompression2.h"

#include "files/CCompression.h"

#include <algorithm>
#include <cstring>

char * CRLECompression2::Decompress(int) {
    if (picture_.cx < 0 || picture_.cy < 0) return nullptr;
    long long bytes = static_cast<long long>(picture_.cx) * picture_.cy;
    if (bytes > CCompression::kLargest) return nullptr;
    auto room = static_cast<std::size_t>(bytes);
    char * result = new char[room];
    auto size = data_ && rows_ ? static_cast<std::size_t>(std::max(size_, 0)) : 0;
    std::size_t out = 0, row = 0; // row: where the present one begins in the data
    for (int y = 0; y < picture_.cy && row < size && rows_[y] >= 0; y++) {
        std::size_t end = row + static_cast<std::size_t>(rows_[y]);
        for (std::size_t in = row; in < end && in < size && out < room;) {
            // Its sign tells the two kinds of groups. NOLINTNEXTLINE(bugprone-signed-char-misuse)
            int control = static_cast<signed char>(data_[in++]);
            auto length = static_cast<std::size_t>(control < 0 ? 1 - control : control + 1);
            if (control < 0) {
                if (in == size) break;
                length = std::min(length, room - out);
                std::memset(result + out, data_[in++], length);
            } else {
                length = std::min({length, room - out, size - in});
                std::memcpy(result + out, data_ + in, length);
                in += length;
            }
            out += length;
        }
        row = end;
    }
    std::memset(result + out, 0, room - out);
    return result;
}
