/// Prints the picture as Printer Setup says.
#pragma once

#include <QSet>
#include <string>

#include "render/picture.h"
#include "shell/ui/printer_setup.h"

namespace shell::ui {

class Printing {
 public:
  /// Dialogs stand over `parent`.
  explicit Printing(QWidget* parent);

  /// Shows the dialog; what it chooses holds while the program runs. Prints nothing.
  void SetUp();

  /// Prints at the picture's own size, a pixel being 1/96 inch, or scaled to the page (`fit`). Asks before it
  /// replaces a PDF file that this run has not written; `packagePath` is for the question. A target that
  /// cannot be printed to is reported in a box, and nothing is changed.
  void Print(const render::Picture& picture, bool fit, const std::string& packagePath);

 private:
  bool MayReplace(const std::string& file, const std::string& packagePath) const;
  void PrintToFile(const render::Picture& picture, bool fit, const std::string& file);
  void PrintOnPaper(const render::Picture& picture, bool fit);
  void Complain(const QString& why);

  QWidget* parent_;
  PrintSettings settings_;
  QSet<QString> written_;  ///< PDF files of this run
};

}  // namespace shell::ui
