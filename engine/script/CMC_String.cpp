#include "script/CMC_String.h"

#include "files/CXArchive.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/Notes.h"

#include <cstring>
#include <string>

namespace {

constexpr int kHead = 4; // bytes of the type id in the message form

} // namespace

CMC_String::CMC_String(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Variable(scope, element, types::kString), value_(element->getPropertyValue("VALUE")) {
    defaultValue_ = element->getPropertyValue("DEFAULT");
    if (!defaultValue_.IsString()) defaultValue_ = value_;
    initializeBehaviours(scope, element);
}

bool CMC_String::fits(std::int64_t length) {
    if (length <= kMost) return true;
    notes::add(notes::Kind::other, "a text would be too long: " + std::to_string(length) + " bytes");
    return false;
}

void CMC_String::put(std::string_view value) {
    value_ = "";
    value_ += value;
}

void CMC_String::change(const CXString & value) {
    bool changed = value_ != value;
    if (changed) value_ = value;
    onChange(changed);
}

void CMC_String::set(CMC_Variable * source) {
    if (source->getType() == types::kString)
        change(static_cast<CMC_String *>(source)->value_);
    else
        change(source->asString());
}

void CMC_String::swap(CMC_Variable * a, CMC_Variable * b) {
    CXString first = a->asString();
    change(value_ == first ? b->asString() : first);
}

bool CMC_String::equals(CMC_Variable * other) { return value_.equalsIgnoreCase(other->asString()); }

int CMC_String::compare(CMC_Variable * other) {
    CXString text = other->asString();
    int order = value_.view().compare(text.view()); // bytes count as unsigned
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

CMC_Variable * CMC_String::calculate(CMC_Variable * right, int op) {
    if (op != op::kAdd) return CMC_VariableFactory::string(value_);
    CXString other = right->asString();
    if (!fits(std::int64_t{value_.getLength()} + other.getLength()))
        return CMC_VariableFactory::string(value_);
    return CMC_VariableFactory::string(value_ + other);
}

void CMC_String::resetINI() {
    if (!isToIni()) return;
    value_ = defaultValue_;
    onChange(true);
}

void CMC_String::netstore(void * buffer) {
    int type = types::kString;
    std::memcpy(buffer, &type, kHead);
    std::memcpy(static_cast<char *>(buffer) + kHead, value_.c_str(), value_.view().size() + 1);
}

bool CMC_String::netrestore(const void * buffer, int size) {
    int type = 0;
    if (size < kHead + 1) return false;
    std::memcpy(&type, buffer, kHead);
    const char * text = static_cast<const char *>(buffer) + kHead;
    const void * end = std::memchr(text, 0, static_cast<std::size_t>(size - kHead));
    if (type != types::kString || !end) return false;
    value_ = text;
    return true;
}

void CMC_String::store(CXArchive * archive) { *archive << getType() << value_; }

void CMC_String::restore(CXArchive * archive) { *archive >> value_; }

CMC_Object * CMC_String::clone() {
    auto * copy = new CMC_String(value_, CXString());
    copy->defaultValue_ = defaultValue_;
    return copy;
}
