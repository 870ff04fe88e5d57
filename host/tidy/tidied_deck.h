/// A deck that is tidied before a command reads it.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "temporary_path.h"
#include "tidy/tidy_run.h"
#include <kvocaeio/tidy.h>

namespace kvocaeio::host {

class FileReport;
struct Format;
struct SolidMesh;

/// The file to read in the place of a deck: a tidy one, which goes away with its holder, or the
/// original where nothing needs to be changed or its format is not tidied.
class TidiedDeck {
  public:
    /// Takes the file at `path` as it is; `name` is what the user calls it.
    TidiedDeck(std::string path, std::string name)
        : name_(std::move(name)), path_(std::move(path)) {}
    /// Tidies it, where that is needed, as a deck of `format`. Throws `FileError` where there is no
    /// room for temporary files.
    void tidy(const Format& format);

    /// What is to be read; not where it failed.
    const std::string& path() const { return path_; }
    /// Whether that is another deck than the original.
    bool isTidied() const { return file_ != nullptr; }
    bool failed() const { return !run_.good; }
    /// What tidy tells where it failed or the deck is a tidy one.
    const ImportFindings& findings() const { return run_.findings; }

    /// Throws `FileError` where it failed; `advice` ends the message.
    void requireGood(const std::string& advice = "") const;
    /// What a user had better know of a tidied deck.
    std::string remark() const;

    /// Makes of what the import of `path()` tells what there is to tell of the original: findings
    /// of tidy come first, and places in the tidy deck, which nobody sees, become the numbers that
    /// nodes and elements have in the original.
    void giveBack(ImportFindings& import);
    /// Gives nodes and elements the OIDs of the original where no two of them are alike.
    void restoreOids(SolidMesh& mesh);
    /// Gives what `report` names the numbers of the original.
    void restoreNumbers(FileReport& report);

  private:
    void write(int format);

    std::string name_;
    std::string path_;
    TidyRun run_{true, {}, {}, {}};
    CKVODeckTidy tidy_;
    std::unique_ptr<TemporaryPath> folder_;
    std::unique_ptr<TemporaryPath> file_;  // goes before the folder that it is in
};

/// As `findFormat`; what a byte order mark hides is accepted where the file is to be tidied.
const Format& findFormatToTidy(const std::string& path, bool isToBeTidied);

}  // namespace kvocaeio::host
