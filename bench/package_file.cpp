/// Generated chip packages as 3DI files.
#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "bench/inputs.h"

namespace kvocaeio::bench {

namespace {

constexpr double kPackageSize = 35'000.0;  // micrometres
constexpr int kColors = 16;
constexpr int kProfiles = 8;

constexpr std::string_view kTables =
    "TABLE OBJECT\n1 SYMBOL\n2 BALL\n3 BONDWIRE\n"
    "TABLE LAYER\n1 OUTLINE\n2 TOP\n3 PACKAGE CAP\n4 BALL LAYER\n5 DIE LAYER\nTABLE END\n";

constexpr std::string_view kSubstrateAndCap =
    "GEOM\nNAME BODY\nOBJECT 1\nLAYER 1\nCOLOR 3\nEXTR 0 0.0 560.0\n2DPG 4\n"
    "0.0 0.0 35000.0 0.0 35000.0 35000.0 0.0 35000.0\n####\n"
    "GEOM\nNAME CAP\nOBJECT 9\nLAYER 3\nCOLOR 4\nEXTR 0 560.0 1400.0\n2DPG 4\n"
    "0.0 0.0 35000.0 0.0 35000.0 35000.0 0.0 35000.0\n####\n";

void row(text::Writer& out, std::initializer_list<double> values) {
    const char* separator = "";
    for (const double value : values) {
        out.text(separator).fixed(value, 3);
        separator = " ";
    }
    out.character('\n');
}

// An arch from the die down to the substrate.
void writeWire(text::Writer& out, int number, double x, double y) {
    const double dx = 1200.0 * std::cos(number);
    const double dy = 1200.0 * std::sin(number);
    out.text("GEOM\nOBJECT 3\nLAYER 2\nCOLOR ").integer(1 + number % kColors);
    out.text("\nWIRE_MODEL ").integer(1 + number % kProfiles);
    out.text("\nWIRE 25.0 ").integer(number + 1).text("\n3DPL 6\n");
    row(out, {x, y, 760.0, x + 0.02 * dx, y + 0.02 * dy, 900.0, x + 0.1 * dx, y + 0.1 * dy, 985.5});
    row(out, {x + 0.5 * dx, y + 0.5 * dy, 930.25, x + 0.9 * dx, y + 0.9 * dy, 640.125, x + dx,
              y + dy, 560.0});
    out.text("####\n");
}

void writeBall(text::Writer& out, int number, double x, double y) {
    out.text("GEOM\nOBJECT 2\nLAYER 4\nCOLOR ").integer(1 + number % kColors);
    out.text("\nBARL ").fixed(x, 3).text(" ").fixed(y, 3).text(" 0.0 225.0 0.0 180.0 1\n####\n");
}

void writeDie(text::Writer& out, int number, double x, double y) {
    const double z = 560.0 + number % 5 * 40.0;
    out.text("GEOM\nNAME ").text(number % 40 < 20 ? "DIE_" : "SPACER_").integer(number);
    out.text("\nOBJECT 1\nLAYER 5\nCOLOR ").integer(1 + number % kColors);
    out.text("\nEXTR 0 ").fixed(z, 3).text(" ").fixed(z + 40.0, 3).text("\n2DPG 4\n");
    row(out, {x, y, x + 300.0, y, x + 300.0, y + 220.0, x, y + 220.0});
    out.text("####\n");
}

}  // namespace

void writePackageFile(text::Writer& out, int blocks) {
    out.text("3DI package, length unit MICRONS\nTABLE COLOR\n");
    for (int color = 1; color <= kColors; ++color) {
        out.integer(color);
        for (const int factor : {29, 53, 97})
            out.text(" ").integer(color * factor % 256);
        out.text(" 0\n");
    }
    out.text(kTables).text("WIRE_MODELS\n");
    for (int profile = 1; profile <= kProfiles; ++profile) {
        out.text("WIRE_MODEL ").integer(profile).text("\nAU25_P").integer(profile);
        out.text(" 25.0 ").integer(profile).text(" GOLD\n");
    }
    out.text("GEOMETRIES\n").text(kSubstrateAndCap);
    const int side = std::max(1, static_cast<int>(std::sqrt(blocks)));
    for (int number = 0; number < blocks; ++number) {
        const double x = kPackageSize * (number % side) / side;
        const double y = kPackageSize * (number / side) / side;
        const int kind = number % 20;
        if (kind < 14)
            writeWire(out, number, x, y);
        else if (kind < 19)
            writeBall(out, number, x, y);
        else
            writeDie(out, number, x, y);
    }
    out.text("END\n");
}

}  // namespace kvocaeio::bench
