/// The help window, which shows one help page beside the view.
#pragma once

#include <QWidget>
#include <string>

class QTextBrowser;

namespace shell::ui {

/// One instance shows both pages; the text is read-only.
class HelpWindow : public QWidget {
 public:
  /// `owner` is the main window: the help window stays in front of it and is deleted with it.
  explicit HelpWindow(QWidget* owner);

  /// Shows the page; brings the window to the front if it is already open.
  /// Faults  FileFault when the file cannot be read or is not rich text
  void Open(const QString& caption, const std::string& path);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Form_Resize();

  QTextBrowser* Txt_;
};

}  // namespace shell::ui
