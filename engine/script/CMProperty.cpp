#include "script/CMProperty.h"

#include "core/CXArray.h"

#include <algorithm>
#include <array>

namespace {

std::array<int, 4> numbers(const CMProperty & property) {
    std::array<int, 4> found{};
    CXArray * list = property.getListValue();
    int count = std::min(list->size, static_cast<int>(found.size()));
    for (int i = 0; i < count; i++) found[static_cast<std::size_t>(i)] = list->stringAt(i)->toNumber();
    CXString::releaseToVector(list);
    return found;
}

} // namespace

CXPoint CMProperty::getPointValue() const {
    auto [x, y, right, bottom] = numbers(*this);
    return {x, y};
}

CXSize CMProperty::getSizeValue() const {
    auto [width, height, more, rest] = numbers(*this);
    return {width, height};
}

CXRect CMProperty::getRectValue() const {
    auto [left, top, right, bottom] = numbers(*this);
    return {left, top, right, bottom};
}
