/// Chip packages: bodies and bond wires, from 3DI text files or Cadence designs.
#ifndef KVOCAEIO_PACKAGE_H
#define KVOCAEIO_PACKAGE_H

#include <vector>

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace package {
class CKVOCadenceReaderImp;
}
}  // namespace kvocaeio

/// Reads the 3D model of one chip package and hands out its bodies (substrate, dies, interposers,
/// spacers, solder balls, package cap) and its bond wires. All lengths are millimetres, whatever
/// the file's unit.
///
/// Calling order:
///
///     CKVOCadenceReader reader;
///     if (!reader.Import3DIFile("package.3di")) ...        // see there for what is a failure
///     for (int i = 0; i < reader.GetComponentCount(); ++i)
///         reader.GetComponentData(i, name, isBall, center, size, color);
///     for (int i = 0; i < reader.GetWireLineCount(); ++i)
///         reader.GetWirePolyLine(i, points, profile, diameter);
///     for (int n = 1; n <= reader.GetWireProfileCount(); ++n)
///         reader.GetWireProfileData(n, name, diameter, color);
///     reader.CleanMemory();                                // before another file, and at the end
///
/// A Cadence design needs `SetExeFilePath` and `SetTempFilePath` before `ImportCadenceFile`, and
/// has no wires.
///
/// One import per reader, or `CleanMemory` between two, is the designed use. A second 3DI import
/// without it replaces bodies, wires and tables, but `GetWireLineCount` goes on counting from the
/// first import's number, `GetWireProfileCount` never falls, and a file without a unit takes the
/// first file's.
///
/// Ownership: the reader owns its model, the caller everything that is passed in. A copy of a
/// reader is shallow: both share one model without a count of owners, so that whichever is
/// destroyed or cleaned first leaves the other with a dangling pointer. Meant is one owner.
///
/// Failures: a result of false or 0, without a message. An index outside one of the model's lists
/// throws `std::out_of_range` with the text "invalid vector<T> subscript", where a member says so.
/// The setters and the queries throw `std::bad_alloc` where memory runs out.
///
/// Threads: a reader serves one thread at a time. Different readers are independent.
class KVOCAEIO_API CKVOCadenceReader {
  public:
    /// Makes a reader without a model, which comes into being with the first call that needs it.
    CKVOCadenceReader();
    /// Shallow: both readers share the model that `other` has now.
    CKVOCadenceReader(const CKVOCadenceReader& other);
    /// Shallow; the model that `*this` had before is not released.
    CKVOCadenceReader& operator=(const CKVOCadenceReader& other);
    /// Releases the model. A copy of this reader is left with a dangling pointer.
    virtual ~CKVOCadenceReader();

    /// Releases the model and the paths that were set; the reader can be used again as if it were
    /// new. Harmless on a reader without a model.
    void CleanMemory();

    /// Imports a 3DI file (path in the system's narrow encoding). False when `path` is null, when
    /// the file cannot be opened or memory runs out, and when the file's object table has no
    /// "SYMBOL" or its layer table no "OUTLINE"; what was read until then can be queried. Throws
    /// the out-of-range error where a body's colour id is not in the colour table, or one without a
    /// name, of the object "SYMBOL" or a ball, has a layer id that is not in the layer table:
    /// bodies before that one can be queried, wires are not read. Anything else in the file that
    /// cannot be read is passed over.
    bool Import3DIFile(const char* path);
    /// The same by a wide path.
    bool Import3DIFile(const wchar_t* path);

    /// Imports a Cadence design (.mcm, .sip or .brd) through the extraction tool and the temporary
    /// folder that were set:
    ///
    /// 1. "CmdFile1.txt" to "CmdFile3.txt" and "CadenceData1.txt" to "CadenceData3.txt" in the
    ///    folder are deleted; the tool's commands are written to CmdFile1 and CmdFile3.
    /// 2. The tool runs as "TOOL DESIGN CmdFile1 CadenceData1 CadenceData2" and then, where `path`
    ///    holds ".sip" anywhere, as "TOOL DESIGN CmdFile3 CadenceData3". The call waits for its end
    ///    without a time limit. Paths are not quoted: a blank in one of them breaks the line.
    /// 3. The reports that the tool has left in place of the CmdFiles are read: symbols from 1,
    ///    layers from 2, the die stack from 3. They stay there until the next import.
    ///
    /// While no tool is set in either form, steps 1 and 2 are left out and `path` is not looked at:
    /// this is how reports are imported that already exist. Otherwise the form of the tool's path
    /// decides, the narrow one first, and an import by the other form gives false, as a null `path`
    /// does, before anything is deleted. In step 3 the wide folder is taken where one was set.
    ///
    /// Which bodies there are goes by the design's name in the symbol report: with ".mcm" a
    /// substrate and a die, with ".sip" a substrate and the members of the die stack, with ".brd"
    /// none, which is a success.
    ///
    /// False, too, when CmdFile1 or CmdFile3 cannot be written; when report 1 or 2 cannot be
    /// opened, has a line that is none of a report or a row with another number of cells than its
    /// header; when the job lines of the symbol report have not 13 cells or name no such design;
    /// when a column is missing; and when memory runs out. These are all that tells of a tool that
    /// is missing or fails. Throws the out-of-range error where bodies are placed by a layer report
    /// whose job lines have fewer than two cells. What was read until then can be queried; a
    /// failure before the symbol report is used leaves the bodies of an earlier import. Wires stay
    /// as they are.
    bool ImportCadenceFile(const char* path);
    /// The same by a wide path. The command files are written by the narrow paths in any case, so
    /// that the folder must be set in both forms, with the same text.
    bool ImportCadenceFile(const wchar_t* path);

    /// Sets the path of the extraction tool; without a folder in it the system's search finds it. A
    /// null or empty `path` means that no tool is set.
    void SetExeFilePath(const char* path);
    /// Sets the path for an import by a wide path; the narrow one stays as it is.
    void SetExeFilePath(const wchar_t* path);

    /// Sets the folder for the tool's command files and reports. The files' paths are this text, a
    /// separator and the name behind it. A null `path` counts as empty. Two readers that import at
    /// the same time need a folder each.
    void SetTempFilePath(const char* path);
    /// Sets the wide paths of the same files; the narrow ones stay as they are. Once set, also by
    /// an empty or null `path`, they are where reports are looked for, until `CleanMemory`.
    void SetTempFilePath(const wchar_t* path);

    /// Number of wires.
    int GetWireLineCount();

    /// Highest profile number that any wire names, at least 0. (Not the number of wire models:
    /// a wire may name a profile that the file does not describe.)
    int GetWireProfileCount();

    /// Gives the wire model number `profile`, counted from 1: its name, which stays valid until the
    /// next call on this reader; the diameter of the first wire that uses it; and a packed colour
    /// (first colour value in the lowest byte), which is that of the wire at index `profile`,
    /// whatever that wire's own profile. False when no wire uses the model: `name` is set then, the
    /// others untouched. False with nothing touched before `Import3DIFile` has opened a file.
    /// Throws the out-of-range error when there is no model `profile`, no wire at index `profile`,
    /// or no colour of that wire's colour id; `name` and `diameter` may be set by then.
    bool GetWireProfileData(int profile, const char*& name, double& diameter, unsigned int& color);

    /// Gives wire number `wire`, counted from 0, as separate segments: six doubles each, x, y, z of
    /// its start and of its end. False, with nothing touched, when `wire` is not below the number
    /// of wires. Throws the out-of-range error for a negative `wire` and, after a second import
    /// without `CleanMemory`, for wires from the last one of the file on; `points` is empty then.
    bool GetWireLine(int wire, std::vector<double>& points, int& profile, double& diameter);

    /// The same as one polyline: x, y, z of each point once.
    bool GetWirePolyLine(int wire, std::vector<double>& points, int& profile, double& diameter);

    /// Number of bodies.
    int GetComponentCount();

    /// Gives body number `index`, counted from 0. False, with nothing touched, when there is none.
    /// `name`: receives the name and its terminator, without a bound: the caller gives room for the
    ///     longest. No name needs more than 1,024 characters, terminator included.
    /// `isBall`: 1 for a solder ball, else 0.
    /// `center`: receives three doubles, the middle of the body.
    /// `size`: receives five doubles. The first three are the extents in x, y, z, negative where
    ///     the file exchanges the ends; of a ball only the first is meant, its diameter. The z size
    ///     of a 3DI file's substrate is the sum of its bottom and top. Where the file describes no
    ///     extents, sizes are of the order of 1e10 in its unit. The others have no meaning.
    /// `color`: packed colour, first colour value in the lowest byte; 0 for a Cadence design.
    bool GetComponentData(int index, char* name, int& isBall, double* const center,
                          double* const size, unsigned int& color);

  private:
    kvocaeio::package::CKVOCadenceReaderImp* GetImp();

    kvocaeio::package::CKVOCadenceReaderImp* imp;
};

#endif
