// Where the self-drawn push button (BoxControl) puts the parts of its face, in twips, and how
// those twips land on pixels. QtCore only, so the arithmetic is checked without a display.
//
// For a face W x H twips: the caption's text cell starts at ((W - text width) / 2,
// (H - text height) / 2); light edges run (0,0)-(0,H) and (0,0)-(W,0); dark edges run
// (W-20,20)-(W-20,H-20) and (20,H-20)-(W-20,H-20); a picture of natural size pw x ph
// hundredths of a millimetre has its top-left corner at ((W - pw/2)/2 - 24, (H - ph/2)/2 - 24).
#pragma once

#include "core/twips.h"

#include <QLineF>
#include <QPointF>
#include <QSize>

#include <array>

namespace BoxGeometry {

constexpr double TwipsPerPixel = Twips::PerPixel;
constexpr int DarkInset = 20;
constexpr int PictureNudge = 24;

// The top-left of the caption's text cell for a text of textWidth x textHeight twips.
QPointF captionOrigin(double faceWidth, double faceHeight, double textWidth, double textHeight);

// The left and the top light edge.
std::array<QLineF, 2> lightEdges(double faceWidth, double faceHeight);

// The right and the bottom dark edge, inset by DarkInset.
std::array<QLineF, 2> darkEdges(double faceWidth, double faceHeight);

// The top-left corner of a picture whose natural size is pw x ph hundredths of a millimetre.
QPointF pictureCorner(double faceWidth, double faceHeight, int pw, int ph);

// A picture's natural size in hundredths of a millimetre at 96 pixels to the inch, rounded
// to whole numbers (16 pixels give 423).
QSize himetricSize(const QSize& pixels);

// The pixel a twips position falls in: whole pixels are cut off, never rounded up, so the
// dark edge of an 885-twip face (at 865) stays one pixel inside the last column.
int toPixel(double twips);

} // namespace BoxGeometry
