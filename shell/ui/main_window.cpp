#include "shell/ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QIcon>
#include <QMimeData>
#include <QScreen>
#include <QStandardPaths>
#include <QWindow>
#include <vector>

#include "shell/ui/about_window.h"
#include "shell/ui/gl_view.h"
#include "shell/ui/help_window.h"
#include "shell/ui/window_place.h"
#include "shell/ui/wire_list_window.h"

namespace shell::ui {

namespace {

/// The desktop icon in the sizes that window managers ask for.
QIcon ProgramIcon() {
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128}) icon.addFile(QString(":/icon/%1.png").arg(side));
  return icon;
}

/// The folder for the parameter file when the program's folder is not writable.
std::string UserFolder() {
  return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).toStdString();
}

/// The dragged package file; empty for several files or anything else.
std::string DraggedPackage(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  const QFileInfo file(urls.size() == 1 ? urls[0].toLocalFile() : QString());
  const bool isPackage = file.isFile() && file.suffix().compare("yax", Qt::CaseInsensitive) == 0;
  return isPackage ? QFile::encodeName(file.filePath()).toStdString() : std::string();
}

}  // namespace

MainWindow::MainWindow(const StartUp& startUp, ProgramEnd& end, setup::FileDialog* Filn)
    : end_(end),
      view_(new GlView(this)),
      form_(startUp, *view_, end_),
      controls_(form_.Navigator(), end_, this),
      input_(form_, end_, *view_),
      dialogs_(this),
      Filn_(Filn != nullptr ? *Filn : dialogs_),
      estimator_(startUp.ProgramFolder, UserFolder()),
      setupForm_(form_.Settings(), form_.Package(), Filn_, estimator_),
      commands_(form_, end_, Filn_),
      DoMnu_(new CommandMenuPopup(commands_, this)),
      printing_(this),
      wireListForm_(form_.Package(), form_.Selection()) {
  QApplication::setWindowIcon(ProgramIcon());
  setAcceptDrops(true);
  LayOut();
  WireNavigation();
  WireForm();
  WireCommands();
}

MainWindow::~MainWindow() = default;

/// The view fills the window, with the bars along its right and lower edges and the buttons below.
void MainWindow::LayOut() {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(view_, 0, 0);
  grid->addWidget(controls_.ScrollPitch, 0, 1);
  grid->addWidget(controls_.ScrollYaw, 1, 0);
  grid->addWidget(controls_.Strip, 2, 0, 1, 2);
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(0, 1);
  // On a small screen leave room for the frame and the desktop's panels.
  resize(QSize(1024, 800).boundedTo(screen()->availableSize() * 0.85));
}

void MainWindow::WireNavigation() {
  navigation::NavigationActions& actions = form_.Navigator().Actions;
  actions.SetPointer = [this](navigation::Pointer pointer) {
    pointer == navigation::Pointer::kUpArrow ? setCursor(Qt::UpArrowCursor) : unsetCursor();
  };
  actions.OpenCommandMenu = [this](float x, float y) {
    OpenMenu(view_->mapToGlobal(QPointF(double(x), double(y)).toPoint()));
  };
  view_->MenuAsked = [this] { input_.OpenMenuByKey(); };
  view_->Exposed = [this] { end_.Run([this] { form_.Form_Paint(); }); };
}

void MainWindow::WireForm() {
  MainFormActions& actions = form_.Actions;
  actions.SetCaption = [this](const std::string& caption) {
    setWindowTitle(QFile::decodeName(caption.c_str()));
  };
  actions.EnableHelp = [this](bool navigation, bool viewer) {
    DoMnu_->SetEnabled("DoNavHelp", navigation);
    DoMnu_->SetEnabled("DoViewHelp", viewer);
  };
  actions.HookWheel = [this] { input_.HookWheel(); };
  actions.UnhookWheel = [this] { input_.UnhookWheel(); };
  actions.PackageRead = [this] {
    if (PinList_) PinList_->PackageChanged();
  };
  actions.ResetWireBondSetup = [this] { setupForm_.RunCommand3(); };
  setupForm_.Actions.RebuildAndRepaint = [this] { form_.RebuildAndRepaint(); };
  setupForm_.Actions.SetPackagePath = [this](const std::string& path) { form_.SetPackagePath(path); };
  wireListForm_.Actions.RebuildAndRepaint = [this] { end_.Run([this] { form_.RebuildAndRepaint(); }); };
}

void MainWindow::WireCommands() {
  CommandActions& actions = commands_.Actions;
  actions.UnloadWireList = [this] {
    if (!PinList_) return;
    PinList_->close();
    PinList_.reset();
  };
  actions.ShowWireBondSetup = [this] {
    if (!BWsu_) {
      BWsu_ = std::make_unique<setup::ui::SetupWindow>(
          setupForm_, [this](const std::function<void()>& handler) { end_.Run(handler); });
      PlaceFirst(*BWsu_, PinList_.get());
    }
    BWsu_->DoBondWireSetup();
  };
  actions.ShowWireList = [this] {
    if (!PinList_) {
      PinList_ = std::make_unique<WireListWindow>(wireListForm_);
      PlaceFirst(*PinList_, BWsu_.get());
    }
    PinList_->DoWireList();
  };
  actions.SetUpPrinter = [this] { printing_.SetUp(); };
  actions.Print = [this](const render::Picture& picture, bool fit) {
    printing_.Print(picture, fit, form_.Package().PackagePath);
  };
  actions.ShowHelp = [this](const std::string& caption, const std::string& path) {
    if (Hlp_ == nullptr) Hlp_ = new HelpWindow(this);
    Hlp_->Open(QString::fromStdString(caption), path);
  };
  actions.ShowAbout = [this] {
    if (about_ == nullptr) {
      about_ = new AboutWindow(this);
      connect(about_, &QDialog::finished, this, [this] { activateWindow(); });
    }
    about_->show();
    about_->raise();
    about_->activateWindow();
  };
}

/// Places a window beside the view when it first opens; later it stays where the user moved it.
void MainWindow::PlaceFirst(QWidget& window, const QWidget* other) {
  std::vector<QRect> taken{frameGeometry()};
  if (other != nullptr && other->isVisible()) taken.push_back(other->frameGeometry());
  const QSize frame = frameGeometry().size() - size();
  window.move(PlaceBeside(window.size() + frame, taken, screen()->availableGeometry()));
}

void MainWindow::OpenMenu(const QPoint& at) { DoMnu_->popup(at); }

void MainWindow::Load() {
  winId();
  input_.WatchKeysOf(windowHandle());
  connect(
      windowHandle(), &QWindow::screenChanged, this, [this] { FitNativeChildren(); }, Qt::QueuedConnection);
  layout()->activate();
  end_.Run([this] { form_.Form_Load(); });
  view_->Resized = [this] {
    if (!isMinimized()) end_.Run([this] { form_.Form_Resize(); });
  };
  view_->setFocus();
}

/// On a screen of another scale a window may keep its size in Qt's units. Qt then keeps the old pixel sizes
/// of its controls' native windows.
void MainWindow::FitNativeChildren() {
  for (const QWidget* const child : findChildren<QWidget*>())
    if (QWindow* const native = child->windowHandle(); native != nullptr && !child->isWindow())
      native->setGeometry(child->geometry());
}

bool MainWindow::event(QEvent* event) {
  // After a dialog the main window takes the keyboard back, because there may be no window manager to do it.
  // But not while the setup window is open: the dialog may have been that window's.
  if (event->type() == QEvent::WindowUnblocked && !(BWsu_ && BWsu_->isVisible())) activateWindow();
  return QWidget::event(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (DraggedPackage(*event->mimeData()).empty() || !(event->possibleActions() & Qt::CopyAction)) return;
  // Always a copy: after a move the file manager would delete the file.
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
  commands_.LoadDropped(DraggedPackage(*event->mimeData()));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  end_.Run([this] { form_.Form_Unload(); });
}

}  // namespace shell::ui
