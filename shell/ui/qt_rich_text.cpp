#include "shell/ui/qt_rich_text.h"

#include <QColor>
#include <QFont>
#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>
#include <algorithm>

namespace shell::ui {

namespace {

constexpr int kDefaultTabTwips = 720;

Qt::Alignment AlignmentOf(help::Alignment alignment) {
  switch (alignment) {
    case help::Alignment::Center:
      return Qt::AlignHCenter;
    case help::Alignment::Right:
      return Qt::AlignRight;
    case help::Alignment::Justified:
      return Qt::AlignJustify;
    case help::Alignment::Left:
      break;
  }
  return Qt::AlignLeft;
}

/// The tab stops as Qt wants them: ascending, and measured from the start of the first line.
QList<QTextOption::Tab> TabsOf(const help::ParagraphFormat& paragraph, double pixelsPerTwip) {
  std::vector<int> stops = paragraph.Tabs;
  // A hanging first line has one more stop where the other lines start; the text of a list item begins there.
  if (paragraph.First < 0) stops.push_back(paragraph.Left);
  std::sort(stops.begin(), stops.end());
  QList<QTextOption::Tab> tabs;
  const int start = paragraph.Left + paragraph.First;
  for (const int stop : stops)
    if (stop > start) tabs.append({(stop - start) * pixelsPerTwip, QTextOption::LeftTab});
  return tabs;
}

QTextBlockFormat BlockFormatOf(const help::ParagraphFormat& paragraph, double pixelsPerTwip) {
  QTextBlockFormat format;
  format.setAlignment(AlignmentOf(paragraph.Align));
  format.setLeftMargin(paragraph.Left * pixelsPerTwip);
  format.setRightMargin(paragraph.Right * pixelsPerTwip);
  format.setTextIndent(paragraph.First * pixelsPerTwip);
  format.setTopMargin(paragraph.Before * pixelsPerTwip);
  format.setBottomMargin(paragraph.After * pixelsPerTwip);
  format.setTabPositions(TabsOf(paragraph, pixelsPerTwip));
  return format;
}

void SetFont(const help::Font& font, QTextCharFormat& format) {
  if (!font.Name.empty()) format.setFontFamilies({QString::fromStdString(font.Name)});
  switch (font.Family) {
    case help::FontFamily::Serif:
      format.setFontStyleHint(QFont::Serif);
      break;
    case help::FontFamily::Sans:
      format.setFontStyleHint(QFont::SansSerif);
      break;
    case help::FontFamily::Fixed:
      format.setFontStyleHint(QFont::Monospace);
      format.setFontFixedPitch(true);
      break;
    case help::FontFamily::Any:
      break;
  }
}

QTextCharFormat CharFormatOf(const help::RunFormat& run, const std::map<int, help::Font>& fonts) {
  QTextCharFormat format;
  format.setFontWeight(run.Bold ? QFont::Bold : QFont::Normal);
  format.setFontItalic(run.Italic);
  format.setFontUnderline(run.Underline);
  format.setFontStrikeOut(run.Strike);
  format.setFontPointSize(run.Size / 2.0);
  if (run.Position == help::Script::Super) format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
  if (run.Position == help::Script::Sub) format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
  if (run.Colour >= 0) format.setForeground(QColor(static_cast<QRgb>(run.Colour)));
  if (const auto font = fonts.find(run.Font); font != fonts.end()) SetFont(font->second, format);
  return format;
}

}  // namespace

void PourRichText(const help::RichText& text, double pixelsPerTwip, QTextDocument& document) {
  document.clear();
  QTextOption option = document.defaultTextOption();
  option.setTabStopDistance(kDefaultTabTwips * pixelsPerTwip);
  document.setDefaultTextOption(option);

  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  bool first = true;
  for (const help::Paragraph& paragraph : text.Paragraphs) {
    const QTextBlockFormat block = BlockFormatOf(paragraph.Format, pixelsPerTwip);
    // The height of an empty paragraph comes from its font, not from the font of the paragraph above.
    const QTextCharFormat letters =
        CharFormatOf(paragraph.Runs.empty() ? help::RunFormat{} : paragraph.Runs.front().Format, text.Fonts);
    if (first) {
      cursor.setBlockFormat(block);
      cursor.setBlockCharFormat(letters);
    } else {
      cursor.insertBlock(block, letters);
    }
    first = false;
    for (const help::Run& run : paragraph.Runs) {
      QString words = QString::fromStdString(run.Text);
      words.replace('\n', QChar::LineSeparator);
      cursor.insertText(words, CharFormatOf(run.Format, text.Fonts));
    }
  }
  cursor.endEditBlock();
}

}  // namespace shell::ui
