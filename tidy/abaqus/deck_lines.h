/// The statements of an Abaqus deck and their data lines, whatever files they stand in, and what
/// is told of them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tidy/abaqus/findings.h"
#include "tidy/abaqus/model.h"
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
    std::string_view line() const { return files_.line(); }
    Place place() const {
        return {files_.fileRow(), static_cast<std::uint32_t>(files_.lineNumber())};
    }

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
        files_.noteAt(finding, place.file, place.line, 0, what, subject);
    }
    void changeAt(Finding finding, Place place, std::string_view what,
                  std::string_view subject = {}) {
        isNeeded_ = true;
        noteAt(finding, place, what, subject);
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
    bool followInclude();
    void passOverMark();
    void joinContinued();
    void includeNamed(const Statement& statement);

    SourceFiles& files_;
    std::string keywordLine_;  // the statement's lines, joined
    bool hasKeyword_ = false;  // it was met and is to be taken
    bool isHeld_ = false;      // the line taken last is to be taken again
    bool isPlainExpected_ = false;
    bool isInside_ = false;
    bool isNeeded_ = false;
    bool hasFailed_ = false;
};

}  // namespace kvocaeio::tidy::abaqus
