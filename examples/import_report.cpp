#include <cstdio>

#include <kvocaeio/abaqus.h>
#include <kvocaeio/report.h>

int main(int argc, char** argv) {
    CKVOAbaqusReader deck;
    CKVOImportReport report;
    const bool imported = argc == 2 && deck.ImportInpFile(argv[1], &report);
    CKVOImportReport::FindingData finding;
    for (report.GetFindingBegin(); report.GetFindingNext(&finding);)
        std::fprintf(stderr, "%s:%lld: %s (%lld times)\n", finding.file, finding.line, finding.text,
                     finding.count);
    return imported && report.GetSeverityCount(CKVOImportReport::kError) == 0 ? 0 : 1;
}
