/// Sources in, package out.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "import/chip_import.h"
#include "model/input_error.h"
#include "model/text.h"
#include "tests/temporary_folder.h"

namespace importer {

/// "FILE NAME:LINE: what; advice" of the InputError that `work` throws; empty without one. An option's name
/// replaces that of a file.
template <class Work>
std::string RefusalOf(Work&& work) {
  try {
    work();
  } catch (const model::InputError& error) {
    const std::string file(model::FileNameOf(error.Place.File));
    return model::MessageText({file, error.Place.Line}, error.What, error.Advice);
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
