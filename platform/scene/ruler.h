/// The scales of degrees that run along the walls, and the crosses at every ten degrees of pan and tilt.
#pragma once

#include "background.h"

namespace scene
{
void drawRuler(Canvas &stCanvas, const Projection &stView);
} // namespace scene
