/// The help window: one help page, shown beside the view.
#pragma once

#include <QWidget>
#include <string>

class QTextBrowser;

namespace shell::ui {

/// One instance shows both pages; the text is read-only.
class HelpWindow : public QWidget {
 public:
  /// `owner` is the main window: this one stays in front of it and is deleted with it.
  explicit HelpWindow(QWidget* owner);

  /// Puts the page into the window and shows it, in front if it was shown already.
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
