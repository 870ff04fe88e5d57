/// What imports of a design's reports notice, in words. Included by findings.cpp alone.
#pragma once

#include "text/findings.h"

namespace kvocaeio::package {

/// In the order of `Finding`, from the reports on.
inline constexpr text::FindingKind kReportFindingKinds[] = {
    {"package.report-tag", text::Severity::kError,
     "no line of a report begins with \"{}!\": the rest of the report is not read",
     "Lines begin with A (names of columns), J (job) or S (row). Another tag ends the report; the "
     "import ends with false where it is the symbol or layer report.",
     "Remove the line, or write its tag as a capital letter"},
    {"package.report-line", text::Severity::kNote, "the line has no cells and is passed over",
     "Cells are ended by \"!\".", ""},
    {"package.report-row", text::Severity::kError,
     "the row has not one cell for each column: the rest of the report is not read",
     "A row must have as many cells as the header above it. The import ends with false where it is "
     "a row of the symbol or layer report.",
     "Complete the row"},
    {"package.report-rest", text::Severity::kWarning, "the line goes on after its last cell: {}",
     "Each cell is ended by \"!\". What stands after the last one is dropped.",
     "End the line with \"!\""},
    {"package.header-late", text::Severity::kError,
     "the names of columns stand after rows: those rows are cut differently from how they were "
     "written",
     "Each A line lengthens the header, and all rows are cut by the header as it is at the end.",
     "Keep one A line, above all rows"},
    {"package.header-missing", text::Severity::kError, "no line of the report names the columns",
     "The names stand on a line that begins with \"A!\". Without one the import ends with false.",
     "Check whether the extraction tool wrote the report"},
    {"package.column-missing", text::Severity::kError, "the report has no column {}",
     "All columns of a report must be there, also those that are not used. The import ends with "
     "false.",
     "Check the command file of the extraction tool"},
    {"package.column-repeated", text::Severity::kNote,
     "the report has the column {} twice: the first one is read",
     "Columns are found by their names.", ""},
    {"package.job-line", text::Severity::kError, "the J lines of the symbol report have {}, not 13",
     "Unit and design stand on a J line of 13 cells, its tag included. Without one the import ends "
     "with false. That is also what is found where the extraction tool could not be started: the "
     "command file is read in the report's place then.",
     "Check whether the extraction tool ran"},
    {"package.layer-job-line", text::Severity::kError,
     "the J lines of the layer report do not name the design: the import ends here with the "
     "out-of-range error",
     "The design's name is the second cell of the layer report's J line.",
     "Check whether the extraction tool wrote the report"},
    {"package.report-unit", text::Severity::kWarning,
     "\"{}\" is no length unit that is known: lengths are taken for micrometres",
     "The unit is the ninth cell of the symbol report's J line. Known are MM, MILLIMETERS, UM, "
     "MICRONS, NM, NANOMETERS and INCH; MILS is not.",
     "Extract the design in one of the units that are known"},
    {"package.design-unknown", text::Severity::kError,
     "\"{}\" is no .mcm, .sip or .brd design: nothing is read",
     "The name of the design, the second cell of the J line, tells which bodies there are. Its "
     "extension must be in lower case. The import ends with false.",
     "Rename the design"},
    {"package.design-without-bodies", text::Severity::kNote, "no bodies are read of the board {}",
     "Of a .brd design the reports are read, but no bodies are made.", ""},
    {"package.design-differs", text::Severity::kError,
     "the layer report is that of another kind of design: {}",
     "The symbol report tells which bodies there are, the layer report by its own J line how the "
     "die is placed. Only one of them names an .mcm design here.",
     "Extract both reports from the same design"},

    {"package.cell-not-number", text::Severity::kWarning,
     "\"{}\" is not a number: what is no part of one is dropped",
     "Numbers are read as C reads them, from the front of the cell. A cell that begins with none "
     "counts as 0.",
     "Correct the cell"},
    {"package.refdes-longer", text::Severity::kWarning, "the symbol {} is no body",
     "A body is what has the reference DIE, BGA or PBGA, exactly so. Dies with a number, such as "
     "DIE1, are passed over.",
     "Rename the symbol in the design"},
    {"package.die-left", text::Severity::kWarning, "a further die is not read: {}",
     "Of an .mcm design the first row with DIE becomes the die. This one has another place, size "
     "or name.",
     "Use a .sip design for more than one die"},
    {"package.member-unknown", text::Severity::kWarning,
     "members of the die stack of the type {} are not read", "Read are DIE, INTERPOSER and SPACER.",
     ""},
    {"package.body-missing", text::Severity::kWarning, "no row of the report gives the {}",
     "The substrate is the first row with BGA or PBGA and a RECTANGLE, the die the first one with "
     "DIE, and the members are those of the die stack report.",
     "Check the types in the report"},
    {"package.thickness", text::Severity::kWarning,
     "the thickness \"{}\" has no unit and counts as 0",
     "A thickness is a number and a unit, with a blank between them.",
     "Write the thickness as in \"0.6 MIL\""},
    {"package.thickness-unit", text::Severity::kError, "thicknesses in {} are taken for mils",
     "The unit of a thickness must be there, but is not looked at.",
     "Extract the thicknesses in mils"},
    {"package.layers-left-out", text::Severity::kWarning,
     "the layers below the second conductor do not count for the substrate: {}",
     "The substrate reaches from the first conductor to the second, also where there are more.",
     "Correct the height of the substrate in the model"},
    {"package.conductor-single", text::Severity::kWarning,
     "no second conductor ends the substrate, which reaches to the last layer",
     "The substrate reaches from the first layer of the type CONDUCTOR to the second.",
     "Check the types in the layer report"},
    {"package.conductor-missing", text::Severity::kError,
     "no layer is a conductor: the substrate has no height",
     "The substrate reaches from the first layer of the type CONDUCTOR to the second. All bodies "
     "stand on it.",
     "Check the types in the layer report"},
    {"package.die-without-height", text::Severity::kWarning,
     "no DIESTACK layer with a thickness stands above the first conductor: the die has no height",
     "The die of an .mcm design is as high as these layers.",
     "Check the types in the layer report"},
};

}  // namespace kvocaeio::package
