#include "script/CMElement.h"

void CMElement::addProperty(const CXString & key) {
    if (!find(key)) addProperty(key, CXString());
}

void CMElement::addProperty(const CXString & key, const CXString & value) {
    properties_.add(new CMProperty(key.view(), value.view()));
}

void CMElement::setProperty(const CXString & key, const CXString & value) {
    if (CMProperty * property = find(key)) property->setValue(value);
}

void CMElement::removeProperty(const CXString & key) { properties_.remove(find(key)); }

void CMElement::removeAll() {
    for (CXObject * property : properties_) delete property;
    properties_.removeAll();
}

bool CMElement::isPropertyAvailable(const CXString & key) const { return find(key) != nullptr; }

bool CMElement::hasProperty(const CXString & key) const { return find(CXString(key).Upper()) != nullptr; }

void CMElement::addChild(CMElement * child) { children_.add(child); }

CXString CMElement::getPropertyValue(const CXString & key) const {
    CMProperty * property = find(key);
    return property ? property->getValue() : CXString();
}

int CMElement::getPropertyIntValue(const CXString & key) const {
    CMProperty * property = find(key);
    return property ? property->getIntValue() : 0;
}

bool CMElement::getPropertyBoolValue(const CXString & key) const {
    CMProperty * property = find(key);
    return property && property->getBoolValue();
}

double CMElement::getPropertyDoubleValue(const CXString & key) const {
    CMProperty * property = find(key);
    return property ? property->getDoubleValue() : 0.0;
}

CXArray * CMElement::getPropertyListValue(const CXString & key) const {
    CMProperty * property = find(key);
    return property ? property->getListValue() : nullptr;
}

CXPoint CMElement::getPropertyPointValue(const CXString & key) const {
    CMProperty * property = find(key);
    return property ? property->getPointValue() : CXPoint();
}

CXSize CMElement::getPropertySizeValue(const CXString & key) const {
    CMProperty * property = find(key);
    return property ? property->getSizeValue() : CXSize();
}

CXRect CMElement::getPropertyRectValue(const CXString & key) const {
    CMProperty * property = find(key);
    return property ? property->getRectValue() : CXRect();
}
