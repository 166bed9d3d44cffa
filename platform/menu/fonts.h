/// The fonts by their size, opened when they are first needed. One thread at a time but for loadFonts and canShow.
#pragma once

#include <SDL2/SDL_ttf.h>

#include <string>

namespace menu
{
enum class Face { REGULAR, BOLD };

/// A font in which that text can be drawn. @return null: it cannot be opened
TTF_Font *fontFor(Face enFace, int s32Pixels, const std::string &strText);

/// The text, cut with an ellipsis where it is wider than that.
std::string fitted(TTF_Font *pstFont, const std::string &strText, int s32Width);
int widthOf(TTF_Font *pstFont, const std::string &strText);
} // namespace menu
