#include "shell/ui/printing.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

#include "model/faults.h"
#include "model/files.h"
#include "setup/file_dialog.h"
#include "shell/print_layout.h"

namespace shell::ui {

namespace {

constexpr char kTitle[] = "Print Picture";

void SetPage(QPagedPaintDevice& device, const PrintSettings& settings) {
  if (settings.Paper.isValid()) device.setPageSize(settings.Paper);
  device.setPageOrientation(settings.Orientation);
}

QString NoAnswer(const QString& printer) { return "The printer \"" + printer + "\" does not answer."; }

QImage ImageOf(const render::Picture& picture) {
  return QImage(picture.Rgb.data(), picture.Width, picture.Height, picture.Width * 3, QImage::Format_RGB888);
}

/// Draws the picture on one page of a device; false when painting cannot start.
bool PaintPage(QPagedPaintDevice& device, const render::Picture& picture, bool fit) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const PrintArea area{double(device.width()), double(device.height()), double(device.logicalDpiX()),
                       double(device.logicalDpiY())};
  const PrintPlace place = fit ? PlaceFitPage(picture.Width, picture.Height, area)
                               : PlaceNoScale(picture.Width, picture.Height, area);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, fit);
  painter.setRenderHint(QPainter::LosslessImageRendering);
  painter.drawImage(QRectF(place.X, place.Y, place.Width, place.Height), ImageOf(picture),
                    QRectF(0.0, 0.0, place.SourceWidth, place.SourceHeight));
  return painter.end();
}

}  // namespace

Printing::Printing(QWidget* parent) : parent_(parent) {}

void Printing::SetUp() {
  PrinterSetup dialog(settings_, parent_);
  if (dialog.exec() == QDialog::Accepted) settings_ = dialog.Settings();
}

void Printing::Print(const render::Picture& picture, bool fit, const std::string& packagePath) {
  if (!settings_.PdfFile.isEmpty()) {
    const std::string file = QFile::encodeName(settings_.PdfFile).toStdString();
    if (MayReplace(file, packagePath)) PrintToFile(picture, fit, file);
  } else if (!QPrinterInfo::availablePrinterNames().isEmpty()) {
    PrintOnPaper(picture, fit);
  } else {
    Complain("There is no printer. \"Printer Setup ...\" can choose a PDF file instead.");
  }
}

bool Printing::MayReplace(const std::string& file, const std::string& packagePath) const {
  const std::string question = setup::OverwriteQuestion(file, packagePath);
  if (question.empty() || written_.contains(QFileInfo(settings_.PdfFile).absoluteFilePath())) return true;
  return QMessageBox::warning(parent_, kTitle, QFile::decodeName(question.c_str()),
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void Printing::PrintToFile(const render::Picture& picture, bool fit, const std::string& file) {
  // Print into memory first, so that the file is written whole or not at all.
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&pdf);
    SetPage(writer, settings_);
    if (!PaintPage(writer, picture, fit)) return Complain("The page cannot be drawn.");
  }
  try {
    const QByteArray& bytes = pdf.data();
    model::WriteWholeFile(file, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    written_.insert(QFileInfo(settings_.PdfFile).absoluteFilePath());
  } catch (const model::FileFault& fault) {
    Complain(QFile::decodeName(fault.what()));
  }
}

void Printing::PrintOnPaper(const render::Picture& picture, bool fit) {
  // A new QPrinter for each print: the system's printers may have changed.
  QPrinter printer(QPrinter::HighResolution);
  const QString& name = settings_.Printer;
  // Qt would silently print on another printer when this one is gone.
  if (!name.isEmpty() && QPrinterInfo::printerInfo(name).isNull()) return Complain(NoAnswer(name));
  if (!name.isEmpty()) printer.setPrinterName(name);
  SetPage(printer, settings_);
  printer.setCopyCount(settings_.Copies);
  printer.setColorMode(settings_.Colour);
  printer.setDuplex(settings_.Duplex);
  if (!PaintPage(printer, picture, fit)) Complain(NoAnswer(printer.printerName()));
}

void Printing::Complain(const QString& why) { QMessageBox::warning(parent_, kTitle, why); }

}  // namespace shell::ui
