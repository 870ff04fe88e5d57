/// Definitions of parameters, and the arithmetic in them.
#include "tidy/abaqus/parameters.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "text/ascii.h"
#include "text/scan.h"
#include "tidy/abaqus/fields.h"
#include "tidy/abaqus/statement.h"

namespace kvocaeio::tidy::abaqus {

namespace {

struct Function {
    std::string_view name;
    double (*of)(double value);
};
constexpr Function kFunctions[] = {
    {"ABS", [](double value) { return std::abs(value); }},
    {"ACOS", [](double value) { return std::acos(value); }},
    {"ASIN", [](double value) { return std::asin(value); }},
    {"ATAN", [](double value) { return std::atan(value); }},
    {"COS", [](double value) { return std::cos(value); }},
    {"EXP", [](double value) { return std::exp(value); }},
    {"FLOAT", [](double value) { return value; }},
    {"INT", [](double value) { return std::trunc(value); }},
    {"LOG", [](double value) { return std::log(value); }},
    {"LOG10", [](double value) { return std::log10(value); }},
    {"SIN", [](double value) { return std::sin(value); }},
    {"SQRT", [](double value) { return std::sqrt(value); }},
    {"TAN", [](double value) { return std::tan(value); }},
};

bool isNameCharacter(char c) {
    return text::isDigit(c) || c == '_' || (text::toUpper(c) >= 'A' && text::toUpper(c) <= 'Z');
}

std::string parameterName(std::string_view name) {
    std::string folded;
    text::foldToUpper(trimmed(name), folded);
    return folded;
}

/// A number, and whether it is written as an integer.
struct Number {
    double value = 0.0;
    bool isInteger = false;
};

/// Reads an expression, from its operators of the lowest rank to its numbers.
class Expression {
  public:
    Expression(std::string_view text, const std::map<std::string, std::string>& values)
        : rest_(text), values_(values) {}

    /// False where it is none, or its value is not finite.
    bool evaluate(double& value) {
        const Number sum = readSum();
        passBlanks();
        value = sum.value;
        return isValid_ && rest_.empty() && std::isfinite(value);
    }

  private:
    static constexpr int kMostDepth = 64;

    void passBlanks() { rest_ = trimmed(rest_); }
    bool pass(std::string_view mark) {
        passBlanks();
        if (!rest_.starts_with(mark))
            return false;
        rest_.remove_prefix(mark.size());
        return true;
    }
    Number fail() {
        isValid_ = false;
        rest_ = {};
        return {};
    }

    Number readSum() {
        Number sum = readProduct();
        while (true) {
            const bool isPlus = pass("+");
            if (!isPlus && !pass("-"))
                return sum;
            const Number term = readProduct();
            sum.value += isPlus ? term.value : -term.value;
            sum.isInteger = sum.isInteger && term.isInteger;
        }
    }
    Number readProduct() {
        Number product = readSigned();
        while (true) {
            const bool isTimes = pass("*");
            if (!isTimes && !pass("/"))
                return product;
            const Number factor = readSigned();
            product.isInteger = product.isInteger && factor.isInteger;
            product.value = isTimes ? product.value * factor.value : product.value / factor.value;
            // What integers make of it depends on the version of the language.
            if (!isTimes && product.isInteger && product.value != std::floor(product.value))
                return fail();
        }
    }
    Number readSigned() {
        bool isNegative = false;
        while (true)
            if (pass("-"))
                isNegative = !isNegative;
            else if (!pass("+"))
                break;
        Number power = readPower();
        power.value = isNegative ? -power.value : power.value;
        return power;
    }
    Number readPower() {
        const Number base = readAtom();
        if (!pass("**"))
            return base;
        if (++depth_ > kMostDepth)
            return fail();
        const Number exponent = readSigned();
        --depth_;
        return {std::pow(base.value, exponent.value),
                base.isInteger && exponent.isInteger && exponent.value >= 0.0};
    }
    Number readBracket() {
        if (++depth_ > kMostDepth)
            return fail();
        const Number inner = readSum();
        --depth_;
        return pass(")") ? inner : fail();
    }
    Number readAtom() {
        if (pass("("))
            return readBracket();
        if (!rest_.empty() && (text::isDigit(rest_.front()) || rest_.front() == '.'))
            return readNumber(rest_.substr(0, numberLength()));
        std::size_t length = 0;
        while (length < rest_.size() && isNameCharacter(rest_[length]))
            ++length;
        const std::string name = parameterName(rest_.substr(0, length));
        rest_.remove_prefix(length);
        if (const auto value = values_.find(name); value != values_.end())
            return readValue(value->second);
        if (name == "PI")
            return {std::numbers::pi, false};
        for (const Function& function : kFunctions)
            if (name == function.name)
                return pass("(") ? Number{function.of(readBracket().value), name == "INT"} : fail();
        return fail();
    }
    Number readNumber(std::string_view text) {
        rest_.remove_prefix(text.size());
        return readValue(text);
    }
    Number readValue(std::string_view text) {
        Number number;
        if (!readReal(text, number.value))
            return fail();
        number.isInteger = text.find_first_not_of("0123456789-") == std::string_view::npos;
        return number;
    }
    // A sign is part of a number only after its exponent's letter.
    std::size_t numberLength() const {
        std::size_t length = 0;
        for (; length < rest_.size(); ++length) {
            const char c = text::toUpper(rest_[length]);
            const bool isSign =
                (c == '+' || c == '-') && length > 0 && text::toUpper(rest_[length - 1]) == 'E';
            if (!text::isDigit(c) && c != '.' && c != 'E' && !isSign)
                break;
        }
        return length;
    }

    std::string_view rest_;
    const std::map<std::string, std::string>& values_;
    int depth_ = 0;
    bool isValid_ = true;
};

}  // namespace

void Parameters::define(std::string_view line) {
    line = trimmed(line.substr(0, line.find('#')));
    const std::size_t sign = line.find('=');
    const std::string name = parameterName(line.substr(0, sign));
    if (sign == std::string_view::npos || name.empty())
        return;
    const std::string_view text = trimmed(line.substr(sign + 1));
    const bool isText = text.size() > 1 && (text.front() == '\'' || text.front() == '"') &&
                        text.find(text.front(), 1) == text.size() - 1;
    double value = 0.0;
    if (isText) {
        values_[name] = trimmed(text.substr(1, text.size() - 2)).substr(0, kMostName);
    } else if (Expression(text, values_).evaluate(value)) {
        std::array<char, 32> digits;
        const auto last = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        values_[name].assign(digits.data(), last);
    } else {
        values_.erase(name);
    }
}

bool Parameters::substitute(std::string_view line, std::string& substituted) const {
    bool isChanged = false;
    substituted.clear();
    for (std::size_t begin; (begin = line.find('<')) != std::string_view::npos;) {
        const std::size_t end = line.find('>', begin);
        if (end == std::string_view::npos)
            break;
        substituted += line.substr(0, begin);
        const auto value = values_.find(parameterName(line.substr(begin + 1, end - begin - 1)));
        isChanged = isChanged || value != values_.end();
        substituted += value != values_.end() ? std::string_view(value->second)
                                              : line.substr(begin, end - begin + 1);
        line.remove_prefix(end + 1);
    }
    substituted += line;
    return isChanged;
}

}  // namespace kvocaeio::tidy::abaqus
