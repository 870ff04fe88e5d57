/// Tools on Windows. The launcher reports in a pipe, and watches the host's process. The tool is in
/// a job, which is ended as a whole, also when the launcher is ended by force.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <system_error>
#include <windows.h>

#include "file_report.h"
#include "tool_launcher.h"

namespace kvocaeio::host {

namespace {

std::string asText(HANDLE handle) {
    return std::to_string(reinterpret_cast<std::uintptr_t>(handle));
}

HANDLE toHandle(const std::string& text) {
    return reinterpret_cast<HANDLE>(std::strtoull(text.c_str(), nullptr, 10));
}

/// What the host tells its launchers.
struct Orders {
    ULONGLONG deadline = 0;  ///< milliseconds of the system's clock
    HANDLE report = nullptr;
    HANDLE host = nullptr;  ///< its process
    std::string tool;       ///< as it stands on the command line
};

std::optional<Orders> takeOrders() {
    std::string text(32768, '\0');
    text.resize(
        GetEnvironmentVariableA(kLauncherVariable, text.data(), static_cast<DWORD>(text.size())));
    const std::vector<std::string> words = splitAt(text, '\n');
    if (words.size() != 4)
        return std::nullopt;
    SetEnvironmentVariableA(kLauncherVariable, nullptr);
    Orders orders{std::strtoull(words[0].c_str(), nullptr, 10), toHandle(words[1]),
                  toHandle(words[2]), words[3]};
    SetHandleInformation(orders.report, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(orders.host, HANDLE_FLAG_INHERIT, 0);
    return orders;
}

int report(const Orders& orders, ToolRun::End end, DWORD code) {
    const std::string line = asLine({end, static_cast<int>(code)});
    DWORD written = 0;
    WriteFile(orders.report, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    return 0;
}

void limit(HANDLE job, DWORD flags) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = flags;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
}

std::string quotedWhereNeeded(const std::string& word) {
    return word.find(' ') == std::string::npos ? word : '"' + word + '"';
}

}  // namespace

struct ToolWatch::Links {
    HANDLE reportEnd = nullptr;  ///< where the host reads
    HANDLE launcherEnd = nullptr;
    HANDLE host = nullptr;
};

ToolWatch::ToolWatch(const std::vector<std::string>& tool, double seconds)
    : links_(std::make_unique<Links>()) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    if (!CreatePipe(&links_->reportEnd, &links_->launcherEnd, &inherited, 0) ||
        !DuplicateHandle(GetCurrentProcess(), GetCurrentProcess(), GetCurrentProcess(),
                         &links_->host, SYNCHRONIZE, TRUE, 0))
        throw FileError("the extraction tool cannot be started: " +
                        systemMessage(static_cast<int>(GetLastError())));
    SetHandleInformation(links_->reportEnd, HANDLE_FLAG_INHERIT, 0);
    std::string words;
    for (const std::string& word : tool)
        words += (words.empty() ? "" : " ") + quotedWhereNeeded(word);
    const ULONGLONG deadline =
        GetTickCount64() + static_cast<ULONGLONG>(std::min(seconds, 1e9) * 1000.0);
    SetEnvironmentVariableA(kLauncherVariable,
                            (std::to_string(deadline) + '\n' + asText(links_->launcherEnd) + '\n' +
                             asText(links_->host) + '\n' + words)
                                .c_str());
}

ToolWatch::~ToolWatch() {
    SetEnvironmentVariableA(kLauncherVariable, nullptr);
    for (HANDLE handle : {links_->reportEnd, links_->launcherEnd, links_->host})
        if (handle != nullptr)
            CloseHandle(handle);
}

std::string ToolWatch::launcher() const {
    std::string program(32768, '\0');
    program.resize(GetModuleFileNameA(nullptr, program.data(), static_cast<DWORD>(program.size())));
    return quotedWhereNeeded(program) + " " + kLauncherWord;
}

std::vector<ToolRun> ToolWatch::runs() {
    CloseHandle(links_->launcherEnd);
    links_->launcherEnd = nullptr;
    std::string report;
    std::array<char, 256> block;
    DWORD size = 0;
    while (ReadFile(links_->reportEnd, block.data(), block.size(), &size, nullptr) && size != 0)
        report.append(block.data(), size);
    return parseRuns(report);
}

bool isProgram(const std::string& path) {
    std::array<char, 32768> found;
    if (SearchPathA(nullptr, path.c_str(), ".exe", static_cast<DWORD>(found.size()), found.data(),
                    nullptr) == 0)
        return false;
    return (GetFileAttributesA(found.data()) & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void runLauncher(const std::string& launcher) {
    std::string line = launcher;
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;  // none
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        return;
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

std::string systemMessage(int error) {
    return std::error_code(error, std::system_category()).default_error_condition().message();
}

int launchTool(int, char**) {
    const std::optional<Orders> orders = takeOrders();
    if (!orders)
        return 2;
    const ULONGLONG start = GetTickCount64();
    if (start >= orders->deadline)  // an earlier run took all the time
        return report(*orders, ToolRun::End::kTimedOut, 0);
    const std::string own = GetCommandLineA();
    const std::string arguments = own.substr(own.find(kLauncherWord) + strlen(kLauncherWord));
    std::string line = orders->tool + arguments;
    const HANDLE job = CreateJobObjectA(nullptr, nullptr);
    limit(job, JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                        nullptr, &startup, &process))
        return report(*orders, ToolRun::End::kNotStarted, GetLastError());
    AssignProcessToJobObject(job, process.hProcess);
    ResumeThread(process.hThread);
    const std::array<HANDLE, 2> ends = {process.hProcess, orders->host};
    const auto left = std::min<ULONGLONG>(orders->deadline - start, INFINITE - 1);
    const DWORD ended = WaitForMultipleObjects(static_cast<DWORD>(ends.size()), ends.data(), FALSE,
                                               static_cast<DWORD>(left));
    if (ended != WAIT_OBJECT_0) {
        TerminateJobObject(job, 1);
        return report(*orders, ToolRun::End::kTimedOut, 0);
    }
    limit(job, 0);  // what the tool has left running may go on
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    return report(*orders, ToolRun::End::kExited, code);
}

}  // namespace kvocaeio::host
