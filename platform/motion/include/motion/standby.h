/// Stand-by as head and lens know it: while it lasts they refuse every move and carry out stops.
#pragma once

namespace motion
{
/// @return whether it was on before. Thread: any.
bool setStandby(bool bOn);
bool isStandby();
} // namespace motion
