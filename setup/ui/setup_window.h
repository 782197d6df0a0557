/// The wire bond setup window: widgets bound one to one to the form.
#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <vector>

#include "setup/setup_form.h"

class QGroupBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace setup::ui {

class LoopView;

/// A modeless top-level window that does not keep the program running.
class SetupWindow final : public QMainWindow {
 public:
  /// Runs a handler and deals with its faults.
  using Runner = std::function<void(const std::function<void()>& handler)>;

  /// `form` must outlive the window, which sets all its Actions except RebuildAndRepaint.
  SetupWindow(SetupForm& form, Runner run);
  ~SetupWindow() override;

  /// Runs when the user chooses the entry in the main window's menu.
  /// Faults  as SetupForm::Load
  void DoBondWireSetup();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// A text box bound to a field of the form and its handlers.
  struct Box {
    QLineEdit* Edit;
    Field* Value;
    std::function<void()> GotFocus, LostFocus;
    std::function<void(int keyCode)> KeyUp;
  };

  QWidget* MakeClient();
  QWidget* MakeControls();
  QGroupBox* MakeMaterial();
  QGroupBox* MakeDiameter();
  QGroupBox* MakeFrequency();
  QGroupBox* MakeLoop(const LoopFrame& frame);
  QWidget* MakeButtons();
  template <std::size_t kCount>
  QRadioButton* MakeOption(std::array<QRadioButton*, kCount>& options, std::size_t index, const char* caption,
                           QGroupBox* frame, std::function<void()> click);
  QLineEdit* MakeBox(QGroupBox* frame, Box box);
  void BoxEvent(const Box& box, const QEvent& event);
  void ShowControls();
  void FocusOption(OptionArray options, std::size_t index);

  SetupForm& form_;
  Runner run_;
  std::array<QRadioButton*, 3> M_{};
  std::array<QRadioButton*, 7> WD_{};
  std::array<QRadioButton*, 4> FQ_{};
  std::array<QRadioButton*, 11> LH_{};
  std::array<QPushButton*, 7> Cmd_{};
  std::vector<QGroupBox*> stackFrames_;
  std::vector<Box> boxes_;
  int pressedInBox_ = 0;  ///< Enter or Escape after its press went to the focused box
  QPlainTextEdit* Vu_ = nullptr;
  LoopView* Picture1_ = nullptr;
};

}  // namespace setup::ui
