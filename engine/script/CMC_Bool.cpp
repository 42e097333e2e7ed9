#include "script/CMC_Bool.h"

#include "files/CXArchive.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/Conversions.h"
#include "script/NetForm.h"

CMC_Bool::CMC_Bool(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Variable(scope, element, types::kBool), value_(element->getPropertyBoolValue("VALUE")) {
    bool hasDefault = element->getPropertyValue("DEFAULT").IsString();
    defaultValue_ = hasDefault ? element->getPropertyBoolValue("DEFAULT") : value_;
    initializeBehaviours(scope, element);
}

void CMC_Bool::change(bool value) {
    bool changed = value_ != value;
    value_ = value;
    onChange(changed);
}

int CMC_Bool::compare(CMC_Variable * other) {
    bool right = other->asBool();
    return value_ < right ? -1 : value_ > right ? 1 : 0;
}

void CMC_Bool::resetINI() {
    if (!isToIni()) return;
    value_ = defaultValue_;
    onChange(true);
}

CMC_Object * CMC_Bool::clone() {
    auto * copy = new CMC_Bool(CXString());
    copy->value_ = value_;
    copy->defaultValue_ = defaultValue_;
    return copy;
}

void CMC_Bool::netstore(void * buffer) { netform::store(buffer, types::kBool, static_cast<char>(value_)); }

bool CMC_Bool::netrestore(const void * buffer, int size) {
    char byte = 0;
    if (!netform::restore(buffer, size, types::kBool, byte)) return false;
    value_ = byte != 0;
    return true;
}

void CMC_Bool::store(CXArchive * archive) { *archive << getType() << (value_ ? 1 : 0); }

void CMC_Bool::restore(CXArchive * archive) {
    int value = 0;
    *archive >> value;
    value_ = value != 0;
}

CMC_Variable * CMC_Bool::calculate(CMC_Variable * other, int op) {
    bool right = other->asBool();
    return CMC_VariableFactory::boolean(op == op::kAdd   ? value_ && right
                                        : op == op::kMul ? value_ || right
                                                         : value_);
}
