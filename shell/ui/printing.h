/// Prints the picture with the settings of Printer Setup.
#pragma once

#include <QSet>
#include <string>

#include "render/picture.h"
#include "shell/ui/printer_setup.h"

namespace shell::ui {

class Printing {
 public:
  /// `parent` is the parent of the dialogs.
  explicit Printing(QWidget* parent);

  /// Shows the dialog, which sets the options for later prints. Prints nothing.
  void SetUp();

  /// Prints at the picture's own size, 1/96 inch per pixel, or scaled to the page (`fit`). Asks before it
  /// replaces a PDF file that this run did not write; the question warns when that is `packagePath`. Reports
  /// a target that cannot be printed to in a box and changes nothing.
  void Print(const render::Picture& picture, bool fit, const std::string& packagePath);

 private:
  bool MayReplace(const std::string& file, const std::string& packagePath) const;
  void PrintToFile(const render::Picture& picture, bool fit, const std::string& file);
  void PrintOnPaper(const render::Picture& picture, bool fit);
  void Complain(const QString& why);

  QWidget* parent_;
  PrintSettings settings_;
  QSet<QString> written_;  ///< PDF files that this run has written
};

}  // namespace shell::ui
