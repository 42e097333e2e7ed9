#include "script/CMC_Vector.h"

#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMElement.h"
#include "script/Conversions.h"
#include "script/Notes.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <string>

const char * const CMC_Vector::kKeys[2] = {"SIZE", "VALUE"};

CMC_Vector::CMC_Vector(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kVector) {
    int size = element->getPropertyIntValue("SIZE");
    if (size > kMost || size < 0) {
        notes::add(notes::Kind::other, scope ? scope->getName().view() : "", name_.view(),
                   "SIZE is none for a vector: " + std::to_string(size));
        size = 0;
    }
    values_.resize(static_cast<std::size_t>(size));
    CXArray * list = element->getPropertyListValue("VALUE");
    for (int i = 0; list && i < std::min(size, list->size); i++) set(i, list->stringAt(i)->toDouble());
    CXString::releaseToVector(list);
    initializeBehaviours(scope, element);
}

CMC_Object * CMC_Vector::clone() { return new CMC_Vector(values_); }

CMC_Runner * CMC_Vector::getRunner() { return CMC_RunnerFactory::getRunner(types::kVector); }

void CMC_Vector::set(int i, double value) {
    if (has(i)) values_[static_cast<std::size_t>(i)] = value;
}

void CMC_Vector::add(const CMC_Vector & other) {
    if (other.getSize() == getSize())
        std::ranges::transform(values_, other.values_, values_.begin(), std::plus<>());
}

void CMC_Vector::sub(const CMC_Vector & other) {
    if (other.getSize() == getSize())
        std::ranges::transform(values_, other.values_, values_.begin(), std::minus<>());
}

void CMC_Vector::set(const CMC_Vector & other) {
    for (int i = 0; i < std::min(getSize(), other.getSize()); i++) set(i, other.get(i));
}

void CMC_Vector::vmul(const CMC_Vector & a, const CMC_Vector & b) {
    for (int i = 0; i < std::min({getSize(), a.getSize(), b.getSize()}); i++) set(i, a.get(i) * b.get(i));
}

double CMC_Vector::smul(const CMC_Vector & other) const {
    if (other.getSize() != getSize()) return 0.0;
    return std::inner_product(values_.begin(), values_.end(), other.values_.begin(), 0.0);
}

void CMC_Vector::mul(double factor) {
    for (double & each : values_) each *= factor;
}

double CMC_Vector::len() const { return std::sqrt(smul(*this)); }

void CMC_Vector::normalize() {
    double length = len();
    for (double & each : values_) each = convert::divide(each, length);
}

void CMC_Vector::reflect(const CMC_Vector & normal, CMC_Vector & target) const {
    // All three may be the same object.
    double factor = 2 * smul(normal);
    for (int i = 0; i < std::min({getSize(), normal.getSize(), target.getSize()}); i++)
        target.set(i, factor * normal.get(i) - get(i));
}

void CMC_Vector::expand(int size) {
    if (size < 0 || size > kMost) {
        notes::add(notes::Kind::other, "no size for a vector: " + std::to_string(size));
        return;
    }
    int more = size - getSize();
    if (more >= 0)
        values_.insert(values_.begin(), static_cast<std::size_t>(more), 0.0);
    else
        values_.erase(values_.begin(), values_.begin() - more);
}

void CMC_Vector::neg() { mul(-1.0); }
