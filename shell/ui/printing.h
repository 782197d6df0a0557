/// The chosen printer and page, and printing the picture on it.
#pragma once

#include <QPageLayout>
#include <QString>

#include "render/picture.h"

class QWidget;

namespace shell::ui {

class Printing {
 public:
  /// Dialogs stand over `parent`.
  explicit Printing(QWidget* parent);

  /// The printer dialog: printer (or PDF file) and page layout, which hold while the program runs.
  void SetUp();

  /// Prints at the picture's own size, a pixel being 1/96 inch, or scaled to the page (`fit`).
  /// A target that cannot be printed to is said in a box, and nothing is changed.
  void Print(const render::Picture& picture, bool fit);

 private:
  void PrintToFile(const render::Picture& picture, bool fit);
  void PrintOnPaper(const render::Picture& picture, bool fit);
  void Complain(const QString& why);

  QWidget* parent_;
  QString printer_;  ///< empty: into a PDF file
  QString pdfFile_;
  QPageLayout page_;
};

}  // namespace shell::ui
