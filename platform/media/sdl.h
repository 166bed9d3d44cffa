/// What needs SDL: surfaces over canvas memory, and open file streams.
#pragma once

#include "media/overlay.h"

#include <span>

namespace media::sdl
{
SDL_Surface *surfaceOver(void *pvPixels, BU_S32 s32Width, BU_S32 s32Height, OSD_FORMAT_E enFormat); ///< null: failed
void freeSurface(SDL_Surface *pstSurface);
bool fill(SDL_Surface *pstSurface, int x, int y, int w, int h, BU_U32 u32Argb);
bool write(SDL_RWops *pstFile, std::span<const BU_U8> bytes);
} // namespace media::sdl
