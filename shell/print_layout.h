/// Position and size of a picture on the printed page.
#pragma once

namespace shell {

/// The printable area of the page, in the printer's dots.
struct PrintArea {
  double Width = 0.0, Height = 0.0;
  double DotsPerInchX = 96.0, DotsPerInchY = 96.0;
};

/// A part of the picture and its place on the page.
struct PrintPlace {
  double X = 0.0, Y = 0.0, Width = 0.0, Height = 0.0;  ///< dots from the area's top left corner
  double SourceWidth = 0.0, SourceHeight = 0.0;        ///< picture pixels from the picture's top left corner
};

/// "No Scale": a picture pixel is 1/96 inch; cuts off what does not fit at the right and at the bottom.
PrintPlace PlaceNoScale(int pictureWidth, int pictureHeight, const PrintArea& area);

/// "Fit Page": the whole picture, as large as the area allows, undistorted and centred.
PrintPlace PlaceFitPage(int pictureWidth, int pictureHeight, const PrintArea& area);

}  // namespace shell
