#pragma once

// A bracket such as [A+B*2], or an EXPRESSION object: it stands for the value of its operands, worked out
// anew whenever it is asked. Operators apply strictly from left to right, and the first operand's type is
// the type of the whole. Owned by its scope when it has an element, else by the statement. Main thread.
//
// A leading minus gives the negative of a number: "[-5]" is -5. Any other operand that is missing ("[+A]",
// "[A+]", "[A*-B]") or null makes the whole null; the log says which.

#include "script/CMC_Variable.h"

#include <memory>
#include <vector>

class CMC_Behaviour;
class CMC_Behaviour_Entry;
class Statements;

class CMC_Expression : public CMC_Variable {
public:
    static const char * const kKeys[3];
    static constexpr SignalList kSignals{};

    // Text without the enclosing brackets; statements take note of the names in it.
    CMC_Expression(CMC_ObjectsContainer * scope, const CXString & text, Statements * statements = nullptr);
    CMC_Expression(CMC_ObjectsContainer * scope, CMElement * element);
    ~CMC_Expression() override;

    void init() override; // parses the operands; again is fine
    SignalList getBehavioursList() override { return kSignals; }
    bool isStill() const { return still_; } // made from an element: its scope deletes it

    void calculate();
    // What the last calculate() gave: this object's, or a named value when the bracket holds nothing else;
    // null before the first, and when there is no value.
    CMC_Variable * getValue();
    // The value as of now, the caller's to flush; null when there is none. getValue() stays what it is.
    CMC_Variable * evaluate();

    // All of these ask the value as of now. Without one they read as 0 or empty, equal nothing, and
    // compare as 1.
    int asInteger() override;
    double asDouble() override;
    bool asBool() override;
    CXString asString() override;
    bool equals(CMC_Variable * other) override;
    int compare(CMC_Variable * other) override;
    CMC_Variable * convert(int type) override; // a pool value of the caller, or a named value
    CMC_Variable * calculate(CMC_Variable * right, int op) override;
    CMC_Object * clone() override;
    // The value takes the change: a named one keeps it, a computed one is gone with the next reading.
    void set(CMC_Variable * source) override;
    void clear() override;
    void swap(CMC_Variable * a, CMC_Variable * b) override;
    void inc() override;
    void dec() override;
    void setDefault(CMC_Variable * source) override;
    void resetINI() override;
    void fromString(const CXString & text) override;
    void copy(CMC_Variable * source) override;
    bool netrestore(const void * buffer, int size) override;
    // getBufferLen calculates; netstore writes the value that it measured.
    int getBufferLen() override;
    void netstore(void * buffer) override;

    // The operator's code from its sign or word; op::kNone for other texts.
    static int resolveOp(const CXString & text);

private:
    void cut(std::string_view text);
    void parse(Statements * statements);
    void complain(std::string_view what) const;
    CMC_Object * run(std::size_t operand);
    CMC_Variable * single();
    CMC_Variable * combined();
    void keep(CMC_Variable * value);
    template <class Use, class Result>
    Result with(Use && use, Result missing);

    bool still_;
    std::unique_ptr<CMC_Behaviour> owner_; // empty, named "temp": where the operands are parsed
    std::vector<CXString> operands_;       // their texts
    std::vector<std::unique_ptr<CMC_Behaviour_Entry>> entries_; // one for each, null for an empty text
    std::vector<int> operators_;                                // between them
    CMC_Variable * value_ = nullptr;                            // last result from the pool; owned
    unsigned clearings_ = 0;                                    // of the pools, when it was kept
    life::Handle named_;                                        // last result that is a named value
    int evaluatingAt_ = -1; // how many behaviours ran when its evaluation began; -1 outside of one
};
