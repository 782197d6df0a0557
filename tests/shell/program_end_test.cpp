#include "shell/program_end.h"

#include <gtest/gtest.h>

#include <vector>

namespace shell {
namespace {

class ProgramEndTest : public testing::Test {
 protected:
  ProgramEndTest() {
    end.ShowCritical = [this](const std::string& title, const std::string& text) {
      said.push_back(title + ": " + text);
      end.Run([this] { ++ranWhileEnding; });
    };
    end.Leave = [this](int status) { said.push_back("status " + std::to_string(status)); };
  }

  ProgramEnd end;
  std::vector<std::string> said;
  int ranWhileEnding = 0;
};

TEST_F(ProgramEndTest, TooLittleMemoryIsAFault) {
  end.RunTrapped([] { throw std::bad_alloc(); });
  EXPECT_FALSE(end.Ending());
  end.Run([] { throw std::bad_alloc(); });
  EXPECT_EQ(said, (std::vector<std::string>{"3D YAX Viewer: Run-time error: Out of memory", "status 1"}));
  EXPECT_EQ(ranWhileEnding, 0) << "no handler runs from the box's event loop";
}

}  // namespace
}  // namespace shell
