#include "shell/ui/list_selection.h"

#include <QSignalBlocker>

namespace shell::ui {

namespace {

/// The flags that are set in `flags` but not in `others`.
std::vector<bool> Without(std::vector<bool> flags, const std::vector<bool>& others) {
  for (std::size_t i = 0; i < flags.size(); ++i) flags[i] = flags[i] && !others[i];
  return flags;
}

}  // namespace

void ListSelection::select(const QItemSelection& selection, SelectionFlags command) {
  if (command == NoUpdate) return;
  const auto count = static_cast<std::size_t>(model()->rowCount());
  flags_.resize(count);
  settled_.resize(count);
  const std::vector<bool> before = flags_;

  if (command & Clear)
    settled_.assign(count, false);
  else if (!(command & Current))
    settled_ = flags_;
  flags_ = settled_;
  for (const QItemSelectionRange& range : selection)
    for (auto i = static_cast<std::size_t>(range.top()); i <= static_cast<std::size_t>(range.bottom()); ++i)
      flags_[i] = command & Toggle ? !flags_[i] : command.testFlag(Select);

  if (flags_ == before) return;
  Fill();
  emit selectionChanged(Pieces(Without(flags_, before)), Pieces(Without(before, flags_)));
}

void ListSelection::reset() {
  flags_.clear();
  settled_.clear();
  const QSignalBlocker quiet(this);
  QItemSelectionModel::select(QItemSelection(), Clear);
  clearCurrentIndex();
}

void ListSelection::SelectQuietly(const EntryRanges& ranges) {
  flags_.assign(static_cast<std::size_t>(model()->rowCount()), false);
  for (const EntryRange& range : ranges)
    for (std::size_t i = range.First; i <= range.Last; ++i) flags_[i] = true;
  settled_ = flags_;
  Fill();
}

void ListSelection::Fill() {
  const QSignalBlocker quiet(this);
  QItemSelectionModel::select(QItemSelection(), Clear);
  QItemSelectionModel::select(Pieces(flags_), Select);
}

QItemSelection ListSelection::Pieces(const std::vector<bool>& flags) const {
  const EntryRanges ranges = RangesOf(flags);
  QItemSelection pieces;
  pieces.reserve(static_cast<qsizetype>(ranges.size()));
  for (const EntryRange& range : ranges) {
    const QModelIndex first = model()->index(static_cast<int>(range.First), 0);
    if (range.First == range.Last)
      pieces.append(
          QItemSelectionRange(first));  // cheaper than with two indexes, and the usual case among many
    else
      pieces.append(QItemSelectionRange(first, model()->index(static_cast<int>(range.Last), 0)));
  }
  return pieces;
}

}  // namespace shell::ui
