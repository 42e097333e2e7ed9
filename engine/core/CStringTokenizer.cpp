#include "core/CStringTokenizer.h"

#include <utility>

CStringTokenizer::CStringTokenizer(const CXString & text, const CXString & separators)
    : text_(text), separators_(separators) {
    next_ = getToken();
}

CXString CStringTokenizer::nextToken() {
    CXString token = std::move(next_);
    next_ = getToken();
    return token;
}

CXString CStringTokenizer::getToken() {
    std::string_view text = text_.view();
    std::size_t start = text.find_first_not_of(separators_.view(), static_cast<std::size_t>(position_));
    if (start == std::string_view::npos) {
        position_ = text_.getLength();
        return {};
    }
    std::size_t end = text.find_first_of(separators_.view(), start);
    if (end == std::string_view::npos) end = text.size();
    position_ = static_cast<int>(end);
    return CXString(text.substr(start, end - start));
}
