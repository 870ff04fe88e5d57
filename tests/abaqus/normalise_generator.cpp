/// Writes a random deck and its tables side by side, so that the tests need no second parser.
#include "abaqus/normalise_generator.h"

#include <cstdio>
#include <random>

namespace kvocaeio::test {
namespace {

/// An element type, and how many nodes a line of it is given here.
struct Type {
    const char* name;
    int geometry;
    int width;
    int written;
};

const std::vector<Type> kSolids = {{"C3D4", 2, 4, 4},   {"C3D5", 2, 5, 5},     {"C3D6", 2, 6, 6},
                                   {"C3D8R", 2, 8, 8},  {"C3D10M", 2, 10, 10}, {"C3D15", 2, 15, 15},
                                   {"C3D20", 2, 20, 20}};
const std::vector<Type> kShells = {{"S3", 1, 3, 3}, {"S4R", 1, 4, 4}, {"R3D4", 1, 3, 4}};
const std::vector<Type> kUnknown = {{"C3D27", 0, 27, 27}, {"B31", 0, 0, 2}, {"S8R", 0, 0, 8}};

std::string upper(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return text;
}

class Generator {
  public:
    explicit Generator(unsigned seed) : random_(seed) {}

    RandomDeck run() {
        chooseShape();
        if (!oneIn(30))
            nodeBlock();
        for (int chunks = below(12); chunks >= 0; --chunks)
            chunk();
        return std::move(deck_);
    }

  private:
    // The standard distributions differ between libraries; this does not.
    int below(int limit) {
        return static_cast<int>(random_() % static_cast<std::mt19937::result_type>(limit));
    }
    bool oneIn(int n) { return below(n) == 0; }
    template <class T>
    const T& oneOf(const std::vector<T>& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

    /// Most models mix everything; the others are made so that one list has a lone section.
    void chooseShape() {
        const auto add = [this](const std::vector<Type>& types) {
            types_.insert(types_.end(), types.begin(), types.end());
        };
        const int shape = below(8);
        if (shape != 1)
            add(kSolids);
        if (shape != 0 && shape != 2)
            add(kShells);
        if (shape > 1)
            add(kUnknown);
        elementNames_ = shape < 3 ? std::vector<std::string>{oneOf(kNames)} : kNames;
        if (shape > 5)
            elementNames_.emplace_back("A B");
    }

    void chunk() {
        const int kind = below(16);
        if (kind < 5)
            elementBlock();
        else if (kind < 8)
            plainSet();
        else if (kind < 10)
            generatedSet();
        else if (kind < 12)
            surface();
        else if (kind < 14)
            loads();
        else if (kind < 15)
            nodeBlock();
        else
            deck_.text += oneOf(kPassedOver);
    }

    /// Keyword lines and names may be in lower case.
    std::string anyCase(std::string text) {
        if (oneIn(4))
            for (char& c : text)
                if (c >= 'A' && c <= 'Z')
                    c = static_cast<char>(c - 'A' + 'a');
        return text;
    }
    void keyword(const std::string& line) { deck_.text += anyCase(line) + "\n"; }
    std::string comma() { return oneOf(std::vector<std::string>{",", ", ", " , "}); }
    void comment() {
        if (oneIn(12))
            deck_.text += "** 7, 7, 7, 7\n";
    }

    void nodeBlock() {
        keyword("*NODE");
        for (int left = below(9); left > 0; --left) {
            comment();
            RawModel::Node node{below(21), {}};
            if (oneIn(100))
                node.oid = -1 - below(3);
            deck_.text += std::to_string(node.oid);
            for (double& value : node.coord) {
                const int quarters = below(4000) - 2000;
                value = quarters / 4.0;
                char field[32];
                std::snprintf(field, sizeof field, ", %.2f", value);
                deck_.text += field;
            }
            deck_.text += "\n";
            deck_.model.nodes.push_back(node);
        }
    }

    int nodeOid() {
        if (oneIn(8) || deck_.model.nodes.empty())
            return below(28) - 3;
        return oneOf(deck_.model.nodes).oid;
    }
    int elementOid() { return oneIn(60) ? -1 - below(3) : below(26); }

    void elementBlock() {
        const Type& type = oneOf(types_);
        const std::string& name = oneOf(elementNames_);
        const std::string set = name.empty() ? "" : ", ELSET=" + name;
        if (oneIn(2))
            keyword("*ELEMENT, TYPE=" + std::string(type.name) + set);
        else
            keyword("*ELEMENT" + set + ", TYPE=" + type.name);
        RawModel::Block block{name, type.name, type.geometry, type.width, {}};
        for (int left = below(5); left > 0; --left) {
            comment();
            RawModel::Element element{elementOid(), {}};
            deck_.text += std::to_string(element.oid);
            for (int i = 0; i < type.written; ++i) {
                const int node = nodeOid();
                if (i < type.width)
                    element.nodes.push_back(node);
                // Only what is read may go over several lines.
                const bool newLine = type.written == type.width && oneIn(25);
                deck_.text += newLine ? oneOf(std::vector<std::string>{"\n", ",\n"}) : comma();
                deck_.text += std::to_string(node);
            }
            deck_.text += oneIn(10) ? ",\n" : "\n";
            block.elements.push_back(element);
        }
        deck_.model.blocks.push_back(block);
    }

    void setKeyword(const std::string& name, const std::string& flag) {
        const std::string set = name.empty() ? "" : ", ELSET=" + name;
        keyword(oneIn(2) ? "*ELSET" + set + flag : "*ELSET" + flag + set);
    }

    void plainSet() {
        RawModel::Set set{oneOf(kNames), false, {}, 0, -1, 1};
        setKeyword(set.name, "");
        const int count = below(7);
        for (int i = 0; i < count; ++i) {
            const std::string member =
                oneIn(10) ? oneOf(kOddMembers) : std::to_string(elementOid());
            set.members.push_back(member);
            deck_.text += anyCase(member) + (i + 1 == count || oneIn(4) ? "\n" : comma());
        }
        deck_.model.sets.push_back(set);
    }

    void generatedSet() {
        RawModel::Set set{oneOf(kNames), true, {}, 0, -1, 1};
        setKeyword(set.name, ", GENERATE");
        const int numbers = oneIn(4) ? below(4) : 3;
        if (numbers > 0) {
            set.start = set.end = below(20) - 3;
            deck_.text += std::to_string(set.start);
        }
        if (numbers > 1) {
            set.end += oneIn(12) ? -below(5) : below(10);
            deck_.text += ", " + std::to_string(set.end);
        }
        if (numbers > 2) {
            const int step = oneIn(2) ? 1 : below(6) - 1;
            set.step = step > 0 ? step : 1;
            deck_.text += ", " + std::to_string(step);
        }
        if (numbers > 0)
            deck_.text += "\n";
        deck_.model.sets.push_back(set);
    }

    std::string faceLabel(char letter) { return {letter, static_cast<char>('0' + below(7))}; }

    void surface() {
        keyword("*SURFACE, TYPE=ELEMENT, NAME=SKIN");
        for (int left = below(4); left > 0; --left) {
            const std::string item = oneIn(6) ? std::to_string(below(9)) : oneOf(kSurfaceItems);
            const std::string label = oneIn(6) ? oneOf(kOddLabels) : faceLabel('S');
            deck_.text += anyCase(item) + (label.empty() ? "" : comma()) + anyCase(label) + "\n";
            deck_.model.surfaceLines.push_back({item, upper(label)});
        }
    }

    void loads() {
        keyword("*DLOAD");
        int oid = 0;
        for (int left = below(5); left > 0; --left) {
            comment();
            if (oneIn(8)) {
                deck_.text += "TOP";
            } else {
                oid = below(30) - 2;
                deck_.text += std::to_string(oid);
            }
            const std::string label = oneIn(6) ? oneOf(kOddLabels) : faceLabel('P');
            deck_.text += (label.empty() ? "" : comma() + label) +
                          (label.empty() || oneIn(9) ? "\n" : ", 2.5\n");
            deck_.model.loadLines.push_back({oid, label});
        }
    }

    inline static const std::vector<std::string> kNames = {"", "A", "B", "AB", "ZED", "N_1"};
    inline static const std::vector<std::string> kSurfaceItems = {"A",   "B",    "AB", "ZED",
                                                                  "N_1", "NONE", "A",  "ZED"};
    inline static const std::vector<std::string> kOddMembers = {"B",  "7X",   "+5",
                                                                "-2", "NAME", "4000"};
    inline static const std::vector<std::string> kOddLabels = {
        "", "S", "SPOS", "s2", "p3", "P", "P7", "S12", "P1NU", "BX", "S9", "44"};
    inline static const std::vector<std::string> kPassedOver = {
        "*MATERIAL, NAME=STEEL\n*ELASTIC\n210000., 0.3\n",
        "*NSET, NSET=N\n1, 2\n",
        "*ELSET, ELSET=A, INTERNAL\n1, 2\n",
        "** remark\n",
        "*ELEMENT OUTPUT\nS\n",
    };

    std::mt19937 random_;
    RandomDeck deck_;
    std::vector<Type> types_;
    std::vector<std::string> elementNames_;
};

}  // namespace

RandomDeck randomDeck(unsigned seed) {
    return Generator(seed).run();
}

}  // namespace kvocaeio::test
