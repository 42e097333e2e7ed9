#include "core/CXArray.h"
#include "core/CXPoint.h"
#include "core/CXRect.h"
#include "core/CXString.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(NumberText, FiveDecimalsAlways) {
    struct {
        double value;
        const char * text;
    } rows[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {2.0, "2.00000"},
        {1.5, "1.50000"},
        {-0.25, "-0.25000"},
        {-0.001, "-0.00100"},
        {0.015625, "0.01563"}, // a half goes away from zero
        {-0.015625, "-0.01563"},
        {0.000005, "0.00001"},
        {0.000001, "0"},
        {-0.000001, "0"},
        {0.00001, "0.00001"},
        {0.1 + 0.2, "0.30000"},
        {0.999995, "0.99999"}, // its 17 digits say 0.99999499999999997
        {0.999996, "1.00000"},
        {9.999999, "10.00000"},
        {99999.999999, "100000.00000"},
        {1e15, "1000000000000000.00000"},
        {1e20, "100000000000000000000.00000"},
        {123456789.123456789, "123456789.12346"},
        {-1234.5, "-1234.50000"},
    };
    for (auto & row : rows) EXPECT_EQ(CXString::toString(row.value), row.text) << row.value;
    // No digits, but something to print and no crash.
    for (double odd : {HUGE_VAL, -HUGE_VAL, std::nan("")}) EXPECT_NE(CXString::toString(odd), "");
    EXPECT_GT(CXString::toString(std::numeric_limits<double>::max()).getLength(), 310);
    EXPECT_EQ(CXString::toString(std::numeric_limits<double>::denorm_min()), "0");
}

TEST(NumberText, NineDigitsWhenAssigned) {
    struct {
        double value;
        const char * text;
    } rows[] = {
        {1.0, "1."},
        {0.25, "0.25"},
        {-0.25, "-0.25"},
        {100.0, "100."},
        {123456789.0, "123456789."},
        {1234567890.0, "1.23456789e+009"},
        {1.5e10, "1.5e+010"},
        {0.01, "1.e-002"},
        {1e-300, "1.e-300"},
        {1.0 / 3.0, "0.333333333"},
        {2.0 / 3.0, "0.666666667"},
        {999999999.9, "1.e+009"}, // rounding carries into the exponent
    };
    for (auto & row : rows) {
        CXString text;
        text = row.value;
        EXPECT_EQ(text, row.text) << row.value;
    }
}

TEST(NumberText, WholeNumbers) {
    struct {
        int value;
        const char * text;
    } rows[] = {{0, "0"}, {-1, "-1"}, {2147483647, "2147483647"}, {-2147483647 - 1, "-2147483648"}};
    for (auto & row : rows) {
        EXPECT_EQ(CXString::toString(row.value), row.text);
        CXString text("x");
        text += row.value;
        EXPECT_EQ(text, CXString("x") + row.text);
        text = row.value;
        EXPECT_EQ(text, row.text);
        EXPECT_EQ(text.toNumber(), row.value);
    }
    EXPECT_EQ(CXString::toString(true), "TRUE");
    EXPECT_EQ(CXString::toString(false), "FALSE");
}

TEST(NumberText, NumbersOutOfText) {
    struct {
        const char * text;
        int whole;
        double number;
        bool isNumber;
    } rows[] = {
        {"", 0, 0, false},
        {"0", 0, 0, false}, // not a number here
        {"12abc", 12, 12, true},
        {"abc12", 0, 0, false},
        {" \t\n-7", -7, -7, true},
        {"+5", 5, 5, true},
        {"- 5", 0, 0, false},
        {"--5", 0, 0, false},
        {"1.5", 1, 1.5, true},
        {".5", 0, 0.5, false},
        {"5.", 5, 5, true},
        {"-.5", 0, -0.5, false},
        {".", 0, 0, false},
        {"1e3", 1, 1000, true},
        {"1e", 1, 1, true},
        {"1e+", 1, 1, true},
        {"2.5E-1x", 2, 0.25, true},
        {"0x10", 0, 0, false},
        {"1,5", 1, 1, true},
        {"inf", 0, 0, false},
        {"nan", 0, 0, false},
        {"1e-999", 1, 0, true},
        {"1e999", 1, HUGE_VAL, true},
        {"0.5e999", 0, HUGE_VAL, false},
        {"000.5e-999", 0, 0, false},
        {"4294967297", 1, 4294967297.0, true}, // 32 bits wrap
    };
    for (auto & row : rows) {
        CXString text(row.text);
        EXPECT_EQ(text.toNumber(), row.whole) << row.text;
        EXPECT_EQ(CXString::toLong(text), row.whole) << row.text;
        EXPECT_EQ(text.toDouble(), row.number) << row.text;
        EXPECT_EQ(text.isNumber(), row.isNumber) << row.text;
    }
}

TEST(NumberText, Booleans) {
    for (const char * yes : {"true", "True", "TRUE"}) {
        EXPECT_TRUE(CXString(yes).toBool()) << yes;
        EXPECT_TRUE(CXString::toBool(yes)) << yes;
    }
    for (const char * no : {"", " true", "true ", "1", "yes", "TRU", "TRUEX"}) {
        EXPECT_FALSE(CXString(no).toBool()) << no;
        EXPECT_FALSE(CXString::toBool(no)) << no;
    }
}

TEST(NumberText, PlacesOutOfText) {
    EXPECT_EQ(CXString("3,-4").toPoint(), CXPoint(3, -4));
    EXPECT_EQ(CXString(" 3 | 4 ").toPoint(), CXPoint(3, 4));
    EXPECT_EQ(CXString("7").toPoint(), CXPoint(7, 0));
    EXPECT_EQ(CXString("1.2|3,4 5").toRect(), CXRect(1, 2, 3, 4));
    EXPECT_EQ(CXString("").toRect(), CXRect(0));
}

TEST(NumberText, FormatsInto255Bytes) {
    CXString text;
    text.Format("%s-%d", CXString("a"), 5);
    EXPECT_EQ(text, "a-5");
    text.Format("%s%d%s", text, 1, CXString("%d")); // the string itself as its argument
    EXPECT_EQ(text, "a-51%d");
    text.Format("%s", CXString(std::string(400, 'x').c_str()));
    EXPECT_EQ(text.getLength(), 255);
}

} // namespace
