/// Runs the program as a user does and captures its output.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "tests/samples.h"
#include "tests/temporary_folder.h"

inline constexpr char kOneWire[] =
    "TECHNOLOGY WIRE_BOND\nCOMPL 40\nCOMPW 40\nCOMPZ 5\nCBP A 15 10 0 6 6 0 R RECTANGLE\n"
    "SBP A 30 10 0 6 6 0 RECTANGLE 0 1\nWB A 15 10 0 30 10 5 0\n";

struct Ended {
  int status = -1;
  std::string out, err;
  std::size_t Lines() const { return std::size_t(std::count(err.begin(), err.end(), '\n')); }
};

/// The program itself, without a display unless `environment` gives one.
class YaxTest : public testing::Test {
 protected:
  Ended Yax(const std::string& arguments, const std::string& environment = "") const {
    const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY " + environment + " " YAX_PROGRAM " " +
                                arguments + " >" + (folder / "out") + " 2>" + (folder / "err");
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), GetFile(folder / "out"), GetFile(folder / "err")};
  }

  /// The bytes of the picture that a command writes, whose last option names its file.
  std::string PictureOf(const std::string& command, int status = 0) const {
    const Ended ended = Yax(command + " " + (folder / "a.bmp"));
    EXPECT_EQ(ended.status, status) << command;
    EXPECT_EQ(ended.err, "") << command;
    return GetFile(folder / "a.bmp");
  }

  std::string OneWire() const {
    PutFile(folder / "one.yax", kOneWire);
    return folder / "one.yax";
  }

  TemporaryFolder folder;
};
