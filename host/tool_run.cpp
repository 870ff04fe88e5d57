/// What launchers of all platforms share: the words on the command line and in the report.
#include "tool_run.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "tool_launcher.h"

namespace kvocaeio::host {

std::string asText(const ToolRun& run) {
    switch (run.end) {
        case ToolRun::End::kExited:
            return "ended with exit code " + std::to_string(run.code);
        case ToolRun::End::kSignalled:
            return "was ended by signal " + std::to_string(run.code);
        case ToolRun::End::kTimedOut:
            return "was stopped when its time was up (--tool-timeout)";
        default:
            return "could not be started: " + systemMessage(run.code);
    }
}

std::vector<std::string> splitAt(const std::string& text, char separator) {
    std::vector<std::string> words;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find(separator, at), text.size());
        if (end != at)
            words.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return words;
}

std::optional<std::vector<std::string>> findTool(const std::string& tool) {
    if (isProgram(tool))
        return std::vector<std::string>{tool};
    std::vector<std::string> words = splitAt(tool, ' ');
    if (words.size() > 1 && isProgram(words.front()))
        return words;
    return std::nullopt;
}

std::vector<ToolRun> runTool(const std::vector<std::string>& tool, double seconds) {
    ToolWatch watch(tool, seconds);
    runLauncher(watch.launcher());
    return watch.runs();
}

bool isLauncher(int argc, char** argv) {
    return argc >= 2 && std::strcmp(argv[1], kLauncherWord) == 0;
}

std::vector<ToolRun> parseRuns(const std::string& report) {
    std::vector<ToolRun> runs;
    for (const std::string& line : splitAt(report, '\n'))
        runs.push_back({static_cast<ToolRun::End>(line.front()), std::atoi(line.c_str() + 1)});
    return runs;
}

std::string asLine(const ToolRun& run) {
    return static_cast<char>(run.end) + std::to_string(run.code) + '\n';
}

}  // namespace kvocaeio::host
