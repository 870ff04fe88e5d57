/// Scanned fields against `sscanf`, for every scan format of the readers; on other platforms than
/// Linux by a digest.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/hostile_texts.h"
#include "text/digest.h"
#include "text/scan.h"
#include "text/scan_texts.h"

namespace kvocaeio::text {
namespace {

using test::repeated;

#if defined(NDEBUG)
constexpr int kTexts = 500'000;
#else
constexpr int kTexts = 50'000;
#endif

struct FormatGroup {
    test::LineShape shape;
    std::size_t maxFields;
    std::vector<std::string> formats;
};

// All scan formats of the readers, with those that are scanned over the same lines together.
std::vector<FormatGroup> formatGroups() {
    using test::LineShape;
    return {
        {LineShape::kCommas,
         5,
         {" %d , %lf , %lf , %lf ", " %d, %d, %d ", "%d", "%lf", "%lf,", "%f"}},
        {LineShape::kBlanks,
         8,
         {"%s", "%s %s", "%s %d", "%s %lf %d", "%s %lf %d %s", "%s %d %lf %lf", "%s %s %s %s %s",
          "%s %lf %lf %lf %lf %lf %lf %d", "%d %s %s %s %s %s", "%d %d %d %d %d"}},
        {LineShape::kBlanks,
         11,
         {"%s%d", "%s%d%d", "%s%d%d%lf%lf%lf", "%s%d%d%d%d", "%s%d%d%d%d%d%d", "%s%d%d%d%d%d%d%d%d",
          "%s%d%d%d%d%d%d%d%d%d%d", "%s%d%d%f", "%s%d%d%f%f", "%s%d%d%f%f%f", "%s%d%d%f%f%f%f%f"}},
        {LineShape::kColumns, 9, {"%2d", "%8d", repeated("%d ", 9), repeated("%16f ", 9)}},
        {LineShape::kCommas, 1, {"%8d", "%5lf", "%3lf"}},
    };
}

// The two longest formats have lines of their own: numbers and little else.
const FormatGroup kLongRuns{
    test::LineShape::kColumns, 31, {repeated("%lf ", 19) + "%lf", repeated("%lf ", 29) + "%lf"}};

// A variable of any type, as memory: what a scan does not write in it can be seen afterwards.
class Variable {
  public:
    void clear() {
        std::memset(bytes_, kUntouched, kCleared);
        bytes_[kCleared] = '\0';
    }
    void* address() { return bytes_; }
    template <typename T>
    T as() const {
        T value;
        std::memcpy(&value, bytes_, sizeof value);
        return value;
    }
    template <typename T>
    void set(T value) {
        std::memcpy(bytes_, &value, sizeof value);
    }
    void setText(std::string_view text) { std::copy(text.begin(), text.end(), bytes_); }
    /// A number's bytes, or a text with what was not written behind it.
    std::string_view number() const { return {bytes_, sizeof(double)}; }
    std::string_view text() const { return bytes_; }

  private:
    static constexpr int kUntouched = '~';
    static constexpr std::size_t kCleared = 16;
    alignas(double) char bytes_[test::ScanTexts::kMaxLength + 200];
};

constexpr std::size_t kMaxVariables = 30;
using Variables = std::array<Variable, kMaxVariables>;

struct Directive {
    char kind;  // d, l ("%lf"), f, s; else a character of the format itself
    std::size_t width = Scan::kNoWidth;

    bool isNumber() const { return kind == 'd' || kind == 'l' || kind == 'f'; }
};

std::vector<Directive> directivesOf(std::string_view format) {
    std::vector<Directive> directives;
    for (std::size_t i = 0; i < format.size(); ++i) {
        Directive directive{format[i]};
        if (format[i] == '%') {
            std::size_t width = 0;
            while (isDigit(format[++i]))
                width = 10 * width + digitValue(format[i]);
            directive.kind = format[i];
            if (width > 0)
                directive.width = width;
            if (format[i] == 'l')
                ++i;
        }
        directives.push_back(directive);
    }
    return directives;
}

template <typename T>
bool scanNumber(Scan& scan, Directive directive, Variable& variable) {
    T value = variable.as<T>();
    bool found;
    if constexpr (std::is_same_v<T, int>)
        found = scan.integer(value, directive.width);
    else
        found = scan.real(value, directive.width);
    variable.set(value);
    return found;
}

bool scanField(Scan& scan, Directive directive, Variable& variable) {
    std::string_view text;
    bool found = false;
    switch (directive.kind) {
        case 'd':
            return scanNumber<int>(scan, directive, variable);
        case 'l':
            return scanNumber<double>(scan, directive, variable);
        case 'f':
            return scanNumber<float>(scan, directive, variable);
        case 's':
            if ((found = scan.word(text, directive.width)))
                variable.setText(std::string(text) + '\0');
            return found;
        default:
            return false;
    }
}

// The number of fields that the toolkit scans. It goes on behind a failure, which must not matter.
int scanAll(std::string_view text, const std::vector<Directive>& directives, Variables& variables) {
    Scan scan(text);
    int count = 0;
    auto* variable = variables.data();
    for (const Directive& directive : directives) {
        if (directive.kind == ' ')
            scan.space();
        else if (directive.kind == ',')
            scan.literal(',');
        else
            count += scanField(scan, directive, *variable++) ? 1 : 0;
    }
    return count;
}

template <typename Visit>
void forEachVariable(const std::vector<Directive>& directives, Visit visit) {
    std::size_t index = 0;
    for (const Directive& directive : directives)
        if (directive.kind != ' ' && directive.kind != ',')
            visit(directive, index++);
}

void clear(const std::vector<Directive>& directives, Variables& variables) {
    forEachVariable(directives, [&](Directive, std::size_t index) { variables[index].clear(); });
}

#if defined(__linux__)
// The C library leaves open what "%d" stores out of range: it scans long numbers here, and the ends
// of int are put in afterwards.
std::string withLongIntegers(std::string format) {
    for (std::size_t at = 0; (at = format.find('d', at)) != std::string::npos; at += 3)
        format.replace(at, 1, "lld");
    return format;
}

void narrow(Variable& variable) {
    Variable untouched;
    untouched.clear();
    if (variable.number() == untouched.number())
        return;
    const auto number = std::clamp<long long>(
        variable.as<long long>(), std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    variable.clear();
    variable.set(static_cast<int>(number));
}

template <std::size_t... kIndices>
int callSscanf(const char* text, const char* format, Variables& variables,
               std::index_sequence<kIndices...>) {
    return std::max(0, std::sscanf(text, format, variables[kIndices].address()...));
}

void compareWithSscanf(const FormatGroup& group) {
    struct Format {
        std::string text;
        std::string forSscanf;
        std::vector<Directive> directives;
    };
    std::vector<Format> formats;
    for (const std::string& format : group.formats)
        formats.push_back({format, withLongIntegers(format), directivesOf(format)});
    test::ScanTexts texts(4);
    static Variables expected;
    static Variables actual;
    for (int i = 0; i < kTexts; ++i) {
        const std::string_view text = texts.next(group.shape, group.maxFields);
        for (const Format& format : formats) {
            clear(format.directives, expected);
            clear(format.directives, actual);
            const int count = callSscanf(text.data(), format.forSscanf.c_str(), expected,
                                         std::make_index_sequence<kMaxVariables>());
            bool same = scanAll(text, format.directives, actual) == count;
            forEachVariable(format.directives, [&](Directive directive, std::size_t index) {
                if (directive.kind == 'd')
                    narrow(expected[index]);
                same = same &&
                       (directive.isNumber() ? expected[index].number() == actual[index].number()
                                             : expected[index].text() == actual[index].text());
            });
            ASSERT_TRUE(same) << '"' << format.text << "\" of \"" << text << '"';
        }
    }
}

TEST(ScanAgainstSscanf, AllFormats) {
    for (const FormatGroup& group : formatGroups())
        compareWithSscanf(group);
}

TEST(ScanAgainstSscanf, LongRunsOfReals) {
    compareWithSscanf(kLongRuns);
}

TEST(ToRealAgainstStrtod, RandomTexts) {
    test::ScanTexts texts(5);
    for (int i = 0; i < kTexts; ++i) {
        const std::string_view text = texts.next(test::LineShape::kCommas, 1);
        const double expected = std::strtod(text.data(), nullptr);
        const double actual = toReal(text);
        if (std::isnan(expected))  // the payload in "nan(12)" is not taken over
            ASSERT_TRUE(std::isnan(actual)) << text;
        else
            ASSERT_EQ(std::bit_cast<std::uint64_t>(actual), std::bit_cast<std::uint64_t>(expected))
                << text;
    }
}
#endif

// The same value where `sscanf` was compared and elsewhere: both scan the same.
TEST(Scan, ScansTheSameOnEveryPlatform) {
    test::Digest digest;
    std::vector<FormatGroup> groups = formatGroups();
    groups.push_back(kLongRuns);
    static Variables variables;
    for (const FormatGroup& group : groups) {
        test::ScanTexts texts(4);
        for (int i = 0; i < 20'000; ++i) {
            const std::string_view text = texts.next(group.shape, group.maxFields);
            for (const std::string& format : group.formats) {
                const std::vector<Directive> directives = directivesOf(format);
                clear(directives, variables);
                digest.add(std::string(1, static_cast<char>(scanAll(text, directives, variables))));
                forEachVariable(directives, [&](Directive directive, std::size_t index) {
                    digest.add(directive.isNumber() ? variables[index].number()
                                                    : variables[index].text());
                });
            }
        }
    }
    EXPECT_EQ(digest.value(), 10571373346825499816U);
}

}  // namespace
}  // namespace kvocaeio::text
