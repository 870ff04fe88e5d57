/// Fields and numbers of data lines.
#include "tidy/abaqus/fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "text/scan.h"
#include "tidy/abaqus/statement.h"

namespace kvocaeio::tidy::abaqus {

bool Fields::next(std::string_view& field) {
    if (trimmed(rest_).empty())
        return false;
    std::size_t end = 0;
    char quote = '\0';
    for (; end < rest_.size() && (quote != '\0' || rest_[end] != ','); ++end)
        if (quote != '\0')
            quote = rest_[end] == quote ? '\0' : quote;
        else if (rest_[end] == '"')
            quote = '"';
    field = trimmed(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return true;
}

bool readInteger(std::string_view field, int& value) {
    if (field.starts_with('+'))
        field.remove_prefix(1);
    const char* const end = field.data() + field.size();
    int number = 0;
    const auto [last, error] = std::from_chars(field.data(), end, number);
    if (error == std::errc() && last == end) {
        value = number;
        return true;
    }
    double real = 0.0;  // such as "1." or "1e3"
    if (!readReal(field, real) || real != std::floor(real) ||
        std::abs(real) > std::numeric_limits<int>::max())
        return false;
    value = static_cast<int>(real);
    return true;
}

bool readReal(std::string_view field, double& value) {
    std::string number(field);
    std::ranges::replace(number, 'D', 'E');
    std::ranges::replace(number, 'd', 'e');
    const bool isDecimal = number.find_first_not_of("0123456789+-.eE") == std::string::npos;
    std::string_view rest;
    double read = 0.0;
    text::Scan scan(number);
    if (!isDecimal || !scan.real(read) || scan.word(rest) || !std::isfinite(read))
        return false;
    value = read;
    return true;
}

bool readReals(std::string_view line, double* values, std::size_t count, std::size_t* taken) {
    Fields fields(line);
    std::string_view field;
    std::size_t i = 0;
    for (; i < count && fields.next(field); ++i)
        if (!field.empty() && !readReal(field, values[i]))
            return false;
    if (taken != nullptr)
        *taken = i;
    return true;
}

}  // namespace kvocaeio::tidy::abaqus
