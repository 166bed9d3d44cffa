/// What is drawn over the background, sharp at any zoom.
#pragma once

#include "background.h"

namespace scene
{
/// What hangs on the walls: the projection, the clock, signs.
void drawDressing(Canvas &stCanvas, const Projection &stView, double dSeconds);
/// The people of the hall, far ones first: where they are and how they move at a time.
void drawPeople(Canvas &stCanvas, const Projection &stView, double dSeconds);
/// The scales of degrees that run along the walls, and the crosses at every ten degrees of pan and tilt.
void drawRuler(Canvas &stCanvas, const Projection &stView);
} // namespace scene
