/// The selection of a long list, fast however many ranges it has.
#pragma once

#include <QItemSelectionModel>
#include <vector>

#include "shell/entry_ranges.h"

namespace shell::ui {

/// For models of one column. QItemSelectionModel compares each range of the old selection with each of the
/// new one: seconds at 16,000 ranges. Here every change is computed on one flag per entry, and Qt's storage,
/// which views and screen readers read, is only ever filled from empty.
class ListSelection : public QItemSelectionModel {
 public:
  using QItemSelectionModel::QItemSelectionModel;
  using QItemSelectionModel::select;

  void select(const QItemSelection& selection, SelectionFlags command) override;
  void reset() override;

  /// Selects exactly these entries, with no signal.
  void SelectQuietly(const EntryRanges& ranges);
  EntryRanges Selected() const { return RangesOf(flags_); }

 private:
  void Fill();
  QItemSelection Pieces(const std::vector<bool>& flags) const;

  std::vector<bool> flags_;
  std::vector<bool> settled_;  ///< the selection before the current drag or Shift range
};

}  // namespace shell::ui
