#include "script/CMC_ComplexCondition.h"

#include "script/CMC_ObjectsContainer.h"
#include "script/CMElement.h"
#include "script/Notes.h"

const char * const CMC_ComplexCondition::kKeys[3] = {"CONDITION1", "CONDITION2", "OPERATOR"};

CMC_ComplexCondition::CMC_ComplexCondition(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_BasicCondition(scope, element, types::kComplexCondition),
      condition1_(element->getPropertyValue("CONDITION1")),
      condition2_(element->getPropertyValue("CONDITION2")),
      operator_(element->getPropertyValue("OPERATOR")) {
    if (operator_ == "AND")
        operatorCode_ = kAnd;
    else if (operator_ == "OR")
        operatorCode_ = kOr;
    else
        notes::add(notes::Kind::other, scope ? scope->getName().view() : "", name_.view(),
                   "the operator \"" + std::string(operator_.view()) + "\" is none; the condition is false");
    initializeBehaviours(scope, element);
}

CMC_BasicCondition * CMC_ComplexCondition::find(const CXString & name) const {
    CMC_BasicCondition * found = scene_ ? of(scene_->getObject(name)) : nullptr;
    if (!found)
        notes::add(notes::Kind::unknownObject, std::string(name_.view()) + " asks the condition " +
                                                   std::string(name.view()) + ", which isn't there");
    return found;
}

CMC_BasicCondition::Outcome CMC_ComplexCondition::test() {
    CMC_BasicCondition * first = find(condition1_);
    if (!first || !find(condition2_)) return Outcome::unknown;
    if (operatorCode_ == kNone) return Outcome::no;
    bool outcome = first->valid(true);
    if (outcome == (operatorCode_ == kAnd)) {
        // The first one's behaviours may have changed what the name means.
        CMC_BasicCondition * second = find(condition2_);
        if (!second) return Outcome::unknown;
        outcome = second->valid(true);
    }
    return outcome ? Outcome::yes : Outcome::no;
}
