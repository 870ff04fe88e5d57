/// The order of the steps of a tidy run.
#include "tidy/run.h"

#include <exception>
#include <filesystem>
#include <new>

#include "text/file.h"
#include "tidy/abaqus/rewrite.h"
#include "tidy/findings.h"
#include "tidy/include_path.h"
#include "tidy/nastran/rewrite.h"
#include "tidy/output_file.h"

namespace kvocaeio::tidy {

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

bool tidyDeck(const Deck& deck, const fs::path* target, DeckFormat format, Outcome& outcome,
              const text::Listener& listener) {
    OutputFile out;
    if (target != nullptr && !out.open(*target))
        return noteOutput(out, listener);
    if (!rewriteOf(format)(deck, out, outcome, listener))
        return false;
    if (target == nullptr)
        return true;
    if (outcome.hasRead(*target)) {
        listener.note(Finding::kOutputIsInput, displayed(*target));
        return false;
    }
    const bool isWritten = outcome.isNeeded || out.copy(deck.path);
    return (isWritten && out.finish()) || noteOutput(out, listener);
}

}  // namespace

bool runTidy(const Deck& deck, const fs::path* target, DeckFormat& format, Outcome& outcome,
             const text::Listener& listener) noexcept {
    if (listener.findings != nullptr)
        listener.findings->beginFile(deck.name);
    try {
        if (format == DeckFormat::kUnknown)
            format = recogniseDeck(deck);
        if (tidyDeck(deck, target, format, outcome, listener))
            return true;
    } catch (const std::bad_alloc&) {
        listener.note(text::FileFinding::kOutOfMemory, {});
    } catch (const std::exception&) {  // of a path that the system cannot have
        listener.note(Finding::kOutputFailed, "the path cannot be used");
    }
    outcome = {};
    return false;
}

}  // namespace kvocaeio::tidy
