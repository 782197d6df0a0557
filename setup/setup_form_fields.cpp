// Editing in the text boxes of the setup window.
#include <algorithm>

#include "model/numbers.h"
#include "setup/setup_form.h"

namespace setup {

namespace {

constexpr int kEnter = 13;
constexpr int kEscape = 27;

constexpr int kGeneral = -1;

}  // namespace

/// How one kind of field formats its text.
struct SetupForm::EditRules {
  const char* Fallback;  ///< replaces a value of 0 and text that is not a number
  int Decimals;          ///< of the shown number, or kGeneral

  void Show(Field& field) const {
    if (model::ToNumber(field.Text) == 0.0F) field.Text = Fallback;
    const float value = model::ToNumber(field.Text);
    field.Text = Decimals == kGeneral ? model::GeneralText(value) : model::FixedText(value, Decimals);
  }

  static const EditRules kDiameter;
  static const EditRules kFrequency;
  static const EditRules kLength;
};

const SetupForm::EditRules SetupForm::EditRules::kDiameter{"1.0", 1};
const SetupForm::EditRules SetupForm::EditRules::kFrequency{"1", kGeneral};
const SetupForm::EditRules SetupForm::EditRules::kLength{"1.000", 3};

void SetupForm::GotFocus(Field& field, const EditRules& rules) {
  if (!alive_) return;
  rules.Show(field);
  controls_.TD = field.Text;
  Changed();
}

void SetupForm::LostFocus(Field& field, const EditRules& rules) {
  if (!alive_) return;
  rules.Show(field);
  UpdateVals();
}

void SetupForm::FocusOption(OptionArray options, std::size_t index) const {
  if (alive_) Actions.FocusOption(options, index);
}

void SetupForm::WDc_GotFocus() { GotFocus(controls_.WDc, EditRules::kDiameter); }
void SetupForm::WDc_LostFocus() { LostFocus(controls_.WDc, EditRules::kDiameter); }
void SetupForm::WDc_KeyUp(int keyCode) {
  if (keyCode == kEnter) FocusOption(OptionArray::WD, kCustomWD);
}

void SetupForm::FQc_GotFocus() { GotFocus(controls_.FQc, EditRules::kFrequency); }
void SetupForm::FQc_LostFocus() { LostFocus(controls_.FQc, EditRules::kFrequency); }
void SetupForm::FQc_KeyUp(int keyCode) {
  const auto selected = std::find(controls_.FQ.begin(), controls_.FQ.end(), true);
  if (keyCode == kEnter && selected != controls_.FQ.end())
    FocusOption(OptionArray::FQ, static_cast<std::size_t>(selected - controls_.FQ.begin()));
}

void SetupForm::LHc_GotFocus(std::size_t index) { GotFocus(controls_.LHc.at(index), EditRules::kLength); }
void SetupForm::LHc_LostFocus(std::size_t index) { LostFocus(controls_.LHc.at(index), EditRules::kLength); }
void SetupForm::LHc_KeyUp(std::size_t index, int keyCode) { LoopKeyUp(true, index, keyCode); }

void SetupForm::LEc_GotFocus(std::size_t index) { GotFocus(controls_.LEc.at(index), EditRules::kLength); }
void SetupForm::LEc_LostFocus(std::size_t index) { LostFocus(controls_.LEc.at(index), EditRules::kLength); }
void SetupForm::LEc_KeyUp(std::size_t index, int keyCode) {
  LoopKeyUp(false, index, keyCode);
  if (keyCode != kEscape || !alive_) return;
  controls_.LEc.at(index).Text = controls_.TD;
  UpdateVals();
}

void SetupForm::LoopKeyUp(bool height, std::size_t index, int keyCode) {
  if (keyCode != kEnter) return;
  for (const LoopFrame& frame : kLoopFrames)
    if (frame.Height == height && frame.Index == index) FocusOption(OptionArray::LH, frame.Custom);
}

}  // namespace setup
