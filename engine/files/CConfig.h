#pragma once

// A settings file: values of one run kept for the next, by section and key. Nothing is kept in memory: each
// read goes to the file, each write replaces it, whole or not at all. No operation reports a failure. A file
// that is there but can't be read, or is larger than any settings file, reads as empty and is never written
// over. The layout is that of SettingsText. Main thread.

#include "core/CXObject.h"

class CConfig : public CXObject {
public:
    static constexpr int kLongestValue = 10239;  // bytes; the rest of a longer one isn't read
    static constexpr int kLargestFile = 1 << 26; // bytes

    CConfig() = default;                         // without a file all reads as missing
    explicit CConfig(const CXString & fileName); // an absolute path; the first write makes the file

    // The number that the value begins with, 0 when it is missing or begins with none.
    int GetInt(const CXString & section, const CXString & key) const;
    CXString GetString(const CXString & section, const CXString & key) const; // empty when it is missing
    void PutInt(const CXString & section, const CXString & key, int value);
    // The value up to its first line end. Blanks and enclosing quotes don't come back when it is read.
    void PutString(const CXString & section, const CXString & key, const CXString & value);

private:
    CXString path_;
};
