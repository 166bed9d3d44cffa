/// What hangs on the walls and is drawn sharp at any zoom: the projection, the clock, signs.
#pragma once

#include "background.h"

namespace scene
{
void drawDressing(Canvas &stCanvas, const Projection &stView, double dSeconds);
} // namespace scene
