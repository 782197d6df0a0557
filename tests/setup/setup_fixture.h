/// A setup form with a small package, a dialog that answers by itself and a temporary folder.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "model/faults.h"
#include "setup/setup_form.h"
#include "tests/setup/answering_dialog.h"
#include "tests/temporary_folder.h"

namespace setup {

class SetupFormTest : public testing::Test {
 protected:
  SetupFormTest() {
    package.PackagePath = PutFile(folder / "board.yax", "");
    package.CompZ = 0.25F;
    package.UnitScale = 100.0F;
    form.Actions.RebuildAndRepaint = [this] {
      ++rebuilds;
      if (faultOnRebuild) throw model::Overflow();
    };
    form.Actions.SetPackagePath = [this](const std::string& path) { package.PackagePath = path; };
    form.Actions.UnloadWindow = [this] { ++unloads; };
    form.Actions.ControlsChanged = [this] { ++changes; };
  }

  void StackADie() { package.SDBonds.Grow(); }

  /// The one selected option of a frame or array, or -1.
  template <class Options>
  static int Selected(const Options& options, std::size_t first, std::size_t last) {
    int selected = -1;
    for (std::size_t i = first; i <= last; ++i) {
      if (!options[i]) continue;
      EXPECT_EQ(selected, -1) << "two options of one frame are selected";
      selected = static_cast<int>(i);
    }
    return selected;
  }
  template <class Options>
  static int Selected(const Options& options) {
    return Selected(options, 0, options.size() - 1);
  }
  int SelectedLoop(std::size_t frame) {
    return Selected(controls.LH, kLoopFrames[frame].First, kLoopFrames[frame].Custom);
  }

  void LoadText(const std::string& text) {
    dialog.answer = PutFile(folder / "saved.zu", text);
    form.Cmd_Click(5);
  }

  /// The name has characters that shells and lists treat specially.
  TemporaryFolder folder{"setup 'test' \"\xC3\xA4\" "};
  model::WireBondSettings settings;
  model::Package package;
  AnsweringDialog dialog;
  std::string started;
  Estimator estimator{folder / "", folder / "data",
                      [this](const std::string& program, const std::string& argument) {
                        started += program + "|" + argument;
                      }};
  SetupForm form{settings, package, dialog, estimator};
  SetupControls& controls = form.Controls();
  int rebuilds = 0, unloads = 0, changes = 0;
  bool faultOnRebuild = false;
};

}  // namespace setup
