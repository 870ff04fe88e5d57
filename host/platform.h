/// What the host asks of the system beyond the standard library; one source file per platform.
#pragma once

#include <cstddef>

namespace kvocaeio::host {

/// Makes sure that the descriptors of the three standard streams are taken, so that no file which
/// is opened later gets one of them and receives what is printed.
void holdStandardStreams();

/// Whether `path` names a folder.
bool isFolder(const char* path);

/// Columns of the terminal that standard output goes to; 0 where it goes elsewhere.
std::size_t terminalColumns();

/// Whether standard error goes to a terminal.
bool isErrorTerminal();

/// As long as it lives, the terminal takes what is printed as UTF-8 and obeys escape sequences.
class Terminal {
  public:
    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

  private:
    // What they were before; 0 where they need not be set back.
    [[maybe_unused]] unsigned codePage_ = 0;
    [[maybe_unused]] unsigned long mode_ = 0;
};

/// Where text that is printed on standard output goes for a while.
enum class PrintTarget { kNowhere, kStandardError };

/// Sends standard output elsewhere and returns a token for `restoreStandardOutput`.
int redirectStandardOutput(PrintTarget target);
void restoreStandardOutput(int token);

}  // namespace kvocaeio::host
