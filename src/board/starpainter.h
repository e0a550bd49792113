// Draws the star's five lines. The one drawing path for the star: the board widget, and any
// page or picture of the board, call it with a painter whose coordinates are star-area twips.
#pragma once

class QColor;
class QPainter;

// Draws `Linex(0..4)` in `colour`, 2 pixels wide, in star-area twips (the caller scales the
// painter, e.g. by 1/15 for the screen).
void paintStarLines(QPainter& painter, const QColor& colour);
