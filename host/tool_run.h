/// Extraction tools under a time limit.
///
/// The library starts a tool by its path and waits for its end, however long that takes, without a
/// look at how it ended. So the host gives the library a launcher in the tool's place: itself, with
/// a word in front of the tool's arguments. The launcher starts the tool, ends it when its time is
/// up or the host is gone, and tells the host how it ended.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvocaeio::host {

/// How one run of a tool ended.
struct ToolRun {
    enum class End : char { kExited = 'x', kSignalled = 's', kTimedOut = 't', kNotStarted = 'n' };
    End end;
    int code;  ///< exit code, number of the signal or error of the system
};

/// "ended with exit code 3".
std::string asText(const ToolRun& run);

/// What `tool` stands for: a program by its path, or one that the system finds, or such a one with
/// arguments behind it. None where there is no such program.
std::optional<std::vector<std::string>> findTool(const std::string& tool);

/// Watches the tool while it lives. One at a time.
class ToolWatch {
  public:
    /// `tool` as `findTool` found it; `seconds` is the time that all its runs may take together.
    ToolWatch(const std::vector<std::string>& tool, double seconds);
    ~ToolWatch();
    ToolWatch(const ToolWatch&) = delete;
    ToolWatch& operator=(const ToolWatch&) = delete;

    /// What the library is to start in the tool's place.
    std::string launcher() const;

    /// The runs that there were. To be called once, after the library has waited for them.
    std::vector<ToolRun> runs();

  private:
    struct Links;
    std::unique_ptr<Links> links_;
};

/// Runs `tool`, as `findTool` found it with its arguments behind it, and waits for its end. What it
/// prints goes nowhere. Returns nothing where no launcher could be started.
std::vector<ToolRun> runTool(const std::vector<std::string>& tool, double seconds);

/// Whether this process was started as a launcher.
bool isLauncher(int argc, char** argv);

/// The launcher's whole work; returns its exit code.
int launchTool(int argc, char** argv);

}  // namespace kvocaeio::host
