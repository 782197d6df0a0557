#include "model/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "model/text.h"
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

std::string WriteFault(const std::string& path, std::string_view bytes) {
  return ::FaultOf([&] { WriteWholeFile(path, bytes); });
}

TEST(Files, OnlyRegularFilesAndLinksToThemExist) {
  const TemporaryFolder folder;
  PutFile(folder / "file", "");
  fs::create_symlink("file", folder / "link");
  fs::create_symlink("nowhere", folder / "dangling");
  fs::create_directory(folder / "sub");
  mkfifo((folder / "pipe").c_str(), 0600);
  EXPECT_TRUE(FileExists(folder / "file"));
  EXPECT_TRUE(FileExists(folder / "link"));
  for (const char* name : {"dangling", "sub", "pipe", "missing", "file/below", ""})
    EXPECT_FALSE(FileExists(folder / name)) << name;
}

TEST(Files, AreReadByteForByte) {
  const TemporaryFolder folder;
  std::string bytes = std::string("\0\r\n\x1a\xff", 5);
  while (bytes.size() < 100000) bytes += bytes;
  for (const std::string& content : {std::string(), bytes}) {
    PutFile(folder / "file", content);
    EXPECT_EQ(ReadWholeFile(folder / "file"), content);
  }
  // Files in /proc report a size of 0 but have content.
  EXPECT_FALSE(ReadWholeFile("/proc/self/status").empty());
}

TEST(Files, ThatCannotBeReadFaultWithTheSystemsReason) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "sub");
  mkfifo((folder / "pipe").c_str(), 0600);
  // Sparse files take no room on the disk.
  for (const char* name : {"largest", "larger", "hole"}) PutFile(folder / name, "COMPZ 1\n");
  fs::resize_file(folder / "largest", std::uintmax_t{1} << 28);
  fs::resize_file(folder / "larger", (std::uintmax_t{1} << 28) + 1);
  fs::resize_file(folder / "hole", std::uintmax_t{1} << 40);
  EXPECT_EQ(ReadWholeFile(folder / "largest").size(), std::size_t{1} << 28);
  const std::pair<const char*, const char*> cases[] = {
      {"larger", "Run-time error: File too large (larger)"},
      {"hole", "Run-time error: File too large (hole)"},
      {"gone", "Run-time error: No such file or directory (gone)"},
      {"sub", "Run-time error: Is a directory (sub)"},
      {"pipe", "Run-time error: Not a regular file (pipe)"},  // and does not wait for a writer
  };
  for (const auto& [name, message] : cases)
    EXPECT_EQ(FaultOf([&, file = name] { ReadWholeFile(folder / file); }), message);
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
    EXPECT_EQ(WriteFault(path, std::string(5000, 'x')), "Run-time error: File too large (a.zu)");
    EXPECT_EQ(WriteFault(folder / "new.zu", std::string(5000, 'x')),
              "Run-time error: File too large (new.zu)");
  }
  EXPECT_EQ(GetFile(path), "old");
  EXPECT_EQ(folder.FileCount(), 1U) << "no temporary file is left behind";
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

TEST(WholeFile, FaultsWhereNoFileCanBeWritten) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "sub");
  PutFile(folder / "sub/inside", "old");
  mkfifo((folder / "pipe").c_str(), 0600);
  fs::create_symlink("loop", folder / "loop");
  EXPECT_EQ(WriteFault(folder / "sub", "x"), "Run-time error: Is a directory (sub)");
  EXPECT_EQ(WriteFault(folder / "none/a.zu", "x"), "Run-time error: No such file or directory (a.zu)");
  EXPECT_EQ(WriteFault(folder / "pipe", "x"), "Run-time error: Invalid argument (pipe)");
  EXPECT_EQ(WriteFault(folder / "loop", "x"), "Run-time error: Too many levels of symbolic links (loop)");
  EXPECT_EQ(folder.FileCount(), 3U);
  EXPECT_EQ(GetFile(folder / "sub/inside"), "old");
}

TEST(WholeFiles, AreWrittenAllOrNone) {
  const TemporaryFolder folder;
  const std::string old = PutFile(folder / "old", "old");
  const std::string fresh = folder / "fresh";
  fs::create_directory(folder / "sub");
  std::string failed;
  WriteWholeFiles({{old, "1"}, {fresh, "2"}}, Durability::Fast, failed);
  EXPECT_EQ(GetFile(old) + GetFile(fresh) + failed, "12");
  fs::remove(fresh);
  // The first path cannot be opened; the second has too long a name, which fails only after the other files
  // are in place.
  for (const std::string& bad : {folder / "sub", folder / std::string(256, 'n')}) {
    EXPECT_NE(::FaultOf([&] {
                WriteWholeFiles({{old, "3"}, {fresh, "4"}, {bad, "5"}}, Durability::Fast, failed);
              }),
              "");
    EXPECT_EQ(failed, bad);
    EXPECT_EQ(GetFile(old), "1");
    EXPECT_EQ(folder.FileCount(), 2U) << "the old file and the folder";
  }
}

TEST(Text, RaisesAsciiLettersOnly) {
  EXPECT_EQ(UpperCase("aZ_@[`{9\xe4\xc3\xa4"), "AZ_@[`{9\xe4\xc3\xa4");
  EXPECT_TRUE(EqualsUpper("rOuNd", "ROUND"));
  EXPECT_FALSE(EqualsUpper("ROUN", "ROUND"));
  EXPECT_FALSE(EqualsUpper("ROUNDS", "ROUND"));
}

}  // namespace
}  // namespace model
