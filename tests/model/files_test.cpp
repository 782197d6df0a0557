#include "model/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "model/text.h"
#include "tests/fault_of.h"
#include "tests/temporary_folder.h"

namespace model {
namespace {

namespace fs = std::filesystem;

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
  // Such files tell a size of 0 and have content all the same.
  EXPECT_FALSE(ReadWholeFile("/proc/self/status").empty());
}

TEST(Files, ThatAreNoneFaultWithTheSystemsReason) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "sub");
  mkfifo((folder / "pipe").c_str(), 0600);
  PutFile(folder / "hole", "COMPZ 1\n");
  fs::resize_file(folder / "hole", std::uintmax_t{1} << 40);  // takes no room on the disk
  const std::pair<const char*, const char*> cases[] = {
      {"hole", "Run-time error: File too large (hole)"},
      {"gone", "Run-time error: No such file or directory (gone)"},
      {"sub", "Run-time error: Is a directory (sub)"},
      {"pipe", "Run-time error: Not a regular file (pipe)"},  // and does not wait for a writer
  };
  for (const auto& [name, message] : cases)
    EXPECT_EQ(FaultOf([&, file = name] { ReadWholeFile(folder / file); }), message);
}

TEST(Text, RaisesAsciiLettersOnly) {
  EXPECT_EQ(UpperCase("aZ_@[`{9\xe4\xc3\xa4"), "AZ_@[`{9\xe4\xc3\xa4");
  EXPECT_TRUE(EqualsUpper("rOuNd", "ROUND"));
  EXPECT_FALSE(EqualsUpper("ROUN", "ROUND"));
  EXPECT_FALSE(EqualsUpper("ROUNDS", "ROUND"));
}

TEST(Text, FileNameIsThePartAfterTheLastSeparator) {
  for (const auto& [path, name] : {std::pair("/a/b.yax", "b.yax"), {"b.yax", "b.yax"}, {"/a/", ""}, {"", ""}})
    EXPECT_EQ(FileNameOf(path), name);
}

}  // namespace
}  // namespace model
