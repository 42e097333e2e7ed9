#pragma once

// VECTOR: a list of doubles of a given size, with vector arithmetic. Owned by its scope. Main thread.

#include "script/CMC_Object.h"

#include <vector>

class CMC_Vector : public CMC_Object {
public:
    static constexpr int kMost = 1 << 20; // elements; a larger size is refused with a note
    static constexpr SignalList kSignals{};
    static const char * const kKeys[2];

    CMC_Vector(CMC_ObjectsContainer * scope, CMElement * element);

    CMC_Object * clone() override;
    CMC_Runner * getRunner() override;

    int getSize() const { return static_cast<int>(values_.size()); }
    const std::vector<double> & values() const { return values_; }
    bool has(int i) const { return i >= 0 && i < getSize(); }
    double get(int i) const { return has(i) ? values_[static_cast<std::size_t>(i)] : 0.0; }
    void set(int i, double value); // nothing outside

    // A vector of another size is passed over.
    void add(const CMC_Vector & other);
    void sub(const CMC_Vector & other);
    void set(const CMC_Vector & other);                    // as many elements as both have
    void vmul(const CMC_Vector & a, const CMC_Vector & b); // a * b, as many elements as all three have
    double smul(const CMC_Vector & other) const;           // dot product, 0 for different sizes
    void mul(double factor);
    double len() const;
    void normalize(); // one without a length becomes zero, with a note
    void reflect(const CMC_Vector & normal, CMC_Vector & target) const; // 2 (this . normal) normal - this
    void expand(int size); // new places come first and are zero; a smaller size keeps the last elements
    void neg();

private:
    explicit CMC_Vector(const std::vector<double> & values)
        : CMC_Object(CXString(), types::kVector), values_(values) {}

    std::vector<double> values_;
};
