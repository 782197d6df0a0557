#include "shell/ui/printing.h"

#include <QBuffer>
#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

#include "model/faults.h"
#include "model/files.h"
#include "shell/print_layout.h"

namespace shell::ui {

namespace {

QImage ImageOf(const render::Picture& picture) {
  return QImage(picture.Rgb.data(), picture.Width, picture.Height, picture.Width * 3, QImage::Format_RGB888);
}

/// Draws the picture on the one page of a device; false when the device does not take it.
bool PaintPage(QPagedPaintDevice& device, const render::Picture& picture, bool fit) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const PrintArea area{double(device.width()), double(device.height()), double(device.logicalDpiX()),
                       double(device.logicalDpiY())};
  const PrintPlace place = fit ? PlaceFitPage(picture.Width, picture.Height, area)
                               : PlaceNoScale(picture.Width, picture.Height, area);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, fit);
  painter.drawImage(QRectF(place.X, place.Y, place.Width, place.Height), ImageOf(picture),
                    QRectF(0.0, 0.0, place.SourceWidth, place.SourceHeight));
  return painter.end();
}

}  // namespace

Printing::Printing(QWidget* parent) : parent_(parent) {}

void Printing::SetUp() {
  QPrinter printer(QPrinter::HighResolution);
  if (!printer_.isEmpty()) printer.setPrinterName(printer_);
  if (printer_.isEmpty() && (!pdfFile_.isEmpty() || QPrinterInfo::availablePrinterNames().isEmpty())) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdfFile_);
  }
  if (page_.isValid()) printer.setPageLayout(page_);

  QPrintDialog dialog(&printer, parent_);
  dialog.setWindowTitle("Printer Setup");
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
  // The dialog only chooses; nothing is printed by it.
  if (const auto* const buttons = dialog.findChild<QDialogButtonBox*>()) {
    if (QPushButton* const ok = buttons->button(QDialogButtonBox::Ok)) ok->setText("OK");
  }
  if (dialog.exec() != QDialog::Accepted) return;
  const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
  printer_ = toFile ? QString() : printer.printerName();
  pdfFile_ = toFile ? printer.outputFileName() : QString();
  page_ = printer.pageLayout();
}

void Printing::Print(const render::Picture& picture, bool fit) {
  const bool toFile = !pdfFile_.isEmpty();
  if (!toFile && printer_.isEmpty() && QPrinterInfo::defaultPrinter().isNull())
    return Complain("There is no printer. \"Printer Setup ...\" can choose a PDF file instead.");
  toFile ? PrintToFile(picture, fit) : PrintOnPaper(picture, fit);
}

void Printing::PrintToFile(const render::Picture& picture, bool fit) {
  // Through memory, so that the file is there whole or not at all.
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&pdf);
    if (page_.isValid()) writer.setPageLayout(page_);
    if (!PaintPage(writer, picture, fit)) return Complain("The page cannot be drawn.");
  }
  try {
    const QByteArray& bytes = pdf.data();
    model::WriteWholeFile(QFile::encodeName(pdfFile_).toStdString(),
                          {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  } catch (const model::FileFault& fault) {
    Complain(QFile::decodeName(fault.what()));
  }
}

void Printing::PrintOnPaper(const render::Picture& picture, bool fit) {
  QPrinter printer(QPrinter::HighResolution);
  if (!printer_.isEmpty()) printer.setPrinterName(printer_);
  if (page_.isValid()) printer.setPageLayout(page_);
  if (!PaintPage(printer, picture, fit))
    Complain("The printer \"" + printer.printerName() + "\" does not answer.");
}

void Printing::Complain(const QString& why) { QMessageBox::warning(parent_, "Print Picture", why); }

}  // namespace shell::ui
