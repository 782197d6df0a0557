#include "model/whole_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/fault_of.h"
#include "tests/full_disk.h"
#include "tests/temporary_folder.h"

namespace model {
namespace {

namespace fs = std::filesystem;

unsigned ModeOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0U;
}

std::string FaultOf(const std::string& path, std::string_view bytes) {
  return ::FaultOf([&] { WriteWholeFile(path, bytes); });
}

TEST(WholeFile, CreatesAndReplacesAndKeepsThePermissions) {
  const TemporaryFolder folder;
  const std::string path = folder / std::string(255, 'n');  // the longest name
  const std::string bytes("\0\r\n\xff", 4);
  WriteWholeFile(path, bytes);
  EXPECT_EQ(GetFile(path), bytes);
  const mode_t mask = umask(0);
  umask(mask);
  EXPECT_EQ(ModeOf(path), 0666U & ~mask);
  chmod(path.c_str(), 0640);
  WriteWholeFile(path, "");
  EXPECT_EQ(GetFile(path), "");
  EXPECT_EQ(ModeOf(path), 0640U);
  EXPECT_EQ(folder.FileCount(), 1U);
}

TEST(WholeFile, LeavesTheOldFileWhenTheDiskIsFull) {
  const TemporaryFolder folder;
  const std::string path = PutFile(folder / "a.zu", "old");
  {
    const FullDisk disk(1000);
    EXPECT_EQ(FaultOf(path, std::string(5000, 'x')), "Run-time error: File too large (a.zu)");
    EXPECT_EQ(FaultOf(folder / "new.zu", std::string(5000, 'x')), "Run-time error: File too large (new.zu)");
  }
  EXPECT_EQ(GetFile(path), "old");
  EXPECT_EQ(folder.FileCount(), 1U) << "nothing is left behind";
}

TEST(WholeFile, FollowsLinks) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "sub");
  PutFile(folder / "sub/target", "old");
  fs::create_symlink("target", folder / "sub/inner");
  fs::create_symlink("sub/inner", folder / "link");
  fs::create_symlink("sub/new", folder / "dangling");
  WriteWholeFile(folder / "link", "new");
  WriteWholeFile(folder / "dangling", "made");
  EXPECT_EQ(GetFile(folder / "sub/target"), "new");
  EXPECT_EQ(GetFile(folder / "sub/new"), "made");
  for (const char* link : {"link", "sub/inner", "dangling"})
    EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
}

TEST(WholeFile, FaultsWhereNoFileCanBe) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "sub");
  PutFile(folder / "sub/inside", "old");
  mkfifo((folder / "pipe").c_str(), 0600);
  fs::create_symlink("loop", folder / "loop");
  EXPECT_EQ(FaultOf(folder / "sub", "x"), "Run-time error: Is a directory (sub)");
  EXPECT_EQ(FaultOf(folder / "none/a.zu", "x"), "Run-time error: No such file or directory (a.zu)");
  EXPECT_EQ(FaultOf(folder / "pipe", "x"), "Run-time error: Invalid argument (pipe)");
  EXPECT_EQ(FaultOf(folder / "loop", "x"), "Run-time error: Too many levels of symbolic links (loop)");
  EXPECT_EQ(folder.FileCount(), 3U);
  EXPECT_EQ(GetFile(folder / "sub/inside"), "old");
}

}  // namespace
}  // namespace model
