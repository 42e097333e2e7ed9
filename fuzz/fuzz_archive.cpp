// Files of arrays and grids. What can be read is stored and must read back the same.

#include "files/CFile_Stream.h"
#include "files/CXArchive.h"
#include "script/CMC_Array.h"
#include "script/CMC_MultiArray.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

// A file that is written to memory.
class Memory : public CFile {
public:
    int Write(const void * from, int n) override {
        bytes.append(static_cast<const char *>(from), static_cast<std::size_t>(n));
        return n;
    }
    std::string bytes;
};

template <class Object>
void read(Object & object, std::string_view bytes) {
    CFile_Stream file(bytes.data(), static_cast<int>(bytes.size()));
    CXArchive archive(&file, false);
    object.read(archive);
}

template <class Object>
std::string stored(Object & object) {
    Memory file;
    CXArchive archive(&file, true);
    object.write(archive);
    return file.bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    CMC_VariableFactory::initialize();
    std::string_view bytes(reinterpret_cast<const char *>(data), size);
    CMElement element("G");
    element.addProperty("DIMENSIONS", "2");
    if (!bytes.empty() && bytes[0] & 1) {
        CMC_MultiArray grid(nullptr, &element), again(nullptr, &element);
        read(grid, bytes.substr(1));
        std::string first = stored(grid);
        read(again, first);
        require(again.getTotal() == grid.getTotal());
        // A number's thousandths may be cut once more at each turn, but nothing else moves.
        require(stored(again).size() == first.size());
    } else if (!bytes.empty()) {
        CMC_Array array(nullptr, CXString("A")), again(nullptr, CXString("B"));
        read(array, bytes.substr(1));
        read(again, stored(array));
        require(again.getSize() == array.getSize());
        again.sort(true);
        again.rotateLeft();
        require(again.getSize() == array.getSize());
    }
    require(CMC_VariableFactory::takenNo() == 0);
    return 0;
}
