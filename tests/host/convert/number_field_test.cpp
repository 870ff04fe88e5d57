/// Numbers in fields of sixteen and twenty characters.
#include "convert/number_field.h"

#include <gtest/gtest.h>

namespace kvocaeio::test {
namespace {

using host::NumberField;

std::string wide(double value) {
    return std::string(NumberField(16, false).write(value));
}

std::string withLetter(double value) {
    return std::string(NumberField(20, true).write(value));
}

TEST(NumberField, HasAPointAlways) {
    EXPECT_EQ(wide(0.0), "0.");
    EXPECT_EQ(wide(-0.0), "-0.");
    EXPECT_EQ(wide(1.0), "1.");
    EXPECT_EQ(wide(-1200.0), "-1200.");
    EXPECT_EQ(wide(12.5), "12.5");
    EXPECT_EQ(wide(0.5), ".5");
    EXPECT_EQ(wide(-0.00125), "-.00125");
}

TEST(NumberField, HasAnExponentWhereThatIsShorterByFar) {
    EXPECT_EQ(wide(1e7), "1.E+7");
    EXPECT_EQ(wide(2.5e-9), "2.5E-9");
    EXPECT_EQ(wide(-1.5e-300), "-1.5E-300");
}

TEST(NumberField, LeavesTheLetterOutForADigit) {
    EXPECT_EQ(wide(1.23456789012e-20), "1.23456789012-20");
    EXPECT_EQ(withLetter(1.23456789012e-20), "1.23456789012E-20");
}

TEST(NumberField, HasAllDigitsWhereTheyFit) {
    EXPECT_EQ(withLetter(0.1), ".1");
    EXPECT_EQ(withLetter(1.0 / 3.0), ".3333333333333333");
    EXPECT_EQ(withLetter(-2.0 / 3.0), "-.6666666666666666");
    EXPECT_EQ(withLetter(-0.30000000000000004), "-.30000000000000004");
    EXPECT_EQ(withLetter(1.7976931348623157e308), "1.7976931348623E+308");
}

TEST(NumberField, RoundsWhereTheFieldIsTooNarrow) {
    NumberField field(16, false);
    EXPECT_EQ(field.write(1.0 / 3.0), ".333333333333333");
    EXPECT_NEAR(field.largestChange(), 3.3e-16, 1e-17);
    EXPECT_EQ(field.write(-123456.78901234567), "-123456.78901235");
    EXPECT_NEAR(field.largestChange(), 4.3e-9, 1e-10);
    EXPECT_EQ(field.write(0.99999999999999994), "1.");
}

TEST(NumberField, IsReadAsTheSameNumber) {
    for (const double value : {0.1, 1e22, 123456789.0, 2.5e-308, 0.000123, 98765.4321e-10}) {
        NumberField field(20, true);
        EXPECT_EQ(std::stod(std::string(field.write(value))), value);
        EXPECT_EQ(field.largestChange(), 0.0);
    }
}

}  // namespace
}  // namespace kvocaeio::test
