#include "files/WholeFile.h"

#include <algorithm>

namespace wholefile {

bool read(CFile & file, std::string & bytes) {
    bytes.clear();
    long long length = static_cast<long long>(file.Length()) - file.Tell();
    if (length < 0 || length > kLargest) return false;
    bytes.resize(static_cast<std::size_t>(length));
    int got = file.Read(bytes.data(), static_cast<int>(length));
    bytes.resize(static_cast<std::size_t>(std::max(got, 0)));
    return true;
}

} // namespace wholefile
