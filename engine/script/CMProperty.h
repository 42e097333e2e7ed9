#pragma once

// One key of an element and its value: a text, converted when it's asked for. Owned by its CMProperties.

#include "core/CXObject.h"
#include "core/CXPoint.h"
#include "core/CXRect.h"
#include "core/CXSize.h"

#include <string_view>

class CXArray;

class CMProperty : public CXObject {
public:
    CMProperty() = default;
    CMProperty(std::string_view name, std::string_view value) : name_(name), value_(value) {}

    const CXString & getName() const { return name_; }
    void setName(const CXString & name) { name_ = name; }
    void setValue(const CXString & value) { value_ = value; }

    const CXString & getValue() const { return value_; } // empty for a key that stands alone
    int getIntValue() const { return value_.toNumber(); }
    bool getBoolValue() const { return value_.toBool(); }
    double getDoubleValue() const { return value_.toDouble(); }
    // The items between commas, blanks and line ends: a new CXArray of new CXString, given back with
    // CXString::releaseToVector.
    CXArray * getListValue() const { return value_.toVector(); }
    // Of the first numbers of that list; those it lacks are 0.
    CXPoint getPointValue() const;
    CXSize getSizeValue() const;
    CXRect getRectValue() const;

    // Another property with the same name.
    bool equals(CXObject * other) override { return name_ == static_cast<CMProperty *>(other)->name_; }

private:
    CXString name_;
    CXString value_;
};
