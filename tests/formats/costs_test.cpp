#include <gtest/gtest.h>

#include <string>

#include "formats/circuit.h"
#include "formats/cost_table.h"

namespace formats {
namespace {

analysis::WireCost Wire(const std::string& name, const std::string& other = "") {
  const auto table = other.empty() ? model::RecordTable::Bonds : model::RecordTable::Stitches;
  return {
      .Wire = {.Place = {.Table = table}, .Name = name, .OtherName = other, .Tier = "2", .NetType = "POWER"},
      .Impedance = {.Length = 1.5e-3,
                    .DirectResistance = 0.065421,
                    .Resistance = 0.0654225,
                    .Inductance = 1.25e-9},
      .Nearest = "",
      .K = {}};
}

/// Three wires; the first two couple, against each other.
analysis::WireCosts Three() {
  analysis::WireCosts costs{.Rows = {Wire("A"), Wire("B", "C"), Wire("D,\"E")},
                            .Coupled = true,
                            .Couplings = {{0, 1, -0.25}},
                            .LeftOut = 2,
                            .LargestLeftOut = 0.0625};
  costs.Rows[0].Nearest = "B:C";
  costs.Rows[0].K = -0.25;
  return costs;
}

TEST(CostTableTest, CsvHasThePromisedColumnsAndUnits) {
  EXPECT_EQ(CostsCsv(Three()),
            "name,other_name,table,tier,net_type,length_mm,r_dc_mohm,r_mohm,l_nh,nearest,k\n"
            "A,,base,2,POWER,1.5,65.421,65.4225,1.25,B:C,-0.25\n"
            "B,C,stitch,2,POWER,1.5,65.421,65.4225,1.25,,\n"
            "\"D,\"\"E\",,base,2,POWER,1.5,65.421,65.4225,1.25,,\n");
  EXPECT_EQ(CostsCsv({}), "name,other_name,table,tier,net_type,length_mm,r_dc_mohm,r_mohm,l_nh,nearest,k\n");
}

TEST(CostTableTest, JsonHasNumbersAndNothingWhereNoneIsKnown) {
  const std::string json = CostsJson(Three());
  EXPECT_NE(json.find("\"l_nh\": 1.25,"), std::string::npos) << json;
  EXPECT_NE(json.find("\"k\": -0.25\n"), std::string::npos);
  EXPECT_NE(json.find("\"nearest\": \"\",\n      \"k\": null\n"), std::string::npos);
  EXPECT_EQ(CostsJson({}), "{\n  \"wires\": []\n}\n");
}

TEST(CircuitTest, HasAPortPairForEachWireAndSaysWhatIsLeftOut) {
  EXPECT_EQ(CircuitText(Three(), {.Package = "a b.yax", .Conditions = "3 wires", .LeastCoupling = 0.1}),
            "* The bond wires of a b.yax: 3 wires.\n"
            "* Wire n runs from port sn to port en. R, L and k hold at this frequency.\n"
            "* Left out: 2 couplings below 0.1, the largest of 0.0625.\n"
            ".subckt a_b\n+ s1 e1\n+ s2 e2\n+ s3 e3\n"
            "* 1: A\nR_1 s1 m1 0.0654225\nL_1 m1 e1 1.25e-09\n"
            "* 2: B:C\nR_2 s2 m2 0.0654225\nL_2 m2 e2 1.25e-09\n"
            "* 3: D,\"E\nR_3 s3 m3 0.0654225\nL_3 m3 e3 1.25e-09\n"
            "K_1_2 L_1 L_2 -0.25\n"
            ".ends a_b\n");
}

TEST(CircuitTest, CommentsUseTheSingularForOne) {
  analysis::WireCosts costs = Three();
  costs.LeftOut = 1;
  const CircuitNote note{
      .Package = "a.yax", .Conditions = ConditionsText(1, {.Material = "Au"}), .LeastCoupling = 0.1};
  const std::string text = CircuitText(costs, note);
  EXPECT_NE(text.find("a.yax: 1 wire, Au, "), std::string::npos) << text;
  EXPECT_NE(text.find("Left out: 1 coupling below 0.1, of 0.0625.\n"), std::string::npos);
}

TEST(CircuitTest, NamesThatNoSimulatorTakesStayInComments) {
  analysis::WireCosts costs = Three();
  costs.Rows[0].Wire.Name = "A\nR_9 s1 0 1\xFF";
  costs.Coupled = false;
  const std::string text = CircuitText(costs, {.Package = "9.yax", .Conditions = ""});
  EXPECT_NE(text.find("* 1: A R_9 s1 0 1\xEF\xBF\xBD\n"), std::string::npos) << text;
  EXPECT_NE(text.find(".subckt wires_9\n"), std::string::npos);
  EXPECT_NE(text.find("* Left out: the couplings"), std::string::npos);
}

}  // namespace
}  // namespace formats
