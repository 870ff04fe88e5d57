/// Prints what the reader holds of a Nastran deck, as it is or after a tidy, for comparisons in
/// other languages: `dump_nastran as-is DECK`, `dump_nastran tidy DECK OUT`.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

#include <kvocaeio/nastran.h>
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace {

void printOrigins(CKVODeckTidy& tidy) {
    CKVODeckTidy::OriginData origin;
    for (tidy.GetNodeOriginBegin(); tidy.GetNodeOriginNext(&origin);)
        std::printf("node-origin %d %d\n", origin.id, origin.originalId);
    for (tidy.GetElemOriginBegin(); tidy.GetElemOriginNext(&origin);)
        std::printf("element-origin %d %d\n", origin.id, origin.originalId);
    for (tidy.GetPropertyOriginBegin(); tidy.GetPropertyOriginNext(&origin);)
        std::printf("property-origin %d %d\n", origin.id, origin.originalId);
    std::printf("deviation %.17g\nneeded %d\n", tidy.GetDeviation(), tidy.IsNeeded() ? 1 : 0);
}

void printFindings(CKVOImportReport& report) {
    CKVOImportReport::FindingData finding;
    for (report.GetFindingBegin(); report.GetFindingNext(&finding);)
        std::fprintf(stderr, "%s:%lld:%d: %d: %s [%s]\n", finding.file, finding.line,
                     finding.column, finding.severity, finding.text, finding.code);
}

void printDeck(KVONASTRAN_Reader& deck) {
    const float* node = deck.GetNodeVector();
    for (int row = 0; row < deck.GetNodeCout(); ++row, node += 4)
        if (node[0] != 0.0F)
            std::printf("node %d %.9g %.9g %.9g\n", row + 1, static_cast<double>(node[1]),
                        static_cast<double>(node[2]), static_cast<double>(node[3]));
    const int* element = deck.GetElemVector();
    for (int row = 0; row < deck.GetElemCout(); ++row, element += 9)
        if (element[0] != 0) {
            std::printf("element %d", element[0]);
            std::for_each(element + 1, element + 9, [](int corner) { std::printf(" %d", corner); });
            std::printf("\n");
        }
    const int* section = deck.GetSectionVector();
    for (int row = 0; row < deck.GetSectionCout(); ++row, section += 3)
        std::printf("section %d %d %d\n", section[0], section[1], section[2]);
}

}  // namespace

int main(int argc, char** argv) {
    const bool isTidied = argc == 4 && std::strcmp(argv[1], "tidy") == 0;
    if (!isTidied && (argc != 3 || std::strcmp(argv[1], "as-is") != 0))
        return 2;
    if (isTidied) {
        CKVODeckTidy tidy;
        CKVOImportReport report;
        const bool done = tidy.Tidy(argv[2], argv[3], CKVODeckTidy::kNastran, &report);
        printFindings(report);
        if (!done)
            return 1;
        printOrigins(tidy);
    }
    KVONASTRAN_Reader deck;
    if (!deck.SetFilePath(argv[isTidied ? 3 : 2]))
        return 3;
    printDeck(deck);
    return 0;
}
