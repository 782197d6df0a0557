/// A pen that keeps what is drawn, for tests of the geometry.
#pragma once

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "model/colours.h"
#include "model/pen.h"

/// A number with up to four decimals, without the sign of a zero.
inline std::string NumberText(double value) {
  const double rounded = std::round(value * 1e4) / 1e4;
  char text[32];
  std::snprintf(text, sizeof text, "%.10g", rounded == 0.0 ? 0.0 : rounded);
  return text;
}

/// "(x y z)" in the scene's coordinates.
inline std::string PointText(const model::SceneVector& point) {
  return "(" + NumberText(double(point.X)) + " " + NumberText(double(point.Y)) + " " +
         NumberText(double(point.Z)) + ")";
}

inline std::string ColourText(const model::Colour& paint) {
  for (const char* name : {"Black", "Blue", "DarkBlue", "Cyan", "DarkCyan", "Yellow", "White", "Gray"}) {
    const model::Colour colour = model::ColourOf(name);
    if (colour.Red == paint.Red && colour.Green == paint.Green && colour.Blue == paint.Blue) return name;
  }
  return "no such colour";
}

/// "White (normal) (corner) (corner) (corner) (corner)".
inline std::string FaceText(const model::Face& face) {
  std::string text = ColourText(face.Paint) + " " + PointText(face.Normal);
  for (const model::SceneVector& corner : face.Corners) text += " " + PointText(corner);
  return text;
}

/// "(centre) diameter", from the rim's points at 0, 90 and 180 degrees.
inline std::string DiscText(const model::DiscRim& rim) {
  const model::SceneVector centre{(rim[9].X + rim[27].X) / 2.0F, rim[0].Y, (rim[0].Z + rim[18].Z) / 2.0F};
  return PointText(centre) + " " + NumberText(double(rim[0].Z) - double(rim[18].Z));
}

class RecordingPen final : public model::Pen {
 public:
  void Quad(const model::Face& face) override {
    Quads.push_back(face);
    Order += 'Q';
  }
  void Disc(const model::DiscRim& rim) override {
    Discs.push_back(rim);
    Order += 'D';
  }
  void Strip(const model::WireStrip& points, const model::Colour& paint) override {
    Strips.push_back(points);
    StripColours.push_back(ColourText(paint));
    Order += 'S';
  }

  std::vector<model::Face> Quads;
  std::vector<model::DiscRim> Discs;
  std::vector<model::WireStrip> Strips;
  std::vector<std::string> StripColours;
  std::string Order;  ///< a letter for each shape: Q, D, S
};
