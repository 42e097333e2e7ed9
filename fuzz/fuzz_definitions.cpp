// The definition reader, and the conversions of every value that it reads.

#include "core/CXArray.h"
#include "files/CTextFileReader.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"
#include "script/CMProperties.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    CTextFileReader reader(nullptr, reinterpret_cast<const char *>(data), static_cast<int>(size));
    std::unique_ptr<CMElements> elements(CMElementsLoader::load(nullptr, &reader));
    if (!elements) std::abort(); // a text in memory can always be read
    for (CXObject * each : *elements) {
        auto * element = static_cast<CMElement *>(each);
        if (!elements->contains(element->getName())) std::abort();
        for (CXObject * child : *element->getChildren())
            if (!elements->contains(child)) std::abort();
        for (CXObject * entry : *element->getProperties()) {
            const CXString & key = static_cast<CMProperty *>(entry)->getName();
            if (!element->isPropertyAvailable(key)) std::abort();
            element->hasProperty(key);
            element->getPropertyIntValue(key);
            element->getPropertyBoolValue(key);
            element->getPropertyDoubleValue(key);
            element->getPropertyRectValue(key);
            CXString::releaseToVector(element->getPropertyListValue(key));
        }
    }
    return 0;
}
