/// The report on an Abaqus deck: its sections and those of the normalised mesh.
#pragma once

#include <string>

#include "abaqus/deck.h"
#include "abaqus/summary.h"
#include "file_report.h"

namespace kvocaeio::host {

class AbaqusReport final : public FileReport {
  public:
    explicit AbaqusReport(const AbaqusDeck& deck);

    void print(std::ostream& out, const PageStyle& style) const override;
    void addTo(Json& object) const override;
    std::vector<std::pair<std::string_view, double>> seconds() const override;

  private:
    void printOverview(std::ostream& out, const PageStyle& style) const;
    void printDeck(std::ostream& out, const PageStyle& style) const;
    void printMesh(std::ostream& out, const PageStyle& style) const;
    std::string destinationsOf(std::size_t section) const;
    Json sectionsAsJson() const;
    Json normalisedAsJson() const;

    DeckSummary summary_;
    double importSeconds_;
    double normalisationSeconds_;
    bool isNormalised_;
};

}  // namespace kvocaeio::host
