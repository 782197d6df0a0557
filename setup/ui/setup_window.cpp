#include "setup/ui/setup_window.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QSignalBlocker>
#include <utility>

#include "setup/ui/loop_view.h"

namespace setup::ui {

namespace {

QString TextOf(const std::string& bytes) { return QString::fromUtf8(bytes.data(), qsizetype(bytes.size())); }

/// A frame that shows its caption with the trailing space but reports it to screen readers without.
QGroupBox* MakeFrame(const char* caption) {
  auto* frame = new QGroupBox(caption);
  frame->setAccessibleName(QString(caption).trimmed());
  // One group for the options of a frame: arrow keys move within it, and one selection clears the other.
  new QButtonGroup(frame);
  return frame;
}

QButtonGroup* GroupOf(const QGroupBox* frame) { return frame->findChild<QButtonGroup*>(); }

/// The code of Enter or Escape; 0 for other keys and for repeats.
int CodeOf(const QEvent& event) {
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (key.isAutoRepeat()) return 0;
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return 13;
  return key.key() == Qt::Key_Escape ? 27 : 0;
}

/// A scroll area whose preferred size shows everything; scrolls only on a small screen.
class Scroller final : public QScrollArea {
 public:
  explicit Scroller(QWidget* content) {
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
  }
  QSize sizeHint() const override { return widget()->sizeHint(); }
};

/// Shows the selected options. A QButtonGroup allows none to be selected only while it is not exclusive.
template <std::size_t kCount>
void ShowOptions(const std::array<QRadioButton*, kCount>& options, const std::array<bool, kCount>& selected) {
  for (std::size_t i = 0; i < kCount; ++i) {
    const QSignalBlocker quiet(options[i]);
    QButtonGroup* const group = options[i]->group();
    group->setExclusive(false);
    options[i]->setChecked(selected[i]);
    group->setExclusive(true);
  }
  // Tab goes to the frame's selected option, or to the first when none is selected.
  for (QRadioButton* const option : options) {
    const QButtonGroup* const group = option->group();
    const QAbstractButton* const stop =
        group->checkedButton() != nullptr ? group->checkedButton() : group->buttons().first();
    option->setFocusPolicy(option == stop || option->hasFocus() ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

}  // namespace

SetupWindow::SetupWindow(SetupForm& form, Runner run) : form_(form), run_(std::move(run)) {
  setWindowTitle("Wire Bond Setup");
  setAttribute(Qt::WA_QuitOnClose, false);
  setCentralWidget(MakeClient());
  // Leave room for the window's frame and the desktop's panels.
  resize(sizeHint().boundedTo(screen()->availableSize() - QSize(16, 48)));
  form_.Actions.ControlsChanged = [this] { ShowControls(); };
  form_.Actions.UnloadWindow = [this] { hide(); };
  form_.Actions.FocusOption = [this](OptionArray options, std::size_t index) { FocusOption(options, index); };
}

SetupWindow::~SetupWindow() {
  form_.Actions.ControlsChanged = {};
  form_.Actions.UnloadWindow = {};
  form_.Actions.FocusOption = {};
}

void SetupWindow::DoBondWireSetup() {
  form_.Load();
  ShowControls();
  // Each time the window opens, the first frame's selected option has the focus.
  if (!isVisible()) WD_[0]->group()->checkedButton()->setFocus(Qt::OtherFocusReason);
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void SetupWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  form_.Unload();
}

bool SetupWindow::event(QEvent* event) {
  const bool handled = QMainWindow::event(event);
  if (event->type() == QEvent::WindowActivate) run_([this] { form_.Form_Activate(); });
  return handled;
}

bool SetupWindow::eventFilter(QObject* watched, QEvent* event) {
  for (const Box& box : boxes_)
    if (box.Edit == watched) BoxEvent(box, *event);
  return QMainWindow::eventFilter(watched, event);
}

void SetupWindow::BoxEvent(const Box& box, const QEvent& event) {
  switch (event.type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      pressedInBox_ = 0;
      // The box's context menu takes the focus only for a moment.
      if (static_cast<const QFocusEvent&>(event).reason() != Qt::PopupFocusReason)
        run_(event.type() == QEvent::FocusIn ? box.GotFocus : box.LostFocus);
      return;
    case QEvent::KeyPress:
      if (const int code = CodeOf(event); code != 0) pressedInBox_ = code;
      return;
    case QEvent::KeyRelease:
      // The box also gets the release of a key whose press went to its menu or to a dialog.
      if (const int code = CodeOf(event); code != 0 && code == std::exchange(pressedInBox_, 0))
        run_([&] { box.KeyUp(code); });
      return;
    default:
      return;
  }
}

void SetupWindow::ShowControls() {
  const SetupControls& controls = std::as_const(form_).Controls();
  ShowOptions(M_, controls.M);
  ShowOptions(WD_, controls.WD);
  ShowOptions(FQ_, controls.FQ);
  ShowOptions(LH_, controls.LH);
  for (const Box& box : boxes_) {
    const QSignalBlocker quiet(box.Edit);
    const QString text = TextOf(box.Value->Text);
    if (box.Edit->text() != text) box.Edit->setText(text);  // setText would move the cursor
    box.Edit->setEnabled(box.Value->Enabled);
  }
  for (QGroupBox* frame : stackFrames_) frame->setEnabled(controls.StackEnabled);
  Cmd_[2]->setEnabled(controls.EstimatorEnabled);
  const QString parameters = TextOf(controls.Vu).remove('\r');
  if (Vu_->toPlainText() != parameters) Vu_->setPlainText(parameters);
  Picture1_->update();
}

void SetupWindow::FocusOption(OptionArray options, std::size_t index) {
  switch (options) {
    case OptionArray::M:
      return M_[index]->setFocus(Qt::OtherFocusReason);
    case OptionArray::WD:
      return WD_[index]->setFocus(Qt::OtherFocusReason);
    case OptionArray::FQ:
      return FQ_[index]->setFocus(Qt::OtherFocusReason);
    case OptionArray::LH:
      return LH_[index]->setFocus(Qt::OtherFocusReason);
  }
}

template <std::size_t kCount>
QRadioButton* SetupWindow::MakeOption(std::array<QRadioButton*, kCount>& options, std::size_t index,
                                      const char* caption, QGroupBox* frame, std::function<void()> click) {
  auto* option = options[index] = new QRadioButton(caption, frame);
  GroupOf(frame)->addButton(option);
  // Not clicked(): assistive technology selects an option without a click.
  connect(option, &QRadioButton::toggled, this, [this, click = std::move(click)](bool selected) {
    if (selected) run_(click);
  });
  return option;
}

QLineEdit* SetupWindow::MakeBox(QGroupBox* frame, Box box) {
  QLineEdit* edit = box.Edit = new QLineEdit(frame);
  edit->setAccessibleName(frame->accessibleName() + " value");
  edit->installEventFilter(this);
  // Not textEdited(): a screen reader writes without the keyboard.
  connect(edit, &QLineEdit::textChanged, this,
          [value = box.Value](const QString& text) { value->Text = text.toStdString(); });
  boxes_.push_back(std::move(box));
  return edit;
}

QGroupBox* SetupWindow::MakeMaterial() {
  QGroupBox* frame = MakeFrame("Material ");
  auto* rows = new QVBoxLayout(frame);
  for (std::size_t i = 0; i < M_.size(); ++i)
    rows->addWidget(MakeOption(M_, i, model::kWireMaterials[i].Name, frame, [this, i] { form_.M_Click(i); }));
  rows->addStretch();
  return frame;
}

QGroupBox* SetupWindow::MakeDiameter() {
  QGroupBox* frame = MakeFrame("Wire Diameter Mils ");
  auto* grid = new QGridLayout(frame);
  for (std::size_t i = 0; i < WD_.size(); ++i)
    grid->addWidget(MakeOption(WD_, i, kWDCaptions[i], frame, [this, i] { form_.WD_Click(i); }), int(i % 3),
                    int(i / 3));
  grid->addWidget(
      MakeBox(frame, {nullptr, &form_.Controls().WDc, [this] { form_.WDc_GotFocus(); },
                      [this] { form_.WDc_LostFocus(); }, [this](int key) { form_.WDc_KeyUp(key); }}),
      0, 3);
  grid->setRowStretch(3, 1);
  return frame;
}

QGroupBox* SetupWindow::MakeFrequency() {
  QGroupBox* frame = MakeFrame("Frequency ");
  auto* grid = new QGridLayout(frame);
  constexpr std::size_t kTopToBottom[] = {3, 0, 1, 2};
  int row = 0;
  for (const std::size_t i : kTopToBottom)
    grid->addWidget(MakeOption(FQ_, i, kFQCaptions[i], frame, [this, i] { form_.FQ_Click(i); }), row++, 0);
  grid->addWidget(
      MakeBox(frame, {nullptr, &form_.Controls().FQc, [this] { form_.FQc_GotFocus(); },
                      [this] { form_.FQc_LostFocus(); }, [this](int key) { form_.FQc_KeyUp(key); }}),
      0, 1);
  grid->setRowStretch(row, 1);
  return frame;
}

QGroupBox* SetupWindow::MakeLoop(const LoopFrame& frame) {
  QGroupBox* box = MakeFrame(frame.Caption);
  auto* grid = new QGridLayout(box);
  int row = 0;
  const auto option = [&](std::size_t index, const char* caption, int columns) {
    grid->addWidget(MakeOption(LH_, index, caption, box, [this, index] { form_.LH_Click(index); }), row++, 0,
                    1, columns);
  };
  option(frame.First, "Default to Die Height", 2);
  if (frame.HasEdge()) option(frame.First + 1, "Edge of Base Die", 2);
  option(frame.Custom, "Custom", 1);
  const std::size_t i = frame.Index;
  Field* const value = &frame.FieldOf(form_.Controls());
  Box edit =
      frame.Height
          ? Box{nullptr, value, [this, i] { form_.LHc_GotFocus(i); }, [this, i] { form_.LHc_LostFocus(i); },
                [this, i](int key) { form_.LHc_KeyUp(i, key); }}
          : Box{nullptr, value, [this, i] { form_.LEc_GotFocus(i); }, [this, i] { form_.LEc_LostFocus(i); },
                [this, i](int key) { form_.LEc_KeyUp(i, key); }};
  grid->addWidget(MakeBox(box, std::move(edit)), row - 1, 1);
  grid->setRowStretch(row, 1);
  if (NeedsStack(frame)) stackFrames_.push_back(box);
  return box;
}

QWidget* SetupWindow::MakeButtons() {
  auto* bar = new QWidget;
  auto* row = new QHBoxLayout(bar);
  constexpr std::size_t kLeftToRight[] = {5, 6, 2, 3, 0, 4, 1};
  for (const std::size_t i : kLeftToRight) {
    if (i == 3) row->addStretch();
    Cmd_[i] = new QPushButton(kCmdCaptions[i]);
    Cmd_[i]->setAutoDefault(true);  // Enter presses it too, not Space alone
    connect(Cmd_[i], &QPushButton::clicked, this, [this, i] { run_([&] { form_.Cmd_Click(i); }); });
    row->addWidget(Cmd_[i]);
  }
  return bar;
}

QWidget* SetupWindow::MakeClient() {
  auto* client = new QWidget;
  auto* rows = new QVBoxLayout(client);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(new Scroller(MakeControls()), 1);
  rows->addWidget(MakeButtons());  // outside the scrolled area
  return client;
}

QWidget* SetupWindow::MakeControls() {
  auto* controls = new QWidget;
  auto* grid = new QGridLayout(controls);
  // Tab follows the order of creation.
  grid->addWidget(MakeDiameter(), 0, 0, 1, 2);
  grid->addWidget(MakeFrequency(), 0, 2);
  grid->addWidget(MakeLoop(kLoopFrames[0]), 1, 0);
  grid->addWidget(MakeLoop(kLoopFrames[1]), 1, 1);
  grid->addWidget(MakeMaterial(), 1, 2);
  grid->addWidget(MakeLoop(kLoopFrames[3]), 2, 0);
  grid->addWidget(MakeLoop(kLoopFrames[2]), 2, 1);
  grid->addWidget(MakeLoop(kLoopFrames[4]), 2, 2);

  Vu_ = new QPlainTextEdit;
  QFont font("Courier New");
  font.setStyleHint(QFont::Monospace);
  Vu_->setFont(font);
  Vu_->setReadOnly(true);
  Vu_->setTabChangesFocus(true);
  Vu_->setAccessibleName("Parameter file text");
  Vu_->setMinimumWidth(QFontMetrics(font).horizontalAdvance("StackLoopHeight=0.00000"));
  grid->addWidget(Vu_, 0, 3, 3, 1);

  Picture1_ = new LoopView(form_);
  grid->addWidget(Picture1_, 3, 0, 1, 4);
  grid->setRowStretch(3, 1);
  grid->setColumnStretch(3, 1);
  return controls;
}

}  // namespace setup::ui
