/// The command `kvocaeio convert`: solids of one format written in another.
#include "convert/convert.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

#include "c_file.h"
#include "formats.h"
#include "nastran/mesh_writer.h"
#include "patran/mesh_writer.h"

namespace kvocaeio::host {

namespace {

struct Target {
    std::string_view extension;
    const MeshWriter* writer;
};

constexpr std::array<Target, 3> kTargets = {{
    {".nas", &kNastranWriter},
    {".bdf", &kNastranWriter},
    {".pat", &kPatranWriter},
}};

const MeshWriter& writerOf(const std::string& path) {
    const std::string extension = extensionOf(path);
    for (const Target& target : kTargets)
        if (target.extension == extension)
            return *target.writer;
    throw FileError(
        "cannot be written: its name must end in .nas, .bdf (Nastran) or .pat (Patran)");
}

/// Drops elements of nodes that are not there and nodes that no element has.
void compact(SolidMesh& mesh) {
    const auto nodeCount = static_cast<int>(mesh.nodes.size());
    const std::size_t lost = std::erase_if(mesh.elements, [&](const SolidMesh::Element& element) {
        return std::any_of(element.nodes.begin(), element.nodes.begin() + element.corners,
                           [&](int node) { return node < 0 || node >= nodeCount; });
    });
    note(mesh.losses, lost, "elements of nodes that are not there");
    std::vector<int> newRows(mesh.nodes.size(), -1);
    for (const SolidMesh::Element& element : mesh.elements)
        for (int i = 0; i < element.corners; ++i)
            newRows[static_cast<std::size_t>(element.nodes[static_cast<std::size_t>(i)])] = 0;
    std::size_t used = 0;
    for (std::size_t row = 0; row < newRows.size(); ++row) {
        if (newRows[row] < 0)
            continue;
        newRows[row] = static_cast<int>(used);
        mesh.nodes[used++] = mesh.nodes[row];
    }
    note(mesh.losses, mesh.nodes.size() - used, "nodes that no written element has");
    mesh.nodes.resize(used);
    for (SolidMesh::Element& element : mesh.elements)
        for (int i = 0; i < element.corners; ++i) {
            int& node = element.nodes[static_cast<std::size_t>(i)];
            node = newRows[static_cast<std::size_t>(node)];
        }
}

/// A file that takes the place of another once it is complete, and goes away if that never happens.
class PartialFile {
  public:
    explicit PartialFile(const std::string& target) : target_(target), path_(target + ".part") {
        if (!openFile(path_, "wb"))
            throw FileError("cannot be written: " + systemFailure());
    }
    ~PartialFile() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;

    const std::string& path() const { return path_; }

    /// Whether the file ends with `ending`, line ends aside: the library's writers do not tell
    /// whether the disk took everything, but they write nothing more once it did not.
    bool endsWith(std::string_view ending) const {
        std::ifstream file(path_, std::ios::binary | std::ios::ate);
        const auto size = static_cast<std::streamoff>(file.tellg());
        const auto reach = std::min<std::streamoff>(size, 256);
        std::string tail(static_cast<std::size_t>(std::max<std::streamoff>(reach, 0)), '\0');
        file.seekg(size - reach);
        file.read(tail.data(), reach);
        const std::size_t last = tail.find_last_not_of("\r\n");
        return last + 1 < tail.size() && tail.substr(0, last + 1).ends_with(ending);
    }

    void finish() {
        std::error_code error;
        std::filesystem::rename(path_, target_, error);
        if (error)
            throw FileError("cannot be written: " + error.message());
    }

  private:
    std::string target_;
    std::string path_;
};

SolidMesh takeSolids(const ConvertOptions& options) {
    const Format& format = findFormat(options.source);
    if (format.takeSolids == nullptr)
        throw FileError("is of a format that is not converted (" + std::string(format.name) +
                        "); Abaqus decks and Patran neutral files are");
    SolidMesh mesh = format.takeSolids(
        options.source, options.verbose ? PrintTarget::kStandardError : PrintTarget::kNowhere);
    compact(mesh);
    if (mesh.elements.empty())
        throw FileError("holds no tetrahedra, wedges or hexahedra");
    return mesh;
}

}  // namespace

void runConvert(const ConvertOptions& options) {
    const auto complain = [](const std::string& file, const FileError& error) {
        return FileError(file + ": " + error.what());
    };
    SolidMesh mesh;
    try {
        writerOf(options.target);
    } catch (const FileError& error) {
        throw complain(options.target, error);
    }
    try {
        mesh = takeSolids(options);
    } catch (const FileError& error) {
        throw complain(options.source, error);
    }
    try {
        const MeshWriter& writer = writerOf(options.target);
        PartialFile file(options.target);
        if (!writer.write(mesh, file.path(), options.unit) || !file.endsWith(writer.ending))
            throw FileError("cannot be written as a whole: the disk may be full");
        file.finish();
        writer.takeNotes(mesh);
    } catch (const FileError& error) {
        throw complain(options.target, error);
    }
    std::cout << options.target << ": " << mesh.nodes.size() << " nodes, " << mesh.elements.size()
              << " elements in " << mesh.sections.size() << " sections\n";
    for (const std::string& loss : mesh.losses)
        std::cout << "  left out: " << loss << '\n';
    for (const std::string& remark : mesh.remarks)
        std::cout << "  note: " << remark << '\n';
    if (!std::cout.flush())
        throw std::runtime_error("the report cannot be written to standard output");
}

}  // namespace kvocaeio::host
