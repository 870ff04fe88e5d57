/// Tools on Linux and its kin. Host and launcher are linked by two pipes: the launcher reports in
/// one, and at the end of the other it sees that the host is gone. The tool is in a process group
/// of its own, which is ended as a whole.
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/prctl.h>
#endif

#include "c_file.h"
#include "file_report.h"
#include "tool_launcher.h"

namespace kvocaeio::host {

namespace {

// Its path has no blank, at which the library would split it.
#if defined(__linux__)
constexpr const char* kThisProgram = "/proc/self/exe";
#else
constexpr const char* kThisProgram = "kvocaeio";
#endif

double now() {
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void keepFromChildren(int descriptor) {
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

void closeOnce(int& descriptor) {
    if (descriptor >= 0)
        ::close(descriptor);
    descriptor = -1;
}

bool isExecutableFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

/// What the host tells its launchers.
struct Orders {
    double deadline = 0.0;
    int report = -1;
    int host = -1;  ///< nothing is written to it; it ends with the host
    std::vector<std::string> tool;
};

std::string asText(const Orders& orders) {
    std::string text = std::to_string(orders.deadline) + '\n' + std::to_string(orders.report) +
                       '\n' + std::to_string(orders.host);
    for (const std::string& word : orders.tool)
        text += '\n' + word;
    return text;
}

std::optional<Orders> takeOrders() {
    const char* text = std::getenv(kLauncherVariable);
    std::vector<std::string> words = splitAt(text == nullptr ? "" : text, '\n');
    if (words.size() < 4)
        return std::nullopt;
    Orders orders{std::atof(words[0].c_str()),
                  std::atoi(words[1].c_str()),
                  std::atoi(words[2].c_str()),
                  {words.begin() + 3, words.end()}};
    ::unsetenv(kLauncherVariable);
    keepFromChildren(orders.report);
    keepFromChildren(orders.host);
    return orders;
}

void report(const Orders& orders, const ToolRun& run) {
    const std::string line = asLine(run);
    // Where the host is gone, nobody wants to know.
    [[maybe_unused]] const ssize_t written = ::write(orders.report, line.data(), line.size());
}

/// In the child: becomes the tool. `signals` is the mask that it starts with.
[[noreturn]] void becomeTool(const Orders& orders, char** arguments, const sigset_t& signals) {
    ::setpgid(0, 0);
#if defined(__linux__)
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);  // should the launcher itself be ended by force
#endif
    // Out of the terminal's foreground, it would stop for good at the first read from there.
    const int null = ::open("/dev/null", O_RDONLY);
    ::dup2(null, STDIN_FILENO);
    ::sigprocmask(SIG_SETMASK, &signals, nullptr);
    std::vector<std::string> tool = orders.tool;
    std::vector<char*> words;
    for (std::string& word : tool)
        words.push_back(word.data());
    while (*arguments != nullptr)
        words.push_back(*arguments++);
    words.push_back(nullptr);
    ::execvp(words.front(), words.data());
    report(orders, {ToolRun::End::kNotStarted, errno});
    ::_exit(127);
}

volatile std::sig_atomic_t stopped = 0;

/// The signals that the launcher waits for: blocked but for the time of its waits.
sigset_t awaitSignals() {
    struct sigaction action {};
    action.sa_handler = [](int signal) {
        if (signal != SIGCHLD)
            stopped = 1;
    };
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGCHLD, SIGHUP, SIGINT, SIGTERM}) {
        sigaddset(&signals, signal);
        ::sigaction(signal, &action, nullptr);
    }
    sigset_t before;
    ::sigprocmask(SIG_BLOCK, &signals, &before);
    for (const int signal : {SIGCHLD, SIGHUP, SIGINT, SIGTERM})
        sigdelset(&before, signal);
    return before;
}

/// Waits until the tool has ended, at most until `deadline`, or until the host is gone; false when
/// the tool still runs then.
bool waitForEnd(pid_t tool, int& status, double deadline, int host, const sigset_t& unblocked) {
    for (;;) {
        if (::waitpid(tool, &status, WNOHANG) != 0)
            return true;
        const double left = deadline - now();
        if (left <= 0.0 || stopped != 0)
            return false;
        timespec time{};
        time.tv_sec = static_cast<time_t>(std::min(left, 1e6));
        time.tv_nsec =
            static_cast<long>((std::min(left, 1e6) - static_cast<double>(time.tv_sec)) * 1e9);
        pollfd hostEnd{host, POLLIN, 0};
        if (::ppoll(&hostEnd, host < 0 ? 0 : 1, &time, &unblocked) > 0)
            return false;
    }
}

/// Asks the tool and its children to end, and makes them after a while.
void endGroup(pid_t tool, int& status, const sigset_t& unblocked) {
    constexpr double kGrace = 2.0;
    ::kill(-tool, SIGTERM);
    stopped = 0;
    const bool ended = waitForEnd(tool, status, now() + kGrace, -1, unblocked);
    ::kill(-tool, SIGKILL);
    if (!ended)
        ::waitpid(tool, &status, 0);
}

}  // namespace

struct ToolWatch::Links {
    int reportEnd = -1;     ///< where the host reads
    int launcherEnds[2]{};  ///< which only the launchers use: for their report, and for their watch
    int hostEnd = -1;       ///< held by the host alone
};

ToolWatch::ToolWatch(const std::vector<std::string>& tool, double seconds)
    : links_(std::make_unique<Links>()) {
    int reports[2];
    int watch[2];
    if (::pipe(reports) != 0 || ::pipe(watch) != 0)
        throw FileError("the extraction tool cannot be started: " + systemFailure());
    *links_ = {reports[0], {reports[1], watch[0]}, watch[1]};
    keepFromChildren(links_->reportEnd);
    keepFromChildren(links_->hostEnd);
    ::setenv(kLauncherVariable, asText(Orders{now() + seconds, reports[1], watch[0], tool}).c_str(),
             1);
}

ToolWatch::~ToolWatch() {
    ::unsetenv(kLauncherVariable);
    for (int* descriptor :
         {&links_->reportEnd, &links_->launcherEnds[0], &links_->launcherEnds[1], &links_->hostEnd})
        closeOnce(*descriptor);
}

std::string ToolWatch::launcher() const {
    return std::string(kThisProgram) + " " + kLauncherWord;
}

std::vector<ToolRun> ToolWatch::runs() {
    closeOnce(links_->launcherEnds[0]);
    std::string report;
    char block[256];
    for (ssize_t size = 0; (size = ::read(links_->reportEnd, block, sizeof block)) > 0;)
        report.append(block, static_cast<std::size_t>(size));
    return parseRuns(report);
}

bool isProgram(const std::string& path) {
    if (path.find('/') != std::string::npos)
        return isExecutableFile(path);
    const char* folders = std::getenv("PATH");
    for (const std::string& folder : splitAt(folders == nullptr ? "/bin:/usr/bin" : folders, ':'))
        if (isExecutableFile(folder + "/" + path))
            return !path.empty();
    return false;
}

void runLauncher(const std::string&) {
    const pid_t child = ::fork();
    if (child == 0) {
        const int null = ::open("/dev/null", O_WRONLY);
        ::dup2(null, STDOUT_FILENO);
        ::dup2(null, STDERR_FILENO);
        ::execlp(kThisProgram, "kvocaeio", kLauncherWord, static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
}

std::string systemMessage(int error) {
    return std::generic_category().message(error);
}

int launchTool(int, char** argv) {
    const std::optional<Orders> orders = takeOrders();
    if (!orders)
        return 2;
    if (now() >= orders->deadline) {  // an earlier run took all the time
        report(*orders, {ToolRun::End::kTimedOut, 0});
        return 0;
    }
    const sigset_t unblocked = awaitSignals();
    const pid_t tool = ::fork();
    if (tool == 0)
        becomeTool(*orders, argv + 2, unblocked);
    if (tool < 0) {
        report(*orders, {ToolRun::End::kNotStarted, errno});
        return 0;
    }
    ::setpgid(tool, tool);  // whoever of the two comes first
    int status = 0;
    if (!waitForEnd(tool, status, orders->deadline, orders->host, unblocked)) {
        endGroup(tool, status, unblocked);
        report(*orders, {ToolRun::End::kTimedOut, 0});
    } else if (WIFSIGNALED(status)) {
        report(*orders, {ToolRun::End::kSignalled, WTERMSIG(status)});
    } else {
        report(*orders, {ToolRun::End::kExited, WEXITSTATUS(status)});
    }
    return 0;
}

}  // namespace kvocaeio::host
