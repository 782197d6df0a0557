#include "import/text_table.h"

#include "import/pad_table.h"
#include "model/numbers.h"
#include "tests/import/import_fixture.h"

namespace importer {
namespace {

std::string Short(double value) { return model::GeneralText(static_cast<float>(value)); }

/// Rows as their fields between bars, with the line of each.
std::string RowsOf(const std::string& text) {
  const TextTable table(text, "t.csv");
  std::string rows;
  for (const TableRow& row : table.Rows()) {
    rows += (rows.empty() ? "" : "; ") + std::to_string(row.Line) + ":";
    for (std::size_t i = 0; i < row.Fields.size(); ++i) rows += (i == 0 ? "" : "|") + row.Fields[i];
  }
  return rows;
}

TEST(TextTable, DetectsTheDialects) {
  const std::pair<std::string, std::string> cases[] = {
      {"name,x,y\na,1,2\n", "2:a|1|2"},
      {"\xEF\xBB\xBFName;X;Y\r\n\"a;b\";0,5;-1\r\n", "2:a;b|0,5|-1"},
      {"name\tx\ty\na b\t1\t2 # remark\n", "2:a b|1|2"},
      {"  name   x\ty\n# remark\n\n  a 1 2 ; remark\n\"b c\" 3 4", "4:a|1|2; 5:b c|3|4"},
      {"Die#,Die X (um),die_y\n1,2,3\n", "2:1|2|3"},
      {"sep=;\r\nname;x;y\r\na;1;2\r\n", "3:a|1|2"},
      {"Pad-Name,Lead No.\na,3\n", "2:a|3"},
      {"name,x,y\n\"a \"\"q\"\"\nb\",1,2\nc,3,4\n", "2:a \"q\"\nb|1|2; 4:c|3|4"},
      // Without a header the number of columns decides.
      {"; pad lead\n1 1\n3 3,4\n", "2:1|1; 3:3|3,4"},
      {"1,1\n3,3,4\n", "1:1|1; 2:3|3,4"},
      {"1 VDD 3 -0,5 0,25\n", "1:1|VDD|3|-0,5|0,25"},
      {"1,VDD,3,-5,2\n", "1:1|VDD|3|-5|2"},
  };
  for (const auto& [text, rows] : cases) EXPECT_EQ(RowsOf(text), rows) << text;
}

TEST(TextTable, NamesTheFault) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "t.csv: its columns cannot be recognized; "},
      {"foo,bar,baz\n1,2,3\n", "t.csv: its columns cannot be recognized; "},
      {"name,x,y\n\"a,1,2\nb,1,2\n", "t.csv:2: a quote is not closed; "},
      {std::string("PK\3\4\0", 5), "t.csv: it is not plain text; "},
  };
  for (const auto& [text, message] : cases)
    EXPECT_EQ(RefusalOf([&] { RowsOf(text); }).substr(0, message.size()), message) << text;
}

class TablesTest : public ImportTest {
 protected:
  /// "NAME NUMBER X Y" of each pad of a die of 2 x 1.6.
  std::string Pads(const std::string& text, double unit = 1.0) const {
    const Die die =
        DieFromTable({.File = Put("d.csv", text), .DieSize = glm::dvec2(2, 1.6), .TableUnit = unit});
    std::string pads;
    for (const DiePad& pad : die.Pads)
      pads += (pads.empty() ? "" : "; ") + pad.Name + " " + pad.Number + " " + Short(pad.Middle.x) + " " +
              Short(pad.Middle.y);
    return pads;
  }
  /// "NUMBER NAME NET TIER inner x y outer x y" of each finger.
  std::string Fingers(const std::string& text) const {
    std::string fingers;
    for (const Lead& lead : FingersFromTable(Put("f.csv", text), 1.0, {2, 1.6}).Leads)
      fingers += (fingers.empty() ? "" : "; ") + lead.Number + " " + lead.Name + " " + lead.Net + " " +
                 lead.Tier + " " + Short(lead.Inner.x) + " " + Short(lead.Inner.y) + " " +
                 Short(lead.Outer.x) + " " + Short(lead.Outer.y);
    return fingers;
  }
};

TEST_F(TablesTest, FindPadsByTheirColumns) {
  const std::pair<std::string, std::string> cases[] = {
      {"Number;Name;X;Y\n1;P1;-0,9;0,4\n", "P1 1 -0.9 0.4"},
      {"canonical_pin_name,project_pin_name,type,x,y\nVDD,pad_1,POWER,-.9,.4\n", "VDD  -0.9 0.4"},
      {"pad,net,x,y\n7,VDD,-.9,.4\n", "VDD 7 -0.9 0.4"},
      {"pad,net,x,y\nA1,VDD,-.9,.4\n", "A1  -0.9 0.4"},
      {"pin,x,y\nVDD,-.9,.4\n", "VDD  -0.9 0.4"},
      {"number,x,y\n7,-.9,.4\n", "7 7 -0.9 0.4"},
      {"name,x,y\nA,-.9,.4\nB,,\n", "A  -0.9 0.4"},
      {"7 VDD 3 -.9 .4\n", "VDD 7 -0.9 0.4"},
      // No coordinate is negative: they count from the corner of the die, whose middle is at (1, 0.8).
      {"name,x,y\nA,0.1,0.8\nB,1,1.5\n", "A  -0.9 0; B  0 0.7"},
      // A list of wires: a pad comes again with its second wire; the names of pads and nets change roles
      // where there is no column of leads.
      {"Die#,Subs#,Net Name,Pad Name,Die X,Die Y,Subs X,Subs "
       "Y\n1,9,VSS,VSS_1,-.9,.4,-2,1\n1,8,VSS,VSS_1,-.9,.4,-2,0\n",
       "VSS_1 1 -0.9 0.4"},
      {"Net Name,Pad Name,Die X,Die Y,Subs X,Subs Y\nVSS,12,-.9,.4,-2,1\n", "VSS  -0.9 0.4"},
      {"Bond Pad No.,Signal Name,X Coord (um),Y Coord\n7,VDD,-.9,.4\n", "VDD 7 -0.9 0.4"},
      {"Pad Number,Pin Name,Centre X,Centre Y\n7,VDD,-.9,.4\n", "VDD 7 -0.9 0.4"},
      {"Lead Name,Pad #,Pad X,Pad Y\nL1,7,-.9,.4\n", "7 7 -0.9 0.4"},
  };
  for (const auto& [text, pads] : cases) EXPECT_EQ(Pads(text), pads) << text;
  EXPECT_EQ(Pads("name,x,y\nA,-900,400\n", 1e-3), "A  -0.9 0.4");
}

TEST_F(TablesTest, FindFingersByTheirColumns) {
  const std::pair<std::string, std::string> cases[] = {
      // Along x to the left of the die, along y above it, at an angle where one is given: 0.6 long at 90
      // degrees.
      {"finger,net,tier,x,y,width,height\n1,VDD,2,-2,0,0.6,0.1\n", "1  VDD 2 -1.7 0 -2.3 0"},
      {"lead,name,x,y,width,height\n1,A,0.1,2,0.6,0.1\n2,B,-0.1,-2,0.6,0.1\n",
       "1 A  1 0.1 1.7 0.1 2.3; 2 B  1 -0.1 -1.7 -0.1 -2.3"},
      {"lead,x,y,width,height,angle\n1,-2,0.5,0.6,0.1,90\n", "1   1 -2 0.2 -2 0.8"},
      {"Net Name,Pad Name,Layer,Die X,Die Y,Subs X,Subs Y\nVSS,12,3,-.9,.4,-2,1\n", "12  VSS 3 -2 1 -2 1"},
      // Places count from the corner of the die if its pads do.
      {"lead,Die X,Die Y,Subs X,Subs Y\n1,0.1,0.8,-1,0.8\n", "1   1 -2 0 -2 0"},
      {"Finger Number,Finger Name,Net Name,X,Y\n1,A,VDD,-2,0\n", "1 A VDD 1 -2 0 -2 0"},
      // The paddle, and what a list bonds down or leaves unbonded, are not leads; a ground finger is one.
      {"lead,x,y,width,height\nPADDLE,0,0,1,1\nGND,0,0,1,1\nGND,-2,0,0,0\n", "GND   1 -2 0 -2 0"},
      {"lead,Die X,Die Y,Subs X,Subs Y\nGND,-.9,0,-2,0\nnc,-.9,0,-2,0\npaddle,-.9,0,-2,0\n1,0,0,-2,0\n",
       "1   1 -2 0 -2 0"},
  };
  for (const auto& [text, fingers] : cases) EXPECT_EQ(Fingers(text), fingers) << text;
}

TEST_F(TablesTest, FindBondsByTheirColumns) {
  const std::pair<const char*, const char*> cases[] = {{"Pad Name,Lead Number,Remark\nA,3,x\n", "A  3"},
                                                       {"Bond Pad,Package Pin\nA,3\n", "A  3"},
                                                       {"Pad Number,Lead Name\n7,L3\n", " 7 L3"},
                                                       {"pin number,net name\n3,VDD\n", "VDD  3"},
                                                       {"pad#,pin name,lead\n7,L3,\n", " 7 L3"},
                                                       {"Pad,Finger ID\nA,3\n", "A  3"},
                                                       {"ball,pad name\n3,A\n", "A  3"}};
  for (const auto& [text, bond] : cases) {
    const BondRow row = BondsFromTable(Put("b.csv", text)).at(0);
    EXPECT_EQ(row.PadName + " " + row.PadNumber + " " + row.Leads.at(0), bond) << text;
  }
  EXPECT_EQ(RefusalOf([&] { BondsFromTable(Put("b.csv", "pad,net,wohin\nA,VDD,3\n")); }),
            "b.csv: it does not say which pad is bonded to which lead, and has 1 unknown column 'wohin'; "
            "give it the "
            "columns pad and lead");
}

TEST_F(TablesTest, NameTheRowOfAFault) {
  const auto refused = [this](const std::string& text) { return RefusalOf([&] { Pads(text); }); };
  EXPECT_EQ(refused("name,x,y\nA,-1,0\nB,1mm,0\n"), "d.csv:3: '1mm' is not a number; correct it");
  EXPECT_EQ(refused("name,x,y\n,-1,0\n"),
            "d.csv:2: the pad has no name; give it one in a column such as name or pad");
  EXPECT_EQ(refused("name,x,y,width,height\nA,-1,0,-.1,.1\n"),
            "d.csv:2: the pad's size is negative; correct it");
  EXPECT_EQ(refused("name,x\nA,-1\n"),
            "d.csv: it does not say where the pads are; give it a header with the columns x and y");
  EXPECT_EQ(refused("name,x,y\n"),
            "d.csv: no pads found in 0 rows; give a row for each pad, or other --pads");
  const auto fingers = [this](const std::string& text) { return RefusalOf([&] { Fingers(text); }); };
  EXPECT_EQ(fingers("lead,x,y\n1,-2,0\n1,-2,1\n"),
            "f.csv:3: duplicate lead '1'; give each lead another number");
  EXPECT_EQ(fingers("lead,tier,x,y\n1,7,-2,0\n"), "f.csv:2: there is no tier '7'; number tiers from 1 to 4");
  EXPECT_EQ(fingers("1 2\n").substr(0, 45), "f.csv: it does not say where the fingers are;");
}

}  // namespace
}  // namespace importer
