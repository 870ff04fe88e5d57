/// Random Nastran decks.
#include "nastran/deck_generator.h"

#include <algorithm>

namespace kvocaeio::test {

DeckGenerator::DeckGenerator(std::uint64_t seed) : random_(seed) {
    constexpr Layout kLayouts[] = {Layout::kFixed,  Layout::kFixed,  Layout::kFixed,
                                   Layout::kCommas, Layout::kCommas, Layout::kBlanks};
    layout_ = kLayouts[random_.below(6)];
    maxId_ = random_.oneIn(30) ? 3000 : 3 + random_.below(60);
    mutationsOneIn_ = random_.oneIn(8) ? 2 : random_.oneIn(3) ? 1000 : 15;
    rightAligned_ = !random_.oneIn(4);
}

std::string DeckGenerator::deck() {
    std::vector<std::string> lines;
    const auto add = [&](const std::vector<std::string>& more) {
        lines.insert(lines.end(), more.begin(), more.end());
    };
    for (std::size_t cards = 1 + random_.below(11); cards > 0; --cards)
        add(card());
    for (std::string& line : lines)
        if (random_.oneIn(mutationsOneIn_))
            mutate(line);
    // Without these two a deck is not read at all.
    for (const char* needed : {"GRID           2       0     0.5    1.25     -3.\n",
                               "CTETRA         2       1       1       2       3       4\n"})
        if (!random_.oneIn(10))
            lines.insert(lines.begin() + static_cast<int>(random_.below(lines.size() + 1)), needed);
    if (random_.oneIn(8))
        lines.push_back(random_.oneIn(2) ? "CHEXA," + id() + ",1,1,2,3,4,5,6\n"
                                         : "CHEXA          3       1       1       2       3" +
                                               std::string("       4       5       6\n"));
    const bool carriageReturns = random_.oneIn(10);
    std::string deck;
    for (const std::string& line : lines) {
        deck += line;
        if (carriageReturns && deck.ends_with('\n'))
            deck.insert(deck.size() - 1, "\r");
    }
    if (random_.oneIn(4) && deck.ends_with('\n'))
        deck.pop_back();
    return deck;
}

std::string DeckGenerator::nearlyPlainDeck() {
    std::string deck =
        "GRID           2       0     0.5    1.25     -3.\n"
        "CTETRA         2       1       1       2       3       4\n";
    for (std::size_t cards = 1 + random_.below(15); cards > 0; --cards)
        for (const std::string& line : nearlyPlainCard())
            deck += line;
    return deck;
}

std::vector<std::string> DeckGenerator::nearlyPlainCard() {
    std::vector<std::string> lines = plainCard();
    for (std::string& line : lines) {
        if (random_.oneIn(3))
            spoil(line);
        if (!random_.oneIn(60))
            line += random_.oneIn(20) ? "\r\n" : "\n";
    }
    return lines;
}

std::string DeckGenerator::nearlyPlainField() {
    constexpr const char* kFields[] = {
        "",      "0",    "00000007", "1234567890", "12345678", "-1",   "+5",   "1.5-3", "1.5+3",
        "1.E-3", "-.5",  ".",        "-",          "-.",       "1..2", "1 2",  "5.",    "-0.",
        "-0",    "0.0",  ".25",      "9999.999",   "-9999999", "1e2",  "1.5-", "--1",   "- 1",
        "1.-2",  "1\t2", "\t7",      "7\t",        "7\r",      "A",    "EL",   "0EL",   "G",
        "1,2",   "1+2",  "010",      "0.",         "-.0",      "00",   "c",    "1.d0",  "0x1"};
    const std::size_t kind = random_.below(8);
    std::string field = kind == 0  ? oneOf(kFields)
                        : kind < 3 ? real()
                                   : std::to_string(1 + random_.below(kind == 3 ? 99999999 : 40));
    // Right in the field, left in it, or somewhere.
    field.resize(std::min<std::size_t>(field.size(), random_.oneIn(200) ? 9 : 8));
    const std::size_t room = field.size() < 8 ? 8 - field.size() : 0;
    const std::size_t before = rightAligned_      ? room
                               : random_.oneIn(4) ? random_.below(room + 1)
                                                  : 0;
    return std::string(before, ' ') + field + std::string(room - before, ' ');
}

// Without line ends.
std::vector<std::string> DeckGenerator::plainCard() {
    constexpr const char* kNames[] = {"GRID    ", "GRID    ", "GRID    ", "CTETRA  ", "CPENTA  ",
                                      "CBAR    ", "CROD    ", "CTUBE   ", "CBEAM   ", "CHEXA   ",
                                      "CHEXA   ", "CHEXA   ", "CHEXA   ", "CQUAD4  ", "CQUAD8  ",
                                      "CTRIA3  ", "CSHEAR  ", "PSOLID  ", "PSHELL  ", "PBAR    ",
                                      "FORCE   ", "+       ", "CHEXA",    "$ CHEXA ", "        "};
    constexpr const char* kTails[] = {
        "",         "",         "",  "+",  "+       ", "        ", "+EL1    ", "+EL12345", "*",
        "       +", "+000001 ", ",", "+G", " ",        "  7",      "+      0", "+12"};
    constexpr const char* kFronts[] = {"+       ", "+       ", "        ", "+EL1    ", "+,",
                                       ",",        "",         "       ",  "       ,", "*       ",
                                       "+  ,",     "\t",       "+0000001", "34"};
    std::string line = oneOf(kNames);
    const std::size_t most = line[1] == 'H' || line[2] == 'H' ? 8 : 9;
    const bool isGrid = line[0] == 'G';
    std::size_t fields = isGrid ? 5 : random_.oneIn(4) ? random_.below(most + 1) : most - 1;
    if (most == 8 && !random_.oneIn(8))
        fields = 8;
    for (std::size_t i = 0; i < fields; ++i) {
        if (random_.oneIn(6)) {
            line += nearlyPlainField();
            continue;
        }
        const std::string plain = isGrid && i > 1   ? std::to_string(random_.below(99)) + ".5"
                                  : isGrid && i > 0 ? ""
                                                    : std::to_string(1 + random_.below(40));
        line += placed(plain, 8);
    }
    line += oneOf(kTails);
    std::vector<std::string> lines{line};
    if (most == 8 && !random_.oneIn(6)) {
        std::string next = oneOf(kFronts);
        for (std::size_t i = random_.oneIn(4) ? random_.below(4) : 2; i > 0; --i)
            next += random_.oneIn(4) ? nearlyPlainField() : placed(id(), 8);
        lines.push_back(next);
    }
    return lines;
}

// One change, small enough that a hasty look may miss it.
void DeckGenerator::spoil(std::string& line) {
    constexpr const char* kNames[] = {"GRID",  "CBAR",  "CHEXA", "CQUAD8", "PSOLID", "CTUB-",
                                      "PBEAM", "CTRIA", "PTUB-", "GRI",    "CHEX"};
    const std::size_t at = random_.below(line.size() + 1);
    switch (random_.below(8)) {
        case 0:
            line.insert(at, 1, "\0\t\r $"[random_.below(5)]);
            break;
        case 1:
            if (at < line.size())
                line.erase(at, 1);
            break;
        case 2: {
            const std::string name = oneOf(kNames);
            line.replace(at, std::min(name.size(), line.size() - at), name);
            break;
        }
        case 3: {  // about the ends of the fields, of the columns, of the longest line
            constexpr std::size_t kEnds[] = {8, 16, 24, 48, 72, 80, 254};
            const std::size_t wanted = kEnds[random_.below(7)] + random_.below(5) - 2;
            line.resize(wanted, " 0,+"[random_.below(4)]);
            break;
        }
        case 4:
            line.resize(at);
            break;
        default:
            if (at < line.size())
                line[at] = "\0\t\r 0.-+,$*eEGLx9\x80\xFF"[random_.below(19)];
    }
}

std::vector<std::string> DeckGenerator::card() {
    switch (random_.below(12)) {
        case 0:
            return {remark() + "\n"};
        case 1:
        case 2:
        case 3:
        case 4:
            return laidOut(gridFields());
        case 5:
        case 6:
        case 7:
        case 8:
            return laidOut(elementFields());
        default:
            return laidOut(propertyFields());
    }
}

void DeckGenerator::mutate(std::string& line) {
    constexpr const char* kPieces[] = {
        " ",    ",",        "+",    "-",  ".",    "0",    "7",        "E",        "L",   "EL",
        "$",    "\t",       "\r",   "E-", "e+",   "--",   "x",        "CHEX",     "A",   "*",
        "GRID", "        ", " 0",   "\n", "-5",   ",,",   "+EL",      "nan",      "INF", "0x1.8p2",
        "e5",   "1e39",     "\x80", "=",  "PROD", "CBAR", "99999999", "00000000", "inf "};
    for (std::size_t changes = 1 + random_.below(3); changes > 0; --changes) {
        const std::size_t at = random_.below(line.size() + 1);
        const std::size_t length = random_.below(line.size() - at + 1);
        switch (random_.below(16)) {
            case 0:
                line.erase(at, random_.oneIn(2) ? 1 : length);
                break;
            case 1:
                line.insert(at, line.substr(at, length));
                break;
            case 2:
                line.insert(at, 1, '\0');
                break;
            case 3: {  // about the bound of a line, or twice that
                std::size_t wanted = random_.oneIn(3) ? 506 : 252;
                wanted += random_.below(7);
                if (wanted > line.size())
                    line.insert(at, wanted - line.size(), " ,0x"[random_.below(4)]);
                break;
            }
            case 4:
                line.insert(at, random_.below(12), ' ');
                break;
            case 5:
            case 6:
            case 7:
            case 8:
                line.insert(at, oneOf(kPieces));
                break;
            default: {
                const std::string piece = oneOf(kPieces);
                line.replace(at, std::min(piece.size(), line.size() - at), piece);
            }
        }
    }
}

std::string DeckGenerator::junk() {
    std::string characters;
    for (std::size_t count = random_.below(random_.oneIn(4) ? 300 : 90); count > 0; --count)
        characters += "          0000,,+--.eEELL12\n\tAx"[random_.below(31)];
    return characters;
}

std::string DeckGenerator::id() {
    if (random_.oneIn(40)) {
        constexpr const char* kOdd[] = {"0", "-1", "00000012", "+7", "1.5", "", "A", "12345678"};
        return oneOf(kOdd);
    }
    return std::to_string(1 + random_.below(maxId_));
}

std::string DeckGenerator::nodeId() {
    if (random_.oneIn(12))
        return std::to_string(random_.below(100000000));  // up to a full field
    return id();
}

std::string DeckGenerator::real() {
    constexpr const char* kReals[] = {
        "0.",       "1.5",      "-2.25",    ".5",      "-.125",  "3.",     "100.125", "1.5-3",
        "2.5+2",    "1.5E-3",   "1.0E+3",   "-1.25-4", "1e2",    "7",      "-0.",     "1.-1",
        "-1.234-5", "12345.67", "0.333333", "4.E1",    "1.E-10", "25.4",   "1000.",   "1.5D3",
        "",         "abc",      "nan",      "inf",     "0x1p3",  "1e400",  "1.5e",    "1e-5",
        "9.999999", "16777217", "8.5-2",    "3.14159", "1.-30",  "2.E+08", "0.001",   "1-"};
    if (random_.oneIn(3))
        return oneOf(kReals);
    const std::string whole = std::to_string(random_.below(1000));
    return whole + "." + std::to_string(random_.below(10000));
}

std::vector<std::string> DeckGenerator::gridFields() {
    constexpr const char* kSystems[] = {"", "", "0", "0", "1", "12"};
    std::vector<std::string> fields{"GRID", id(), oneOf(kSystems), real(), real(), real()};
    if (random_.oneIn(4))
        fields.push_back(oneOf(kSystems));
    return fields;
}

std::vector<std::string> DeckGenerator::elementFields() {
    struct Kind {
        const char* name;
        std::size_t nodes;
    };
    constexpr Kind kKinds[] = {{"CTETRA", 4}, {"CTETRA", 10}, {"CPENTA", 6}, {"CPENTA", 15},
                               {"CHEXA", 8},  {"CHEXA", 8},   {"CHEXA", 8},  {"CHEXA", 20},
                               {"CBAR", 2},   {"CBEAM", 2},   {"CROD", 2},   {"CTUBE", 2},
                               {"CQUAD4", 4}, {"CQUAD8", 8},  {"CTRIA3", 3}, {"CSHEAR", 4}};
    const Kind kind = kKinds[random_.below(16)];
    std::vector<std::string> fields{kind.name, id(), id()};
    for (std::size_t i = 0; i < kind.nodes; ++i)
        fields.push_back(nodeId());
    if (random_.oneIn(20))
        fields.resize(1 + random_.below(fields.size()));
    return fields;
}

std::vector<std::string> DeckGenerator::propertyFields() {
    constexpr const char* kNames[] = {"PROD",   "PTUBE",  "PBAR",   "PBARL", "PBEAM",
                                      "PSHELL", "PSHEAR", "PSOLID", "PSOLID"};
    std::vector<std::string> fields{oneOf(kNames),
                                    random_.oneIn(12) ? id() : std::to_string(nextProperty_++),
                                    random_.oneIn(4) ? id() : std::to_string(1 + random_.below(3))};
    for (std::size_t count = random_.below(6); count > 0; --count)
        fields.push_back(real());
    return fields;
}

std::string DeckGenerator::remark() {
    constexpr const char* kRemarks[] = {"$ a comment",
                                        "$ CHEXA cards from here on",
                                        "$CQUAD8",
                                        "",
                                        "        ",
                                        "SOL 101",
                                        "CEND",
                                        "TITLE = CHEXA MODEL",
                                        "DISPLACEMENT(SORT1,REAL)=ALL",
                                        "BEGIN BULK",
                                        "PARAM,POST,-1",
                                        "MAT1           1 210000.             0.3  7.85-9",
                                        "MAT1,1,2.1+5,,0.3",
                                        "CORD2R         1       0      0.      0.      0.      0.",
                                        "+A            1.      0.      1.",
                                        "PLOAD4         5       9     1.5     0.0     0.0 CTETRA",
                                        "INCLUDE 'GRID.dat'",
                                        "X              5       6 PBEAM",
                                        " GRID          3       0     1.0     2.0     3.0",
                                        "grid           3       0     1.0     2.0     3.0",
                                        "FORCE          2       7       0   100.0     0.0     0.0",
                                        "SPC1           1  123456       1    THRU      99",
                                        "ENDDATA"};
    return oneOf(kRemarks);
}

std::vector<std::string> DeckGenerator::laidOut(const std::vector<std::string>& fields) {
    const Layout layout = random_.oneIn(10) ? static_cast<Layout>(random_.below(4)) : layout_;
    switch (layout) {
        case Layout::kFixed:
            return inColumns(fields, 8);
        case Layout::kLarge:
            return inColumns(fields, 16);
        case Layout::kCommas:
            return inCommas(fields);
        default:
            return {inBlanks(fields)};
    }
}

std::string DeckGenerator::placed(const std::string& field, std::size_t width) {
    if (field.size() >= width)
        return field.substr(0, width);
    const std::size_t room = width - field.size();
    std::size_t before = rightAligned_ ? room : 0;
    if (random_.oneIn(16))
        before = random_.below(room + 1);
    return std::string(before, ' ') + field + std::string(room - before, ' ');
}

std::string DeckGenerator::label() {
    constexpr const char* kLabels[] = {"", "", "", "+", "+EL1", "+EL12345", "EL1", "+A", "*", "+0"};
    return oneOf(kLabels);
}

// Eight fields of 8 columns a line, or four of 16, and a mark in the last and the first ones.
std::vector<std::string> DeckGenerator::inColumns(const std::vector<std::string>& fields,
                                                  std::size_t width) {
    const std::string mark = label();
    std::string line = (fields[0] + (width == 16 ? "*" : "") + "        ").substr(0, 8);
    std::vector<std::string> lines;
    for (std::size_t i = 1; i < fields.size(); ++i) {
        if (line.size() >= 72) {
            if (!mark.empty() || random_.oneIn(3))
                line += (mark + "        ").substr(0, random_.oneIn(2) ? 8 : mark.size());
            lines.push_back(line + "\n");
            line = (mark + "        ").substr(0, 8);
        }
        line += placed(fields[i], width);
    }
    if (!rightAligned_ && random_.oneIn(3))
        line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(line + "\n");
    return lines;
}

std::vector<std::string> DeckGenerator::inCommas(const std::vector<std::string>& fields) {
    const std::size_t width = random_.oneIn(3) ? 7 + random_.below(2) : 0;
    const std::size_t perLine = random_.oneIn(4) ? 6 + random_.below(6) : 8;
    const std::string mark = label();
    std::string line = fields[0] + std::string(random_.oneIn(3) ? 8 - fields[0].size() : 0, ' ');
    std::vector<std::string> lines;
    for (std::size_t i = 1; i < fields.size(); ++i) {
        if (i > 1 && (i - 1) % perLine == 0) {
            lines.push_back(line + (mark.empty() ? "" : "," + mark) + "\n");
            line = random_.oneIn(4) ? std::string(8, ' ') : mark;
        }
        line += ",";
        line += width == 0 ? fields[i] : placed(fields[i], width);
        if (random_.oneIn(10))
            line += " ";
    }
    lines.push_back(line + "\n");
    return lines;
}

std::string DeckGenerator::inBlanks(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields)
        line += field + (random_.oneIn(16) ? "\t" : std::string(1 + random_.below(7), ' '));
    return line + "\n";
}

}  // namespace kvocaeio::test
