/// Lines and cards of neutral files as the C library reads them.
#include "patran/naive_cards.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>

namespace kvocaeio::test {
namespace {

/// "%d", but a number out of range saturates. Gives the place behind it, or null without a number.
const char* scanInt(const char* text, int& value) {
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    if (*text < '0' || *text > '9')
        return nullptr;
    long long number = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        if (number <= INT_MAX)
            number = number * 10 + (*text - '0');
    if (negative)
        number = -number;
    value = static_cast<int>(std::clamp<long long>(number, INT_MIN, INT_MAX));
    return text;
}

}  // namespace

NaiveFile::NaiveFile(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size() && bytes[i] != '\x1a'; ++i)
        if (bytes[i] != '\r' || i + 1 == bytes.size() || bytes[i + 1] != '\n')
            text_ += bytes[i];
}

void NaiveFile::gets(char* line, int limit) {
    int length = 0;
    while (length < limit - 1) {
        if (position_ == text_.size()) {
            metEnd_ = true;
            break;
        }
        line[length] = text_[position_++];
        if (line[length++] == '\n')
            break;
    }
    if (length > 0)
        line[length] = '\0';
}

void NaiveFile::rewind() {
    position_ = 0;
    metEnd_ = false;
}

void NaiveHeader::read(const char* line) {
    char fields[9][9] = {};
    std::sscanf(line, "%2c%8c%8c%8c%8c%8c%8c%8c%8c", fields[0], fields[1], fields[2], fields[3],
                fields[4], fields[5], fields[6], fields[7], fields[8]);
    std::sscanf(fields[0], "%2d", &it);
    int* const numbers[] = {&id, &iv, &kc, &n1, &n2, &n3, &n4, &n5};
    for (int k = 0; k < 8; ++k)
        std::sscanf(fields[k + 1], "%8d", numbers[k]);
}

void NaiveHeader::readFree(const char* line) {
    for (int* number : {&it, &id, &iv, &kc, &n1, &n2, &n3, &n4, &n5})
        if ((line = scanInt(line, *number)) == nullptr)
            return;
}

void skip(NaiveFile& file, char* line, int limit, int count) {
    // Reads behind the end change nothing.
    for (int k = 0; k < count && !file.metEnd(); ++k)
        file.gets(line, limit);
}

std::array<float, 3> coordinates(const char* line) {
    char fields[3][17] = {};
    std::sscanf(line, "%16c%16c%16c", fields[0], fields[1], fields[2]);
    return {static_cast<float>(std::atof(fields[0])), static_cast<float>(std::atof(fields[1])),
            static_cast<float>(std::atof(fields[2]))};
}

int propertyIdOf(const char* line) {
    char fields[3][9] = {};
    std::sscanf(line, "%8c%8c%8c", fields[0], fields[1], fields[2]);
    int property = 0;
    std::sscanf(fields[2], "%8d", &property);
    return property;
}

}  // namespace kvocaeio::test
