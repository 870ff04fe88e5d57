/// Files that are read, as the command line names them.
#pragma once

#include <memory>
#include <string>

#include "file_system.h"
#include "temporary_path.h"

namespace kvocaeio::host {

/// The name of standard input on the command line.
inline constexpr const char* kStandardInput = "-";

/// How messages and reports show the file `name`: without anything that could steer a terminal.
std::string shownName(const std::string& name);

/// Throws `FileError` for what is there but is no file: a folder, a pipe, a device.
void refuseSpecialFile(const std::string& path);

/// A file that can be opened by its path, several times. Standard input is saved to a temporary
/// file, in a folder of its own, so that nothing else can lie beside it.
class InputFile {
  public:
    /// Throws `FileError` for special files, and where standard input cannot be saved.
    explicit InputFile(const std::string& name);

    const std::string& path() const { return path_; }
    /// The same for all names of the file; none where there is no file.
    std::optional<FileIdentity> identity() const { return identity_; }

  private:
    void saveStandardInput();

    std::string path_;
    std::optional<FileIdentity> identity_;
    std::unique_ptr<TemporaryPath> folder_;
    std::unique_ptr<TemporaryPath> file_;  // goes before the folder that it is in
};

}  // namespace kvocaeio::host
