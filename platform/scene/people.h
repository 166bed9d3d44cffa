/// The people of the hall: where they are and how they move at a time, and their picture.
#pragma once

#include "background.h"

namespace scene
{
/// Draws everybody, far ones first.
void drawPeople(Canvas &stCanvas, const Projection &stView, double dSeconds);
} // namespace scene
