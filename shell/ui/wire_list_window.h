/// The window that lists the wires and lets the user select those to be drawn.
#pragma once

#include <QMainWindow>
#include <array>
#include <memory>

#include "shell/wire_list_form.h"

class QListView;
class QPushButton;

namespace shell::ui {

class ListSelection;

/// Binds a list and nine buttons to the form. A top-level window that the user can close and open again;
/// it does not keep the program running.
class WireListWindow : public QMainWindow {
 public:
  /// `form` must outlive the window, which sets its `Actions.SelectAndGoToFirst`.
  explicit WireListWindow(WireListForm& form);
  ~WireListWindow() override;

  /// The command of the main window's menu: fills the list and shows the window.
  /// Faults  as WireListForm::DoWireList; changes nothing then
  void DoWireList();
  /// Call after a load has replaced the package and before the scene is built.
  void PackageChanged();

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Entries;

  void ShowEntries();
  void EnableButtons();
  void Select(const EntryRanges& ranges);
  void TakeSelection();
  void PressButton(int index);
  void SelectionChanged();
  void ReportLater(bool mouseUp);
  void Report();

  WireListForm& form_;
  std::unique_ptr<Entries> entries_;
  std::unique_ptr<ListSelection> selection_;
  QListView* PL_;                                           ///< the list
  std::array<QPushButton*, WireListForm::kButtons> Cmd_{};  ///< the buttons
  bool mouseHeld_ = false;  ///< a mouse button pressed in the list is still down
  bool changed_ = false;    ///< the list's selection may differ from the form's
  bool reportPosted_ = false;
  bool reportMouseUp_ = false;
};

}  // namespace shell::ui
