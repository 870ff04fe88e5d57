/// The report on a chip package: its bodies and its bond wires.
#pragma once

#include <cstddef>
#include <vector>

#include "file_report.h"
#include "package/scene.h"

class CKVOCadenceReader;

namespace kvocaeio::host {

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
    void printBodies(std::ostream& out, const PageStyle& style) const;
    void printBalls(std::ostream& out, const PageStyle& style) const;
    void printWires(std::ostream& out, const PageStyle& style) const;

    std::vector<PackageBody> bodies_;
    std::vector<WireProfile> profiles_;  // in the order of their numbers
    std::size_t wires_ = 0;
    PackageSource source_;
};

}  // namespace kvocaeio::host
