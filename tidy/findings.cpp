/// The rows of what is told of files.
#include "tidy/findings.h"

namespace kvocaeio::tidy {

using enum text::Severity;

const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds{{
    {"tidy.format-unknown", kError,
     "nothing in the file tells that it is an Abaqus or Nastran deck",
     "The format is told by the first lines that are clearly of one: a keyword with an asterisk, a "
     "comment with a dollar sign, a statement or card of bulk data. The name of the file does not "
     "matter.",
     "Say which format the deck has"},
    {"tidy.output-failed", kError, "the new deck cannot be written: {}",
     "The deck is written to a file of its own in the folder of the target, which is moved onto "
     "the "
     "target when it is complete. The system has refused one of these steps. The target is as it "
     "was.",
     "Check the folder, its permissions and the room on the disk"},
    {"tidy.output-is-input", kError, "the new deck would replace a file that is read: {}",
     "The original and the files that it includes are never overwritten.",
     "Write the new deck to another path"},
    {"tidy.included", kNote, "the file {} is put in the place of its include",
     "The readers do not follow includes, so the new deck is one file.", ""},
    {"tidy.include-outside", kNote, "the included file {} is outside the deck's folder",
     "A deck may include files from anywhere. It is told, since a deck from elsewhere that reads "
     "files of this machine may come as a surprise.",
     "Check that the file is meant"},
    {"tidy.include-case", kNote, "the included file has the name {}, in other letters",
     "Decks written on systems that do not tell upper from lower case name files in either. Where "
     "no "
     "file has exactly the name, one that differs in case alone is taken.",
     ""},
    {"tidy.include-missing", kError, "the included file {} is not there",
     "The name is looked for in the folder of the file that includes it, then in the folder of the "
     "deck, then in the current folder, in any case of its letters. What the file holds cannot be "
     "known, so no new deck is written.",
     "Put the file beside the deck, or correct its path"},
    {"tidy.include-no-file", kError, "the include {} is a folder or something else that is no file",
     "Only regular files can be included.", "Correct the path"},
    {"tidy.include-failed", kError, "the included file {} cannot be opened",
     "The system refuses the file.", "Check the permissions of the file"},
    {"tidy.include-cycle", kError, "the file {} includes itself, directly or through another",
     "Such a deck would have no end.", "Take the include out of the file"},
    {"tidy.include-deep", kError, "the include {} is more than 16 files deep",
     "Includes may nest to a depth of 16.", "Include the file from one further up"},
    {"tidy.include-large", kError, "the file {} is included too often",
     "A deck may include 10,000 files, and of files that it includes more than once 1 GiB in all. "
     "A "
     "few short files that include each other many times could otherwise grow without bound.",
     "Include the file less often"},
    {"tidy.line-long", kError, "a line has more than 1,048,576 characters",
     "Lines are kept in memory, so their length is bounded.", "Break the line, or check the file"},
    {"tidy.returns-alone", kNote, "lines end in carriage returns alone",
     "Some old systems end lines so. The readers would take such a file for one line.", ""},
}};

}  // namespace kvocaeio::tidy
