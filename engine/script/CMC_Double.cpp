#include "script/CMC_Double.h"

#include "files/CXArchive.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/Conversions.h"
#include "script/NetForm.h"

CMC_Double::CMC_Double(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Variable(scope, element, types::kDouble), value_(element->getPropertyDoubleValue("VALUE")) {
    bool hasDefault = element->getPropertyValue("DEFAULT").IsString();
    defaultValue_ = hasDefault ? element->getPropertyDoubleValue("DEFAULT") : value_;
    initializeBehaviours(scope, element);
}

void CMC_Double::change(double value) {
    bool changed = value_ != value;
    value_ = value;
    onChange(changed);
}

int CMC_Double::compare(CMC_Variable * other) {
    double right = other->asDouble();
    return value_ < right ? -1 : value_ > right ? 1 : 0;
}

void CMC_Double::resetINI() {
    if (!isToIni()) return;
    value_ = defaultValue_;
    onChange(true);
}

CMC_Object * CMC_Double::clone() {
    auto * copy = new CMC_Double(CXString());
    copy->value_ = value_;
    copy->defaultValue_ = defaultValue_;
    return copy;
}

void CMC_Double::netstore(void * buffer) { netform::store(buffer, types::kDouble, value_); }

bool CMC_Double::netrestore(const void * buffer, int size) {
    return netform::restore(buffer, size, types::kDouble, value_);
}

void CMC_Double::store(CXArchive * archive) { *archive << getType() << value_; }

void CMC_Double::restore(CXArchive * archive) { *archive >> value_; }

int CMC_Double::asInteger() { return convert::rounded(value_); }

void CMC_Double::swap(CMC_Variable * a, CMC_Variable * b) {
    change(value_ == a->asDouble() ? b->asDouble() : a->asDouble());
}

void CMC_Double::inc() {
    value_ += 1.0;
    onChange(true);
}

void CMC_Double::dec() {
    value_ -= 1.0;
    onChange(true);
}

CMC_Variable * CMC_Double::calculate(CMC_Variable * other, int op) {
    double right = other->asDouble(), result = value_;
    switch (op) {
    case op::kAdd: result = value_ + right; break;
    case op::kSub: result = value_ - right; break;
    case op::kMul: result = value_ * right; break;
    case op::kDiv: result = convert::divide(value_, right); break;
    case op::kMod: result = convert::remainder(convert::truncated(value_), convert::truncated(right)); break;
    default: break;
    }
    return CMC_VariableFactory::real(result);
}
