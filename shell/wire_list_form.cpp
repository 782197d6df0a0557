#include "shell/wire_list_form.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "model/text.h"
#include "model/wire_list_entry.h"

namespace shell {

namespace {

enum Button { kTier1, kTier4 = 3, kStitch, kPower, kGround, kSignal, kClear };

std::vector<std::string> EntryTexts(const model::Package& package) {
  std::vector<std::string> texts;
  texts.reserve(package.WireNames.Count());
  for (const model::WireNameRec& wire : package.WireNames) texts.push_back(model::EntryText(wire));
  return texts;
}

std::array<bool, WireListForm::kButtons> EnabledButtons(const model::Package& package) {
  std::array<bool, WireListForm::kButtons> enabled{};
  enabled[kStitch] = !package.Stitches.Empty();
  enabled[kPower] = enabled[kGround] = enabled[kSignal] = package.HaveVuFile;
  enabled[kClear] = true;
  for (const model::WireNameRec& wire : package.WireNames) {
    if (wire.Tier.empty()) continue;
    if (const auto button = model::ButtonOfTier(wire.Tier)) enabled[*button] = true;
  }
  return enabled;
}

}  // namespace

const std::array<const char*, WireListForm::kButtons> WireListForm::kCaptions = {
    "Tier1", "Tier2", "Tier3", "Tier4", "Stitch", "Power", "Ground", "Signal", "Clear"};

void WireListForm::DoWireList() {
  for (std::size_t i = 0; i < package_.WireNames.Count(); ++i) model::CheckTier(package_, i);
  enabled_ = EnabledButtons(package_);
  entries_ = EntryTexts(package_);
  selected_.assign(entries_.size(), false);
  PublishNames();
}

bool WireListForm::Refill() {
  if (!selection_.Shown) return false;
  enabled_ = EnabledButtons(package_);
  const auto sameText = [](const std::string& entry, const model::WireNameRec& wire) {
    return entry == model::EntryText(wire);
  };
  if (std::equal(entries_.begin(), entries_.end(), package_.WireNames.begin(), package_.WireNames.end(),
                 sameText))
    return false;
  entries_ = EntryTexts(package_);
  selected_.assign(entries_.size(), false);
  for (std::size_t i = 0; i < entries_.size(); ++i) selected_[i] = selection_.Names.contains(entries_[i]);
  PublishNames();
  return true;
}

void WireListForm::Form_Show() {
  selection_.Shown = true;
  Actions.RebuildAndRepaint();
}

void WireListForm::Form_Unload() {
  if (!selection_.Shown) return;
  selection_.Shown = false;  // before the rebuild, so that it draws every wire
  Actions.RebuildAndRepaint();
}

void WireListForm::SetModifiers(int shift) {
  ListShift_ = shift == 1;
  ListCtrl_ = shift == 2;
}

bool WireListForm::Matches(int index, const model::WireNameRec& wire) const {
  if (index <= kTier4) {
    // Compares tiers as text: a wire of tier "1.0" enables the button "Tier1", which does not select it.
    constexpr std::array<const char*, 4> kTiers = {"1", "2", "3", "4"};
    return wire.Tier == kTiers[static_cast<std::size_t>(index - kTier1)];
  }
  if (index == kStitch) return !wire.Name2.empty();
  constexpr std::array<const char*, 3> kLetters = {"P", "G", "S"};
  return model::EqualsUpper(wire.NetType.substr(0, 1), kLetters[static_cast<std::size_t>(index - kPower)]);
}

void WireListForm::Filter(int index) {
  // After a load there may be fewer wires than entries.
  const std::size_t count = std::min(entries_.size(), package_.WireNames.Count());
  for (std::size_t i = 0; i < count; ++i) {
    const bool matches = Matches(index, package_.WireNames[i]);
    if (ListCtrl_)
      selected_[i] = selected_[i] != matches;
    else
      selected_[i] = matches || (ListShift_ && selected_[i]);
  }
}

void WireListForm::Cmd_Click(int index) {
  if (index >= kTier1 && index <= kSignal) Filter(index);
  if (index == kClear) selected_.assign(entries_.size(), false);
  // Deliberate: any other index still moves to the first entry and rebuilds.
  Actions.SelectAndGoToFirst(SelectedRanges());
  PublishNames();
  Actions.RebuildAndRepaint();
}

bool WireListForm::TakeSelection(const EntryRanges& selected) {
  std::vector<bool> flags(entries_.size(), false);
  for (const EntryRange& range : selected)
    for (std::size_t i = range.First; i <= range.Last && i < flags.size(); ++i) flags[i] = true;
  if (flags == selected_) return false;
  selected_ = std::move(flags);
  PublishNames();
  return true;
}

void WireListForm::PL_MouseUp(const EntryRanges& selected) {
  TakeSelection(selected);
  Actions.RebuildAndRepaint();
}

void WireListForm::PL_SelectionChanged(const EntryRanges& selected) {
  if (TakeSelection(selected)) Actions.RebuildAndRepaint();
}

void WireListForm::PublishNames() {
  selection_.Names.clear();
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (selected_[i]) selection_.Names.insert(entries_[i]);
}

}  // namespace shell
