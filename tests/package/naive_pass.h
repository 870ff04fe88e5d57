/// What all passes of the plain 3DI import share: lines, words, fields.
#pragma once

#include <climits>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "package/naive_package.h"

namespace kvocaeio::test {

/// Entry `index` of a list, or the error that the library promises.
template <class Value>
const Value& entry(const std::vector<Value>& list, long long index) {
    if (index < 0 || index >= static_cast<long long>(list.size()))
        throw std::out_of_range("invalid vector<T> subscript");
    return list[static_cast<std::size_t>(index)];
}

/// Whether a scanned word is a front part of the keyword.
inline bool matches(const std::string& word, const char* keyword) {
    return std::strncmp(word.c_str(), keyword, word.size()) == 0;
}

/// The fields of a line one by one, each as its conversion of sscanf takes it.
class NaiveFields {
  public:
    explicit NaiveFields(const std::string& line) : rest_(line.c_str()) {}

    bool word(std::string& value) {
        char content[1024];
        int used = 0;
        if (std::sscanf(rest_, "%1023s%n", content, &used) != 1)
            return end();
        value = content;
        rest_ += used;
        return true;
    }
    /// "%d", but a number out of range is the nearest end of int.
    bool integer(int& value) {
        char* behind = nullptr;
        const long long number = std::strtoll(rest_, &behind, 10);
        if (behind == rest_)
            return end();
        value = number > INT_MAX ? INT_MAX : number < INT_MIN ? INT_MIN : static_cast<int>(number);
        rest_ = behind;
        return true;
    }
    bool real(double& value) {
        int used = 0;
        if (std::sscanf(rest_, "%lf%n", &value, &used) != 1)
            return end();
        rest_ += used;
        return true;
    }

  private:
    bool end() {
        rest_ = "";
        return false;
    }
    const char* rest_;
};

/// One way through the file.
class NaivePass {
  public:
    explicit NaivePass(const char* path) : file_(std::fopen(path, "rb")) {}
    ~NaivePass() { std::fclose(file_); }
    NaivePass(const NaivePass&) = delete;
    NaivePass& operator=(const NaivePass&) = delete;

    bool next() {
        char buffer[1024];
        if (std::fgets(buffer, 1024, file_) == nullptr)
            return false;
        line = buffer;
        for (char& c : line)
            if (c >= 'a' && c <= 'z')
                c = static_cast<char>(c - 'a' + 'A');
        return true;
    }
    bool holds(const char* word) const { return line.find(word) != std::string::npos; }

    /// "%s %d" with a first word that matches; the number is taken only then.
    bool wordAndInteger(const char* keyword, int& value) const {
        NaiveFields fields(line);
        std::string word;
        int number = 0;
        if (!fields.word(word) || !fields.integer(number) || !matches(word, keyword))
            return false;
        value = number;
        return true;
    }
    /// Numbers of the line as sscanf counts them: -1 for a line without anything.
    template <std::size_t kMost>
    int numbers(double (&values)[kMost]) const {
        if (line.find_first_not_of(" \t\n\v\f\r") == std::string::npos)
            return -1;
        NaiveFields fields(line);
        std::size_t count = 0;
        while (count < kMost && fields.real(values[count]))
            ++count;
        return static_cast<int>(count);
    }

    std::string line;

  private:
    std::FILE* file_;
};

/// The pass over the geometries. False where SYMBOL or OUTLINE is missing.
bool naiveGeometries(const char* path, NaiveModel& model);

}  // namespace kvocaeio::test
