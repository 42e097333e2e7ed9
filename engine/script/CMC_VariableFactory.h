#pragma once

// The pools of temporary values: 500 of each type, all named "f", taken in rotation, so that a value that
// was just handed back stays readable until the rotation comes round. Statement results and conversions
// live here; nothing is allocated for them. Main thread.

#include "script/CMC_Bool.h"
#include "script/CMC_Double.h"
#include "script/CMC_Integer.h"
#include "script/CMC_String.h"

class CMC_VariableFactory {
public:
    static constexpr int kPoolSize = 500; // of each type; an exhausted pool grows by as many, with a note

    static void initialize(); // before anything is loaded; again without done() frees all entries
    static void done();

    static CMC_Bool * allocBool();
    static CMC_Double * allocDouble();
    static CMC_Integer * allocInteger();
    static CMC_String * allocString();

    // A free entry with that value.
    static CMC_Bool * boolean(bool value);
    static CMC_Double * real(double value);
    static CMC_Integer * integer(int value);
    static CMC_String * string(std::string_view value);
    static CMC_String * string(const CXString & value) { return string(value.view()); }

    static void free(CMC_Variable * value);                   // null and values outside the pools are fine
    static CMC_Variable * copyVariable(CMC_Variable * value); // null for null
    // A value from its form in an array's file or in a message; null when that holds none.
    static CMC_Variable * restore(CXArchive * archive);
    static CMC_Variable * netrestore(const void * buffer, int size);
    static void clearPool(); // all entries are free
    static int takenNo();    // entries taken now, of all types
};

inline void CMC_Object::flush(CMC_Object * value, bool) {
    if (value && types::isValue(value->getType()))
        CMC_VariableFactory::free(static_cast<CMC_Variable *>(value));
}
