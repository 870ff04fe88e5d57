/// Patran neutral files: a reader of element types and property values, a reader of up to eight
/// nodes per element, and a writer of solids.
#ifndef KVOCAEIO_PATRAN_H
#define KVOCAEIO_PATRAN_H

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace patran {
class CKVO_PatranIO;
class CPATWriter;
}  // namespace patran
}  // namespace kvocaeio

class CKVOImportReport;

/// Reads a Patran neutral file and hands out nodes and elements. An element has up to four corners,
/// and a type and values that come from its property.
///
///     CKVO_PatranIO_Bridge reader;
///     if (!reader.ImportFromPatFile("part.pat")) ...        // the file cannot be opened
///     for (int i = 0; i < reader.GetNodeCount(); ++i)
///         reader.GetNodeCoordinate(i, &x, &y, &z);
///     for (int i = 0; i < reader.GetElementCount(); ++i)
///         reader.GetElementDataBase(i, &n1, &n2, &n3, &n4, &type, &a, &b, &c);
///
/// Nodes and elements are handed out by index, in file order, counted from 0; the file's ids are
/// not. The file's summary (packet 26) must stand before what it counts: nothing that stands before
/// it is stored, nor any nodes, elements and properties beyond its counts.
///
/// Import one file with each reader. A second import appends its nodes and elements, whose corners
/// count from 0 again. It uses the counts of the first file's summary until it finds its own, and
/// maps the corners of the first file's elements once more, as if they were ids of the new file.
///
/// Ownership: a copy of a reader is shallow. Both share one mesh without a count of owners, so that
/// whichever is destroyed first leaves the other with a dangling pointer.
///
/// Threads: a reader serves one thread at a time; different readers share nothing. Nothing throws,
/// nothing is printed.
class KVOCAEIO_API CKVO_PatranIO_Bridge {
  public:
    /// Makes a reader without nodes and elements. If memory for it cannot be allocated, its imports
    /// return false, its counts are 0, and its other queries treat every index as a bad one.
    CKVO_PatranIO_Bridge();
    /// Shallow: both readers share the mesh of `other`.
    CKVO_PatranIO_Bridge(const CKVO_PatranIO_Bridge& other);
    /// Shallow, like the copy. The mesh that `*this` had before is not released.
    CKVO_PatranIO_Bridge& operator=(const CKVO_PatranIO_Bridge& other);
    /// Releases the mesh. A copy of this reader is left with a dangling pointer.
    virtual ~CKVO_PatranIO_Bridge();

    /// Reads the file at `path` (in the system's narrow encoding). Returns false when it cannot be
    /// opened, with nothing touched, and when memory for it cannot be allocated; there are no nodes
    /// and elements then. Otherwise returns true, whatever the file holds.
    bool ImportFromPatFile(const char* path);
    /// Reads the file at a wide path, with the same results.
    bool _wImportFromPatFile(const wchar_t* path);
    /// The same two, and fill `report` (may be null) with what of the file was not read, see
    /// kvocaeio/report.h.
    bool ImportFromPatFile(const char* path, CKVOImportReport* report);
    /// By a wide path.
    bool _wImportFromPatFile(const wchar_t* path, CKVOImportReport* report);

    /// Returns the number of nodes.
    int GetNodeCount() const;
    /// Returns the number of elements that are stored. The file's last summary may count more. It
    /// may count fewer after a second import, and in a file with several summaries.
    int GetElementCount() const;

    /// Sets `x`, `y`, `z` to the coordinates of a node, in the file's length unit; to zeros for an
    /// index that no node has.
    void GetNodeCoordinate(int index, float* x, float* y, float* z);

    /// Looks up an element by its index.
    ///
    /// `node1` to `node4`: set to its corners, as node indices. A bar repeats its second node for
    ///     the third and fourth corner, a triangle its third node for the fourth; of other elements
    ///     these are the first four nodes. A node id that the file does not define becomes index 0.
    /// `type`: set to the element's shape code (2 bar, 3 triangle, 4 quadrilateral, 5 tetrahedron,
    ///     ...) if the summary counts no properties. Otherwise the property decides: 10, 11, 12 or
    ///     2 for one with two values, 13 or 3 for one with three or four, 0 for any other; 14 if
    ///     the file has no property of that id. (docs/patran.md has the rules.)
    /// `valueA`: set to the second value of a property with three or four values, else 0.
    /// `valueB`, `valueC`: set to the second value of a property with two values, else 0.
    ///
    /// A property that stands twice keeps what the later one does not set. For an index below 0,
    /// not below the summary's number of elements, or not below `GetElementCount()`, the type is 13
    /// and all else 0.
    void GetElementDataBase(int index, int* node1, int* node2, int* node3, int* node4, int* type,
                            double* valueA, double* valueB, double* valueC);

  private:
    kvocaeio::patran::CKVO_PatranIO* reader;
};

/// Reads a Patran neutral file into arrays sized by its summary (packet 26): nodes, and elements
/// with up to eight nodes. Property data are dropped.
///
///     CPatranReader reader;
///     if (!reader.ImportFromPatFile("part.pat")) ...        // the file cannot be opened
///     std::vector<float> xyz(3 * std::max(reader.GetNodeCout(), 0));
///     reader.GetVertex(reinterpret_cast<float(*)[3]>(xyz.data()), reader.GetNodeCout());
///     for (int i = 0; i < reader.GetElemCount(); ++i)
///         reader.GetElement(i, type, property, nodes);      // int nodes[8]
///
/// Nodes and elements are handed out by index, in file order, counted from 0. The counts are those
/// of the summary, whatever the file holds, negative ones too; rows that the file does not fill are
/// zero. The summary must stand before the data: it discards what stands before it, and so does a
/// second one.
///
/// An import replaces the mesh of the one before.
///
/// Ownership: the reader owns its arrays, the caller everything that is passed in. Copies are
/// shallow: both readers own the same arrays then, so only one of them may be destroyed, and
/// neither may import again.
///
/// Output: an import goes over the file in two passes. For each of them that meets the end of the
/// file before packet 99 it prints "We have reached end-of-file" to standard output; for a file
/// that cannot be opened it prints "File Not Found : PATH". Each text ends with a line feed.
/// Nothing else is printed, and nothing throws.
///
/// Threads: a reader serves one thread at a time; different readers share nothing.
class KVOCAEIO_API CPatranReader {
  public:
    /// Makes a reader without a mesh: all counts are 0.
    CPatranReader();
    /// Shallow: both readers own the same arrays.
    CPatranReader(const CPatranReader& other) = default;
    /// Shallow, like the copy. The arrays that `*this` had before are not released.
    CPatranReader& operator=(const CPatranReader& other);
    /// Releases the arrays.
    ~CPatranReader();

    /// Reads the file at `path` (in the system's narrow encoding); the text need not outlive the
    /// call. Returns false for null, with the mesh untouched; and when the file cannot be opened,
    /// or the arrays for its counts and ids cannot be allocated, with all counts 0. Otherwise
    /// returns true, whatever the file holds.
    bool ImportFromPatFile(const char* path);
    /// The same, and fills `report` (may be null) with what of the file was not read, see
    /// kvocaeio/report.h.
    bool ImportFromPatFile(const char* path, CKVOImportReport* report);

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"  // part of the interface, without effect
#endif
    /// Returns the number of nodes that the summary counts.
    const int GetNodeCout();
    /// Returns the number of elements that the summary counts.
    const int GetElemCount();
    /// Returns the number of properties that the summary counts.
    const int GetPropertyCount();
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

    /// Sets `x`, `y`, `z` to the coordinates of a node, in the file's length unit. Returns false,
    /// with nothing touched, for an index that is negative or not below the number of nodes.
    bool GetNode(int index, float& x, float& y, float& z);

    /// Looks up an element by its index. Returns false, with nothing touched, for an index that is
    /// negative or not below the number of elements.
    /// `type`: set to the shape code 2 bar, 3 triangle, 4 quadrilateral, 5 tetrahedron, 7 wedge,
    ///     8 hexahedron; 0 for any other.
    /// `property`: set to the property id that the element names.
    /// `nodes`: receives eight node indices, 0 for an id that no node has. A place that the shape
    ///     does not use counts as id 0. If a second summary counts fewer nodes than were read
    ///     before it, an index may lie above the number of nodes.
    bool GetElement(int index, int& type, int& property, int* const nodes);

    /// Copies x, y, z of the first `count` nodes to `coordinates`. All three bulk copies work
    /// alike: they may reach the spare row after the last one, which is zero, but no further,
    /// however large `count` is. They copy nothing where there are no arrays: before an import,
    /// after one that returned false, and after a file without a summary.
    void GetVertex(float (*coordinates)[3], int count);
    /// Copies the shape codes of the first `count` elements to `types`.
    void GetElemType(int* types, int count);
    /// Copies the eight node indices of each of the first `count` elements to `nodes`.
    void GetElemNode(int (*nodes)[8], int count);

  private:
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"
#endif
    const int GetNodeDimension();
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

    const char* filePath = nullptr;
    int nodeCount = 0;
    int elemCount = 0;
    int propertyCount = 0;
    int* nodeIdMap = nullptr;
    float* vertices = nullptr;
    int* elemNodes = nullptr;
    int* elemTypes = nullptr;
    int* elemProperties = nullptr;
};

/// Writes a mesh of solids as a Patran neutral file.
///
///     CKVO_PATWriter_Bridge writer;
///     writer.SetFilePath("part.pat");
///     writer.SetNodeCount(8);
///     writer.SetNodeArray();
///     writer.AddNode(0, 0.0, 0.0, 0.0);                     // ... all nodes
///     writer.SetElemCount(1);
///     if (!writer.SetElemArray()) ...                       // no elements, or no memory
///     writer.AddElement(0, 8, nodes);                       // ... all elements
///     if (!writer.WriteFile()) ...
///
/// The steps for nodes and those for elements may be interleaved. Indices count from 0; the node
/// ids that `AddElement` takes are those of the file, where the node of index i has the id i + 1.
/// Numbers are written as in the C locale, whatever the host's.
///
/// Ownership: the writer owns its arrays. A copy is shallow: both share one writer without a count
/// of owners, so that whichever is destroyed first leaves the other with a dangling pointer.
///
/// Threads: a writer serves one thread at a time; different writers share nothing. Nothing throws,
/// nothing is printed.
class KVOCAEIO_API CKVO_PATWriter_Bridge {
  public:
    /// Makes a writer without a path, sizes or arrays. If memory for it cannot be allocated, all
    /// calls do nothing and return false.
    CKVO_PATWriter_Bridge();
    /// Shallow: both share the writer of `other`.
    CKVO_PATWriter_Bridge(const CKVO_PATWriter_Bridge& other);
    /// Shallow, like the copy. What `*this` had before is not released.
    CKVO_PATWriter_Bridge& operator=(const CKVO_PATWriter_Bridge& other);
    /// Releases the arrays. A copy of this writer is left with a dangling pointer.
    virtual ~CKVO_PATWriter_Bridge();

    /// Sets the path of the file (in the system's narrow encoding). The text is not copied and must
    /// stay valid until `WriteFile`.
    void SetFilePath(const char* path);

    /// Sets the number of nodes.
    void SetNodeCount(int count);
    /// Makes the arrays for that number of nodes, all at 0, 0, 0; what earlier arrays held is lost.
    /// Does nothing for a number below 1. If memory cannot be allocated there are no arrays, and
    /// `WriteFile` returns false.
    void SetNodeArray();
    /// Sets the coordinates of a node, in the host's length unit. An index outside the arrays is
    /// ignored.
    void AddNode(int index, double x, double y, double z);

    /// Sets the number of elements.
    void SetElemCount(int count);
    /// Makes the arrays for that number of elements, all of shape 0 with eight nodes 0; what
    /// earlier arrays held is lost. Returns false for a number below 1, with nothing done. Returns
    /// false, too, if memory cannot be allocated: there are no arrays then, and `WriteFile` returns
    /// false.
    bool SetElemArray();
    /// Sets the first `count` node ids of an element, at most eight, from `nodes`. A `count` of 4
    /// (tetrahedron), 6 (wedge) or 8 (hexahedron) also sets the shape; any other leaves it as it
    /// was. An index outside the arrays is ignored.
    void AddElement(int index, int count, int* nodes);

    /// Writes the file, replacing an older one. Returns false, with nothing written, when the path,
    /// a number or an array has not been set, and when the file cannot be created. Returns false,
    /// too, when memory for its lines cannot be allocated; the file is empty then. Otherwise
    /// returns true, even if the disk did not take all of it.
    ///
    /// The numbers of nodes and elements are those set last: what they count beyond the arrays is
    /// written as if it had never been added. May be called again.
    bool WriteFile();

  private:
    kvocaeio::patran::CPATWriter* writer;
};

#endif
