#include "shell/print_layout.h"

#include <algorithm>

namespace shell {

namespace {

constexpr double kPixelsPerInch = 96.0;

}  // namespace

PrintPlace PlaceNoScale(int pictureWidth, int pictureHeight, const PrintArea& area) {
  const double dotsPerPixelX = area.DotsPerInchX / kPixelsPerInch;
  const double dotsPerPixelY = area.DotsPerInchY / kPixelsPerInch;
  PrintPlace place;
  place.SourceWidth = std::min<double>(pictureWidth, area.Width / dotsPerPixelX);
  place.SourceHeight = std::min<double>(pictureHeight, area.Height / dotsPerPixelY);
  place.Width = place.SourceWidth * dotsPerPixelX;
  place.Height = place.SourceHeight * dotsPerPixelY;
  return place;
}

PrintPlace PlaceFitPage(int pictureWidth, int pictureHeight, const PrintArea& area) {
  PrintPlace place;
  if (pictureWidth <= 0 || pictureHeight <= 0) return place;

  // Keep the proportions in inches: a printer's dots need not be square.
  const double inchesPerPixel = std::min(area.Width / area.DotsPerInchX / pictureWidth,
                                         area.Height / area.DotsPerInchY / pictureHeight);
  place.SourceWidth = pictureWidth;
  place.SourceHeight = pictureHeight;
  place.Width = pictureWidth * inchesPerPixel * area.DotsPerInchX;
  place.Height = pictureHeight * inchesPerPixel * area.DotsPerInchY;
  place.X = (area.Width - place.Width) / 2;
  place.Y = (area.Height - place.Height) / 2;
  return place;
}

}  // namespace shell
