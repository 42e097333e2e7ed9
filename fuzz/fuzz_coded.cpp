// Texts that may be coded: lines in both forms, and what was clear coded again.

#include "files/CTextCoder.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

struct Over {
    Over(const char * bytes, std::size_t size)
        : reader(nullptr, bytes, static_cast<int>(size)), coder(nullptr, &reader, false) {}

    CTextFileReader reader;
    CTextCoder coder;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    const char * bytes = reinterpret_cast<const char *>(data);
    Over lines(bytes, size), views(bytes, size);
    std::size_t given = 0, count = 0;
    while (!lines.coder._eof()) {
        CXString line = lines.coder.getLine();
        require(line.lastChar() == '\n');
        require(line.view().substr(0, line.view().size() - 1) == views.coder.nextLine());
        given += line.view().size();
        // Each line but the empty one at a coded text's end costs a byte at least.
        require(++count <= size + 1 && given <= size + 1);
    }
    require(views.coder._eof());

    if (lines.coder.isCoded()) {
        require(!Over(bytes, size).coder.codeLine().IsString());
    } else {
        Over clear(bytes, size);
        for (count = 0; !clear.coder._eof(); count++)
            require(count <= size && clear.coder.codeLine().getLength() <= static_cast<int>(size + 4));
    }
    return 0;
}
