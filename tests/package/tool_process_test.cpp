/// How the extraction tool is found, what it has of the caller, and how its end is waited for.
#include <cstdlib>

#include "package/tool_road.h"

#if !defined(_WIN32)
#include <cerrno>
#include <csignal>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace kvocaeio::test {
namespace {

void setVariable(const char* name, const std::string& value) {
#if defined(_WIN32)
    _putenv_s(name, value.c_str());
#else
    setenv(name, value.c_str(), 1);
#endif
}

class ToolProcess : public ToolRoad {
  protected:
    void TearDown() override {
        std::filesystem::current_path(workingFolder_);
        setVariable("PATH", searchPath_);
        setVariable("KVOCAEIO_TEST_MARK", "");
    }

  private:
    std::filesystem::path workingFolder_ = std::filesystem::current_path();
    std::string searchPath_ = std::getenv("PATH");
};

TEST_F(ToolProcess, HasTheCallersEnvironmentAndWorkingFolder) {
    setPaths();
    prepareRun1("board.mcm");
    folder.makeFolder("work");
    std::filesystem::current_path(folder.path() / "work");
    setVariable("KVOCAEIO_TEST_MARK", "as it is now");
    EXPECT_TRUE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), run({tool, "board.mcm", inFolder("CmdFile1.txt"),
                             inFolder("CadenceData1.txt"), inFolder("CadenceData2.txt")},
                            kCommandsOfRun1, "as it is now"));
}

TEST_F(ToolProcess, IsFoundByARelativePath) {
    folder.makeFolder("work");
    std::filesystem::current_path(folder.path() / "work");
    tool = std::string("..") + kSeparator + kToolName;
    temp = "..";
    setPaths();
    prepareRun1("board.mcm");
    EXPECT_TRUE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), run1("board.mcm"));
    EXPECT_EQ(bodiesOf(reader), kMcmBodies);
}

TEST_F(ToolProcess, IsSoughtInThePath) {
    tool = "kvocaeio-test-extract.exe";
    std::filesystem::rename(folder.path() / kToolName, folder.path() / tool);
    setPaths();
    prepareRun1("board.mcm");
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), "");
    setVariable("PATH", temp);
    EXPECT_TRUE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), run1("board.mcm"));
}

#if !defined(_WIN32)

TEST_F(ToolProcess, IsNoShellScriptWithoutInterpreter) {
    setPaths();
    folder.write("script", "touch " + folder.file("touched") + "\n");
    const std::string script = folder.file("script");
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    reader.SetExeFilePath(script.c_str());
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_FALSE(exists("touched"));
}

TEST_F(ToolProcess, GetsItsWordsWithoutAShell) {
    setPaths();
    prepareRun1("board.mcm");
    const std::string design = "$HOME;*.mcm|`x`>\\y&\t'q'";
    EXPECT_TRUE(reader.ImportCadenceFile(design.c_str()));
    EXPECT_EQ(record(), run1(design));
}

TEST_F(ToolProcess, InheritsDescriptors) {
    setPaths();
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    setVariable("KVOCAEIO_TEST_DESCRIPTOR", std::to_string(ends[1]));
    reader.ImportCadenceFile("board.mcm");
    unsetenv("KVOCAEIO_TEST_DESCRIPTOR");
    close(ends[1]);
    char content[20] = {};
    EXPECT_EQ(read(ends[0], content, sizeof content), 9);
    EXPECT_STREQ(content, "inherited");
    close(ends[0]);
}

TEST_F(ToolProcess, LeavesNoZombie) {
    setPaths();
    prepareRun1("board.mcm");
    EXPECT_TRUE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(ToolProcess, IsWaitedForByAHostThatIgnoresItsChildren) {
    setPaths();
    prepareRun1("stack.sip");
    prepareRun2();
    folder.write("slow.txt", "");
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    EXPECT_TRUE(reader.ImportCadenceFile("stack.sip"));
    std::signal(SIGCHLD, before);
    EXPECT_EQ(record(), run1("stack.sip") + run2("stack.sip"));
    EXPECT_EQ(bodiesOf(reader), kSipBodies);
}

volatile std::sig_atomic_t interruptions = 0;

TEST_F(ToolProcess, IsWaitedForAcrossInterruptions) {
    setPaths();
    prepareRun1("board.mcm");
    folder.write("slow.txt", "");
    struct sigaction interrupt {};
    struct sigaction before {};
    interrupt.sa_handler = [](int) { interruptions = interruptions + 1; };
    ASSERT_EQ(sigaction(SIGALRM, &interrupt, &before), 0);  // without SA_RESTART
    const itimerval often{{0, 10000}, {0, 10000}};
    setitimer(ITIMER_REAL, &often, nullptr);
    EXPECT_TRUE(reader.ImportCadenceFile("board.mcm"));
    const itimerval never{};
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &before, nullptr);
    EXPECT_GT(interruptions, 10);
    EXPECT_EQ(record(), run1("board.mcm"));
}

#endif

}  // namespace
}  // namespace kvocaeio::test
