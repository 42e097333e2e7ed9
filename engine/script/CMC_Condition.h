#pragma once

// CONDITION: compares two operands. The static forms compare two texts, for the statements IF and WHILE.
// Main thread.

#include "script/CMC_BasicCondition.h"

#include <memory>

class CMC_Behaviour;
class CMC_Behaviour_Entry;

namespace comparison {

enum Code : int {
    kNone = 0, // holds for nothing
    kEqual = 1,
    kNotEqual = 2,
    kLess = 3,
    kLessEqual = 4,
    kGreater = 5,
    kGreaterEqual = 6,
    kInstanceOf = 7,
};

// The code of a sign such as "<_" in a statement; any text that is none counts as "_".
int codeOf(std::string_view sign);

} // namespace comparison

class CMC_Condition : public CMC_BasicCondition {
public:
    static const char * const kKeys[3];

    CMC_Condition(CMC_ObjectsContainer * scope, CMElement * element);
    ~CMC_Condition() override;

    void init() override; // parses the operands; again is fine
    bool done(bool all) override;

    // Names in the texts are resolved at each call. One comparison in one text, such as A'5 (equal), A!'5,
    // A<5, A<'5, A>5, A>'5, A?SCENE (the type); false without an operator.
    static bool valid(CMC_ObjectsContainer * scope, const CXString & text);
    // op: _ !_ <> < <_ > >_ ? ; any other text counts as _.
    static bool valid(CMC_ObjectsContainer * scope, const CXString & left, const CXString & right,
                      const CXString & op);
    static bool valid(CMC_ObjectsContainer * scope, const CXString & left, const CXString & right, int op);
    using CMC_BasicCondition::valid;

protected:
    Outcome test() override;

private:
    void dropEntries();

    std::unique_ptr<CMC_Behaviour> owner_; // empty, named "temp": where the operands are parsed
    CXString operand1_;
    CXString operand2_;
    CMC_Behaviour_Entry * operand1Entry_ = nullptr; // owned, from init to done
    CMC_Behaviour_Entry * operand2Entry_ = nullptr; // owned, from init to done
    int operator_ = comparison::kNone;
};
