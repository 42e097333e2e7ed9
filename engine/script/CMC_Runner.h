#pragma once

// The method table of a script type: rows of id, name, parameters in words and handler. Dispatch, the lookup
// of names and the script reference all come from the rows. CMC_RunnerFactory holds one runner a type for
// the life of a game. Main thread.

#include "core/CStringHashCode.h"
#include "core/CXVector.h"
#include "script/CMC_Object.h"
#include "script/CMC_VariableFactory.h"

#include <memory>
#include <span>
#include <vector>

struct Call;

struct MethodRow {
    using Handler = CMC_Variable * (*)(Call & call);

    int id;
    const char * name;       // null for an id without a name
    const char * parameters; // in words, for people: "text, from = 0"
    int needed;              // with fewer parameters nothing happens, the result is null and the log says so
    Handler handler;
};

class CMC_Runner : public CXObject {
public:
    static constexpr int kUnknown = -1;

    explicit CMC_Runner(std::span<const MethodRow> rows = {}) : rows_(rows) {}
    CMC_Runner(const CMC_Runner &) = delete;
    CMC_Runner & operator=(const CMC_Runner &) = delete;
    ~CMC_Runner() override;

    // Fills the names from the rows, those common to all objects first.
    virtual void prepareMthHashSet();
    virtual void toDebug(const CXString &, CXVector *) {}
    // Item i of a list; an expression is calculated and gives its value, an object that is no value its
    // name. Null outside the list.
    virtual CMC_Variable * getParameter(CXVector * params, int i);
    // The same, converted: a pool value that is free again and stays readable for the statement. Never null:
    // what is missing reads as false, 0 or the empty text.
    virtual CMC_Bool * getParameterBool(CXVector * params, int i);
    virtual CMC_Double * getParameterDouble(CXVector * params, int i);
    virtual CMC_Integer * getParameterInteger(CXVector * params, int i);
    virtual CMC_String * getParameterString(CXVector * params, int i);
    // The result is a pool value of the caller, a named value, a control signal or null. params may be null.
    virtual CMC_Variable * run(int id, CMC_Object * object, CMC_ObjectsContainer * scope, CXVector * params);
    virtual CMC_Variable * run(const CXString & name, CMC_Object * object, CMC_ObjectsContainer * scope,
                               CXVector * params);
    virtual int resolveMethod(const CXString & name); // kUnknown for an unknown name; case counts

    // Runs a row of this runner; what run comes to for one who keeps the row.
    CMC_Variable * run(const MethodRow & row, CMC_Object * object, CMC_ObjectsContainer * scope,
                       CXVector * params);
    const MethodRow * rowOf(int id) const { // null for an id that has none
        return id >= 0 && static_cast<std::size_t>(id) < byId_.size() ? byId_[static_cast<std::size_t>(id)]
                                                                      : nullptr;
    }

    std::span<const MethodRow> rows() const { return rows_; }
    static std::span<const MethodRow> commonRows(); // ids from 96, valid on every object

    // A parameter as a value, by the rules of getParameter.
    static CMC_Variable * valueOf(CXObject * parameter) {
        auto * object = static_cast<CMC_Object *>(parameter);
        if (object && types::isValue(object->getType())) return static_cast<CMC_Variable *>(object);
        return object ? valueOfOther(object) : nullptr;
    }

    static void noteTooFew(CMC_Object * object, const MethodRow & row);

private:
    static CMC_Variable * valueOfOther(CMC_Object * object);

    std::span<const MethodRow> rows_;
    std::vector<const MethodRow *> byId_;
    std::unique_ptr<CHashtable> methods_; // name to CInteger, which it doesn't own
    std::vector<std::unique_ptr<CXObject>> ids_;
    CStringHashCode key_{"temp"};
};

// A method call as its handler sees it. Parameters are read here and nowhere else; read them all before
// anything that may raise a signal.
struct Call {
    CMC_Runner & runner;
    CMC_Object * object;
    CMC_ObjectsContainer * scope;
    CXVector * params; // may be null
    const MethodRow & row;

    template <class Type>
    Type * self() const {
        return static_cast<Type *>(object);
    }
    int count() const { return params ? params->size : 0; }
    CXObject * item(int i) const { return i < count() ? params->begin()[i] : nullptr; }
    bool has(int i) const { return item(i) != nullptr; }
    CMC_Variable * value(int i) const { return CMC_Runner::valueOf(item(i)); }
    // For a method that needs more on this receiver than its row asks for: whether any of the first
    // parameters is missing or null. The log says so.
    bool lacks(int needed) const;
    int integer(int i, int missing = 0) const {
        CMC_Variable * v = value(i);
        return v ? v->toInteger() : missing;
    }
    double number(int i, double missing = 0.0) const {
        CMC_Variable * v = value(i);
        return v ? v->asDouble() : missing;
    }
    bool boolean(int i, bool missing = false) const {
        CMC_Variable * v = value(i);
        return v ? v->asBool() : missing;
    }
    CXString text(int i, const char * missing = "") const {
        CMC_Variable * v = value(i);
        return v ? v->asString() : CXString(missing);
    }
    // The object that a parameter names, through the scopes; null when there is none.
    CMC_Object * named(int i) const;
    // The same, of one type only.
    template <class Type>
    Type * named(int i, int type) const {
        CMC_Object * found = named(i);
        return found && found->getType() == type ? static_cast<Type *>(found) : nullptr;
    }
};

inline CMC_Variable * CMC_Runner::run(const MethodRow & row, CMC_Object * object,
                                      CMC_ObjectsContainer * scope, CXVector * params) {
    if ((params ? params->size : 0) < row.needed) {
        noteTooFew(object, row);
        return nullptr;
    }
    Call call{*this, object, scope, params, row};
    return row.handler(call);
}

// Results: new pool values.
inline CMC_Variable * result(int value) { return CMC_VariableFactory::integer(value); }
inline CMC_Variable * result(double value) { return CMC_VariableFactory::real(value); }
inline CMC_Variable * result(bool value) { return CMC_VariableFactory::boolean(value); }
inline CMC_Variable * result(const CXString & value) { return CMC_VariableFactory::string(value); }
inline CMC_Variable * result(const char * value) {
    return CMC_VariableFactory::string(std::string_view(value));
}
