#include "import/chip_import.h"

#include "import/crossings.h"
#include "import/terminals.h"
#include "model/numbers.h"
#include "tests/import/import_fixture.h"

namespace importer {
namespace {

/// A die of 2 x 1.6 with four pads on each side but the top one, in a package of 16 leads with a paddle.
constexpr char kPads[] =
    "name,number,x,y,width,height\n"
    "A,1,-.9,.3,.07,.07\nB,2,-.9,.1,.07,.07\nC,3,-.9,-.1,.07,.07\nGND,4,-.9,-.3,.07,.07\n"
    "E,5,.9,-.3,.07,.07\nF,6,.9,-.1,.07,.07\nVDD,7,.9,.1,.07,.07\nVDD,8,.9,.3,.07,.07\n";
constexpr char kFrame[] = "qfn:16,body=5x5,pitch=0.65,lead=0.4x0.3,paddle=3.2x3.2";

class ChipImportTest : public ImportTest {
 protected:
  ChipImportTest() {
    request.Chip = {.File = Put("d.csv", kPads), .DieSize = glm::dvec2(2, 1.6)};
    request.Height = 0.25;
    request.Package = kFrame;
  }

  /// "PAD>LEAD" of each wire, and what stays free.
  std::string Wires() {
    std::string wires;
    made = ImportChip(request).Made;
    for (const model::BondRec& bond : made.Package.Bonds)
      if (!bond.Lead.empty()) wires += (wires.empty() ? "" : " ") + bond.Name + ">" + bond.Lead;
    return wires;
  }
  void Table(const std::string& text) {
    request.Bonds.Plan = BondPlan::Table;
    request.Bonds.TableFile = Put("b.csv", text);
  }
  std::string Refused() const {
    return RefusalOf([&] { ImportChip(request); });
  }

  ImportRequest request;
  Bonded made;
};

TEST_F(ChipImportTest, MatchesInOrderAroundWhatIsDecided) {
  // Leads 1 to 4 are on the left from the top, 9 to 12 on the right from the bottom.
  EXPECT_EQ(Wires(), "A>1 B>2 C>3 GND>4 E>9 F>10 VDD>11 VDD_2>12");
  request.Bonds.Exceptions = {"GND=PADDLE", "VDD_2=", "F=9,10"};
  request.Bonds.Unused = {"3"};
  // C then takes 4. E and VDD take 11 and 12, at 2.4 + 2.7 mm2; 8 and 11 would be 4.0 + 2.0.
  EXPECT_EQ(Wires(), "A>1 B>2 C>4 GND>PADDLE E>11 F>9 F_2>10 VDD>12");
  EXPECT_EQ(made.Summary.substr(0, 70),
            "8 pads, 16 leads, 8 wires; leads free: 3, 5, 6, 7, 8, 13, 14, 15, 16; ");
  // From the pad at -0.9 straight to the left: the die ends at -1, the paddle at -1.6. Halfway is 0.3 from
  // the die.
  const model::BondRec& down = made.Package.Bonds[3];
  EXPECT_FLOAT_EQ(down.WireEndX, -1.3F);
  EXPECT_FLOAT_EQ(down.WireEndY, -0.3F);
  EXPECT_EQ(down.SubShape, "");
}

TEST_F(ChipImportTest, TurnsAndMovesTheDie) {
  // After half a turn the die's left side meets the leads on the right.
  request.Degrees = 180.0;
  EXPECT_EQ(Wires(), "A>9 B>10 C>11 GND>12 E>1 F>2 VDD>3 VDD_2>4");
  // The lead's middle lay at (2.3, -0.975); moving the die by (0.1, 0.2) and turning it by half a turn puts
  // the lead here.
  request.Offset = {0.1, 0.2};
  Wires();
  EXPECT_FLOAT_EQ(made.Package.Bonds[0].SubX, -2.2F);
  EXPECT_FLOAT_EQ(made.Package.Bonds[0].SubY, 1.175F);
}

TEST_F(ChipImportTest, BondsAsATableSays) {
  Table("pad,lead\nA,16\nB,\"1,2\"\nC,0\nC,NC\n4,GND\nVDD_2,5\n");
  EXPECT_EQ(Wires(), "A>16 B>1 B_2>2 GND>PADDLE VDD_2>5");
  EXPECT_EQ(made.Findings.size(), 2U) << "a name made unique, pads without a row";
  Table("8 VDD 4 0 0\n7 VDD 3 0 0\n1 A NC 0 0\n");
  EXPECT_EQ(Wires(), "VDD>3 VDD_2>4") << "a name that several pads have gives way to the number";
  Table("pad,lead\nA,1\nA,1\n");
  EXPECT_EQ(Wires(), "A>1 A_2>1") << "a double bond";
}

TEST_F(ChipImportTest, BondsByTheNamesOfLeads) {
  request.Bonds.Plan = BondPlan::Names;
  request.Package =
      Put("f.csv",
          "lead,name,net,x,y,width,height\n1,A,,-2,.3,.4,.1\n2,,/B,-2,.1,.4,.1\nC,,,-2,-.1,.4,.1\n"
          "11,,VDD,2,.1,.4,.1\n12,,VDD,2,.3,.4,.1\n13,,FREE,0,2,.4,.1\n");
  EXPECT_EQ(Wires(), "A>1 B>2 C>C VDD>11 VDD_2>12");
  ASSERT_EQ(made.Findings.size(), 3U);
  EXPECT_EQ(made.Findings[1].substr(0, 49), "3 pads are not bonded to a lead: GND, E, F; bond ");
  EXPECT_EQ(made.Findings[2].substr(0, 37), "1 lead with a net stays free: 13; nam");
  // The second pad of a pin gets its own lead, although the first one's lead is nearer.
  request.Package = Put("f.csv", "lead,x,y\nVDD,2,.3\nVDD_2,2,.1\n");
  EXPECT_EQ(Wires(), "VDD>VDD VDD_2>VDD_2");
  request.Bonds.Plan = BondPlan::None;
  EXPECT_EQ(Wires(), "");
  EXPECT_EQ(made.Findings.size(), 1U) << "no bonds were asked for";
}

TEST_F(ChipImportTest, MakesNamesOfLeadsUnique) {
  request.Package = Put("f.csv", "lead,x,y\n\"L 1\",-2,.3\nL_1,-2,.1\n\"L\t1\",-2,-.1\nM,-2,-.3\n");
  request.Bonds.Exceptions = {"E=", "F=", "VDD=", "VDD_2="};
  EXPECT_EQ(Wires(), "A>L_1_2 B>L_1 C>L_1_3 GND>M");
  ASSERT_EQ(made.Findings.size(), 3U);
  EXPECT_EQ(made.Findings[1], "blanks or control characters in names of leads became '_': L_1, L_1");
  EXPECT_EQ(made.Findings[2], "names of leads were made unique: L_1_2, L_1_3");
  request.Bonds = {.Plan = BondPlan::None, .Exceptions = {"A=L 1", "B=L_1_3"}};
  EXPECT_EQ(Wires(), "A>L_1_2 B>L_1_3") << "by the name in the table, and by the one in the package";
}

TEST_F(ChipImportTest, TakesBothEndsOfDownBondsFromAList) {
  request.Chip.File = request.Package = request.Bonds.TableFile =
      Put("l.csv",
          "Net Name,Lead,Die X,Die Y,Subs X,Subs Y\nA,1,-.9,.3,-2,.3\nB,GND,-.9,.1,-1.3,.1\n"
          "B,PADDLE,-.9,.1,-1.4,.1\nC,NC,-.9,-.1,-1.4,-.1\n");
  request.Bonds.Plan = BondPlan::Table;
  EXPECT_EQ(Wires(), "A>1 B>PADDLE B_2>PADDLE");
  EXPECT_EQ(made.Summary.substr(0, 40), "3 pads, 1 lead, 3 wires; leads free: non");
  EXPECT_FLOAT_EQ(made.Package.Bonds[2].WireEndX, -1.4F);
  // After half a turn of the die in its package the ends lie on the other side of it.
  request.Degrees = 180.0;
  Wires();
  EXPECT_FLOAT_EQ(made.Package.Bonds[2].WireEndX, 1.4F);
}

TEST_F(ChipImportTest, KnowsSuppliesByTheirObviousNames) {
  const NetPatterns usual = UsualNets();
  const std::pair<const char*, char> cases[] = {
      {"VDD", 'P'},   {"vccd1", 'P'}, {"AVDD_2", 'P'}, {"iovdd", 'P'}, {"VPWR", 'P'}, {"VSS", 'G'},
      {"dgnd", 'G'},  {"vssio", 'G'}, {"VGND", 'G'},   {"VIN", ' '},   {"VREF", ' '}, {"VINP", ' '},
      {"AVREF", ' '}, {"VBAT", ' '},  {"NVDD", ' '},   {"CLK", ' '},   {"AGC", ' '}};
  for (const auto& [name, type] : cases)
    EXPECT_EQ(Matches(name, usual.Ground) ? 'G' : Matches(name, usual.Power) ? 'P' : ' ', type) << name;
  // A type in the table goes before the name.
  request.Chip.File = Put("d.csv", "name,x,y,width,height,type\nVDD,-.9,0,.07,.07,ground\n");
  Wires();
  EXPECT_EQ(made.Package.WireNames[0].NetType, "GROUND");
}

TEST_F(ChipImportTest, RefusesMissingPadsAndLeads) {
  const auto refused = [this](const std::string& exception) {
    request.Bonds.Exceptions = {exception};
    return Refused();
  };
  EXPECT_EQ(refused("A=17"),
            "--bond: there is no lead '17'; give the number or name of one lead of the package");
  EXPECT_EQ(refused("Z=1"), "--bond: there is no pad 'Z'; give the name or number of one pad of the die");
  EXPECT_EQ(refused("A"), "--bond: 'A' has no '='; write PAD=LEAD, PAD=PADDLE or PAD=");
  request.Bonds = {.Unused = {"5"}};
  const std::pair<const char*, const char*> tables[] = {
      {"pad,lead\nA,1\nZ,1\n", "3: there is no pad 'Z'; give the name or number of one pad of the die"},
      // One known column of two may be a pad called so.
      {"Pad Name,Wohin\nA,1\n",
       "1: there is no pad 'Pad Name'; give the name or number of one pad of the die, or, in a header, the "
       "columns "
       "pad and lead"},
      {"pad,lead\nA,99\n", "2: there is no lead '99'; give the number or name of one lead of the package"},
      {"pad,lead\nA,4\nB,5\n", "3: lead '5' is in --unused; remove it from the row or from --unused"}};
  for (const auto& [text, message] : tables) {
    Table(text);
    EXPECT_EQ(Refused(), std::string("b.csv:") + message);
  }
  Table("pad,lead\nA,PADDLE\n");
  request.Package = "qfn:16,body=5x5,pitch=0.65,lead=0.4x0.3,paddle=2x2";
  EXPECT_EQ(Refused().substr(0, 64), "b.csv:2: pad 'A' cannot be bonded down: the paddle does not exte");
  request.Bonds = {.Unused = {"0"}};
  EXPECT_EQ(Refused().substr(0, 29), "--unused: there is no lead '0");
  request.Bonds = {.Land = 0.5};
  EXPECT_EQ(Refused(), "--land: the distance is longer than lead '1'; give a smaller one");
}

TEST_F(ChipImportTest, NotesUnknownColumnsAndTablesWithoutBonds) {
  request.Chip.File = Put("d.csv", "name,x,y,width,height,Ort,length\nA,-.9,0,.07,.07,x,1\n");
  Table("pad,lead\nA,NC\n");
  const std::vector<SourceNote> notes = ImportChip(request).Notes;
  ASSERT_EQ(notes.size(), 2U);
  EXPECT_EQ(notes[0].Text, "ignored: 1 unknown column 'Ort'");
  EXPECT_EQ(notes[1].Text, "none of its rows makes a wire");
}

TEST_F(ChipImportTest, FindsMarksAndWiresThatCannotBeDrawn) {
  request.Chip.File = Put("d.csv", "name,x,y,width,height\nM,0,0,.03,.03\nN,-.9,0,.03,.03\nO,-3,0,.03,.03\n");
  Wires();
  ASSERT_EQ(made.Findings.size(), 3U);
  EXPECT_EQ(made.Findings[0].substr(0, 14), "1 wire is left") << "from the die's middle";
  EXPECT_EQ(made.Findings[1].substr(0, 29), "all pads are 30.0 x 30.0 um, ");
  EXPECT_EQ(made.Findings[2].substr(0, 30), "1 pad lies outside the die: O;");
}

TEST(Crossings, CountWiresThatMeetBetweenTheirEnds) {
  const PlanWire across{{-1, 0}, {1, 0}};
  const std::pair<PlanWire, std::size_t> cases[] = {
      {{{0, -1}, {0, 1}}, 1},      {{{0, 1}, {0, 2}}, 0},        {{{0, 1}, {0, 0.000009}}, 1},
      {{{0, 1}, {0, 0.00002}}, 0}, {{{-1, 0}, {0, 1}}, 0},       {{{0, 1}, {1, 0}}, 0},
      {{{-0.5, 0}, {0.5, 0}}, 1},  {{{1.000009, 0}, {2, 0}}, 1}, {{{1.1, 0}, {2, 0}}, 0}};
  for (const auto& [wire, count] : cases)
    EXPECT_EQ(Crossings({across, wire}).size(), count)
        << wire.Start.x << " " << wire.Start.y << " " << wire.End.y;
}

}  // namespace
}  // namespace importer
