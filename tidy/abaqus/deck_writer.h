/// The tidy deck, and the way back from it.
#pragma once

#include <vector>

#include "tidy/abaqus/faces.h"
#include "tidy/abaqus/frames.h"
#include "tidy/origin_map.h"
#include "tidy/output_file.h"
#include "tidy/source_files.h"

namespace kvocaeio::tidy::abaqus {

/// Writes nodes, elements, sets, shell sections, surfaces and loads in the form that the reader
/// takes whole.
void writeDeck(const Model& model, const Frames& frames, const PlannedFaces& faces,
               DeckLines& lines, OutputFile& out);

/// Where nodes and elements of the new deck come from, in its order.
void fillOrigins(const Frames& frames, const SourceFiles& files, Origins& origins);

}  // namespace kvocaeio::tidy::abaqus
