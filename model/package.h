/// The package in memory: the scalars and record tables that a package file fills and the drawing reads.
#pragma once

#include <string>

#include "model/record_place.h"
#include "model/table.h"

namespace model {

/// One bond: its die pad, its substrate pad and its wire. Lengths in file units / UnitScale. Without the
/// alignment a record has 264 bytes, and reading takes 8 % longer.
struct alignas(16) BondRec {
  float DieX = 0.0F, DieY = 0.0F,
        DieZ = 0.0F;  ///< die pad centre; DieZ is the base die's height, on stacked dies too
  float DieSizeY = 0.0F, DieSizeX = 0.0F;       ///< die pad extents along y and x
  std::string DieSide;                          ///< die edge of the pad: "L", "R", "T", "B"
  std::string DieShape;                         ///< "RECTANGLE", "ROUND"; any other word draws no pad
  std::string Name;                             ///< pad (net) name, by which other records find the bond
  std::string Tier;                             ///< tier of the substrate pad, "0" to "4", as text
  float SubX = 0.0F, SubY = 0.0F, SubZ = 0.0F;  ///< substrate pad centre; (0, 0) means no pad
  float SubSizeY = 0.0F, SubSizeX = 0.0F;       ///< substrate pad extents
  float SubAngle = 0.0F;                        ///< substrate pad rotation, degrees
  std::string SubShape;                         ///< "RECTANGLE"; any other word gives round ends
  float WireStartX = 0.0F, WireStartY = 0.0F, WireStartZ = 0.0F;  ///< die end; x = y = 0 means no wire
  float WireEndX = 0.0F, WireEndY = 0.0F, WireEndZ = 0.0F;        ///< substrate end
  std::string Lead;  ///< number or name of the lead where the wire ends; the drawing does not use it
};

/// Deliberate: a wire that starts at the origin is indistinguishable from no wire.
inline bool HasWire(const BondRec& bond) { return bond.WireStartX != 0.0F || bond.WireStartY != 0.0F; }

/// A stitch wire from pad to pad.
struct StitchRec {
  std::string Name;        ///< both pad names, "FIRST:SECOND"
  std::string Pad1, Pad2;  ///< the same two names separately: a pad's name may contain a colon
  float X1 = 0.0F, X2 = 0.0F, Y1 = 0.0F, PadSize1 = 0.0F, Y2 = 0.0F, Z1 = 0.0F, Z2 = 0.0F, PadSize2 = 0.0F;
};

/// A ring on the substrate, straight or with bowed sides.
struct RingRec {
  float X1 = 0.0F, X2 = 0.0F, Y1 = 0.0F, Y2 = 0.0F;  ///< left, right, bottom, top; y as drawn, so Y1 > Y2
  float Width = 0.0F;                                ///< width of the band, centred on the sides
  std::string Kind;    ///< "ARC" (any case) bows the sides; any other word is straight
  float Param = 0.0F;  ///< bulge of a bowed side at its middle
};

/// A piece of one side of a segmented ring.
struct SRSegRec {
  std::string Name;          ///< side letter: "B" at Y1, "T" at Y2, "L" at X1, "R" at X2
  float A = 0.0F, B = 0.0F;  ///< start and end along the side: X for "B" and "T", Y for "L" and "R"
};

/// A ring drawn only in pieces.
struct SRingRec {
  std::string Name;
  float X1 = 0.0F, X2 = 0.0F, Y1 = 0.0F, Y2 = 0.0F, Width = 0.0F;
  std::string Kind;
  float Param = 0.0F;
  Table<SRSegRec> Segs;
};

/// A straight band of the die attach area: centre line (D1, D2) to (D3, D4), width D5.
struct DapRec {
  std::string Name;
  float D1 = 0.0F, D2 = 0.0F, D3 = 0.0F, D4 = 0.0F, D5 = 0.0F;
};

/// One entry of the wire list.
struct WireNameRec {
  std::string Name;
  std::string Name2;    ///< second pad of a stitch, else empty
  std::string NetType;  ///< from the side file: "POWER", "GROUND", "SIGNAL"
  std::string Tier;     ///< "1" to "4"
  RecordPlace Wire{};   ///< the bond or stitch that the entry lists
};

/// The values that a package has once. They survive a load: a file that does not set one leaves it as it was.
/// Lengths are file values divided by UnitScale.
struct PackageScalars {
  std::string PackagePath;  ///< full path of the package file
  float UnitScale = 1.0F;   ///< grows by tens until the base die is at most 10 long and wide
  float CompL = 0.0F;       ///< base die length, along y
  float CompW = 0.0F;       ///< base die width, along x
  float CompZ = 0.0F;       ///< base die height; never 0 once a package is read
  std::string Technology;   ///< "WIRE_BOND", "FLIP_CHIP"; upper case
  float SDCompL = 0.0F, SDCompW = 0.0F, SDCompZ = 0.0F;  ///< stacked die; there is one when SDCompW is not 0
  std::string SDTechnology;
  float SDRotation = 0.0F;                   ///< degrees, never scaled
  float SDXOffset = 0.0F, SDYOffset = 0.0F;  ///< stacked die's centre from the base die's
};

/// True when wires, substrate pads, rings and die attach bands are drawn.
inline bool IsWireBonded(const PackageScalars& package) { return package.Technology == "WIRE_BOND"; }

/// One package.
struct Package : PackageScalars {
  bool HaveVuFile = false;  ///< a net-type side file was read

  Table<BondRec> Bonds;    ///< pads on the base die
  Table<BondRec> SDBonds;  ///< pads on the stacked die
  Table<StitchRec> Stitches;
  Table<RingRec> Rings;
  Table<SRingRec> SRings;
  Table<DapRec> Daps;
  Table<WireNameRec> WireNames;
};

}  // namespace model
