/// What a page shows: everything the drawing needs and nothing else, so that two equal views need no new drawing.
#pragma once

#include "base/types.h"

#include <string>
#include <vector>

namespace menu
{
struct Row {
    std::string strLabel, strValue;
    bool bSelected = false;
    bool bHeading = false;             ///< a question above the items; cannot be selected
    bool bOpens = false;               ///< leads to a page
    bool bLess = false, bMore = false; ///< left and right step the value
    bool bPending = false;             ///< the value is not applied yet
    BU_S32 s32Cursor = -1;             ///< the character being edited; -1: none
    BU_S32 s32Permille = -1;           ///< place of a number in its range; -1: not a number
    bool operator==(const Row &) const = default;
};

struct View {
    std::string strTitle, strFoot;
    std::vector<Row> listRows;         ///< those that fit
    BU_S32 s32First = 0, s32Total = 0; ///< the first of them, of how many
    bool operator==(const View &) const = default;
};
} // namespace menu
