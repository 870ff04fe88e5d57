/// The report on an Abaqus deck: raw and normalised tables side by side.
#pragma once

#include <string>

#include "abaqus/deck.h"
#include "abaqus/summary.h"
#include "file_report.h"

namespace kvocaeio::host {

class AbaqusReport final : public FileReport {
  public:
    explicit AbaqusReport(const AbaqusDeck& deck);

    void print(std::ostream& out) const override;
    void addTo(Json& object) const override;
    std::string failure() const override;

  private:
    void printOverview(std::ostream& out) const;
    void printSections(std::ostream& out) const;
    void printLosses(std::ostream& out) const;
    std::string howItCame(const Flow& flow) const;
    Json sectionsAsJson() const;
    Json meshAsJson() const;

    DeckSummary summary_;
    double importSeconds_;
    double normalisationSeconds_;
    std::string sortFailure_;  // why there is no normalised mesh; empty when there is one
};

}  // namespace kvocaeio::host
