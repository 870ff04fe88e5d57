/// Random texts for the scan formats: plausible lines of decks, and nasty ones.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "text/random.h"

namespace kvocaeio::test {

/// How the fields of a line stand.
enum class LineShape {
    kCommas,   // "12 , 0.5 , ..."
    kBlanks,   // "GRID 12 0 0.5 ..."
    kColumns,  // fields of 2, 8 or 16 characters, one at the other
};

/// Makes one text after the other, the same ones from the same seed.
class ScanTexts {
  public:
    explicit ScanTexts(std::uint64_t seed) : random_(seed) {}

    /// The next text, valid until the next call. About one in thirty holds a NUL.
    std::string_view next(LineShape shape, std::size_t maxFields) {
        text_.clear();
        const std::size_t fields = 1 + random_.below(maxFields);
        for (std::size_t i = 0; i < fields && text_.size() < kMaxLength; ++i)
            addField(shape, i);
        if (random_.oneIn(3))
            text_ += random_.oneIn(2) ? "\n" : "\r\n";
        if (random_.oneIn(20) && !text_.empty())
            text_[random_.below(text_.size())] = kCharacters[random_.below(kCharacters.size())];
        return text_;
    }

    static constexpr std::size_t kMaxLength = 600;

  private:
    // (The last one is the NUL.)
    static constexpr std::string_view kCharacters{" \t\v,.+-eExXpnN0189afinity!\xA0\xFF", 31};

    void addField(LineShape shape, std::size_t index) {
        if (shape == LineShape::kColumns) {
            constexpr std::size_t kWidths[] = {2, 8, 8, 8, 8, 16};
            const std::size_t start = text_.size();
            addNumber();
            const std::size_t width = kWidths[random_.below(std::size(kWidths))];
            if (text_.size() - start < width && random_.below(8) != 0)
                text_.insert(random_.oneIn(4) ? text_.size() : start, width + start - text_.size(),
                             ' ');
            return;
        }
        if (shape == LineShape::kBlanks && index == 0 && !random_.oneIn(8))
            addWord();
        else if (random_.oneIn(30))
            addWord();
        else
            addNumber();
        constexpr std::string_view kCommas[] = {",", ", ", " , ", ",  ", "\t,", " ", ",,", ""};
        constexpr std::string_view kBlanks[] = {" ", " ", "  ", "\t", "   ", " \v\f", "\n", ","};
        const auto& separators = shape == LineShape::kCommas ? kCommas : kBlanks;
        text_ += separators[random_.oneIn(4) ? random_.below(8) : random_.below(3)];
    }

    void addWord() {
        for (std::size_t i = 1 + random_.below(9); i > 0; --i)
            text_ += "ABCXYZ_*-.0159eip#\xC4"[random_.below(19)];
    }

    void addDigits(std::size_t count, std::string_view digits = "0123456789") {
        for (; count > 0; --count)
            text_ += digits[random_.below(digits.size())];
    }

    void addSign() {
        if (random_.oneIn(4))
            text_ += random_.oneIn(4) ? '+' : '-';
    }

    void addNumber() {
        switch (random_.below(16)) {
            case 0:
                return addExtreme();
            case 1:
                return addOddity();
            case 2:
                return addHexadecimal();
            case 3:
                addSign();
                return addDigits(8 + random_.below(14));
            case 4:
            case 5:
            case 6:
            case 7:
                addSign();
                return addDigits(1 + random_.below(7));
            default:
                return addDecimal();
        }
    }

    void addDecimal() {
        addSign();
        addDigits(random_.below(random_.oneIn(8) ? 22 : 5));
        text_ += '.';
        addDigits(random_.below(random_.oneIn(8) ? 30 : 10));
        if (random_.oneIn(3)) {
            text_ += random_.oneIn(2) ? 'e' : 'E';
            if (random_.oneIn(2))
                text_ += random_.oneIn(2) ? '+' : '-';
            addDigits(random_.oneIn(8) ? random_.below(6) : 2);
        }
    }

    // Exponents stay where the value has all its digits: glibc 2.36 rounds some hexadecimal numbers
    // below 2^-1022 to the farther neighbour.
    void addHexadecimal() {
        addSign();
        text_ += random_.oneIn(2) ? "0x" : "0X";
        addDigits(random_.below(16), "0123456789abcdefABCDEF");
        if (random_.oneIn(2)) {
            text_ += '.';
            addDigits(random_.below(16), "0123456789abcdefABCDEF");
        }
        if (random_.oneIn(2)) {
            text_ += random_.oneIn(2) ? 'p' : 'P';
            addSign();
            addDigits(random_.below(2));
        }
    }

    // Ends of the types, and values half way between two neighbours.
    void addExtreme() {
        constexpr std::string_view kExtremes[] = {
            "2147483647",
            "2147483648",
            "-2147483648",
            "-2147483649",
            "4294967296",
            "9223372036854775807",
            "9223372036854775808",
            "-9223372036854775809",
            "00000000000000000000000000012",
            "1.7976931348623157e308",
            "1.7976931348623158e308",
            "1.7976931348623159e308",
            "1e309",
            "-1e400",
            "1e99999999999999999999",
            "1e-99999999999999999999",
            "4.9e-324",
            "-2.4703282292062327e-324",
            "2.4703282292062328e-324",
            "2.2250738585072011e-308",
            "2.2250738585072014e-308",
            "9007199254740992",
            "9007199254740993",
            "9007199254740993.0000000000000000000001",
            "-9007199254740995",
            "0.000000000000000000000000000000000000000000000000012345",
            "123456789012345678901234567890e-20",
            "1.00000005960464477539062500000",
            "1.0000000596046447753906250001",
            "16777217",
            "3.4028234663852886e38",
            "3.4028235677973366e38",
            "3.4028235677973365e38",
            "1.1754943508222875e-38",
            "7.0064923216240853e-46",
            "7.0064923216240854e-46",
            "1e22",
            "1e23",
            "123e20",
            "8.988465674311580e+307",
            "0.1e-5",
            "0e999",
            "-0",
            "-0.0e5",
            "1e10",
            "1e11",
            "16777216e10"};
        text_ += kExtremes[random_.below(std::size(kExtremes))];
        if (random_.oneIn(8))
            addDigits(1 + random_.below(3));
    }

    // What the C library treats in ways of its own.
    void addOddity() {
        constexpr std::string_view kOddities[] = {
            "nan",     "NaN",   "-nan",     "nan(12)",   "nan(",  "na",      "n",      "inf",
            "-INF",    "+inf",  "infinity", "-Infinity", "infi",  "infinit", "in",     "infx",
            "0x",      "0x.",   "0xp1",     "0x.p1",     "0x1p",  "0x1p+",   "0x1p-x", "00x1",
            "0x1.8.2", "1e",    "1e+",      "1.0e-",     "1e+-5", "1e5e5",   "1e5.5",  "e5",
            ".",       ".e1",   "-",        "+",         "+-1",   "--1",     "-.",     "-.5",
            "+.5e+1",  "1..2",  "1.2.3",    "1d5",       "1D+05", "1-3",     "0e",     "0e+",
            "0x1e5",   "0xe+1", "1,5",      "1e 5"};
        text_ += kOddities[random_.below(std::size(kOddities))];
    }

    Random random_;
    std::string text_;
};

}  // namespace kvocaeio::test
