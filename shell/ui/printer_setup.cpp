#include "shell/ui/printer_setup.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace shell::ui {

namespace {

constexpr int kMostCopies = 99;

constexpr std::pair<QPrinter::DuplexMode, const char*> kDuplexModes[] = {
    {QPrinter::DuplexNone, "Off"},
    {QPrinter::DuplexLongSide, "Long edge"},
    {QPrinter::DuplexShortSide, "Short edge"},
};
constexpr std::pair<QPrinter::ColorMode, const char*> kColourModes[] = {
    {QPrinter::Color, "Colour"},
    {QPrinter::GrayScale, "Greyscale"},
};

/// The papers offered for a PDF file, which could have any size.
QList<QPageSize> UsualPapers() {
  QList<QPageSize> papers;
  for (const QPageSize::PageSizeId id :
       {QPageSize::A3, QPageSize::A4, QPageSize::A5, QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid})
    papers.append(QPageSize(id));
  return papers;
}

QPageSize DefaultPaperOfPdf() {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  return printer.pageLayout().pageSize();
}

int IndexOf(const QList<QPageSize>& papers, const QPageSize& wanted) {
  for (int i = 0; i < papers.size(); ++i)
    if (papers[i].isEquivalentTo(wanted)) return i;
  return -1;
}

/// Shows the wanted paper, or the target's default when it does not support that.
void OfferPapers(QComboBox& box, QList<QPageSize> papers, const QPageSize& wanted, const QPageSize& usual) {
  if (usual.isValid() && IndexOf(papers, usual) < 0) papers.append(usual);
  box.clear();
  for (const QPageSize& paper : papers) box.addItem(paper.name(), QVariant::fromValue(paper));
  const int index = wanted.isValid() ? IndexOf(papers, wanted) : -1;
  box.setCurrentIndex(index >= 0 ? index : std::max(IndexOf(papers, usual), 0));
}

/// Offers the modes that the printer supports; disabled when there is only one.
template <class Mode, std::size_t kCount>
void OfferModes(QComboBox& box, const std::pair<Mode, const char*> (&modes)[kCount],
                const QList<Mode>& supported, Mode wanted) {
  box.clear();
  for (const auto& [mode, name] : modes)
    if (supported.contains(mode)) box.addItem(name, static_cast<int>(mode));
  box.setCurrentIndex(std::max(box.findData(static_cast<int>(wanted)), 0));
  box.setEnabled(box.count() > 1);
}

}  // namespace

PrinterSetup::PrinterSetup(const PrintSettings& settings, QWidget* parent)
    : QDialog(parent), wanted_(settings), paper_(new QComboBox), orientation_(new QComboBox) {
  setWindowTitle("Printer Setup");
  auto* const rows = new QFormLayout;
  const bool hasPrinters = !QPrinterInfo::availablePrinterNames().isEmpty();
  hasPrinters ? AddPrinters(*rows) : AddPdfFile(*rows);
  rows->addRow("Paper:", paper_);
  rows->addRow("Orientation:", orientation_);
  orientation_->addItem("Portrait", QPageLayout::Portrait);
  orientation_->addItem("Landscape", QPageLayout::Landscape);
  orientation_->setCurrentIndex(orientation_->findData(settings.Orientation));
  if (hasPrinters) {
    AddPrinterOptions(*rows);
    OfferPrinterOptions();
  } else {
    OfferPapers(*paper_, UsualPapers(), settings.Paper, DefaultPaperOfPdf());
  }

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const whole = new QVBoxLayout(this);
  whole->addLayout(rows);
  whole->addWidget(buttons);
}

void PrinterSetup::AddPdfFile(QFormLayout& rows) {
  pdfFile_ = new QLineEdit(wanted_.PdfFile);
  pdfFile_->setAccessibleName("PDF file");
  pdfFile_->setMinimumWidth(pdfFile_->fontMetrics().averageCharWidth() * 40);
  auto* const browse = new QPushButton("Browse ...");
  browse->setAutoDefault(false);
  connect(browse, &QPushButton::clicked, this, [this] { Browse(); });
  auto* const file = new QHBoxLayout;
  file->addWidget(pdfFile_);
  file->addWidget(browse);
  rows.addRow("PDF file:", file);
}

void PrinterSetup::AddPrinters(QFormLayout& rows) {
  printer_ = new QComboBox;
  printer_->addItems(QPrinterInfo::availablePrinterNames());
  const int chosen = printer_->findText(wanted_.Printer);
  const int usual = printer_->findText(QPrinterInfo::defaultPrinterName());
  printer_->setCurrentIndex(chosen >= 0 ? chosen : std::max(usual, 0));
  connect(printer_, &QComboBox::currentIndexChanged, this, [this] { OfferPrinterOptions(); });
  rows.addRow("Printer:", printer_);
}

void PrinterSetup::AddPrinterOptions(QFormLayout& rows) {
  copies_ = new QSpinBox;
  copies_->setRange(1, kMostCopies);
  copies_->setValue(wanted_.Copies);
  colour_ = new QComboBox;
  duplex_ = new QComboBox;
  rows.addRow("Copies:", copies_);
  rows.addRow("Colour:", colour_);
  rows.addRow("Two-sided:", duplex_);
  for (QComboBox* const box : {paper_, colour_, duplex_})
    connect(box, &QComboBox::activated, this, [this] { wanted_ = Settings(); });
}

void PrinterSetup::OfferPrinterOptions() {
  const QPrinterInfo printer = QPrinterInfo::printerInfo(printer_->currentText());
  OfferPapers(*paper_, printer.supportedPageSizes(), wanted_.Paper, printer.defaultPageSize());
  OfferModes(*colour_, kColourModes, printer.supportedColorModes(), wanted_.Colour);
  OfferModes(*duplex_, kDuplexModes, printer.supportedDuplexModes(), wanted_.Duplex);
}

void PrinterSetup::Browse() {
  const QString file =
      QFileDialog::getSaveFileName(this, "PDF File", pdfFile_->text(), "PDF files (*.pdf);;All files (*)",
                                   nullptr, QFileDialog::DontConfirmOverwrite);
  if (!file.isEmpty()) pdfFile_->setText(file);
}

PrintSettings PrinterSetup::Settings() const {
  PrintSettings settings = wanted_;
  settings.Paper = paper_->currentData().value<QPageSize>();
  settings.Orientation = orientation_->currentData().value<QPageLayout::Orientation>();
  if (printer_ == nullptr) {
    settings.PdfFile = pdfFile_->text();
    return settings;
  }
  settings.PdfFile.clear();
  settings.Printer = printer_->currentText();
  settings.Copies = copies_->value();
  // A printer with a single mode keeps the wanted mode for the next printer.
  if (colour_->isEnabled())
    settings.Colour = static_cast<QPrinter::ColorMode>(colour_->currentData().toInt());
  if (duplex_->isEnabled())
    settings.Duplex = static_cast<QPrinter::DuplexMode>(duplex_->currentData().toInt());
  return settings;
}

}  // namespace shell::ui
