/// What the two sides of a tool's run have in common, and what they ask of the platform.
#pragma once

#include <string>
#include <vector>

#include "tool_run.h"

namespace kvocaeio::host {

/// The word on the command line that makes the program a launcher.
inline constexpr const char* kLauncherWord = "launch-extraction-tool";

/// The variable by which the host tells the launcher the rest.
inline constexpr const char* kLauncherVariable = "KVOCAEIO_TOOL_LAUNCH";

/// The text between `separator`s; empty words are left out.
std::vector<std::string> splitAt(const std::string& text, char separator);

/// A line of the report, and all of them.
std::string asLine(const ToolRun& run);
std::vector<ToolRun> parseRuns(const std::string& report);

/// Whether `path` is a program that can be started, also one that the system searches for.
bool isProgram(const std::string& path);

/// Starts `launcher`, as `ToolWatch` names it, and waits for its end. What it prints goes nowhere.
void runLauncher(const std::string& launcher);

/// The system's message on the error that a `ToolRun` holds.
std::string systemMessage(int error);

}  // namespace kvocaeio::host
