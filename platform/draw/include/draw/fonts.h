/// Texts in the menu's fonts, which are opened by their size when they are first needed. A character that the face
/// lacks comes from the Chinese font, in the middle of a line as well. One thread at a time but for loadFonts and
/// canShow.
#pragma once

#include <string>
#include <vector>

typedef struct _TTF_Font TTF_Font; // of SDL_ttf

namespace draw
{
/// Finds and opens the fonts. @return false: one is not there (logged). Thread: any, once or several times.
bool loadFonts();
/// Whether the fonts have every character of a text.
bool canShow(const std::string &strText);

enum class Face { REGULAR, BOLD };
struct Font {
    Face enFace;
    int s32Pixels;
};

/// A part of a line in one font.
struct Run {
    TTF_Font *pstFont;
    std::string strText;
    int s32Width, s32Rise; ///< how far its top is above that of a line of the face, so that all stand on one base line
};
/// None: the text is empty, or the fonts cannot be opened.
std::vector<Run> runsOf(Font font, const std::string &strText);

int heightOf(Font font);
int widthOf(Font font, const std::string &strText);
/// The text, cut with an ellipsis where it is wider than that.
std::string fitted(Font font, const std::string &strText, int s32Width);
} // namespace draw
