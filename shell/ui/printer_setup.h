/// The dialog "Printer Setup". Its settings apply to every print until the program ends.
#pragma once

#include <QDialog>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>

class QComboBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;

namespace shell::ui {

/// Start values: the system's default printer with its default paper.
struct PrintSettings {
  QString Printer;  ///< empty: the default printer
  QString PdfFile;  ///< chosen when there is no printer; used instead of `Printer`; empty: none chosen
  QPageSize Paper;  ///< invalid: the target's default
  QPageLayout::Orientation Orientation = QPageLayout::Portrait;
  int Copies = 1;
  QPrinter::ColorMode Colour = QPrinter::Color;
  QPrinter::DuplexMode Duplex = QPrinter::DuplexNone;
};

/// Replaces Qt's print dialog, which offers page ranges, job options and more that a print of one picture
/// cannot use, and which forgets the paper.
class PrinterSetup final : public QDialog {
 public:
  /// Shows `settings`. When there is no printer the target is a PDF file.
  PrinterSetup(const PrintSettings& settings, QWidget* parent);

  PrintSettings Settings() const;

 private:
  void AddPrinters(QFormLayout& rows);
  void AddPdfFile(QFormLayout& rows);
  void AddPrinterOptions(QFormLayout& rows);
  void OfferPrinterOptions();
  void Browse();

  PrintSettings wanted_;          ///< the user's choice, including what the selected printer does not support
  QComboBox* printer_ = nullptr;  ///< null without printers
  QLineEdit* pdfFile_ = nullptr;  ///< null with printers
  QComboBox* paper_;
  QComboBox* orientation_;
  QSpinBox* copies_ = nullptr;
  QComboBox* colour_ = nullptr;
  QComboBox* duplex_ = nullptr;
};

}  // namespace shell::ui
