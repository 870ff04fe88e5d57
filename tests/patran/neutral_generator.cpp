/// Random small neutral files that look for trouble.
#include "patran/neutral_generator.h"

#include <cstdio>

#include "patran/neutral_file.h"
#include "text/naive_input.h"

namespace kvocaeio::test {
namespace {

std::string padded(const std::string& text, std::size_t width) {
    return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

}  // namespace

std::vector<std::string> NeutralGenerator::files() {
    std::vector<std::string> all;
    for (std::size_t count = chance(85) ? 1 : 2; count > 0; --count)
        all.push_back(file());
    return all;
}

std::string NeutralGenerator::file() {
    text_.clear();
    ids_.clear();
    noise_ = chance(40) ? 0 : chance(70) ? 20 : 120;
    lineEnds_ = chance(75) ? 0 : chance(80) ? 1 : 2;
    nodes_ = chance(92) ? 1 + below(8) : 0;
    elements_ = chance(92) ? 1 + below(5) : 0;
    properties_ = chance(35) ? 0 : 1 + below(5);
    if (chance(60))
        addOther();
    if (chance(90))
        addSummary();
    addSections();
    if (chance(85))
        card(chance(80) ? "99       0       0       1       0       0       0       0       0"
                        : pick({"99", "99 ", "999", " 99", "99x"}));
    if (chance(20))
        addSections();
    damageBytes();
    return text_;
}

void NeutralGenerator::addSections() {
    const bool propertiesFirst = chance(40);
    if (propertiesFirst)
        for (std::size_t k = 0; k < properties_; ++k)
            addProperty();
    for (std::size_t k = 0; k < nodes_; ++k)
        addNode();
    if (chance(10))
        addSummary();
    for (std::size_t k = 0; k < elements_; ++k)
        addElement();
    if (!propertiesFirst)
        for (std::size_t k = 0; k < properties_; ++k)
            addProperty();
    if (chance(5))
        addSummary();
}

std::string NeutralGenerator::real() {
    if (chance(70)) {
        const int whole = static_cast<int>(below(4000)) - 2000;
        return std::to_string(whole) + (kHardReals && chance(50)
                                            ? "." + std::to_string(below(10000000))
                                            : pick({"", ".", ".5", ".25", ".750", ".0625"}));
    }
    if (kHardReals && chance(40)) {
        if (chance(50)) {
            char text[40];
            std::snprintf(text, sizeof text, "%.*E", static_cast<int>(below(12)),
                          static_cast<double>(random_()) / 3e17 - 30.0);
            return text;
        }
        return pick({"1e",
                     "1e+",
                     "0x10",
                     "0x1.8p1",
                     "0x",
                     "nan",
                     "inf",
                     "-infinity",
                     "infi",
                     "-nan",
                     "3.4028236e38",
                     "3.4028235e38",
                     "1e-46",
                     "7e-46",
                     "1.1754944E-38",
                     "16777217",
                     "33554433.00001",
                     "1e39",
                     "-1e400",
                     "1e-400",
                     "0.1000000015"});
    }
    return pick({"0",       "2",    "2.9", "3",  "12",    "12.5", "-0.",
                 "1E-2",    "+3",   "abc", "",   "-",     ".",    "e5",
                 "1.0D+00", "1..2", "\t3", "2x", "2e+05", "1 2",  "00000000001.50",
                 "1,5"});
}

std::string NeutralGenerator::field(int value) {
    if (chance(99))
        return padded(std::to_string(value), 8);
    return padded(pick({"-1", "0", "99999999", "-9999999", "1.5", "1E3", "+4", "007", "x", "",
                        "- 3", "4x", "\t5", "6 7", "16777216", "--2", "3000"}),
                  8);
}

std::string NeutralGenerator::cardCount(int sound) {
    return field(chance(95) ? sound : static_cast<int>(below(7)) - 2);
}

int NeutralGenerator::nodeId() {
    if (!ids_.empty() && chance(92))
        return ids_[below(ids_.size())];
    return static_cast<int>(below(40)) - 3;
}

std::string NeutralGenerator::lengthened(std::string text) {
    const std::size_t length = chance(50) ? 222 + below(6) : chance(80) ? 257 + below(6) : 447;
    if (text.size() >= length)
        return text;
    const std::size_t missing = length - text.size();
    const std::size_t at = chance(60) ? text.size() : below(text.size() + 1);
    return text.insert(at, std::string(missing, chance(70) ? ' ' : chance(50) ? '1' : '!'));
}

std::string NeutralGenerator::damagedCard(std::string text) {
    switch (below(10)) {
        case 0:
            return "";
        case 1:
            return text + "\n";
        case 2:
            return "! " + text;
        case 3:
            return text.substr(0, below(text.size() + 1));
        case 4:
            return pick({"!\n", "\n", " \n", "\t\n", "$ junk\n", "!!\n"}) + text;
        case 5:
            return text.insert(below(text.size() + 1), 1, chance(50) ? ' ' : '\t');
        case 6:
            return text.erase(0, below(3));
        case 7:
            return text + "\n" + text;
        case 8:
            if (!text.empty())
                text[below(text.size())] = "x!-\t1.\0\r"[below(8)];
            return text;
        default:
            return lengthened(text);
    }
}

void NeutralGenerator::card(std::string text) {
    if (chance(1))
        text = lengthened(text);
    if (below(1000) < noise_)
        text = damagedCard(text);
    text_ += text;
    text_ += lineEnds_ == 0   ? "\n"
             : lineEnds_ == 1 ? "\r\n"
                              : pick({"\n", "\n", "\r\n", "\r\r\n", "\n\n", "\r"});
}

void NeutralGenerator::addHeader(int it, const std::string& id, const std::string& iv,
                                 const std::string& kc, const std::vector<std::string>& rest) {
    if (chance(6))
        card(pick({"!", "! a comment", "!        1       2       3"}));
    if (noise_ > 0 && chance(2))
        card("");
    std::string text = padded(std::to_string(it), 2) + id + iv + kc;
    for (const std::string& number : rest)
        text += number;
    if (chance(4))
        text.resize(2 + below(text.size() - 1));
    card(text);
}

void NeutralGenerator::addSummary() {
    const auto count = [this](std::size_t real) {
        if (chance(85))
            return field(static_cast<int>(real));
        return field(static_cast<int>(chance(90) ? below(12) : below(2000)) - 1);
    };
    const std::size_t all = chance(90) ? 1 : 2;
    addHeader(26, field(0), field(0), cardCount(1),
              {count(nodes_ * all), count(elements_ * all), field(1), count(properties_ * all),
               field(1)});
    card(chance(90) ? " 1-JAN-01   00:00:00         3.0" : "");
}

void NeutralGenerator::addNode() {
    int id = static_cast<int>(ids_.size()) + 1;
    if (chance(25))
        id = static_cast<int>(chance(90) ? below(30) : below(90000000)) - 2;
    ids_.push_back(id);
    addHeader(1, field(id), field(0), cardCount(2),
              {field(0), field(0), field(0), field(0), field(0)});
    std::string coordinates;
    for (std::size_t k = chance(96) ? 3 : below(5); k > 0; --k)
        coordinates += chance(97) ? padded(real(), 16) : real() + " ";
    card(coordinates);
    if (chance(98))
        card(chance(50) ? "0       0       0" : "1G       6       0       0  000000");
}

void NeutralGenerator::addElement() {
    static constexpr int kShapes[] = {2, 3, 4, 5, 7, 8, 6, 9, 0, -2};
    static constexpr std::size_t kNodes[] = {2, 3, 4, 4, 6, 8, 5, 9, 4, 3};
    const std::size_t kind = chance(90) ? below(6) : below(10);
    const std::size_t count = chance(90) ? kNodes[kind] : below(12);
    addHeader(2, field(static_cast<int>(below(100))), field(kShapes[kind]),
              cardCount(count > 8 ? 3 : 2), {field(0), field(0)});
    card(field(static_cast<int>(count)) + field(0) + field(static_cast<int>(below(7)) - 1) +
         (chance(50) ? field(0) : ""));
    std::string nodes;
    for (std::size_t k = 0; k < count; ++k) {
        if (k == 8) {
            card(nodes);
            nodes.clear();
        }
        nodes += field(nodeId());
    }
    card(nodes);
}

void NeutralGenerator::addProperty() {
    const auto id = static_cast<int>(below(chance(80) ? 5 : 9));
    const std::size_t values = chance(40) ? 2 : 1 + below(5);
    if (chance(80)) {
        addHeader(4, field(id), field(static_cast<int>(below(5))), cardCount(1),
                  {field(static_cast<int>(values)), field(0), field(0)});
    } else {
        std::string text = chance(90) ? " 4" : pick({"4 ", " 4", "4", " 42", " 4 99"});
        for (std::size_t k = chance(50) ? 8 : below(8), of = k; k > 0; --k)
            text += pick({" ", "  ", "\t", "     "}) +
                    (chance(4) ? pick({"2147483647", "-2147483648", "99999999999", "-1", "26", "x"})
                     : of - k == 0 ? std::to_string(id)
                     : of - k == 3 ? std::to_string(values)
                                   : std::to_string(below(4)));
        card(text);
    }
    std::string text =
        chance(85) ? padded(pick({"2", "2.9", "3.", "0.12E+02", "12.", "3.999", "-1"}), 16) : "";
    for (std::size_t k = chance(95) ? values : below(12); k > 0; --k)
        text += chance(70) ? padded(real(), 16) : real() + " ";
    card(text);
    if (chance(5))
        card(padded(real(), 16));
}

void NeutralGenerator::addOther() {
    if (chance(70)) {
        addHeader(25, field(0), field(0), cardCount(1), {field(0)});
        card(pick({"TITLE", "", " 1       5", "99", "**   Created By : somebody"}));
        return;
    }
    static constexpr int kPackets[] = {3, 5, 6, 8, 10, 21, 27, 98, 0, -1};
    const int cards = static_cast<int>(below(4));
    addHeader(kPackets[below(10)], field(1), field(0), cardCount(cards), {});
    for (int k = 0; k < cards; ++k)
        card(integers({1, 2, 3}).substr(0, 24));
}

void NeutralGenerator::damageBytes() {
    if (chance(8) && !text_.empty())
        text_.resize(below(text_.size() + 1));
    if (chance(10))
        while (!text_.empty() && (text_.back() == '\n' || text_.back() == '\r'))
            text_.pop_back();
    if (noise_ < 100 || chance(50))
        return;
    static constexpr char kBytes[] = {'\0', '\r', '\n', '!', '-', ' ', '\t', '1', '\x1a', '\xff'};
    for (std::size_t count = 1 + below(4); count > 0 && !text_.empty(); --count) {
        const std::size_t at = below(text_.size());
        if (chance(20))
            text_.erase(at, 1 + below(5));
        else
            text_[at] = kBytes[below(sizeof kBytes)];
    }
}

}  // namespace kvocaeio::test
