/// Draws pages and prompts on an ARGB surface.
#pragma once

#include "draw/fonts.h"
#include "view.h"

#include <memory>
#include <string>

struct SDL_Surface;

namespace menu
{
using namespace draw;

struct SurfaceDeleter {
    void operator()(SDL_Surface *pstSurface) const;
};
typedef std::unique_ptr<SDL_Surface, SurfaceDeleter> Surface;

/// Rows that fit a page, whatever its size.
constexpr std::size_t PAGE_ROWS = 8;

/// A fresh ARGB8888 surface with the page; null: no fonts, or no memory.
Surface paintPage(const View &view, BU_S32 s32Width, BU_S32 s32Height);

/// A plate with one line, as wide as the text needs and at most s32MaxWidth.
Surface paintLine(const std::string &strText, BU_S32 s32Height, BU_S32 s32MaxWidth);

BU_S32 widthOf(const SDL_Surface &stSurface);
/// Copies the picture into a surface of another pixel format, alpha included.
void copyPixels(SDL_Surface *pstFrom, SDL_Surface *pstTo);
} // namespace menu
