/// The few things that need SDL.
#include <SDL2/SDL_rwops.h>
#include <SDL2/SDL_surface.h>

#include "sdl.h"

#include <iterator>

SDL_Surface *media::sdl::surfaceOver(void *pvPixels, BU_S32 s32Width, BU_S32 s32Height, OSD_FORMAT_E enFormat)
{
    static constexpr struct {
        int s32Bits;
        Uint32 u32Format;
    } FORMATS[] = {{16, SDL_PIXELFORMAT_ARGB1555}, {16, SDL_PIXELFORMAT_ARGB4444}, {32, SDL_PIXELFORMAT_ARGB8888}};
    const auto u32Index = static_cast<BU_U32>(enFormat);
    if (!pvPixels || u32Index >= std::size(FORMATS)) return nullptr;
    const auto [s32Bits, u32Format] = FORMATS[u32Index];
    return SDL_CreateRGBSurfaceWithFormatFrom(pvPixels, s32Width, s32Height, s32Bits, s32Width * s32Bits / 8,
                                              u32Format);
}

void media::sdl::freeSurface(SDL_Surface *pstSurface) { SDL_FreeSurface(pstSurface); }

bool media::sdl::fill(SDL_Surface *pstSurface, int x, int y, int w, int h, BU_U32 u32Argb)
{
    const SDL_Rect stRect{x, y, w, h};
    const auto part = [u32Argb](int s32Shift) { return static_cast<Uint8>(u32Argb >> s32Shift); };
    return SDL_FillRect(pstSurface, &stRect, SDL_MapRGBA(pstSurface->format, part(16), part(8), part(0), part(24))) ==
           0;
}

bool media::sdl::write(SDL_RWops *pstFile, std::span<const BU_U8> bytes)
{
    return SDL_RWwrite(pstFile, bytes.data(), 1, bytes.size()) == bytes.size();
}
