#include "script/CMC_Integer.h"

#include "files/CXArchive.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/NetForm.h"

CMC_Integer::CMC_Integer(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Variable(scope, element, types::kInteger), value_(element->getPropertyIntValue("VALUE")) {
    bool hasDefault = element->getPropertyValue("DEFAULT").IsString();
    defaultValue_ = hasDefault ? element->getPropertyIntValue("DEFAULT") : value_;
    initializeBehaviours(scope, element);
}

void CMC_Integer::change(int value) {
    bool changed = value_ != value;
    value_ = value;
    onChange(changed);
}

int CMC_Integer::compare(CMC_Variable * other) {
    int right = other->asInteger();
    return value_ < right ? -1 : value_ > right ? 1 : 0;
}

void CMC_Integer::resetINI() {
    if (!isToIni()) return;
    value_ = defaultValue_;
    onChange(true);
}

CMC_Object * CMC_Integer::clone() {
    auto * copy = new CMC_Integer(CXString());
    copy->value_ = value_;
    copy->defaultValue_ = defaultValue_;
    return copy;
}

void CMC_Integer::netstore(void * buffer) { netform::store(buffer, types::kInteger, value_); }

bool CMC_Integer::netrestore(const void * buffer, int size) {
    return netform::restore(buffer, size, types::kInteger, value_);
}

void CMC_Integer::store(CXArchive * archive) { *archive << getType() << value_; }

void CMC_Integer::restore(CXArchive * archive) { *archive >> value_; }

void CMC_Integer::swap(CMC_Variable * a, CMC_Variable * b) {
    change(value_ == a->asInteger() ? b->asInteger() : a->asInteger());
}

void CMC_Integer::inc() {
    value_ = convert::add(value_, 1);
    onChange(true);
}

void CMC_Integer::dec() {
    value_ = convert::sub(value_, 1);
    onChange(true);
}

int CMC_Integer::calculatedOther(int left, int right, int op) {
    switch (op) {
    case op::kSub: return convert::sub(left, right);
    case op::kMul: return convert::mul(left, right);
    case op::kDiv: return convert::divide(left, right);
    case op::kMod: return convert::remainder(left, right);
    default: return left;
    }
}

CMC_Variable * CMC_Integer::calculate(CMC_Variable * right, int op) {
    return CMC_VariableFactory::integer(calculated(value_, right->asInteger(), op));
}
