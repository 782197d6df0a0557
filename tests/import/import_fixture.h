/// Sources in, package out.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "import/chip_import.h"
#include "tests/temporary_folder.h"

namespace importer {

/// "FILE NAME:LINE: what; advice" of the ImportError that `work` throws; empty without one. An option's name
/// replaces that of a file.
template <class Work>
std::string RefusalOf(Work&& work) {
  try {
    work();
  } catch (const ArgumentError& error) {
    return "--" + error.Option + ": " + error.What + "; " + error.Advice;
  } catch (const ImportError& error) {
    const std::string& file = error.Place.File;
    std::string text = file.substr(file.rfind('/') + 1);
    if (error.Place.Line != 0) text += ":" + std::to_string(error.Place.Line);
    return text + ": " + error.What + "; " + error.Advice;
  }
  return {};
}

class ImportTest : public testing::Test {
 protected:
  std::string Put(const std::string& name, std::string_view text) const {
    return PutFile(folder / name, text);
  }

  TemporaryFolder folder;
};

}  // namespace importer
