#include "core/CXVersion.h"

#include "core/CStringTokenizer.h"

#include <cstdio>

CXVersion CXVersion::current_version(kTarnook, 6, 0, 0);

CXVersion::CXVersion(const CXString & text) {
    CStringTokenizer tokens(text, ".");
    CXString word = tokens.nextToken();
    type_ = word == "T" ? kTarnook : word == "TW" ? kWeb : kX;
    major_ = tokens.nextToken().toNumber();
    minor_ = tokens.nextToken().toNumber();
    build_ = tokens.nextToken().toNumber();
}

CXString CXVersion::toString() {
    const char * word = type_ == kX ? "X" : type_ == kTarnook ? "Tarnook" : "Tarnook WEB";
    char area[64];
    std::snprintf(area, sizeof area, "%s.%d.%d.%d", word, major_, minor_, build_);
    return area;
}

bool CXVersion::verify(const CXVersion & required) const {
    if (required.type_ == kAny) return true;
    if (type_ != kX && type_ != required.type_) return false;
    return major_ != required.major_ ? major_ > required.major_ : minor_ >= required.minor_;
}
