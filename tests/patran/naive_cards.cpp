/// Lines and cards of neutral files as the C library reads them.
#include "patran/naive_cards.h"

#include <cstdio>
#include <cstdlib>

namespace kvocaeio::test {

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
