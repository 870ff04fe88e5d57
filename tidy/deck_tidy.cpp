/// The exported tidy: the order of its steps, and the walks over origins.
#include <exception>
#include <filesystem>
#include <new>
#include <string>
#include <utility>

#include "report/import_report.h"
#include "report/sentence.h"
#include "text/file.h"
#include "text/platform.h"
#include "tidy/abaqus/rewrite.h"
#include "tidy/deck.h"
#include "tidy/findings.h"
#include "tidy/format.h"
#include "tidy/include_path.h"
#include "tidy/nastran/rewrite.h"
#include "tidy/output_file.h"
#include <kvocaeio/tidy.h>

namespace kvocaeio::tidy {

struct TidyState {
    Outcome outcome;
    DeckFormat format = DeckFormat::kUnknown;
    OriginMap::Cursor node;
    OriginMap::Cursor element;
    OriginMap::Cursor property;
};

namespace {

namespace fs = std::filesystem;

using Rewrite = bool (*)(const Deck&, OutputFile&, Outcome&, const text::Listener&);

bool rewriteUnknown(const Deck& deck, OutputFile&, Outcome&, const text::Listener& listener) {
    if (listener.findings == nullptr)
        return false;
    if (text::openFile(deck.path.c_str(), "rb") == nullptr)
        listener.note(text::FileFinding::kCannotOpen, "there is no such file, or it is no file");
    else
        listener.note(Finding::kFormatUnknown, {});
    return false;
}

Rewrite rewriteOf(DeckFormat format) {
    switch (format) {
        case DeckFormat::kAbaqus:
            return abaqus::rewriteDeck;
        case DeckFormat::kNastran:
            return nastran::rewriteDeck;
        case DeckFormat::kUnknown:
            break;
    }
    return rewriteUnknown;
}

bool noteOutput(const OutputFile& out, const text::Listener& listener) {
    listener.note(Finding::kOutputFailed, out.error().message());
    return false;
}

bool tidyDeck(const Deck& deck, const fs::path* target, TidyState& state,
              const text::Listener& listener) {
    OutputFile out;
    if (target != nullptr && !out.open(*target))
        return noteOutput(out, listener);
    if (!rewriteOf(state.format)(deck, out, state.outcome, listener))
        return false;
    if (target == nullptr)
        return true;
    if (state.outcome.hasRead(*target)) {
        listener.note(Finding::kOutputIsInput, displayed(*target));
        return false;
    }
    const bool isWritten = state.outcome.isNeeded || out.copy(deck.path);
    return (isWritten && out.finish()) || noteOutput(out, listener);
}

bool runTidy(const Deck& deck, const fs::path* target, int format, TidyState& state,
             const text::Listener& listener) {
    if (listener.findings != nullptr)
        listener.findings->beginFile(deck.name);
    try {
        state.format = format == CKVODeckTidy::kRecognise ? recogniseDeck(deck)
                                                          : static_cast<DeckFormat>(format);
        if (tidyDeck(deck, target, state, listener))
            return true;
    } catch (const std::bad_alloc&) {
        listener.note(text::FileFinding::kOutOfMemory, {});
    } catch (const std::exception&) {  // of a path that the system cannot have
        listener.note(Finding::kOutputFailed, "the path cannot be used");
    }
    state.outcome = {};
    return false;
}

void countOrigins(const TidyState& state, report::ImportReport& report) {
    const Origins& origins = state.outcome.origins;
    report.addCount("nodes", static_cast<long long>(origins.nodes.count()));
    report.addCount("elements", static_cast<long long>(origins.elements.count()));
    if (state.format == DeckFormat::kNastran)
        report.addCount("properties", static_cast<long long>(origins.properties.count()));
}

Deck deckAt(const char* path) {
    return {path == nullptr ? "" : path, path == nullptr ? "" : path};
}

#if defined(_WIN32)
fs::path pathOf(const wchar_t* wide) {
    return wide;
}
#else
fs::path pathOf(const wchar_t* wide) {
    std::string narrow;
    return text::toUtf8(wide, narrow) ? fs::path(narrow) : fs::path();
}
#endif
fs::path pathOf(const char* narrow) {
    return narrow;
}

Deck deckAt(const wchar_t* path) {
    if (path == nullptr)
        return {};
    const fs::path deck = pathOf(path);
    return {deck, displayed(deck)};
}

template <class Character>
bool tidyPaths(const Character* inPath, const Character* outPath, int format, TidyState& state,
               CKVOImportReport* report) {
    state = {};
    const auto import = [&](const text::Listener& listener) {
        try {
            const Deck deck = deckAt(inPath);
            const fs::path target = outPath == nullptr ? fs::path() : pathOf(outPath);
            return runTidy(deck, outPath == nullptr ? nullptr : &target, format, state, listener);
        } catch (const std::exception&) {
            listener.note(text::FileFinding::kCannotOpen, "the path cannot be used");
            return false;
        }
    };
    const auto audit = [&](report::ImportReport& filled) { countOrigins(state, filled); };
    return report::runReported(report, import, audit);
}

template <class Character>
bool isSource(const Character* path, const Outcome& outcome) {
    try {
        return path != nullptr && outcome.hasRead(pathOf(path));
    } catch (const std::exception&) {  // of a path that the system cannot have
        return false;
    }
}

template <class Character>
bool writeMapTo(const Character* path, const Outcome& outcome) {
    try {
        OutputFile out;
        if (path == nullptr || isSource(path, outcome) || !out.open(pathOf(path)))
            return false;
        writeOrigins(outcome.origins, out);
        return out.finish();
    } catch (const std::exception&) {
        return false;
    }
}

bool takeOrigin(const OriginMap& map, OriginMap::Cursor& cursor, const Origins& origins,
                CKVODeckTidy::OriginData& out) {
    Origin origin;
    if (!map.next(cursor, origin))
        return false;
    out.id = origin.id;
    out.originalId = origin.originalId;
    report::copyText(origins.sources[origin.source].part, out.part);
    report::copyText(origins.sources[origin.source].file, out.file);
    return true;
}

bool beginOrigins(const OriginMap& map, OriginMap::Cursor& cursor) {
    cursor = {};
    return map.count() > 0;
}

}  // namespace

}  // namespace kvocaeio::tidy

using namespace kvocaeio;

CKVODeckTidy::CKVODeckTidy() : state(new tidy::TidyState) {}

CKVODeckTidy::~CKVODeckTidy() {
    delete state;
}

bool CKVODeckTidy::Tidy(const char* inPath, const char* outPath, int format,
                        CKVOImportReport* report) {
    return tidy::tidyPaths(inPath, outPath, format, *state, report);
}

bool CKVODeckTidy::Tidy(const wchar_t* inPath, const wchar_t* outPath, int format,
                        CKVOImportReport* report) {
    return tidy::tidyPaths(inPath, outPath, format, *state, report);
}

bool CKVODeckTidy::IsNeeded() {
    return state->outcome.isNeeded;
}

int CKVODeckTidy::GetFormat() {
    return static_cast<int>(state->format);
}

double CKVODeckTidy::GetDeviation() {
    return state->outcome.deviation;
}

long long CKVODeckTidy::GetNodeOriginNum() {
    return static_cast<long long>(state->outcome.origins.nodes.count());
}

bool CKVODeckTidy::GetNodeOriginBegin() {
    return tidy::beginOrigins(state->outcome.origins.nodes, state->node);
}

bool CKVODeckTidy::GetNodeOriginNext(OriginData* out) {
    const tidy::Origins& origins = state->outcome.origins;
    return tidy::takeOrigin(origins.nodes, state->node, origins, *out);
}

long long CKVODeckTidy::GetElemOriginNum() {
    return static_cast<long long>(state->outcome.origins.elements.count());
}

bool CKVODeckTidy::GetElemOriginBegin() {
    return tidy::beginOrigins(state->outcome.origins.elements, state->element);
}

bool CKVODeckTidy::GetElemOriginNext(OriginData* out) {
    const tidy::Origins& origins = state->outcome.origins;
    return tidy::takeOrigin(origins.elements, state->element, origins, *out);
}

long long CKVODeckTidy::GetPropertyOriginNum() {
    return static_cast<long long>(state->outcome.origins.properties.count());
}

bool CKVODeckTidy::GetPropertyOriginBegin() {
    return tidy::beginOrigins(state->outcome.origins.properties, state->property);
}

bool CKVODeckTidy::GetPropertyOriginNext(OriginData* out) {
    const tidy::Origins& origins = state->outcome.origins;
    return tidy::takeOrigin(origins.properties, state->property, origins, *out);
}

bool CKVODeckTidy::WriteMap(const char* path) {
    return tidy::writeMapTo(path, state->outcome);
}

bool CKVODeckTidy::WriteMap(const wchar_t* path) {
    return tidy::writeMapTo(path, state->outcome);
}

bool CKVODeckTidy::IsSource(const char* path) {
    return tidy::isSource(path, state->outcome);
}

bool CKVODeckTidy::IsSource(const wchar_t* path) {
    return tidy::isSource(path, state->outcome);
}
