/// Patran neutral files: read into growing lists with element properties, read into flat arrays
/// with up to eight nodes per element, written from a solid mesh.
#ifndef KVOCAEIO_PATRAN_H
#define KVOCAEIO_PATRAN_H

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace patran {
class CKVO_PatranIO;
class CPATWriter;
}  // namespace patran
}  // namespace kvocaeio

/// Reads a Patran neutral file into nodes and elements of up to four corners, each element with a
/// type and values that come from its property.
///
///     CKVO_PatranIO_Bridge reader;
///     if (!reader.ImportFromPatFile("part.pat")) ...        // the file cannot be opened
///     for (int i = 0; i < reader.GetNodeCount(); ++i)
///         reader.GetNodeCoordinate(i, &x, &y, &z);
///     for (int i = 0; i < reader.GetElementCount(); ++i)
///         reader.GetElementDataBase(i, &n1, &n2, &n3, &n4, &type, &a, &b, &c);
///
/// Nodes and elements are handed out by index, in file order, counted from 0; ids of the file are
/// not kept. The file's summary (packet 26) must stand before what it counts: nodes, elements and
/// properties beyond its counts, and all before it, are not stored.
///
/// One file per reader is the designed use: a second import appends its nodes and elements, whose
/// corners count from 0 again, keeps the counts of the first one's summary until it finds its own,
/// and maps the corners of the first one's elements once more, as if they were ids of the new file.
///
/// Ownership: a copy of a reader is shallow. Both share one mesh without a count of owners, so that
/// whichever is destroyed first leaves the other with a dangling pointer.
///
/// Threads: a reader serves one thread at a time; different readers share nothing. Nothing throws,
/// nothing is printed.
class KVOCAEIO_API CKVO_PatranIO_Bridge {
  public:
    /// Makes a reader without nodes and elements. Where memory for it cannot be had, its imports
    /// give false and its queries what they give for a bad index.
    CKVO_PatranIO_Bridge();
    /// Shallow: both readers share the mesh of `other`.
    CKVO_PatranIO_Bridge(const CKVO_PatranIO_Bridge& other);
    /// Shallow; the mesh that `*this` had before is not released.
    CKVO_PatranIO_Bridge& operator=(const CKVO_PatranIO_Bridge& other);
    /// Releases the mesh. A copy of this reader is left with a dangling pointer.
    virtual ~CKVO_PatranIO_Bridge();

    /// Reads the file at `path` (in the system's narrow encoding). False when it cannot be opened,
    /// nothing touched, or when memory for it cannot be had: there are no nodes and elements then.
    /// Otherwise true, whatever the file holds.
    bool ImportFromPatFile(const char* path);
    /// The same by a wide path.
    bool _wImportFromPatFile(const wchar_t* path);

    /// Number of nodes.
    int GetNodeCount() const;
    /// Number of elements. The file's last summary may count more, and after a second import, or
    /// where it is not the file's only one, fewer.
    int GetElementCount() const;

    /// Gives the coordinates of a node; zeros for an index that no node has.
    void GetNodeCoordinate(int index, float* x, float* y, float* z);

    /// Gives an element: its four corners as node indices, its type and the values of its property.
    /// Bars give their second node for the third and fourth corner, triangles their third node for
    /// the fourth; solids give their first four nodes. A node id that the file does not define
    /// gives index 0.
    ///
    /// `type`: in a file whose summary counts no properties, the element's shape code (2 bar,
    ///     3 triangle, 4 quadrilateral, 5 tetrahedron, ...). Otherwise what its property is: 10,
    ///     11, 12 or 2 for one with two values, 13 or 3 for one with three or four, 0 for any
    ///     other; 14 where the property's id is none of the file. (docs/patran.md has the rules.)
    /// `valueA`: second value of a property with three or four, else 0.
    /// `valueB`, `valueC`: second value of a property with two, else 0.
    /// What a later property of the same id does not set stays as an earlier one has set it.
    ///
    /// An index below 0, not below the summary's number of elements, or not below
    /// `GetElementCount()` gives four zeros, type 13 and three zeros.
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
/// of the summary, whatever the file really holds, negative ones too; what the file does not hold
/// is zero. The summary must stand before the data: it discards what stands before it, and so does
/// a second one.
///
/// An import replaces the mesh of the one before.
///
/// Ownership: the reader owns its arrays, the caller everything that is passed in. Copies are
/// shallow: both readers own the same arrays then, so that only one of them may be destroyed and
/// neither may import again.
///
/// Output: an import prints "We have reached end-of-file" and a line feed to standard output where
/// a pass over the file meets its end before packet 99 - twice at the most - and "File Not Found :
/// PATH" where there is none. Nothing else is printed, nothing throws.
///
/// Threads: a reader serves one thread at a time; different readers share nothing.
class KVOCAEIO_API CPatranReader {
  public:
    /// Makes a reader without a mesh: all counts 0.
    CPatranReader();
    /// Shallow: both readers own the same arrays.
    CPatranReader(const CPatranReader& other) = default;
    /// Shallow, like the copy. The arrays that `*this` had before are not released.
    CPatranReader& operator=(const CPatranReader& other);
    /// Releases the arrays.
    ~CPatranReader();

    /// Reads the file at `path` (in the system's narrow encoding), which is kept as a pointer for
    /// the time of the call. False for null, when the file cannot be opened, and when the arrays
    /// for its counts and ids cannot be allocated; the mesh before is gone in the last two cases,
    /// all counts being 0, and untouched in the first. Otherwise true, whatever the file holds.
    bool ImportFromPatFile(const char* path);

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"  // part of the interface, without effect
#endif
    /// Number of nodes, as the summary has it.
    const int GetNodeCout();
    /// Number of elements, as the summary has it.
    const int GetElemCount();
    /// Number of properties, as the summary has it.
    const int GetPropertyCount();
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

    /// Gives the coordinates of a node. False, nothing touched, for an index that is negative or
    /// not below the number of nodes.
    bool GetNode(int index, float& x, float& y, float& z);

    /// Gives an element. False, nothing touched, for an index that is negative or not below the
    /// number of elements.
    /// `type`: shape code 2 bar, 3 triangle, 4 quadrilateral, 5 tetrahedron, 7 wedge,
    ///     8 hexahedron; 0 for any other.
    /// `property`: the property id that the element names.
    /// `nodes`: receives eight node indices, 0 for an id that no node has. A place that the shape
    ///     does not use counts as id 0. (Where a second summary counts fewer nodes than were read
    ///     before it, these nodes' indices stay as they were, above the number of nodes.)
    bool GetElement(int index, int& type, int& property, int* const nodes);

    /// Copies the coordinates of the first `count` nodes. All three bulk copies work alike: the row
    /// after the last one that is counted can be copied, too, and is zero; a larger `count` copies
    /// no further than that. Nothing is copied where there are no arrays: before an import, after
    /// one that returned false, and after a file without a summary.
    void GetVertex(float (*coordinates)[3], int count);
    /// Copies the shape codes of the first `count` elements.
    void GetElemType(int* types, int count);
    /// Copies the node indices of the first `count` elements.
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
/// The steps for nodes and those for elements may be interleaved. Indexes count from 0; the node
/// ids that `AddElement` takes are those of the file, where the node of index i has id i + 1.
/// Numbers are written as in the C locale whatever the host's.
///
/// Ownership: the writer owns its arrays. A copy is shallow: both share one writer without a count
/// of owners, so that whichever is destroyed first leaves the other with a dangling pointer.
///
/// Threads: a writer serves one thread at a time; different writers share nothing. Nothing throws,
/// nothing is printed.
class KVOCAEIO_API CKVO_PATWriter_Bridge {
  public:
    /// Makes a writer without a path, sizes or arrays. Where memory for it cannot be had, all calls
    /// do nothing and give false.
    CKVO_PATWriter_Bridge();
    /// Shallow: both share the writer of `other`.
    CKVO_PATWriter_Bridge(const CKVO_PATWriter_Bridge& other);
    /// Shallow; what `*this` had before is not released.
    CKVO_PATWriter_Bridge& operator=(const CKVO_PATWriter_Bridge& other);
    /// Releases the arrays. A copy of this writer is left with a dangling pointer.
    virtual ~CKVO_PATWriter_Bridge();

    /// Sets the path of the file (in the system's narrow encoding). The text is not copied and must
    /// stay valid until `WriteFile`.
    void SetFilePath(const char* path);

    /// Sets the number of nodes.
    void SetNodeCount(int count);
    /// Makes the arrays for that number of nodes, all at 0, 0, 0; what earlier ones held is lost.
    /// Does nothing for a number below 1. Where memory cannot be had there are no arrays, so that
    /// `WriteFile` gives false.
    void SetNodeArray();
    /// Sets the coordinates of a node. An index outside the arrays is ignored.
    void AddNode(int index, double x, double y, double z);

    /// Sets the number of elements.
    void SetElemCount(int count);
    /// Makes the arrays for that number of elements, all of shape 0 with eight nodes 0; what
    /// earlier ones held is lost. False for a number below 1, nothing done, and where memory cannot
    /// be had: there are no arrays then, and `WriteFile` gives false.
    bool SetElemArray();
    /// Sets the first `count` node ids of an element, at the most eight, and its shape where
    /// `count` is 4 (tetrahedron), 6 (wedge) or 8 (hexahedron); any other count leaves the shape as
    /// it was. An index outside the arrays is ignored.
    void AddElement(int index, int count, int* nodes);

    /// Writes the file, replacing an older one. False, nothing written, when the path, a number or
    /// an array has not been set, and when the file cannot be created; false, too, when memory for
    /// its lines cannot be had, the file being empty then. True otherwise, also where the disk did
    /// not take all of it. The numbers of nodes and elements are those set last: what they count
    /// beyond the arrays is written as if it had never been added. May be called again.
    bool WriteFile();

  private:
    kvocaeio::patran::CPATWriter* writer;
};

#endif
