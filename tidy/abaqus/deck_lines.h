/// The statements of an Abaqus deck and their data lines, whatever files they stand in, and what
/// is told of them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tidy/abaqus/findings.h"
#include "tidy/abaqus/model.h"
#include "tidy/abaqus/parameters.h"
#include "tidy/abaqus/statement.h"
#include "tidy/source_files.h"

namespace kvocaeio::tidy::abaqus {

/// Goes once through a deck. Includes are followed; blank lines and comments are passed over.
class DeckLines {
  public:
    explicit DeckLines(SourceFiles& files) : files_(files) {}

    /// Passes over data lines up to the next statement, and takes that. False at the end.
    bool nextStatement(Statement& statement);

    /// Takes the next data line of the statement. False at the next statement or the end.
    bool nextData();
    std::string_view line() const { return line_; }
    std::uint32_t file() const { return files_.fileRow(); }
    /// The place of a field of the line taken last.
    Place place(std::string_view field) const {
        return {files_.fileRow(), static_cast<std::uint32_t>(files_.lineNumber()),
                static_cast<std::uint32_t>(files_.columnOf(field))};
    }
    /// The place of the statement taken last.
    const Place& statementPlace() const { return statementPlace_; }

    /// The statement taken last is one that the reader reads too: what it would take in another
    /// way than it is meant has to be changed. It keeps the value of the parameter `kept`.
    void expectPlain(const Statement& statement, std::string_view kept = {});
    /// Tells tabs in the line taken last, which the reader would not take for blanks. False without
    /// one. For the readers of statements to ask, which mostly know from the fields.
    bool tellTabs();
    /// Whether what comes next is between the first and the last line of an element.
    void setInside(bool isInside) { isInside_ = isInside; }

    /// The lines of a file that the statement names in INPUT come before those that follow it.
    void includeInput(const Statement& statement);

    /// Takes a definition of a parameter. Lines that come later have values for their names.
    void defineParameter() { parameters_.define(line()); }

    /// Tells something that had to be changed.
    void change(Finding finding, std::string_view field, std::string_view subject = {}) {
        isNeeded_ = true;
        note(finding, field, subject);
    }
    /// Tells something else; an error makes the deck one that cannot be rewritten.
    void note(Finding finding, std::string_view field, std::string_view subject = {}) {
        checkFailure(finding);
        files_.note(finding, field, subject);
    }
    void noteAt(Finding finding, Place place, std::string_view what,
                std::string_view subject = {}) {
        checkFailure(finding);
        files_.noteAt(finding, place.file, place.line, place.column, what, subject);
    }
    void changeAt(Finding finding, Place place, std::string_view what,
                  std::string_view subject = {}) {
        isNeeded_ = true;
        noteAt(finding, place, what, subject);
    }
    /// The same of the statement taken last.
    void noteStatement(Finding finding, std::string_view subject) {
        noteAt(finding, statementPlace_, statementLine_, subject);
    }
    void changeStatement(Finding finding, std::string_view subject) {
        changeAt(finding, statementPlace_, statementLine_, subject);
    }
    /// The new deck differs in a way that has been told.
    void setNeeded() { isNeeded_ = true; }

    bool isNeeded() const { return isNeeded_; }
    bool hasFailed() const { return hasFailed_ || files_.isIncomplete(); }

  private:
    void checkFailure(Finding finding) {
        if (rowOf(finding).severity == text::Severity::kError)
            hasFailed_ = true;
    }
    bool take();
    bool isData();
    void putParameters();
    bool followInclude();
    void passOverMark();
    void joinContinued();
    void includeNamed(const Statement& statement);

    SourceFiles& files_;
    Parameters parameters_;
    std::string_view line_;    // taken last
    std::string substituted_;  // the same with values of parameters
    std::string keywordLine_;  // of the next statement, with the lines that continue it
    Place keywordPlace_;
    std::string statementLine_;  // the same of the present one
    Place statementPlace_;
    bool hasKeyword_ = false;  // it was met and is to be taken
    bool isHeld_ = false;      // the line taken last is to be taken again
    bool isPlainExpected_ = false;
    bool isInside_ = false;
    bool isNeeded_ = false;
    bool hasFailed_ = false;
};

}  // namespace kvocaeio::tidy::abaqus
