#include "shell/ui/help_window.h"

#include <QTextBrowser>
#include <QTextDocument>
#include <algorithm>
#include <optional>

#include "model/faults.h"
#include "model/files.h"
#include "model/text.h"
#include "shell/help/rtf.h"
#include "shell/ui/qt_rich_text.h"

namespace shell::ui {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kTwipsPerPixel = 15;
constexpr QSize kFirstSize(720, 600);
constexpr double kPageMargin = 12;

/// A length in pixels minus a length in twips; never negative.
int Without(int twips, int pixels) {
  const int left = std::max(pixels * kTwipsPerPixel - twips, 0);
  return (left + kTwipsPerPixel / 2) / kTwipsPerPixel;
}

}  // namespace

HelpWindow::HelpWindow(QWidget* owner) : QWidget(owner, Qt::Window), Txt_(new QTextBrowser(this)) {
  setWindowTitle("3D Navigation");
  Txt_->setObjectName("Txt");
  Txt_->setAccessibleName("Help text");
  Txt_->setUndoRedoEnabled(false);
  Txt_->setOpenLinks(false);
  resize(kFirstSize);
}

void HelpWindow::Open(const QString& caption, const std::string& path) {
  setWindowTitle(caption);
  const std::optional<help::RichText> text = help::ReadRtf(model::ReadWholeFile(path));
  if (!text) throw model::FileFault("Not a rich text file", std::string(model::FileNameOf(path)));
  PourRichText(*text, static_cast<double>(Txt_->logicalDpiX()) / kTwipsPerInch, *Txt_->document());
  Txt_->document()->setDocumentMargin(kPageMargin);
  Txt_->moveCursor(QTextCursor::Start);
  show();
  raise();
  activateWindow();
}

void HelpWindow::Form_Resize() {
  // The page gives the outer size: subtract the window's frame and caption.
  const QSize outer = frameGeometry().size();
  Txt_->setGeometry(0, 0, Without(200, outer.width()), Without(450, outer.height()));
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Form_Resize();
}

// The frame's size is known only after the window manager has placed the window and sent a move event.
void HelpWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  Form_Resize();
}

void HelpWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Form_Resize();
}

}  // namespace shell::ui
