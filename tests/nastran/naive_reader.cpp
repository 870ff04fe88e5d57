/// A second, plain reader of Nastran decks for the tests.
#include "nastran/naive_reader.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <set>

namespace kvocaeio::test {
namespace {

bool holds(const std::string& characters, const char* word) {
    return characters.find(word) != std::string::npos;
}

bool holdsOneOf(const std::string& characters, std::initializer_list<const char*> words) {
    return std::any_of(words.begin(), words.end(),
                       [&](const char* word) { return holds(characters, word); });
}

// What a conversion to int gives on the x64 machines that the decks are read on.
int truncated(float value) {
    if (!(value > -2147483904.0F && value < 2147483648.0F))
        return INT_MIN;
    return static_cast<int>(value);
}

float equivalentDiameter(float area) {
    return static_cast<float>(2.0 * std::sqrt(static_cast<double>(area) / 3.14159));
}

bool isProperty(int code) {
    return code == 2001 || code == 2005 || code == 2301;
}

struct LargestIds {
    int node = 0;
    int elem = 0;
    int prop = 0;
};

LargestIds scanIdentifiers(const std::string& bytes) {
    LargestIds largest;
    NaiveLines lines(bytes);
    for (std::string line; lines.next(line);) {
        if (!line.empty() && line[0] == '$')
            continue;
        const std::string characters =
            fixExponent(splitFields(fillBlankFields(expandSeparators(line))));
        std::string word(characters.size() + 1, '\0');
        if (holds(characters, "GRID")) {
            int id = 0;
            if (std::sscanf(characters.c_str(), "%s%d", word.data(), &id) == 2)
                largest.node = std::max(largest.node, id);
        }
        if (holdsOneOf(characters, {"CROD", "CTUBE", "CBAR", "CBEAM", "CQUAD", "CTRIA", "CSHEAR",
                                    "CTETRA", "CPENTA", "CHEXA"})) {
            int id = 0;
            int property = 0;
            const int count =
                std::sscanf(characters.c_str(), "%s%d%d", word.data(), &id, &property);
            if (count >= 2)
                largest.elem = std::max(largest.elem, id);
            if (count == 3)
                largest.prop = std::max(largest.prop, property);
        }
    }
    if (largest.prop == 0)
        largest.prop = 1;
    return largest;
}

template <class Visit>
void forEachCard(const std::string& bytes, const Visit& visit) {
    NaiveNumbers numbers;
    NaiveLines lines(bytes);
    for (std::string card; lines.nextCard(card);)
        visit(naiveParse(card, numbers), numbers);
}

void readSections(const std::string& bytes, NaiveDeck& deck) {
    forEachCard(bytes, [&](int code, const NaiveNumbers& numbers) {
        if (isProperty(code))
            deck.sectionCount = numbers.ints[0];
    });
    const auto rows = static_cast<std::size_t>(std::max(deck.sectionCount, 0));
    forEachCard(bytes, [&](int code, const NaiveNumbers& numbers) {
        if (isProperty(code) && deck.sections.size() < rows)
            deck.sections.push_back(
                {numbers.ints[0], numbers.ints[1], truncated(numbers.floats[0])});
    });
    std::set<int> materials;
    for (const auto& section : deck.sections)
        if (section[1] >= 1 && section[1] <= deck.sectionCount)
            materials.insert(section[1]);
    deck.propertiesCount = static_cast<int>(materials.size());
}

void readNodes(const std::string& bytes, NaiveDeck& deck) {
    forEachCard(bytes, [&](int code, const NaiveNumbers& numbers) {
        const int id = numbers.ints[0];
        if (code == 101 && id >= 1 && id <= deck.nodeCount)
            deck.nodes[id] = {static_cast<float>(id), static_cast<float>(numbers.doubles[0]),
                              static_cast<float>(numbers.doubles[1]),
                              static_cast<float>(numbers.doubles[2])};
    });
}

void readElements(const std::string& bytes, NaiveDeck& deck) {
    const std::map<int, int> nodesOfCode = {{1001, 2}, {1301, 4}, {1321, 6}, {1331, 8}};
    forEachCard(bytes, [&](int code, const NaiveNumbers& numbers) {
        ++deck.cards[code];
        const auto found = nodesOfCode.find(code);
        const int id = numbers.ints[0];
        if (found == nodesOfCode.end() || id < 1 || id > deck.elemCount)
            return;
        std::array<int, 9>& row = deck.elements[id];
        row[0] = id;
        for (int slot = 0; slot < 8; ++slot)
            row[static_cast<std::size_t>(slot + 1)] =
                numbers.ints[static_cast<std::size_t>(2 + std::min(slot, found->second - 1))];
    });
}

}  // namespace

std::string padLine(std::string characters) {
    for (std::size_t i; (i = characters.find('\n')) != std::string::npos;)
        characters.replace(i, 1, i < 72 ? 72 - i : 0, ' ');
    return characters;
}

std::string expandSeparators(const std::string& characters) {
    std::string out;
    out.reserve(2 * characters.size());
    for (const char c : characters)
        if (c == ',' || c == '+')
            out.append(8, ' ');
        else
            out += c;
    return out;
}

std::string fillBlankFields(const std::string& characters) {
    std::string out;
    out.reserve(characters.size() + 8);
    for (std::size_t i = 0; i < characters.size(); i += 8) {
        const std::string group = characters.substr(i, 8);
        out += group.find_first_not_of(' ') == std::string::npos ? "       0" : group;
    }
    return out;
}

std::string splitFields(const std::string& characters) {
    std::string out;
    out.reserve(2 * characters.size());
    for (std::size_t i = 0; i < characters.size(); i += 8) {
        out.append(characters, i, 8);
        if (i + 8 <= characters.size())
            out += ' ';
    }
    return out;
}

std::string fixExponent(const std::string& characters) {
    std::string out;
    out.reserve(2 * characters.size());
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const bool sign = characters[i] == '+' || characters[i] == '-';
        if (sign && i > 0 && characters[i - 1] != ' ' && characters[i - 1] != 'e' &&
            characters[i - 1] != 'E')
            out += 'E';
        out += characters[i];
    }
    return out;
}

std::string clearHexFiller(std::string characters) {
    bool kept = false;
    const auto keepOrClear = [&](char& c) {
        if (kept)
            c = ' ';
        kept = true;
    };
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (characters[i] == '0' && i > 0 && characters[i - 1] == ' ') {
            keepOrClear(characters[i]);
        } else if (characters.compare(i, 2, "EL") == 0) {
            keepOrClear(characters[i]);
            for (std::size_t k = i + 1; k < characters.size() && k < i + 17; ++k)
                characters[k] = ' ';
        }
    }
    return characters;
}

std::string continuationOf(const std::string& line) {
    std::size_t i = 0;
    while (i < 8 && i < line.size() && line[i] != ',')
        ++i;
    if (i == line.size() && i < 8)
        return line;
    return "," + (i + 1 < line.size() ? line.substr(i + 1) : "");
}

bool takesNextLine(const std::string& line) {
    return holds(line, "CQUAD8") || holds(line, "CHEXA");
}

int naiveParse(const std::string& card, NaiveNumbers& numbers) {
    if (!card.empty() && card[0] == '$')
        return 1;
    std::string characters =
        fixExponent(splitFields(fillBlankFields(expandSeparators(padLine(card)))));
    std::string word(characters.size() + 1, '\0');
    char* const s = word.data();
    auto& i = numbers.ints;
    auto& f = numbers.floats;
    auto& d = numbers.doubles;
    if (holds(characters, "GRID")) {
        std::sscanf(characters.c_str(), "%s%d%d%lf%lf%lf", s, &i[0], &i[1], &d[0], &d[1], &d[2]);
        return 101;
    }
    if (holdsOneOf(characters, {"CROD", "CTUBE", "CBAR", "CBEAM"})) {
        std::sscanf(characters.c_str(), "%s%d%d%d%d", s, &i[0], &i[1], &i[2], &i[3]);
        return 1001;
    }
    if (holds(characters, "CTETRA")) {
        std::sscanf(characters.c_str(), "%s%d%d%d%d%d%d", s, &i[0], &i[1], &i[2], &i[3], &i[4],
                    &i[5]);
        return 1301;
    }
    if (holds(characters, "CPENTA")) {
        std::sscanf(characters.c_str(), "%s%d%d%d%d%d%d%d%d", s, &i[0], &i[1], &i[2], &i[3], &i[4],
                    &i[5], &i[6], &i[7]);
        return 1321;
    }
    if (holds(characters, "CHEXA")) {
        characters = clearHexFiller(characters);
        std::sscanf(characters.c_str(), "%s%d%d%d%d%d%d%d%d%d%d", s, &i[0], &i[1], &i[2], &i[3],
                    &i[4], &i[5], &i[6], &i[7], &i[8], &i[9]);
        return 1331;
    }
    if (holds(characters, "PROD")) {
        std::sscanf(characters.c_str(), "%s%d%d%f%f", s, &i[0], &i[1], &f[0], &f[1]);
        f[0] = equivalentDiameter(f[0]);
        return 2001;
    }
    if (holds(characters, "PTUBE")) {
        std::sscanf(characters.c_str(), "%s%d%d%f%f", s, &i[0], &i[1], &f[0], &f[1]);
        f[0] = static_cast<float>(static_cast<double>(f[0]) * 2.0);
        return 2001;
    }
    if (holds(characters, "PBAR")) {
        std::sscanf(characters.c_str(), "%s%d%d%f%f%f", s, &i[0], &i[1], &f[0], &f[1], &f[2]);
        f[0] = equivalentDiameter(f[0]);
        return 2001;
    }
    if (holds(characters, "PBEAM")) {
        std::sscanf(characters.c_str(), "%s%d%d%f%f%f%f%f", s, &i[0], &i[1], &f[0], &f[1], &f[2],
                    &f[3], &f[4]);
        f[0] = equivalentDiameter(f[0]);
        return 2001;
    }
    if (holdsOneOf(characters, {"PSHELL", "PSHEAR"})) {
        std::sscanf(characters.c_str(), "%s%d%d%f", s, &i[0], &i[1], &f[0]);
        return 2005;
    }
    if (holds(characters, "PSOLID")) {
        std::sscanf(characters.c_str(), "%s%d%d%f", s, &i[0], &i[1], &f[0]);
        return 2301;
    }
    return 1;
}

NaiveLines::NaiveLines(const std::string& bytes) {
    text_.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size() && bytes[i] != '\x1A'; ++i)
        if (!(bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n'))
            text_ += bytes[i];
}

bool NaiveLines::next(std::string& line) {
    if (position_ == text_.size())
        return false;
    const std::size_t lineFeed = text_.find('\n', position_);
    const std::size_t end = lineFeed == std::string::npos ? text_.size() : lineFeed + 1;
    const std::size_t length = std::min<std::size_t>(end - position_, 254);
    line = text_.substr(position_, length).c_str();  // up to its first NUL
    position_ += length;
    return true;
}

bool NaiveLines::nextCard(std::string& card) {
    std::string line;
    if (!next(line))
        return false;
    card = line;
    if (takesNextLine(line)) {
        next(line);
        card += continuationOf(line);
    }
    return true;
}

NaiveDeck naiveRead(const std::string& bytes) {
    NaiveDeck deck;
    const LargestIds largest = scanIdentifiers(bytes);
    deck.nodeCount = largest.node;
    deck.elemCount = largest.elem;
    deck.result = largest.node >= 1 && largest.elem >= 1 && largest.prop >= 1;
    if (!deck.result)
        return deck;
    readSections(bytes, deck);
    readNodes(bytes, deck);
    readElements(bytes, deck);
    return deck;
}

}  // namespace kvocaeio::test
