/// The picture of a package: what is drawn, in which order, through a pen.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "model/draw_quad.h"
#include "model/package.h"
#include "model/pen.h"
#include "model/side.h"
#include "model/wire_bond_settings.h"
#include "model/wire_path.h"
#include "model/wire_selection.h"
#include "model/wire_shapes.h"
#include "render/appearance.h"

namespace render {

/// The data that a scene shows.
struct SceneInputs {
  const model::Package& Package;
  const model::WireBondSettings& Settings;
  const render::Appearance& Appearance;
  const model::WireSelection& Selection;
  const model::WireShapes* Shapes = nullptr;  ///< loops that override the settings; may be null
};

/// Units  scene units (file units / UnitScale), y up: package (x, y, z) becomes (x, z, y). Pads and wires
///        pass the package's y negated; dies, the stacked die, rings and the attach area do not.
/// Faults (all drawing routines) Overflow beyond the range of a single
class Scene {
 public:
  Scene(const SceneInputs& inputs, model::Pen& pen) : in_(inputs), pen_(pen) {}

  /// Draws everything that a package of this technology shows, in the fixed order.
  void DrawPackage();

  /// The base die's body.
  void DrawDie();
  /// The stacked die's body, turned about its own centre.
  void DrawSDDie();
  /// The base die's pads, and the bumps of a flip chip.
  void DrawDiePads();
  /// The stacked die's pads. Needs RotateSDCorners to have run, which DrawSDDie does.
  void DrawSDDiePads();
  /// Turns the stacked die's corners (into SDCornerX_, SDCornerY_) and, each about its own centre, its pads
  /// (into AuxPoints_).
  void RotateSDCorners();

  /// The die attach area.
  void DrawAttach();
  /// Every ring, straight or bowed.
  /// Faults DivisionByZero for a bowed ring without bulge; Overflow from 32,768 rings on
  void DrawRings();
  void DrawArcRing(std::size_t ring);
  /// Every segmented ring, straight or bowed. Faults as DrawRings.
  void DrawSRings();
  void DrawArcSRing(std::size_t ring);
  /// Deliberate: without a body and without a caller.
  void RenderRingSide(float x1, float y1, float x2, float y2, float z);

  /// The substrate pads of the base die's bonds.
  /// Faults Overflow from 32,768 bonds on
  void DrawBondPads();
  /// The same for the stacked die's bonds.
  void DrawSDBondPads();

  /// Every selected bond wire as a loop: base die, stacked die, stitches.
  /// Faults DivisionByZero when a wire's ends coincide in plan; Overflow from 32,768 records of a table on
  void DrawWires();

  /// A horizontal disc of the colour of the quad before it.
  /// Units  scene centre (centreX, centreZ) at height y; a negative diameter is the same disc
  void DrawCircle(float centreX, float centreZ, float y, float diameter);

 private:
  struct PlanPoint {
    float X = 0.0F, Y = 0.0F;
  };
  class Turn;
  struct RingOutline;
  struct Span;

  void DrawQuad(const model::PackagePoint& corner1, const model::PackagePoint& corner2,
                const model::PackagePoint& corner3, const model::PackagePoint& corner4,
                std::string_view colour) {
    model::DrawQuad(pen_, corner1, corner2, corner3, corner4, colour);
  }
  /// A thin plate just below the substrate plane, visible from both sides.
  void DrawPlate(const PlanPoint& corner1, const PlanPoint& corner2, const PlanPoint& corner3,
                 const PlanPoint& corner4);
  void DrawDiePad(std::size_t bond);
  void DrawSDDiePad(std::size_t bond);
  void RotateSDPad(std::size_t bond, const Turn& turn);
  void DrawRing(std::size_t ring);
  void DrawSRing(std::size_t ring);
  void DrawRoundPad(const model::BondRec& bond, double quadHeight, double upperDisc, double lowerDisc);
  void DrawArcSide(model::Side side, const RingOutline& ring, const Span& span);
  void DrawStraightSide(model::Side side, const RingOutline& ring, float start, float end);
  void DrawBand(model::DapRec dap);
  void DrawSubstratePads(const model::Table<model::BondRec>& bonds, model::RecordTable table);
  void DrawSubstratePad(const model::BondRec& bond, const model::RecordPlace& place);
  void OrientPad(const model::BondRec& bond);
  void SetPadCorners(const model::BondRec& bond, float rotation);
  void DrawPadEnds(const model::BondRec& bond, float height);
  void RenderWire();

  SceneInputs in_;
  model::Pen& pen_;
  std::array<float, 4> SDCornerX_{};
  std::array<float, 4> SDCornerY_{};
  /// For each pad of the stacked die its four turned corners, X then Y, then a fifth turned point that
  /// nothing draws. All 0 where no stacked die turns them.
  std::vector<std::array<float, 10>> AuxPoints_;
  /// Corners P1 to P4 of the substrate pad being drawn. Deliberate: kept from pad to pad, table to table and
  /// build to build; a pad on no edge is drawn with the corners of the pad before it.
  std::array<PlanPoint, 4> padCorners_{};
  model::WireStrip WirePoints_{};  ///< the wire being drawn, in scene coordinates
};

/// The bulge of a bowed side at position p along it: h at the side's middle, 0 at its corners.
/// Units  an upright side measures from centreY, any other from centreX; radius of the side's circle
/// Deliberate: takes the root of an absolute value, so that positions beyond the circle give a number too.
float Snap(model::Side side, float centreX, float centreY, float radius, float h, float p);

}  // namespace render
