#pragma once

// The version of the engine, or the one that a game asks for.

#include "core/CXObject.h"

class CXVersion : public CXObject {
public:
    enum Type { kAny = 0, kX = 1, kTarnook = 2, kWeb = 3 };

    // "T.1.2.3": type word ("T", "TW", other), major, minor, build.
    explicit CXVersion(const CXString & text);
    CXVersion(int type, int major, int minor, int build)
        : type_(type), major_(major), minor_(minor), build_(build) {}

    int getType() const { return type_; }
    int getMajor() const { return major_; }
    int getMinor() const { return minor_; }
    int getBuild() const { return build_; }
    CXString toString() override;
    // Whether this version serves what is required; the build doesn't count.
    bool verify(const CXVersion & required) const;

    static CXVersion & getCurrentVersion() { return current_version; }

private:
    static CXVersion current_version;

    int type_, major_, minor_, build_;
};
