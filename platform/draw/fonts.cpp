// Which font shows a character, and how a line of mixed fonts is laid out.
#include "draw/fonts.h"

#include "util/log.h"

#include <SDL2/SDL_ttf.h>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>

namespace draw
{
namespace
{
constexpr const char *LATIN[] = {"/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                                 "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"};
// Chinese fonts that Debian packages; the menu uses one when it is there.
constexpr const char *CHINESE[] = {
    "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc", "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc",
    "/usr/share/fonts/truetype/wqy/wqy-zenhei.ttc", "/usr/share/fonts/truetype/droid/DroidSansFallbackFull.ttf",
    "/usr/share/fonts/truetype/arphic/uming.ttc"};
constexpr int ANY_SIZE = 16;

struct Fonts {
    std::mutex lock; // guards all members; opened fonts stay open
    bool bReady = false, bTried = false;
    std::string strChinese; // empty: none is installed
    std::map<std::pair<std::string, int>, TTF_Font *> opened;
};
Fonts &fonts()
{
    static auto *pst = new Fonts;
    return *pst;
}

/// Lock held.
TTF_Font *opened(const std::string &strPath, int s32Pixels)
{
    const auto [entry, bNew] = fonts().opened.try_emplace({strPath, s32Pixels}, nullptr);
    if (bNew) {
        entry->second = TTF_OpenFont(strPath.c_str(), s32Pixels);
        if (entry->second)
            TTF_SetFontHinting(entry->second, TTF_HINTING_LIGHT);
        else
            LOG_ERROR("font %s cannot be opened: %s\n", strPath.c_str(), TTF_GetError());
    }
    return entry->second;
}

/// Lock held.
bool load()
{
    if (fonts().bTried) return fonts().bReady;
    fonts().bTried = true;
    if (TTF_Init() != 0) {
        LOG_ERROR("the fonts cannot be used: %s\n", TTF_GetError());
        return false;
    }
    for (const char *pcPath : CHINESE)
        if (fonts().strChinese.empty() && std::filesystem::exists(pcPath)) fonts().strChinese = pcPath;
    if (fonts().strChinese.empty()) LOG_INFO("no Chinese font is installed: the menu is in English\n");
    return fonts().bReady = opened(LATIN[0], ANY_SIZE) && opened(LATIN[1], ANY_SIZE);
}

/// The next character of an UTF-8 text; 0 at its end. What is no UTF-8 counts as U+FFFD.
Uint32 nextCharacter(const std::string &str, std::size_t &at)
{
    if (at >= str.size()) return 0;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(i < str.size() ? str[i] : 0); };
    const unsigned char first = byte(at++);
    if (first < 0x80) return first;
    const int s32More = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    Uint32 u32 = first & (0x3Fu >> s32More);
    for (int i = 0; i < s32More && (byte(at) & 0xC0) == 0x80; ++i) u32 = u32 << 6 | (byte(at++) & 0x3F);
    return s32More ? u32 : 0xFFFD;
}

bool has(TTF_Font *pstFont, Uint32 u32Character) { return pstFont && TTF_GlyphIsProvided32(pstFont, u32Character); }

/// Lock held. The Chinese font; null: none is installed, or it cannot be opened.
TTF_Font *chinese(int s32Pixels)
{
    return fonts().strChinese.empty() ? nullptr : opened(fonts().strChinese, s32Pixels);
}
} // namespace

bool loadFonts()
{
    const std::lock_guard guard(fonts().lock);
    return load();
}

bool canShow(const std::string &strText)
{
    const std::lock_guard guard(fonts().lock);
    if (!load()) return false;
    std::size_t at = 0;
    while (const Uint32 u32 = nextCharacter(strText, at))
        if (!has(opened(LATIN[0], ANY_SIZE), u32) && !has(chinese(ANY_SIZE), u32)) return false;
    return true;
}

std::vector<Run> runsOf(Font font, const std::string &strText)
{
    const std::lock_guard guard(fonts().lock);
    std::vector<Run> runs;
    TTF_Font *pstFace = load() ? opened(LATIN[font.enFace == Face::BOLD], font.s32Pixels) : nullptr;
    if (!pstFace) return runs;
    std::size_t at = 0, from = 0;
    while (const Uint32 u32 = nextCharacter(strText, at)) {
        TTF_Font *pstOther = has(pstFace, u32) ? nullptr : chinese(font.s32Pixels);
        TTF_Font *pstFont = has(pstOther, u32) ? pstOther : pstFace;
        if (runs.empty() || runs.back().pstFont != pstFont) runs.push_back({pstFont, "", 0, 0});
        runs.back().strText.append(strText, from, at - from);
        from = at;
    }
    for (Run &run : runs) {
        TTF_SizeUTF8(run.pstFont, run.strText.c_str(), &run.s32Width, nullptr);
        run.s32Rise = TTF_FontAscent(run.pstFont) - TTF_FontAscent(pstFace);
    }
    return runs;
}

int heightOf(Font font)
{
    const auto runs = runsOf(font, " ");
    return runs.empty() ? 0 : TTF_FontHeight(runs.front().pstFont);
}

int widthOf(Font font, const std::string &strText)
{
    int w = 0;
    for (const Run &run : runsOf(font, strText)) w += run.s32Width;
    return w;
}

std::string fitted(Font font, const std::string &strText, int s32Width)
{
    if (widthOf(font, strText) <= s32Width) return strText;
    const std::string strEllipsis = "…";
    std::string strCut = strEllipsis;
    for (std::size_t at = 0; nextCharacter(strText, at) != 0;) {
        const std::string strMore = strText.substr(0, at) + strEllipsis;
        if (widthOf(font, strMore) > s32Width) break;
        strCut = strMore;
    }
    return strCut;
}
} // namespace draw
