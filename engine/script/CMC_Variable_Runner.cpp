#include "script/CMC_Variable_Runner.h"

#include "app/CWindow.h"
#include "core/CXRandom.h"
#include "core/Diagnostics.h"
#include "files/CPath.h"
#include "platform/World.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/Conversions.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

constexpr double kDegrees = 57.29577950560105; // of a radian, with the digits that scripts have always seen
constexpr float kRadians = 0.017453292F;       // of a degree; 32 bits, as scripts have always seen

template <class Value>
Value * handedBack(Value * value) {
    CMC_VariableFactory::free(value);
    return value;
}

// A value that nobody keeps, for an expression that a method acts on.
CMC_Variable * standIn(CMC_Variable * expression) {
    CMC_Variable * copy = CMC_VariableFactory::copyVariable(CMC_Runner::valueOf(expression));
    return handedBack(copy ? copy : CMC_VariableFactory::string(std::string_view()));
}

// Whom the method acts on. Never null.
inline CMC_Variable * receiver(const Call & call) {
    auto * variable = call.self<CMC_Variable>();
    return variable->getType() == types::kExpression ? standIn(variable) : variable;
}

// The receiver takes the value, as far as its type can hold it; no ONCHANGED. The value stays the caller's.
void store(CMC_Variable * to, CMC_Variable * value) {
    switch (to->getType()) {
    case types::kInteger: static_cast<CMC_Integer *>(to)->setValue(value->asInteger()); break;
    case types::kDouble: static_cast<CMC_Double *>(to)->setValue(value->asDouble()); break;
    case types::kBool: static_cast<CMC_Bool *>(to)->setValue(value->asBool()); break;
    case types::kString: static_cast<CMC_String *>(to)->setValue(value->asString()); break;
    default: break;
    }
}

template <class Type>
CMC_Variable * stored(CMC_Variable * to, const Type & value) {
    CMC_Variable * given = result(value);
    store(to, given);
    return given;
}

CMC_Variable * keep(CMC_Variable * to, const CXString & text) {
    CMC_VariableFactory::free(stored(to, text));
    return nullptr;
}

// The position behind count bytes from start on.
int behind(int start, int count) {
    return static_cast<int>(std::min<std::int64_t>(std::int64_t{start} + count, INT32_MAX));
}

// --- values of any type

CMC_Variable * set(Call & call) {
    CMC_Variable * value = call.value(0);
    if (!value)
        dispMsgBox(nullptr, "Null parameter to set method called on " + call.object->getName());
    else
        receiver(call)->set(value);
    return nullptr;
}

CMC_Variable * get(Call & call) {
    CMC_Variable * variable = receiver(call);
    if (variable->getType() == types::kBool && variable == call.object) return variable;
    if (variable->getType() != types::kString || call.count() == 0)
        return CMC_VariableFactory::copyVariable(variable);
    CXString text = variable->asString();
    int start = call.integer(0), length = call.integer(1, 1);
    if (call.count() > 1 && length == -1) return result(text.Right(start));
    return result(text.Mid(start, behind(start, length)));
}

CMC_Variable * switchValue(Call & call) {
    CMC_Variable * variable = receiver(call);
    if (variable->getType() == types::kBool) // inverts, whatever it is given
        variable->swap(nullptr, nullptr);
    else if (!call.lacks(2))
        variable->swap(call.value(0), call.value(1));
    return nullptr;
}

CMC_Variable * clear(Call & call) {
    receiver(call)->clear();
    return nullptr;
}

CMC_Variable * inc(Call & call) {
    receiver(call)->inc();
    return nullptr;
}

CMC_Variable * dec(Call & call) {
    receiver(call)->dec();
    return nullptr;
}

CMC_Variable * calculatedOther(Call & call, int op) {
    CMC_Variable * operand = call.value(0);
    if (!operand) {
        call.lacks(1);
        return nullptr;
    }
    CMC_Variable * variable = receiver(call);
    CMC_Variable * outcome = variable->calculate(operand, op);
    variable->set(outcome);
    return outcome;
}

// The receiver takes what comes out of the operator; that value is the caller's, null without an operand.
template <int Op>
CMC_Variable * calculated(Call & call) {
    auto * operand = static_cast<CMC_Object *>(call.item(0));
    bool whole =
        call.object->getType() == types::kInteger && operand && operand->getType() == types::kInteger;
    if (!whole || !call.self<CMC_Integer>()->isQuiet()) return calculatedOther(call, Op);
    // Nobody sees the steps between: the same value without a conversion and a signal's way.
    auto * number = call.self<CMC_Integer>();
    int value =
        CMC_Integer::calculated(number->getValue(), static_cast<CMC_Integer *>(operand)->getValue(), Op);
    number->put(value);
    return result(value);
}

CMC_Variable * sub(Call & call) {
    CMC_Variable * variable = receiver(call);
    if (variable->getType() != types::kString) {
        CMC_VariableFactory::free(calculated<op::kSub>(call));
    } else if (!call.lacks(2)) {
        CXString text = variable->asString();
        int start = call.integer(0);
        CMC_Variable * rest =
            CMC_VariableFactory::string(text.Left(start) + text.Right(behind(start, call.integer(1))));
        variable->set(rest);
        CMC_VariableFactory::free(rest);
    }
    return nullptr;
}

template <int Op>
CMC_Variable * calculate(Call & call) {
    CMC_VariableFactory::free(calculated<Op>(call));
    return nullptr;
}

CMC_Variable * resetIni(Call & call) {
    receiver(call)->resetINI();
    return nullptr;
}

CMC_Variable * setDefault(Call & call) {
    if (CMC_Variable * value = call.value(0)) receiver(call)->setDefault(value);
    return nullptr;
}

// --- whole numbers

CMC_Variable * abs(Call & call) {
    int x = call.integer(0);
    return stored(receiver(call), x < 0 ? convert::sub(0, x) : x);
}

CMC_Variable * bitAnd(Call & call) {
    CMC_Variable * variable = receiver(call);
    return stored(variable, variable->asInteger() & call.integer(0));
}

CMC_Variable * bitOr(Call & call) {
    CMC_Variable * variable = receiver(call);
    return stored(variable, variable->asInteger() | call.integer(0));
}

CMC_Variable * bitXor(Call & call) {
    CMC_Variable * variable = receiver(call);
    return stored(variable, variable->asInteger() ^ call.integer(0));
}

CMC_Variable * complement(Call & call) {
    CMC_Variable * variable = receiver(call);
    if (variable->getType() != types::kString) return stored(variable, ~variable->asInteger());
    CXString text = variable->asString();
    std::string reversed(text.view().rbegin(), text.view().rend());
    return stored(variable, CXString(reversed));
}

CMC_Variable * random(Call & call) {
    int first = call.integer(0), second = call.integer(1);
    int drawn = 0;
    CXRandom seeded; // from the time, so that all draws of a second begin alike
    if (call.count() == 1) drawn = CXRandom::random(first);
    if (call.count() > 1) drawn = CXRandom::random(first, second);
    CMC_Variable * variable = receiver(call);
    return variable->getType() == types::kInteger ? stored(variable, drawn) : result(drawn);
}

// --- real numbers

CMC_Variable * power(Call & call) {
    CMC_Variable * variable = receiver(call);
    double raised = std::pow(variable->asDouble(), call.number(0));
    if (variable->getType() == types::kInteger) return stored(variable, convert::truncated(raised));
    return stored(variable, raised);
}

CMC_Variable * log(Call & call) { return stored(receiver(call), std::log(call.number(0))); }

CMC_Variable * sqrt(Call & call) {
    CMC_Variable * variable = receiver(call);
    return stored(variable, std::sqrt(variable->asDouble()));
}

CMC_Variable * sgn(Call & call) {
    double value = receiver(call)->asDouble();
    return result(value < 0.0 ? -1 : value > 0.0 ? 1 : 0);
}

template <class Number>
Number clamped(Number value, Number low, Number high) {
    return value < low ? low : value > high ? high : value;
}

CMC_Variable * clamp(Call & call) {
    CMC_Variable * variable = receiver(call);
    if (variable->getType() == types::kInteger || variable->getType() == types::kBool)
        return stored(variable, clamped(variable->asInteger(), call.integer(0), call.integer(1)));
    return stored(variable, clamped(variable->asDouble(), call.number(0), call.number(1)));
}

CMC_Variable * length(Call & call) {
    CMC_Variable * variable = receiver(call);
    if (variable->getType() == types::kString) return result(variable->asString().getLength());
    if (call.lacks(2)) return nullptr;
    double x = call.number(0), y = call.number(1);
    return stored(variable, std::sqrt(x * x + y * y));
}

CMC_Variable * arctan(Call & call) { return stored(receiver(call), std::atan(call.number(0)) * kDegrees); }

CMC_Variable * arctanEx(Call & call) {
    double angle = std::atan2(call.number(0), call.number(1)) * kDegrees;
    if (angle < 0.0) angle += 360.0;
    if (call.count() > 2) angle = convert::truncated(call.number(2) + angle) % 360;
    return stored(receiver(call), angle);
}

CMC_Variable * sinus(Call & call) { return stored(receiver(call), std::sin(call.number(0) * kRadians)); }

CMC_Variable * cosinus(Call & call) { return stored(receiver(call), std::cos(call.number(0) * kRadians)); }

CMC_Variable * minA(Call & call) {
    double least = call.number(0);
    for (int i = 1; i < call.count(); i++) least = std::min(least, call.number(i));
    return stored(receiver(call), least);
}

CMC_Variable * maxA(Call & call) {
    double most = call.number(0);
    for (int i = 1; i < call.count(); i++) most = std::max(most, call.number(i));
    return stored(receiver(call), most);
}

// The hundredths decide, cut off like the whole part: no negative value goes away from zero.
CMC_Variable * round(Call & call) {
    double value = receiver(call)->asDouble();
    bool up = convert::truncated(value * 100) % 100 >= 50;
    return result(convert::add(convert::truncated(value), up ? 1 : 0));
}

// --- texts

CMC_Variable * upper(Call & call) {
    CMC_Variable * variable = receiver(call);
    if (variable->getType() == types::kString) static_cast<CMC_String *>(variable)->upper();
    return nullptr;
}

CMC_Variable * find(Call & call) {
    return result(receiver(call)->asString().FindSubString(call.text(0), call.integer(1)));
}

CMC_Variable * cut(Call & call) {
    CMC_Variable * variable = receiver(call);
    CXString text = variable->asString();
    int start = call.integer(0), count = call.integer(1);
    return keep(variable, count <= 0 ? text.Right(start) : text.Mid(start, behind(start, count)));
}

CMC_Variable * replaceAt(Call & call) {
    CMC_Variable * variable = receiver(call);
    CXString text = variable->asString(), with = call.text(1);
    int start = call.integer(0);
    if (!CMC_String::fits(std::int64_t{text.getLength()} + with.getLength())) return nullptr;
    return keep(variable, text.Left(start) + with + text.Right(behind(start, with.getLength())));
}

CMC_Variable * insertAt(Call & call) {
    CMC_Variable * variable = receiver(call);
    CXString text = variable->asString(), inserted = call.text(1);
    int start = call.integer(0), times = std::max(call.integer(2, 1), 0);
    if (!CMC_String::fits(text.getLength() + std::int64_t{times} * inserted.getLength())) return nullptr;
    CXString longer = text.Left(start);
    for (int i = 0; i < times && inserted.IsString(); i++) longer += inserted;
    return keep(variable, longer + text.Right(start));
}

// How long a text becomes by CXString::replace.
std::int64_t replacedLength(std::string_view text, std::string_view what, std::string_view with) {
    auto size = static_cast<std::int64_t>(text.size());
    if (what.empty()) return size;
    for (std::size_t hit = text.find(what); hit != text.npos; hit = text.find(what, hit + what.size()))
        size += static_cast<std::int64_t>(with.size()) - static_cast<std::int64_t>(what.size());
    return size;
}

CMC_Variable * replace(Call & call) {
    CMC_Variable * variable = receiver(call);
    CXString text = variable->asString(), what = call.text(0), with = call.text(1);
    if (!CMC_String::fits(replacedLength(text.view(), what.view(), with.view()))) return nullptr;
    return keep(variable, text.replace(what, with));
}

CMC_Variable * isUpperLetter(Call & call) {
    CMC_Variable * variable = receiver(call);
    int i = call.integer(0);
    return result(variable->getType() == types::kString && variable->asString().IsUpper(i));
}

CMC_Variable * copyFile(Call & call) {
    CWindow * window = call.scope ? call.scope->getWindow() : nullptr;
    CXString from = CPath::resolveFileNameEx(window, call.text(0));
    CXString to = CPath::resolveFileNameEx(window, call.text(1));
    return result(platform::world().files->copy(from.c_str(), to.c_str(), false));
}

// Number 19 was never given a name.
constexpr MethodRow kRows[] = {
    {1, "SET", "value", 1, set},
    {2, "GET", "(a text:) index, or start, length (-1: to the end)", 0, get},
    {3, "SWITCH", "a, b", 0, switchValue},
    {4, "CLEAR", "", 0, clear},
    {5, "INC", "", 0, inc},
    {6, "DEC", "", 0, dec},
    {7, "ADD", "x", 1, calculated<op::kAdd>},
    {8, "SUB", "x, or (a text:) start, count", 1, sub},
    {9, "MUL", "x", 1, calculate<op::kMul>},
    {10, "DIV", "x", 1, calculate<op::kDiv>},
    {11, "MOD", "x", 1, calculate<op::kMod>},
    {12, "RESETINI", "", 0, resetIni},
    {13, "SETDEFAULT", "x", 1, setDefault},
    {14, "ABS", "x", 1, abs},
    {15, "AND", "x", 1, bitAnd},
    {16, "OR", "x", 1, bitOr},
    {17, "XOR", "x", 1, bitXor},
    {18, "NOT", "", 0, complement},
    {20, "POWER", "x", 1, power},
    {21, "LOG", "x", 1, log},
    {22, "SQRT", "", 0, sqrt},
    {23, "SGN", "", 0, sgn},
    {24, "CLAMP", "low, high", 2, clamp},
    {25, "LENGTH", "x, y, or (a text:) nothing", 0, length},
    {26, "ARCTAN", "x", 1, arctan},
    {27, "ARCTANEX", "y, x, optional offset", 2, arctanEx},
    {28, "SINUS", "degrees", 1, sinus},
    {29, "COSINUS", "degrees", 1, cosinus},
    {30, "MINA", "one or more", 1, minA},
    {31, "MAXA", "one or more", 1, maxA},
    {32, "UPPER", "", 0, upper},
    {33, "FIND", "text, from = 0", 1, find},
    {34, "CUT", "start, count", 2, cut},
    {35, "REPLACEAT", "position, text", 2, replaceAt},
    {36, "INSERTAT", "position, text, times = 1", 2, insertAt},
    {37, "REPLACE", "what, with", 2, replace},
    {38, "ROUND", "", 0, round},
    {39, "ISUPPERLETTER", "index", 1, isUpperLetter},
    {40, "COPYFILE", "source, target", 2, copyFile},
    {41, "RANDOM", "nothing; n; or from, n", 0, random},
};

} // namespace

CMC_Variable_Runner::CMC_Variable_Runner() : CMC_Runner(kRows) {}
