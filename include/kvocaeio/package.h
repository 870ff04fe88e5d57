/// Chip packages: bodies and bond wires, from 3DI text files or Cadence designs.
#ifndef KVOCAEIO_PACKAGE_H
#define KVOCAEIO_PACKAGE_H

#include <vector>

#include <kvocaeio/export.h>

namespace kvocaeio {
class CKVOCadenceReaderImp;
}

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
/// A Cadence design needs `SetExeFilePath` and `SetTempFilePath` before `ImportCadenceFile`.
///
/// One import per reader, or `CleanMemory` between two, is the designed use. A second import
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
/// The setters and the wire queries throw `std::bad_alloc` where memory runs out.
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
    /// the out-of-range error where a body's colour id is not in the colour table, or a body
    /// without a name has a layer id that is not in the layer table: bodies before that one can be
    /// queried, wires are not read. Anything else in the file that cannot be read is passed over.
    bool Import3DIFile(const char* path);
    /// The same by a wide path.
    bool Import3DIFile(const wchar_t* path);

    /// Imports a Cadence design through the extraction tool whose path was set, or from the reports
    /// in the temporary folder where none was.
    bool ImportCadenceFile(const char* path);
    /// The same by a wide path and the wide paths that were set.
    bool ImportCadenceFile(const wchar_t* path);

    /// Sets the path of the extraction tool, used by `ImportCadenceFile` with a narrow path. A null
    /// `path` counts as empty.
    void SetExeFilePath(const char* path);
    /// Sets the path for the wide form of the import; the narrow one stays as it is.
    void SetExeFilePath(const wchar_t* path);

    /// Sets the folder for the tool's command files and reports. The files' paths are this text and
    /// a separator and name behind it. A null `path` counts as empty.
    void SetTempFilePath(const char* path);
    /// Sets the folder for the wide form of the import; the narrow one stays as it is.
    void SetTempFilePath(const wchar_t* path);

    /// Number of wires.
    int GetWireLineCount();

    /// Highest profile number that any wire names, 0 without wires. (Not the number of wire models:
    /// a wire may name a profile that the file does not describe.)
    int GetWireProfileCount();

    /// Gives the wire model number `profile`, counted from 1: its name, which stays valid until the
    /// next call on this reader; the diameter of the first wire that uses it; and a packed colour
    /// (first colour value in the lowest byte), which is that of the wire at index `profile`,
    /// whatever that wire's own profile. False when no wire uses the model: `name` is set then, the
    /// others untouched. False with nothing touched before a 3DI file was imported. Throws the
    /// out-of-range error when there is no model `profile`, no wire at index `profile`, or no
    /// colour of that wire's colour id; `name` and `diameter` may be set by then.
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
    ///     longest. Of a 3DI file no name needs more than 1,024 characters, terminator included.
    /// `isBall`: 1 for a solder ball, else 0.
    /// `center`: receives three doubles, the middle of the body.
    /// `size`: receives five doubles. The first three are the extents in x, y, z; of a ball only
    /// the
    ///     first is meant, its diameter. The others have no meaning.
    /// `color`: packed colour, first colour value in the lowest byte.
    bool GetComponentData(int index, char* name, int& isBall, double* const center,
                          double* const size, unsigned int& color);

  private:
    kvocaeio::CKVOCadenceReaderImp* GetImp();

    kvocaeio::CKVOCadenceReaderImp* imp;
};

#endif
