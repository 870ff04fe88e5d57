/// The order in which an Abaqus deck is rewritten.
#include "tidy/abaqus/rewrite.h"

#include "tidy/abaqus/deck_lines.h"
#include "tidy/abaqus/deck_reader.h"
#include "tidy/abaqus/deck_writer.h"
#include "tidy/abaqus/faces.h"
#include "tidy/abaqus/frames.h"
#include "tidy/source_files.h"

namespace kvocaeio::tidy::abaqus {

bool rewriteDeck(const Deck& deck, OutputFile& out, Outcome& outcome,
                 const text::Listener& listener) {
    SourceFiles files(deck, listener);
    if (!files.open())
        return false;
    DeckLines lines(files);
    Model model;
    readDeck(lines, model);
    outcome.files = files.opened();
    if (lines.hasFailed() || listener.hasStopped())
        return false;
    const Frames frames(model, lines);
    const PlannedFaces faces = planFaces(model, frames, lines);
    if (lines.hasFailed())
        return false;
    outcome.isNeeded = lines.isNeeded();
    if (outcome.isNeeded)
        writeDeck(model, frames, faces, lines, out);
    if (lines.hasFailed())
        return false;
    fillOrigins(frames, files, outcome.origins);
    return true;
}

}  // namespace kvocaeio::tidy::abaqus
