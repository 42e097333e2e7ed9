#include "files/CFileNameResolver.h"

#include <string_view>

namespace {

// What stands before the separator; the text goes on behind it.
std::string_view take(std::string_view & text, char separator) {
    std::size_t end = text.find(separator);
    std::string_view token = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return token;
}

} // namespace

CFileNameResolver::CFileNameResolver(const CXString & path) : source_(path) {
    if (source_.GetAt(1) == ':' && source_.GetAt(0) != '\\')
        drive_ = static_cast<unsigned char>(source_.GetAt(0));
    int nameAt = source_.FindLast('\\') + 1;
    path_ = source_.Left(nameAt);
    name_ = source_.Right(nameAt);
    for (std::string_view rest = path_.view(); !rest.empty();)
        if (std::string_view token = take(rest, '\\'); !token.empty()) directories_.add(new CXString(token));
    std::string_view rest = name_.view();
    pureName_ = CXString(take(rest, '.'));
    extension_ = CXString(take(rest, '.'));
}

CFileNameResolver::~CFileNameResolver() {
    for (int i = 0; i < directories_.size; i++) delete directories_.stringAt(i);
}
