#include "setup/estimator_start.h"

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "tests/setup/setup_fixture.h"

namespace setup {
namespace {

/// Waits for a file that another process writes whole.
std::string Awaited(const std::string& path) {
  for (int tries = 0; tries < 500 && !std::filesystem::exists(path); ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return GetFile(path);
}

TEST_F(SetupFormTest, TheEstimatorIsStartedOnTheParameterFile) {
  const std::string program = PutFile(folder / "ZU.exe", "");
  form.RunCommand3();
  EXPECT_TRUE(controls.EstimatorEnabled);
  rebuilds = 0;
  form.Cmd_Click(2);
  EXPECT_EQ(rebuilds, 1);
  EXPECT_EQ(started, program + "|" + folder / "board.zu");
  EXPECT_EQ(GetFile(folder / "board.zu"), controls.Vu);
}

TEST_F(SetupFormTest, WithoutAnEstimatorTheFileIsWrittenButNotForAShortName) {
  form.RunCommand3();
  EXPECT_FALSE(controls.EstimatorEnabled);
  form.Cmd_Click(2);
  EXPECT_EQ(GetFile(folder / "board.zu"), controls.Vu);
  const std::size_t files = folder.FileCount();
  for (const std::string& path : {std::string(), folder / "ya"}) {
    package.PackagePath = path;
    form.Cmd_Click(2);
  }
  EXPECT_EQ(folder.FileCount(), files);
  EXPECT_EQ(started, "");
}

TEST_F(SetupFormTest, AFolderThatCannotBeWrittenGivesWayToTheUsers) {
  const std::string program = PutFile(folder / "ZU.exe", "");
  // A folder in the file's place refuses the writing even to root.
  std::filesystem::create_directory(folder / "board.zu");
  form.RunCommand3();
  form.Cmd_Click(2);
  EXPECT_EQ(started, program + "|" + folder / "data/board.zu");
  EXPECT_EQ(GetFile(folder / "data/board.zu"), controls.Vu);
}

TEST(StartDetached, PassesOneArgumentDefaultSignalsAndANewSessionAndLeavesNoZombie) {
  const TemporaryFolder folder{"a \"b\" 'c' \xC3\xA4 "};
  const std::string program = PutFile(folder / "ZU.exe",
                                      "#!/bin/sh\n"
                                      "{ echo $#; echo \"$1\"; grep -E 'SigBlk|SigIgn' /proc/self/status; "
                                      "cut -d' ' -f6 /proc/$$/stat; } > \"$1.part\"\n"
                                      "mv \"$1.part\" \"$1.out\"\n");
  ASSERT_EQ(chmod(program.c_str(), 0755), 0);
  const std::string argument = folder / "b \"q\" 'r' $HOME `id` * \xC3\xBC.zu";
  const auto xfsz = signal(SIGXFSZ, SIG_IGN);
  sigset_t blocked, before;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGUSR1);
  sigprocmask(SIG_BLOCK, &blocked, &before);
  StartDetached(program, argument);
  sigprocmask(SIG_SETMASK, &before, nullptr);
  signal(SIGXFSZ, xfsz);
  // The starting itself leaves no child behind.
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
  const std::string written = Awaited(argument + ".out");
  const std::string expected = "1\n" + argument + "\nSigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n";
  ASSERT_EQ(written.substr(0, expected.size()), expected);
  EXPECT_NE(std::atoi(written.c_str() + expected.size()), getsid(0));
}

TEST(StartDetached, IgnoresAProgramThatCannotBeStarted) {
  const TemporaryFolder folder;
  StartDetached(folder / "ZU.exe", "x");
  StartDetached(PutFile(folder / "ZU.exe", "no program"), "x");
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace setup
