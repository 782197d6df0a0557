#include "yax/page/package_page.h"

#include <vector>

#include "analysis/clearance.h"
#include "analysis/lengths.h"
#include "formats/clearance_table.h"
#include "model/text.h"
#include "sheet/bonding_diagram.h"
#include "sheet/diagram_wires.h"
#include "sheet/measured_data.h"
#include "yax/meshes/mesh_files.h"
#include "yax/messages.h"
#include "yax/options/text_file.h"
#include "yax/page/page_html.h"

namespace yax {

namespace {

/// The nearest other wire of each wire, among all loops of the package.
NearestWires NearestOf(const std::vector<analysis::WireLoop>& loops, const analysis::Clearances& clearances,
                       const analysis::LengthUnit& unit) {
  NearestWires nearest;
  // Pairs are sorted by clearance, so the first pair of a wire has its nearest other wire.
  for (const analysis::ClearanceRow& pair : clearances.Rows) {
    const std::string clearance = formats::LengthText(pair.Clearance, unit);
    nearest.try_emplace(loops[pair.First].Place, NearestWire{clearance, pair.Other});
    nearest.try_emplace(loops[pair.Second].Place, NearestWire{clearance, pair.Name});
  }
  return nearest;
}

/// The bonding diagram on an A3 sheet, or on a larger one if the plan needs it. Empty, with a note, when no
/// sheet is large enough.
std::string DiagramOf(const OpenedPackage& opened, const std::vector<analysis::WireLoop>& loops) {
  const analysis::LengthUnit unit = opened.Unit();
  const std::vector<sheet::DiagramWire> wires = sheet::DiagramWiresOf(opened.Package, loops, opened.Lines);
  const std::vector<sheet::Fact> facts =
      sheet::MeasuredData({opened.Package, wires, opened.Settings, unit.Name, 1.0, "", ""});
  sheet::DiagramInputs inputs{.Package = opened.Package,
                              .Wires = wires,
                              .Facts = facts,
                              .Notes = {},
                              .Findings = {},
                              .Title = {},
                              .FileName = std::string(model::FileNameOf(opened.Package.PackagePath)),
                              .Digest = DigestOf(opened.Package.PackagePath),
                              .Millimetres = unit.Millimetres,
                              .Unit = unit.Name,
                              .NumberScale = 1.0,
                              .Paper = {.Name = "a3"},
                              .Scale = {},
                              .Into = sheet::Split::None,
                              .Table = false};
  try {
    return sheet::SvgOf(sheet::BondingDiagram(inputs));
  } catch (const sheet::DoesNotFit& small) {
    if (small.Fitting) {
      inputs.Paper = *small.Fitting;
      return sheet::SvgOf(sheet::BondingDiagram(inputs));
    }
  }
  Complain({.File = opened.Package.PackagePath},
           "note: the page has no diagram, because the plan is larger than any sheet", "check --unit");
  return "";
}

}  // namespace

std::string PageOf(const OpenedPackage& opened, const analysis::NetRule& nets) {
  const analysis::LengthUnit unit = opened.Unit();
  const double diameter = opened.WireDiameter();
  const double scale = double(opened.Package.UnitScale);
  const PageModel model = ModelOf(opened.Inputs({}), diameter / 2.0 / scale);
  const std::string name(model::FileNameOf(opened.Package.PackagePath));

  const std::vector<analysis::WireLoop> loops = opened.AllLoops();
  const NearestWires nearest =
      NearestOf(loops, analysis::MeasureClearances(loops, {.Nets = nets, .WireDiameter = diameter}), unit);
  const std::vector<analysis::WireLoop> chosen = opened.Loops();
  const std::vector<analysis::WireRow> rows = analysis::MeasureLengths(opened.Package, chosen);
  return PageHtml({.Title = name,
                   .Unit = unit.Name,
                   .Model = model,
                   .Gltf = GltfText({.Name = name,
                                     .Groups = model.Groups,
                                     .FileUnits = scale,
                                     .Metres = scale * unit.Metres,
                                     .UnitName = unit.Name}),
                   .Wires = rows,
                   .Nearest = nearest,
                   .Diagram = DiagramOf(opened, chosen)});
}

}  // namespace yax
