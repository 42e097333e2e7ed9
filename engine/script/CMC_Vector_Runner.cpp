#include "script/CMC_Vector_Runner.h"

#include "script/CMC_Vector.h"
#include "script/Notes.h"

#include <string>

namespace {

CMC_Vector & self(const Call & call) { return *call.self<CMC_Vector>(); }

// The vector that a parameter names; null, with a note, when there is none.
CMC_Vector * vector(const Call & call, int i) {
    auto * found = call.named<CMC_Vector>(i, types::kVector);
    if (!found) notes::add(notes::Kind::unknownObject, std::string(call.text(i).view()) + " names no vector");
    return found;
}

bool hasElement(const Call & call, int i) {
    bool has = self(call).has(i);
    if (!has)
        notes::add(notes::Kind::other,
                   std::string(call.object->getName().view()) + " has no element " + std::to_string(i));
    return has;
}

CMC_Variable * add(Call & call) {
    for (int i = 0; i < call.count(); i++)
        if (CMC_Vector * other = vector(call, i)) self(call).add(*other);
    return nullptr;
}

CMC_Variable * sub(Call & call) {
    for (int i = 0; i < call.count(); i++)
        if (CMC_Vector * other = vector(call, i)) self(call).sub(*other);
    return nullptr;
}

CMC_Variable * get(Call & call) {
    int i = call.integer(0);
    return result(hasElement(call, i) ? self(call).get(i) : 0.0);
}

CMC_Variable * set(Call & call) {
    if (call.count() == 1) {
        if (CMC_Vector * other = vector(call, 0)) self(call).set(*other);
    } else if (int i = call.integer(0); hasElement(call, i)) {
        self(call).set(i, call.number(1));
    }
    return nullptr;
}

CMC_Variable * assign(Call & call) {
    for (int i = 0; i < call.count(); i++)
        if (hasElement(call, i)) self(call).set(i, call.number(i));
    return nullptr;
}

CMC_Variable * getSize(Call & call) { return result(self(call).getSize()); }

CMC_Variable * vmul(Call & call) {
    CMC_Vector * a = vector(call, 0);
    CMC_Vector * b = vector(call, 1);
    if (a && b) self(call).vmul(*a, *b);
    return nullptr;
}

CMC_Variable * smul(Call & call) {
    CMC_Vector * other = vector(call, 0);
    return other ? result(self(call).smul(*other)) : nullptr;
}

CMC_Variable * mul(Call & call) {
    self(call).mul(call.number(0));
    return nullptr;
}

CMC_Variable * len(Call & call) { return result(self(call).len()); }

CMC_Variable * normalize(Call & call) {
    self(call).normalize();
    return nullptr;
}

CMC_Variable * reflect(Call & call) {
    CMC_Vector * normal = vector(call, 0);
    CMC_Vector * target = vector(call, 1);
    if (normal && target) self(call).reflect(*normal, *target);
    return nullptr;
}

CMC_Variable * expand(Call & call) {
    self(call).expand(call.integer(0));
    return nullptr;
}

CMC_Variable * neg(Call & call) {
    self(call).neg();
    return nullptr;
}

constexpr MethodRow kRows[] = {
    {1, "ADD", "one or more vectors", 1, add},
    {2, "SUB", "one or more vectors", 1, sub},
    {3, "GET", "index", 1, get},
    {4, "SET", "index, value; or one vector", 1, set},
    {5, "ASSIGN", "numbers", 1, assign},
    {6, "GETSIZE", "", 0, getSize},
    {7, "VMUL", "vector, vector", 2, vmul},
    {8, "SMUL", "vector", 1, smul},
    {9, "MUL", "number", 1, mul},
    {10, "LEN", "", 0, len},
    {11, "NORMALIZE", "", 0, normalize},
    {12, "REFLECT", "normal, target", 2, reflect},
    {13, "EXPAND", "size", 1, expand},
    {14, "NEG", "", 0, neg},
};

} // namespace

CMC_Vector_Runner::CMC_Vector_Runner() : CMC_Runner(kRows) {}
