#include "shell/ui/help_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextLayout>

#include "model/faults.h"
#include "shell/help/rtf.h"
#include "shell/ui/qt_rich_text.h"
#include "tests/temporary_folder.h"

namespace shell {
namespace {

const std::string kFolder = YAX_HELP_FOLDER;

class HelpWindowTest : public testing::Test {
 protected:
  QTextBrowser& Text() { return *help_.findChild<QTextBrowser*>("Txt"); }

  TemporaryFolder folder_;
  QWidget owner_;
  ui::HelpWindow help_{&owner_};
};

TEST_F(HelpWindowTest, TextLeavesRoomForFrameAndCaption) {
  help_.Open("Navigation Help", kFolder + "/NavHelp.rtf");
  // 200 twips are 13 1/3 pixels and 450 are 30, of the window with its frame.
  for (const QSize size : {QSize(600, 400), QSize(300, 900), QSize(5, 5)}) {
    help_.resize(size);
    QApplication::processEvents();
    const QSize outer = help_.frameGeometry().size();
    EXPECT_EQ(Text().size(), QSize(outer.width() - 13, outer.height() - 30).expandedTo({0, 0}));
  }
}

TEST_F(HelpWindowTest, FilesThatAreNoPageFault) {
  EXPECT_THROW(help_.Open("a", folder_ / "gone"), model::FileFault);
  EXPECT_THROW(help_.Open("a", PutFile(folder_ / "page", "plain text")), model::FileFault);
  EXPECT_NO_THROW(help_.Open("a", PutFile(folder_ / "page", "{\\rtf1 damaged {\\b page")));
  EXPECT_EQ(Text().toPlainText(), "damaged page");
}

/// Where the letter at `position` of the block's first line stands, from the page's edge.
double XOf(const QTextBlock& block, int position) {
  const QTextLine line = block.layout()->lineAt(0);
  return block.layout()->position().x() + line.cursorToX(position);
}

TEST_F(HelpWindowTest, TabsLineUpWhateverTheIndents) {
  // Every "x" stands at the stop of 3,000 twips. A hanging indent is a stop too: passed in the fourth block,
  // used in the fifth.
  const help::RichText text = *help::ReadRtf(R"({\rtf1\pard\tx3000 Up\tab x\par Keypad plus\tab x\par
\pard\li600\tx3000 Up\tab x\par\pard\li900\fi-600\tx3000 Up\tab\tab x\par\pard\li3000\fi-300\bullet\tab x\par})");
  Text().resize(600, 400);
  ui::PourRichText(text, 1.0 / 15, *Text().document());
  Text().document()->setTextWidth(600);
  const double margin = Text().document()->documentMargin();
  ASSERT_EQ(Text().document()->blockCount(), 5);
  for (QTextBlock block = Text().document()->begin(); block.isValid(); block = block.next())
    EXPECT_NEAR(XOf(block, static_cast<int>(block.text().indexOf('x'))), margin + 200, 1.0)
        << block.blockNumber();
}

TEST_F(HelpWindowTest, FormatsReachTheDocument) {
  const help::RichText text =
      *help::ReadRtf(R"({\rtf1{\fonttbl{\f3\fmodern Courier;}}{\colortbl;\red1\green2\blue3;}
\qc\li300\sb150{\b\fs40 a}{\i\ul\cf1 b}{\f3\super c}\line{\sub\strike d}\par\par\u-10179?\u-8704?})");
  QTextDocument document;
  ui::PourRichText(text, 1.0 / 15, document);
  ASSERT_EQ(document.blockCount(), 3);
  const QTextBlock first = document.begin();
  EXPECT_EQ(first.text(), QString("abc") + QChar(QChar::LineSeparator) + "d");
  EXPECT_EQ(first.blockFormat().alignment(), Qt::AlignHCenter);
  EXPECT_EQ(first.blockFormat().leftMargin(), 20);
  EXPECT_EQ(first.blockFormat().topMargin(), 10);
  std::vector<QTextCharFormat> formats;
  for (auto at = first.begin(); !at.atEnd(); ++at) formats.push_back(at.fragment().charFormat());
  ASSERT_EQ(formats.size(), 5U);  // a, b, c, the line's end, d
  EXPECT_EQ(formats[0].fontWeight(), QFont::Bold);
  EXPECT_EQ(formats[0].fontPointSize(), 20);
  EXPECT_TRUE(formats[1].fontItalic() && formats[1].fontUnderline());
  EXPECT_EQ(formats[1].foreground().color(), QColor(1, 2, 3));
  EXPECT_EQ(formats[0].foreground().style(), Qt::NoBrush);
  EXPECT_EQ(formats[2].fontFamilies().toStringList(), QStringList("Courier"));
  EXPECT_EQ(formats[2].verticalAlignment(), QTextCharFormat::AlignSuperScript);
  EXPECT_EQ(formats[4].verticalAlignment(), QTextCharFormat::AlignSubScript);
  EXPECT_TRUE(formats[4].fontStrikeOut());
  EXPECT_EQ(document.lastBlock().text(), QString::fromUtf8("\U0001F600"));
}

}  // namespace
}  // namespace shell
