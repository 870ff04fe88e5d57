/// Chip packages: bodies and bond wires, from 3DI text files or Cadence designs.
#ifndef KVOCAEIO_PACKAGE_H
#define KVOCAEIO_PACKAGE_H

#include <vector>

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace package {
class CKVOCadenceReaderImp;
}  // namespace package
}  // namespace kvocaeio

class CKVOImportReport;

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
/// Import one file with each reader, or call `CleanMemory` between two. A second 3DI import without
/// it replaces bodies, wires and tables, but `GetWireLineCount` goes on counting from the first
/// import's number, `GetWireProfileCount` never falls, and a file without a unit takes the first
/// file's.
///
/// Ownership: the reader owns its model, the caller everything that is passed in. A copy of a
/// reader is shallow: both share one model without a count of owners, so that whichever is
/// destroyed or cleaned first leaves the other with a dangling pointer.
///
/// Failures: a result of false or 0, without a message. Where a member says that it throws the
/// out-of-range error, an index lay outside one of the model's lists: `std::out_of_range` with the
/// text "invalid vector<T> subscript". The setters and the queries throw `std::bad_alloc` when
/// memory runs out. Nothing is printed.
///
/// Threads: a reader serves one thread at a time; different readers are independent.
class KVOCAEIO_API CKVOCadenceReader {
  public:
    /// Makes a reader without a model. The first call that needs a model makes it.
    CKVOCadenceReader();
    /// Shallow: both readers share the model that `other` has now.
    CKVOCadenceReader(const CKVOCadenceReader& other);
    /// Shallow; the model that `*this` had before is not released.
    CKVOCadenceReader& operator=(const CKVOCadenceReader& other);
    /// Releases the model. A copy of this reader is left with a dangling pointer.
    virtual ~CKVOCadenceReader();

    /// Releases the model and forgets the paths that were set: the reader is as new. May be called
    /// without a model. A copy of this reader is left with a dangling pointer.
    void CleanMemory();

    /// Imports a 3DI file (path in the system's narrow encoding). Returns false when `path` is
    /// null, when the file cannot be opened or memory runs out, and when the file's object table
    /// has no "SYMBOL" or its layer table no "OUTLINE"; what was read until then can be queried.
    ///
    /// Throws the out-of-range error for a body whose colour id is not in the colour table, and for
    /// a body without a name, of the object "SYMBOL" or "BALL", whose layer id is not in the layer
    /// table. The bodies before that one can be queried; the wires are not read.
    ///
    /// Anything else in the file that cannot be read is passed over.
    bool Import3DIFile(const char* path);
    /// Imports a 3DI file by a wide path, with the same results.
    bool Import3DIFile(const wchar_t* path);
    /// The same two, and fill `report` (may be null) with what of the file was not read, see
    /// kvocaeio/report.h. When they throw, the report holds the reason.
    bool Import3DIFile(const char* path, CKVOImportReport* report);
    /// By a wide path.
    bool Import3DIFile(const wchar_t* path, CKVOImportReport* report);

    /// Imports a Cadence design (.mcm, .sip or .brd) through the extraction tool and the temporary
    /// folder that were set:
    ///
    /// 1. "CmdFile1.txt" to "CmdFile3.txt" and "CadenceData1.txt" to "CadenceData3.txt" in the
    ///    folder are deleted; the tool's commands are written to CmdFile1 and CmdFile3.
    /// 2. The tool runs as "TOOL DESIGN CmdFile1 CadenceData1 CadenceData2" and then, if `path`
    /// holds
    ///    ".sip" anywhere, as "TOOL DESIGN CmdFile3 CadenceData3". The call waits for the end of
    ///    each run without a time limit. Paths are not quoted: a blank in one of them breaks the
    ///    line.
    /// 3. The reports that the tool has left in place of the CmdFiles are read: symbols from 1,
    ///    layers from 2, the die stack from 3. They stay there until the next import.
    ///
    /// While no tool is set in either form, steps 1 and 2 are left out and `path` is not looked at:
    /// so a host imports reports that already exist. Otherwise the form of the tool's path decides:
    /// a narrow tool needs a narrow `path`, and a wide one, if no narrow one is set, a wide `path`.
    /// An import by the other form, or with a null `path`, returns false before anything is
    /// deleted. Step 3 looks into the wide folder if one was set.
    ///
    /// The design's name in the symbol report decides which bodies there are: ".mcm", a substrate
    /// and a die; ".sip", a substrate and the members of the die stack; ".brd", none, and true is
    /// returned.
    ///
    /// Returns false, too,
    /// - when CmdFile1 or CmdFile3 cannot be written, and when memory runs out;
    /// - when report 1 or 2 cannot be opened, has a line with an unknown tag, or a row with another
    ///   number of cells than its header;
    /// - when the job lines of the symbol report do not have 13 cells, or name no such design;
    /// - when a column is missing.
    ///
    /// A tool that is missing or fails shows in nothing else. Throws the out-of-range error when a
    /// layer report that places bodies has fewer than two cells in its job lines. What was read
    /// until then can be queried; after a failure before the symbol report is used, the bodies are
    /// those of an earlier import. Wires stay as they are.
    bool ImportCadenceFile(const char* path);
    /// Imports a Cadence design by a wide path, with the same results. The command files are
    /// written by the narrow paths in any case, so the folder must be set in both forms, with the
    /// same text.
    bool ImportCadenceFile(const wchar_t* path);
    /// The same two, and fill `report` (may be null) with what of the design's reports was not
    /// read. When they throw, the report holds the reason.
    bool ImportCadenceFile(const char* path, CKVOImportReport* report);
    /// By a wide path.
    bool ImportCadenceFile(const wchar_t* path, CKVOImportReport* report);

    /// Sets the narrow path of the extraction tool. The text is copied. The system searches for a
    /// tool whose path has no folder in it. A null or empty `path` means that no tool is set.
    void SetExeFilePath(const char* path);
    /// Sets the wide path of the extraction tool; the narrow one stays as it is.
    void SetExeFilePath(const wchar_t* path);

    /// Sets the narrow folder of the tool's command files and reports. The text is copied. A file's
    /// path is this text, a separator and the file's name. A null `path` counts as empty. Two
    /// readers that import at the same time need a folder each.
    void SetTempFilePath(const char* path);
    /// Sets the wide folder of the same files; the narrow one stays as it is. From then on, even if
    /// `path` is empty or null, reports are looked for in the wide folder, until `CleanMemory`.
    void SetTempFilePath(const wchar_t* path);

    /// Returns the number of wires.
    int GetWireLineCount();

    /// Returns the highest profile number that any wire names, at least 0. This is not the number
    /// of wire models: a wire may name a profile that the file does not describe.
    int GetWireProfileCount();

    /// Looks up the wire model number `profile`, counted from 1.
    /// `name`: set to its name, which stays valid until the next call on this reader.
    /// `diameter`: set to that of the first wire that uses the model, in millimetres.
    /// `color`: set to a packed colour, the first colour value in the lowest byte. It is that of
    /// the
    ///     wire at index `profile`, counted from 0, whatever that wire's own profile.
    ///
    /// Returns false when no wire uses the model, with `name` set and the others untouched, and
    /// before `Import3DIFile` has opened a file, with nothing touched. Throws the out-of-range
    /// error when there is no model `profile`, no wire at index `profile`, or no colour for that
    /// wire's colour id; `name` and `diameter` may have been set by then.
    bool GetWireProfileData(int profile, const char*& name, double& diameter, unsigned int& color);

    /// Looks up the wire at index `wire`, counted from 0, as separate segments.
    /// `points`: replaced by six doubles for each segment, x, y, z of its start and of its end.
    /// `profile`: set to the profile number that the wire names.
    /// `diameter`: set to its diameter, in millimetres.
    ///
    /// Returns false, with nothing touched, when `wire` is not below the number of wires. Throws
    /// the out-of-range error for a negative `wire` and, after a second import without
    /// `CleanMemory`, for the wires from the new file's last one on; `points` is empty then.
    bool GetWireLine(int wire, std::vector<double>& points, int& profile, double& diameter);

    /// Looks up a wire as `GetWireLine` does, but as one polyline: `points` is replaced by x, y, z
    /// of each point once.
    bool GetWirePolyLine(int wire, std::vector<double>& points, int& profile, double& diameter);

    /// Returns the number of bodies.
    int GetComponentCount();

    /// Looks up the body at index `index`, counted from 0. Returns false, with nothing touched,
    /// when there is none. `name`: receives the name and its terminator. The caller provides room:
    /// no name needs more
    ///     than 1,024 characters, terminator included.
    /// `isBall`: set to 1 for a solder ball, else 0.
    /// `center`: receives three doubles, x, y, z of the body's middle.
    /// `size`: receives five doubles. The first three are the extents in x, y, z; one is negative
    ///     where the file exchanges the ends. Of a ball only the first has a meaning, its diameter.
    ///     The z size of a 3DI file's substrate is the sum of its bottom and top. Where the file
    ///     describes no extents, sizes are of the order of 1e10 in the file's unit. The last two
    ///     doubles have no meaning.
    /// `color`: set to a packed colour, the first colour value in the lowest byte; 0 for a Cadence
    ///     design.
    bool GetComponentData(int index, char* name, int& isBall, double* const center,
                          double* const size, unsigned int& color);

  private:
    kvocaeio::package::CKVOCadenceReaderImp* GetImp();

    kvocaeio::package::CKVOCadenceReaderImp* imp;
};

#endif
