// The window tests' own main: a test needs the application object, listing the tests does not.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::unique_ptr<QApplication> application;
  if (!GTEST_FLAG_GET(list_tests)) {
    application = std::make_unique<QApplication>(argc, argv);
    application->setQuitOnLastWindowClosed(false);
  }
  return RUN_ALL_TESTS();
}
