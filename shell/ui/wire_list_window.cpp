#include "shell/ui/wire_list_window.h"

#include <QAbstractListModel>
#include <QAccessible>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWindow>
#include <utility>

#include "shell/ui/key_state.h"
#include "shell/ui/list_selection.h"

namespace shell::ui {

/// A list model that reads the form's entries without a copy.
class WireListWindow::Entries : public QAbstractListModel {
 public:
  explicit Entries(const WireListForm& form) : form_(form) {}

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole || !index.isValid()) return {};
    return QString::fromStdString(form_.Entries()[static_cast<std::size_t>(index.row())]);
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    return QAbstractListModel::flags(index) | Qt::ItemNeverHasChildren;
  }
  void Reset() {
    beginResetModel();
    count_ = static_cast<int>(form_.Entries().size());
    endResetModel();
  }

 private:
  const WireListForm& form_;
  int count_ = 0;
};

WireListWindow::WireListWindow(WireListForm& form)
    : form_(form),
      entries_(std::make_unique<Entries>(form)),
      selection_(std::make_unique<ListSelection>(entries_.get())),
      PL_(new QListView) {
  setWindowTitle("Wire List");
  setAttribute(Qt::WA_QuitOnClose, false);

  PL_->setAccessibleName("Wires");
  PL_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  PL_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  PL_->setUniformItemSizes(true);
  PL_->setModel(entries_.get());
  delete PL_->selectionModel();  // the list's own
  PL_->setSelectionModel(selection_.get());
  PL_->viewport()->installEventFilter(this);
  connect(selection_.get(), &QItemSelectionModel::selectionChanged, this, [this] { SelectionChanged(); });

  auto* buttons = new QVBoxLayout;
  for (std::size_t i = 0; i < Cmd_.size(); ++i) {
    Cmd_[i] = new QPushButton(WireListForm::kCaptions[i]);
    Cmd_[i]->setAutoDefault(true);  // so that Enter presses it, not only Space
    connect(Cmd_[i], &QPushButton::clicked, this, [this, i] { PressButton(static_cast<int>(i)); });
    buttons->addWidget(Cmd_[i]);
  }
  buttons->addStretch();
  auto* client = new QWidget;  // screen readers see the QMainWindow itself as a frame
  auto* columns = new QHBoxLayout(client);
  columns->addWidget(PL_, 1);
  columns->addLayout(buttons);
  setCentralWidget(client);
  resize(sizeHint().expandedTo({320, 420}));

  form_.Actions.SelectAndGoToFirst = [this](const EntryRanges& ranges) {
    Select(ranges);
    selection_->setCurrentIndex(entries_->index(0), QItemSelectionModel::NoUpdate);
  };
}

WireListWindow::~WireListWindow() { form_.Actions.SelectAndGoToFirst = {}; }

void WireListWindow::DoWireList() {
  form_.DoWireList();
  ShowEntries();
  EnableButtons();
  form_.Form_Show();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void WireListWindow::PackageChanged() {
  TakeSelection();
  const bool newEntries = form_.Refill();
  EnableButtons();
  if (!newEntries) return;
  ShowEntries();
  Select(form_.SelectedRanges());
}

void WireListWindow::ShowEntries() {
  const QSignalBlocker quiet(selection_.get());
  entries_->Reset();
}

void WireListWindow::EnableButtons() {
  for (std::size_t i = 0; i < Cmd_.size(); ++i) Cmd_[i]->setEnabled(form_.Enabled(i));
}

void WireListWindow::Select(const EntryRanges& ranges) {
  selection_->SelectQuietly(ranges);
  PL_->viewport()->update();
  QAccessibleEvent changed(PL_, QAccessible::SelectionWithin);
  QAccessible::updateAccessibility(&changed);
}

void WireListWindow::TakeSelection() {
  if (std::exchange(changed_, false)) form_.TakeSelection(selection_->Selected());
}

void WireListWindow::PressButton(int index) {
  TakeSelection();  // a key pressed just before may have changed the list
  form_.Cmd_Click(index);
}

void WireListWindow::SelectionChanged() {
  changed_ = true;
  // Report a drag only once, when the button is released.
  if (mouseHeld_ && QGuiApplication::mouseButtons() != Qt::NoButton) return;
  ReportLater(false);
}

void WireListWindow::ReportLater(bool mouseUp) {
  reportMouseUp_ = reportMouseUp_ || mouseUp;
  if (reportPosted_) return;
  reportPosted_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Report(); }, Qt::QueuedConnection);
}

void WireListWindow::Report() {
  reportPosted_ = false;
  const bool mouseUp = std::exchange(reportMouseUp_, false);
  if (!isVisible()) return;
  changed_ = false;
  if (mouseUp)
    form_.PL_MouseUp(selection_->Selected());
  else
    form_.PL_SelectionChanged(selection_->Selected());
}

void WireListWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  windowHandle()->installEventFilter(this);  // sees each key once, before any control
}

void WireListWindow::hideEvent(QHideEvent* event) {
  QMainWindow::hideEvent(event);
  mouseHeld_ = false;
  if (!event->spontaneous()) form_.Form_Unload();  // a minimized window still counts as shown
}

bool WireListWindow::event(QEvent* event) {
  const bool handled = QMainWindow::event(event);
  if (event->type() == QEvent::WindowActivate) {
    form_.Form_KeyDown(ShiftState(QGuiApplication::queryKeyboardModifiers()));  // a key may be held already
    form_.Form_Activate();
  } else if (event->type() == QEvent::WindowDeactivate) {
    form_.Form_KeyUp(0);  // another window gets the release
  }
  return handled;
}

bool WireListWindow::eventFilter(QObject* watched, QEvent* event) {
  const bool inList = watched == PL_->viewport();
  if (inList && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)) {
    mouseHeld_ = true;
  } else if (inList && event->type() == QEvent::MouseButtonRelease) {
    mouseHeld_ = false;
    ReportLater(true);  // after the list has handled the event, which may change the selection
  } else if (!inList && event->type() == QEvent::KeyPress) {
    form_.Form_KeyDown(ShiftState(static_cast<QKeyEvent&>(*event)));
  } else if (!inList && event->type() == QEvent::KeyRelease) {
    const auto& key = static_cast<QKeyEvent&>(*event);
    if (!key.isAutoRepeat()) form_.Form_KeyUp(ShiftState(key));
  }
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace shell::ui
