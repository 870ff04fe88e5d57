/// The report on a chip package: its bodies and its bond wires.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "file_report.h"

class CKVOCadenceReader;

namespace kvocaeio::host {

struct PackageBody {
    std::string kind;
    std::string name;
    std::array<double, 3> center;
    std::array<double, 5> size;  ///< x, y, z; of a ball the diameter
    unsigned color;
    bool isBall;
};

/// The wires of one profile.
struct WireProfile {
    int number = 0;
    std::optional<std::string> name;  ///< none where the file has no such wire model
    std::size_t wires = 0;
    std::size_t points = 0;
    double smallestDiameter = 0.0;
    double largestDiameter = 0.0;
    double length = 0.0;  ///< of all wires together
    std::optional<unsigned> color;
};

enum class PackageSource { k3di, kCadence };

class PackageReport final : public FileReport {
  public:
    /// Takes over what an import has left.
    PackageReport(CKVOCadenceReader& reader, PackageSource source);

    double importSeconds = 0.0;

    void print(std::ostream& out, const PageStyle& style) const override;
    void addTo(Json& object) const override;
    std::vector<std::pair<std::string_view, double>> seconds() const override;

    bool isEmpty() const { return bodies_.empty() && wires_ == 0; }

  private:
    void takeBodies(CKVOCadenceReader& reader);
    void takeWires(CKVOCadenceReader& reader);
    std::string kindOf(const PackageBody& body) const;
    std::string colorOf(const PackageBody& body) const;
    void printBodies(std::ostream& out, const PageStyle& style) const;
    void printBalls(std::ostream& out, const PageStyle& style) const;
    void printWires(std::ostream& out, const PageStyle& style) const;

    std::vector<PackageBody> bodies_;
    std::vector<WireProfile> profiles_;  // in the order of their numbers
    std::size_t wires_ = 0;
    PackageSource source_;
};

}  // namespace kvocaeio::host
