#pragma once

// One named object of a definition: its properties and the elements below it. Readers of a key see its first
// property. Main thread.

#include "core/CXObject.h"
#include "core/CXPoint.h"
#include "core/CXRect.h"
#include "core/CXSize.h"
#include "script/CMElements.h"
#include "script/CMProperties.h"

class CXArray;

class CMElement : public CXObject {
public:
    explicit CMElement(const CXString & name) : name_(name) {}
    CMElement(const CMElement &) = delete;
    CMElement & operator=(const CMElement &) = delete;

    const CXString & getName() const { return name_; }
    void setName(const CXString & name) { name_ = name; }

    // A key alone is added once; a key with a value always, even to one that is there.
    void addProperty(const CXString & key);
    void addProperty(const CXString & key, const CXString & value);
    void setProperty(const CXString & key, const CXString & value); // nothing without the key
    void removeProperty(const CXString & key);                      // the first one of that key
    void removeAll();                                               // properties
    bool isPropertyAvailable(const CXString & key) const;
    bool hasProperty(const CXString & key) const; // asks for the key in upper case
    CMProperties * getProperties() { return &properties_; }

    void addChild(CMElement * child); // stays the property of its list
    CMElements * getChildren() { return &children_; }

    // Values of the key; empty, 0 or false when it is missing.
    CXString getPropertyValue(const CXString & key) const;
    int getPropertyIntValue(const CXString & key) const;
    bool getPropertyBoolValue(const CXString & key) const;
    double getPropertyDoubleValue(const CXString & key) const;
    // A new CXArray of new CXString, given back with CXString::releaseToVector; null when the key is missing.
    CXArray * getPropertyListValue(const CXString & key) const;
    // Of the first numbers of that list; those it lacks are 0.
    CXPoint getPropertyPointValue(const CXString & key) const;
    CXSize getPropertySizeValue(const CXString & key) const;
    CXRect getPropertyRectValue(const CXString & key) const;

private:
    CMProperty * find(const CXString & key) const { return properties_.get(key); }

    CXString name_;
    CMProperties properties_;
    CMElements children_{false};
};
