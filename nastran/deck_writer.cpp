/// The layouts: what stands where on each card.
#include "nastran/deck_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <ctime>
#include <exception>
#include <string_view>

#include "text/platform.h"

namespace kvocaeio::nastran {

namespace {

constexpr std::string_view kRule =
    "$ -----------------------------------------------------------\n";

// The units that belong to a mesh unit; each row is a text that the mesh unit may hold, in small or
// capital letters. A later row replaces an earlier one, so that "mm" wins over the "m" in it.
struct UnitRow {
    std::string_view small;
    std::string_view capital;
    std::string_view elasticModule;
    std::string_view density;
};

constexpr std::array kUnits{
    UnitRow{"m", "M", "N/m^2", "T/m^3"},
    UnitRow{"mm", "MM", "N/mm^2", "T/mm^3"},
    UnitRow{"cm", "CM", "N/cm^2", "T/cm^3"},
    UnitRow{"inch", "INCH", "lb/in^2", "T/in^3"},
};

UnitRow unitsOf(std::string_view meshUnit) {
    UnitRow found{"", "", "", ""};
    for (const UnitRow& row : kUnits)
        if (meshUnit.find(row.small) != std::string_view::npos ||
            meshUnit.find(row.capital) != std::string_view::npos)
            found = row;
    return found;
}

// A solid card: the nodes in the order of the card, counted from 1 in the caller's list. The
// mid-side nodes of the two end faces come first in that list and those of the connecting edges
// last; on the card the connecting edges stand between.
struct SolidLayout {
    std::size_t nodes;
    std::string_view name;
    std::array<std::size_t, 20> order;
};

constexpr std::array kSolidLayouts{
    SolidLayout{4, "CTETRA ,", {1, 2, 3, 4}},
    SolidLayout{6, "CPENTA ,", {1, 2, 3, 4, 5, 6}},
    SolidLayout{8, "CHEXA  ,", {1, 2, 3, 4, 5, 6, 7, 8}},
    SolidLayout{10, "CTETRA ,", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
    SolidLayout{15, "CPENTA ,", {1, 2, 3, 4, 5, 6, 7, 8, 9, 13, 14, 15, 10, 11, 12}},
    SolidLayout{
        20, "CHEXA  ,", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 17, 18, 19, 20, 13, 14, 15, 16}},
};

constexpr int kNumberWidth = 7;  // with its comma a field of eight columns
constexpr int kGridWidth = 8;    // on `GRID` cards the comma is a ninth

}  // namespace

void writeHeader(text::Writer& deck, std::string_view meshUnit) {
    const UnitRow units = unitsOf(meshUnit);
    std::array<char, 50> date{};
    std::tm local{};
    if (text::toLocalTime(std::time(nullptr), local))
        std::strftime(date.data(), date.size(), "%m/%d/%y  %H:%M:%S", &local);
    deck.text(kRule).text("$ Date: ").text(date.data()).text("\n$ Vorlan9Q to NE-Nastran\n");
    deck.text(kRule).text("$ Mesh unit           = ").text(meshUnit);
    deck.text("\n$ Elastic module unit = ").text(units.elasticModule);
    deck.text("\n$ Density             = ").text(units.density).text("\n");
    deck.text(kRule).text("$ STATIC SOLUTION.\n").text(kRule).text("SOL STATIC\nCEND\n");
    deck.text(kRule).text("$ TITLE\n").text(kRule);
    deck.text("TITLE =     VORLAN9Q INJECTION MOLDING MODEL\n");
    deck.text(kRule).text("$ OUTPUT CONTROL.\n").text(kRule);
    deck.text("DISPLACEMENT = ALL\nSPCFORCES    = ALL\nELSTRESS     = ALL\nGPSTRESS     = ALL\n");
    deck.text(kRule).text("$ BEGIN BULK\n").text(kRule).text("BEGIN BULK\n$ \n");
    deck.text("PARAM,POST,-1\nPARAM,OGEOM,NO\nPARAM,AUTOSPC,YES\nPARAM,GRDPNT,0\n");
    deck.text("CORD2R         1       0      0.      0.      0.      0.      0.      1.+VORLAN1\n");
    deck.text("+VORLAN1      1.      0.      1.\n");
}

bool startDeck(const char* path, const char* unit, NastranWriterState& state) {
    state.close();
    try {
        state.path = path;
        state.unit = unit;
        state.stream = text::openFile(path, "w");
        if (state.stream == nullptr)
            return false;
        writeHeader(state.deck.emplace(state.stream.get()), state.unit);
        state.close();
        state.stream = text::openFile(path, "a+");
        if (state.stream != nullptr)
            state.deck.emplace(state.stream.get());
        return true;
    } catch (const std::exception&) {  // memory ran out
        state.close();
        return false;
    }
}

void writeFooter(text::Writer& deck) {
    deck.text(kRule).text("$ END OF DATA\n").text(kRule).text("ENDDATA\n");
}

void writeGrid(text::Writer& deck, int id, double x, double y, double z) {
    deck.text("GRID   ,").integer(id, kGridWidth).text(",       0,").fixed(x, 3, kGridWidth);
    deck.text(",").fixed(y, 3, kGridWidth).text(",").fixed(z, 3, kGridWidth).text(",       0\n");
}

void writeSolidSection(text::Writer& deck, int id) {
    deck.text("PSOLID ,").integer(id, kNumberWidth).text(",      1,1\n");
}

void writeElement(text::Writer& deck, int id, int section, std::span<const int> nodes) {
    const auto* const layout = std::ranges::find(kSolidLayouts, nodes.size(), &SolidLayout::nodes);
    if (layout == kSolidLayouts.end())
        return;
    deck.text(layout->name).integer(id, kNumberWidth).text(",").integer(section, kNumberWidth);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (i == 6 || i == 14)  // eight numbers stand on a line, with those of the element
            deck.text("\n       ");
        deck.text(",").integer(nodes[layout->order[i] - 1], kNumberWidth);
    }
    deck.text("\n");
}

}  // namespace kvocaeio::nastran
