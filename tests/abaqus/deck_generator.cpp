/// Random small decks that look for trouble.
#include "abaqus/deck_generator.h"

#include <iterator>

#include "text/naive_input.h"

namespace kvocaeio::test {

std::string DeckGenerator::deck() {
    deck_.clear();
    lineEnds_ = chance(70) ? 0 : chance(60) ? 1 : 2;
    for (std::size_t block = below(8); block > 0; --block) {
        if (chance(20))
            noise();
        switch (below(12)) {
            case 0:
            case 1:
            case 2:
                nodes();
                break;
            case 3:
            case 4:
            case 5:
                elements();
                break;
            case 6:
            case 7:
                elset();
                break;
            case 8:
                surface();
                break;
            case 9:
                dload();
                break;
            case 10:
                shellSection();
                break;
            default:
                unknown();
        }
    }
    damage();
    return deck_;
}

std::string DeckGenerator::mixedCase(std::string text) {
    const std::size_t kind = below(4);
    for (char& c : text)
        if (c >= 'A' && c <= 'Z' && (kind == 1 || (kind == 2 && chance(50))))
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string DeckGenerator::integer() {
    if (chance(90))
        return std::to_string(below(chance(80) ? 30 : 5000));
    return pick({"2147483647",
                 "2147483648",
                 "2147483646",
                 "-2147483648",
                 "-2147483649",
                 "99999999999999999999",
                 "-99999999999999999999",
                 "-1",
                 "+7",
                 "007",
                 "x",
                 "1.9",
                 "0x1",
                 "1e2",
                 "-",
                 "+",
                 "\t8",
                 "8\t",
                 "- 3",
                 "4x"});
}

std::string DeckGenerator::real() {
    if (chance(70))
        return std::to_string(static_cast<int>(below(4000)) - 2000) +
               (kHardReals ? "." + std::to_string(below(1000000))
                           : pick({"", ".5", ".25", ".750", ".125", ".0625"}));
    if (kHardReals && chance(30))
        return pick({"1e", "1e+", "0x10", "0x1.8p1", "0x", "nan", "inf", "-infinity", "infi",
                     "0x1p", "-nan", "nan(1)", "5e-324", "1.7976931348623157e308",
                     "9007199254740993", "123456789012345678901234567890",
                     "0.1000000000000000055511151231257827"});
    return pick({"0",
                 "1e3",
                 ".5",
                 "1.",
                 "-0.",
                 "1E-2",
                 "+3",
                 "abc",
                 "",
                 "-",
                 ".",
                 "e5",
                 "1d2",
                 "1..2",
                 "1e400",
                 "-1e400",
                 "1e-400",
                 "\t3",
                 "2x",
                 "2e+05",
                 "7e-1",
                 "1e99999999999999999999",
                 "0000000000000000000001.50"});
}

std::string DeckGenerator::name() {
    if (chance(5))
        return std::string(70 + below(200), 'N');
    return pick({"A", "B", "Rib", "TOP SIDE", "SET-1", "_x", "TYPE", "ELSET", "NAME", "MATERIAL",
                 "INTERNAL", "GENERATE", "ELEMENT", "a.b", "\"q, q\"", "x=y", "\xc3\xa4", "%s",
                 "tab\tbed"});
}

std::string DeckGenerator::separator() {
    return chance(80) ? ", " : pick({",", " ", "  ", ",,", ", ,", " , ", "\t", ",\t", "\r", ";"});
}

std::string DeckGenerator::parameter(const char* parameterName, const std::string& value) {
    const std::string named = mixedCase(parameterName);
    if (chance(5))
        return named;
    if (chance(3))
        return named + "=";
    return named + (chance(75) ? "=" : pick({" = ", "= ", " =", "  =", "=,", "\t=", " ", "=="})) +
           value + (chance(10) ? " " : "");
}

std::string DeckGenerator::lengthened(std::string text) {
    const std::size_t length = chance(50) ? 507 + below(9) : 1018 + below(9);
    if (text.size() >= length)
        return text;
    const std::size_t missing = length - text.size();
    const std::size_t at = chance(50) ? text.size() : below(text.size() + 1);
    return text.insert(at, std::string(missing, chance(70) ? ' ' : chance(50) ? ',' : '1'));
}

std::string DeckGenerator::lineEnd() {
    if (lineEnds_ == 2)
        return pick({"\n", "\n", "\r\n", "\r", "\n\r", "\n\n"});
    return lineEnds_ == 1 ? "\r\n" : "\n";
}

void DeckGenerator::line(const std::string& text) {
    deck_ += chance(2) ? lengthened(text) : text;
    deck_ += lineEnd();
    if (chance(4))
        deck_ += pick({"** a comment", "**", "** 1, 2, 3", "***", "**NODE"}) + lineEnd();
    if (chance(3))
        deck_ += pick({"", " ", ",", ", ,", "\t"}) + lineEnd();
}

void DeckGenerator::noise() {
    for (std::size_t count = 1 + below(3); count > 0; --count) {
        if (chance(10))
            line("**" + std::string(490 + below(40), '*'));
        else
            line(pick({"junk", "1, 2, 3", " *NODE", "*", "**", "** note", ",,,", "", " ",
                       " *ELEMENT, TYPE=S3", "* NODE", "*\t"}));
    }
}

void DeckGenerator::nodes() {
    line(mixedCase(chance(70) ? "*NODE"
                              : pick({"*NODE, NSET=ALL", "  *NODE", "*NODE ,NSET=A", "*NODE PRINT",
                                      ",*NODE", "*NODE\t", "*NODE,", "*NODE OUTPUT", "*NODE\r1"})));
    for (std::size_t row = below(6); row > 0; --row) {
        std::string text = chance(10) ? "  " : "";
        text += integer();
        for (std::size_t field = chance(85) ? 3 : below(6); field > 0; --field)
            text += separator() + real();
        line(text);
    }
}

void DeckGenerator::elements() {
    static constexpr struct {
        const char* type;
        int nodeCount;
    } kTypes[] = {{"C3D4", 4},     {"C3D8", 8},     {"C3D10", 10},   {"C3D6", 6}, {"C3D5", 5},
                  {"S3", 3},       {"S4R", 4},      {"R3D4", 3},     {"B31", 0},  {"C3D20R", 20},
                  {"C3D27", 27},   {"C3D2", 2},     {"C3D1", 1},     {"CPS4", 4}, {"C3D-8", 0},
                  {"C3D99999", 0}, {"C3D 8", 8},    {"C3D", 0},      {"S4R3", 3}, {"DCC3D8", 8},
                  {"C3D128", 128}, {"C3D127", 127}, {"C3D300", 300}, {" S3", 3},  {"S8R", 0},
                  {"C3D10001", 0}, {"C3D+4", 4},    {"M3D4", 0}};
    const auto& kind = kTypes[chance(85) ? below(10) : below(std::size(kTypes))];
    std::string keyword =
        mixedCase(chance(95) ? "*ELEMENT" : pick({"*ELEMENT OUTPUT", " *ELEMENT ", "*ELEMENTS"}));
    const bool typeFirst = chance(70);
    if (typeFirst && chance(97))
        keyword += ", " + parameter("TYPE", mixedCase(kind.type));
    if (chance(80))
        keyword += (chance(90) ? ", " : ",") + parameter("ELSET", name());
    if (!typeFirst)
        keyword += ", " + parameter("TYPE", mixedCase(kind.type));
    line(keyword);
    for (std::size_t row = below(5); row > 0; --row)
        element(kind.nodeCount);
}

void DeckGenerator::element(int nodeCount) {
    if (chance(8))
        nodeCount += static_cast<int>(below(5)) - 2;
    const bool broken = chance(40);
    std::string text = integer();
    for (int n = 0; n < nodeCount; ++n) {
        if (broken && chance(25)) {
            line(text + (chance(70) ? "," : ""));
            text = integer();
        } else {
            text += separator() + integer();
        }
    }
    line(text + (chance(10) ? "," : ""));
}

void DeckGenerator::elset() {
    std::string keyword = mixedCase("*ELSET");
    if (chance(95))
        keyword += ", " + parameter("ELSET", name());
    const bool generated = chance(40);
    if (generated)
        keyword += mixedCase(
            chance(80) ? ", GENERATE"
                       : pick({",GENERATE", ",  GENERATE ", ", GENERATE,", ", GENERATED"}));
    if (chance(15))
        keyword += mixedCase(chance(80) ? ", INTERNAL"
                                        : pick({", INTERNAL ", ",INTERNAL,", ", INTERNAL=1"}));
    line(keyword);
    for (std::size_t row = below(4); row > 0; --row) {
        std::string text;
        for (std::size_t token = generated && chance(80) ? 3 : below(6); token > 0; --token)
            text += (chance(80) ? integer() : mixedCase(name())) + (token > 1 ? separator() : "");
        line(text);
    }
}

void DeckGenerator::surface() {
    std::string keyword = mixedCase("*SURFACE");
    const std::string type = parameter(
        "TYPE", mixedCase(chance(90) ? "ELEMENT" : pick({"NODE", "ELEMENTS", "", "ELEMENT\t"})));
    if (chance(50))
        keyword += ", " + type;
    else
        keyword += ", " + parameter("NAME", name()) + ", " + type;
    line(keyword);
    for (std::size_t row = below(4); row > 0; --row)
        line((chance(50) ? integer() : mixedCase(name())) +
             (chance(90) ? separator() + pick({"S1", "s2", "SPOS", "SNEG", "S6 x"}) : ""));
}

void DeckGenerator::dload() {
    line(mixedCase(chance(80) ? "*DLOAD" : "*DLOAD, OP=NEW"));
    for (std::size_t row = below(4); row > 0; --row) {
        std::string text = chance(80) ? integer() : name();
        if (chance(95))
            text += separator() + pick({"P", "P1", "p6", "GRAV", "P 2"});
        if (chance(95))
            text += separator() + real();
        line(text);
    }
}

void DeckGenerator::shellSection() {
    std::string keyword = mixedCase(chance(95) ? "*SHELL SECTION" : "*SHELL  SECTION");
    if (chance(50))
        keyword += ", " + parameter("ELSET", name());
    if (chance(90))
        keyword += ", " + parameter("MATERIAL", name());
    if (chance(30))
        keyword += ", " + parameter("ELSET", name());
    line(keyword);
    for (std::size_t row = below(3); row > 0; --row)
        line(real() + (chance(50) ? separator() + integer() : ""));
}

void DeckGenerator::unknown() {
    line(pick({"*NSET, NSET=N", "*MATERIAL, NAME=M", "*SOLID SECTION, ELSET=A, MATERIAL=M", "*STEP",
               "*heading", "*SHELL GENERAL SECTION, ELSET=A, MATERIAL=M", "*"}));
    for (std::size_t row = below(3); row > 0; --row)
        line(chance(20) ? " *NODE" : integer() + ", " + real());
}

void DeckGenerator::damage() {
    if (chance(15) && !deck_.empty())
        deck_.resize(below(deck_.size() + 1));
    if (chance(10))
        while (!deck_.empty() && (deck_.back() == '\n' || deck_.back() == '\r'))
            deck_.pop_back();
    if (!chance(15))
        return;
    static constexpr char kBytes[] = {'\0', '\r', '\n',   '*',    ',', ' ',
                                      '\t', '=',  '\x1a', '\xff', '9'};
    for (std::size_t count = 1 + below(4); count > 0 && !deck_.empty(); --count) {
        const std::size_t at = below(deck_.size());
        if (chance(20))
            deck_.erase(at, 1 + below(5));
        else
            deck_[at] = kBytes[below(sizeof kBytes)];
    }
}

}  // namespace kvocaeio::test
