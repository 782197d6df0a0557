/// The dialog "Printer Setup": what it offers holds for every print while the program runs.
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

/// Start values are the system's own: its default printer with its default paper.
struct PrintSettings {
  QString Printer;  ///< empty: the default printer
  QString PdfFile;  ///< chosen while there was no printer; goes before `Printer`; empty: none chosen
  QPageSize Paper;  ///< invalid: the target's default
  QPageLayout::Orientation Orientation = QPageLayout::Portrait;
  int Copies = 1;
  QPrinter::ColorMode Colour = QPrinter::Color;
  QPrinter::DuplexMode Duplex = QPrinter::DuplexNone;
};

/// Qt's own print dialog offers page ranges, job options and more that a print of one picture does not take
/// over, and forgets the paper of the choice before.
class PrinterSetup final : public QDialog {
 public:
  /// Shows `settings`. Without any printer the target is a PDF file.
  PrinterSetup(const PrintSettings& settings, QWidget* parent);

  PrintSettings Settings() const;

 private:
  void AddPrinters(QFormLayout& rows);
  void AddPdfFile(QFormLayout& rows);
  void AddPrinterOptions(QFormLayout& rows);
  void OfferPrinterOptions();
  void Browse();

  PrintSettings wanted_;          ///< as chosen, also what the shown printer does not offer
  QComboBox* printer_ = nullptr;  ///< null without printers
  QLineEdit* pdfFile_ = nullptr;  ///< null with printers
  QComboBox* paper_;
  QComboBox* orientation_;
  QSpinBox* copies_ = nullptr;
  QComboBox* colour_ = nullptr;
  QComboBox* duplex_ = nullptr;
};

}  // namespace shell::ui
