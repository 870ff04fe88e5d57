/// Notes of the stages over a report's cells, with the places of its lines and cells.
#pragma once

#include <cstddef>
#include <string_view>

#include "package/findings.h"
#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Both are borrowed. Nothing is looked up while nobody listens.
class ReportNotes {
  public:
    ReportNotes(const Report& report, const text::Listener& listener)
        : report_(report), findings_(listener.findings) {}

    bool areHeard() const { return findings_ != nullptr; }

    /// The line of the columns' names, and that of the job.
    void header(Finding finding, std::string_view what, std::string_view subject = {}) const {
        at(finding, report_.places.header, 0, what, subject);
    }
    void job(Finding finding, std::string_view what) const {
        at(finding, report_.places.job, 0, what, {});
    }
    /// A cell of the job line, and one of a row by its column.
    void jobCell(Finding finding, std::size_t cell) const;
    void cell(Finding finding, std::size_t row, std::size_t column,
              std::string_view subject = {}) const;
    /// A row, which `what` stands for.
    void row(Finding finding, std::size_t row, std::string_view what) const;

    /// A column that is missing or there twice.
    void column(std::string_view name) const;
    /// A cell that is not a number from end to end.
    void number(std::size_t row, std::size_t column) const;

  private:
    void at(Finding finding, std::size_t line, std::size_t column, std::string_view what,
            std::string_view subject) const;
    std::size_t lineOf(std::size_t row) const;

    const Report& report_;
    text::Findings* findings_;
};

}  // namespace kvocaeio::package
