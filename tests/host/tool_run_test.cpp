/// Extraction tools that fail, never end or are not there.
#include <chrono>
#include <gmock/gmock.h>
#include <thread>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A folder with a design, and what there is to be lost.
struct Job {
    TempFolder folder;
    std::string design = folder.write("a.sip", "a design");
    std::string report = folder.write("CmdFile1.txt", "keep me");

    Outcome run(const std::string& tool, const std::vector<std::string>& options = {}) const {
        std::vector<std::string> arguments = {
            "info", "--tool", tool, "--temp", folder.path().string(), design};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runHost(arguments);
    }

    /// What the tool has noted of its runs.
    std::string record() const { return readBytes(folder.path() / "record.txt"); }
};

std::string tool() {
    return nativePath(KVOCAEIO_EXTRACTION_TOOL);
}

TEST(ToolRun, TellsTheExitCode) {
    const Job job;
    const Outcome outcome = job.run(tool());
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors,
                StartsWith("kvocaeio: " + job.design +
                           ": the extraction tool ended with exit code 3; no reports of a design"));
    EXPECT_THAT(job.record(), EndsWith("end\n"));
}

TEST(ToolRun, HandsTheArgumentsOn) {
    const Job job;
    job.run(tool());
    EXPECT_THAT(job.record(), HasSubstr("word " + job.design + "\nword " +
                                        (job.folder.path() / "CmdFile1.txt").string() + "\nword " +
                                        (job.folder.path() / "CadenceData1.txt").string() + "\n"));
    EXPECT_THAT(job.record(), HasSubstr((job.folder.path() / "CadenceData3.txt").string() + "\n"));
}

TEST(ToolRun, EndsWithItsTime) {
    const Job job;
    job.folder.write("slow.txt", "");
    const Outcome outcome = job.run(tool(), {"--tool-timeout", "0.1"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, StartsWith("kvocaeio: " + job.design +
                                           ": the extraction tool was stopped when its time was "
                                           "up (--tool-timeout); no reports"));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_THAT(job.record(), Not(HasSubstr("end\n")));
}

TEST(ToolRun, WhatIsNotThereIsToldBeforeAnythingIsDeleted) {
    Job job;
    const std::string missing = job.folder.file("none.exe");
    EXPECT_EQ(job.run(missing).errors, "kvocaeio: " + job.design + ": the extraction tool " +
                                           missing + " does not exist or is no program\n");
    EXPECT_EQ(job.run("kvocaeio-has-no-such-tool").exitCode, 1);
    job.design = job.folder.file("none.sip");
    EXPECT_EQ(job.run(tool()).errors,
              "kvocaeio: " + job.design + ": cannot be read: No such file or directory\n");
    EXPECT_EQ(readBytes(job.report), "keep me");
    EXPECT_EQ(job.record(), "");
}

TEST(ToolRun, WantsATimeThatCanPass) {
    const Job job;
    EXPECT_EQ(job.run(tool(), {"--tool-timeout", "-1"}).exitCode, 2);
    EXPECT_EQ(runHost({"info", "--tool-timeout", "5", job.design}).exitCode, 2);
}

#if !defined(_WIN32)

/// A tool that is a shell script.
std::string script(const Job& job, const std::string& commands) {
    const std::string path = job.folder.write("tool.sh", "#!/bin/sh\n" + commands);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
}

/// Whether the process whose number is in the file ends within a few seconds.
bool ends(const std::string& numberFile) {
    return runShell("for i in $(seq 200); do case $(cut -d' ' -f3 /proc/$(cat " +
                    quote(numberFile) +
                    ")/stat 2>/dev/null) in ''|Z) exit 0;; esac; sleep 0.02; done; exit 1")
               .exitCode == 0;
}

TEST(ToolRun, TellsTheSignal) {
    const Job job;
    EXPECT_THAT(job.run(script(job, "kill -11 $$\n")).errors,
                HasSubstr(": the extraction tool was ended by signal 11; "));
}

TEST(ToolRun, EndsWithItsChildren) {
    const Job job;
    const std::string child = job.folder.file("child");
    const std::string path = script(job, "sleep 100 & echo $! >" + quote(child) + "\nwait\n");
    EXPECT_EQ(job.run(path, {"--tool-timeout", "0.3"}).exitCode, 1);
    EXPECT_TRUE(ends(child));
}

TEST(ToolRun, DoesNotOutliveTheHost) {
    const Job job;
    const std::string child = job.folder.file("child");
    const std::string path = script(job, "sleep 100 & echo $! >" + quote(child) + "\nwait\n");
    for (const char* signal : {"KILL", "TERM"}) {
        runShell(quote(KVOCAEIO_PROGRAM) + " info --tool " + quote(path) + " --temp " +
                 quote(job.folder.path().string()) + " " + quote(job.design) + " & until test -s " +
                 quote(child) + "; do sleep 0.01; done; kill -" + signal + " $!; wait $!");
        EXPECT_TRUE(ends(child)) << signal;
        std::filesystem::remove(child);
    }
}

TEST(ToolRun, TakesArgumentsBehindTheTool) {
    const Job job;
    const std::string path = script(job, "echo $1 $2 >" + quote(job.folder.file("words")) + "\n");
    job.run("sh " + path + " --batch");
    EXPECT_EQ(readBytes(job.folder.file("words")), "--batch " + job.design + "\n");
}

#endif

}  // namespace
}  // namespace kvocaeio::test
