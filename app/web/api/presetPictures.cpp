// Pictures of presets are taken and removed one after the other, in the background.
#include "presetPictures.h"

#include "camera/preset.h"
#include "media/frame.h"
#include "util/file.h"
#include "util/log.h"
#include "util/thread.h"

#include <SDL2/SDL_rwops.h>

#include <charconv>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace web
{
namespace
{
constexpr const BU_CHAR *FOLDER = "/var/web/presets";
constexpr BU_U32 WIDTH = 320, HEIGHT = 180, QUALITY = 80;
constexpr BU_S32 PICTURE_MS = 2000;
constexpr std::size_t SIZE_MAX_BYTES = 256 << 10;

std::string pathOf(BU_S32 s32Preset) { return std::string(FOLDER) + "/" + std::to_string(s32Preset) + ".jpg"; }

bool isThere(BU_S32 s32Preset)
{
    PRESET_INFO_S stInfo{};
    return PRESET_API_QueryById(s32Preset, &stInfo) == 0;
}

bool take(BU_S32 s32Preset)
{
    std::vector<BU_CHAR> vecJpeg(SIZE_MAX_BYTES);
    SDL_RWops *pstFile = SDL_RWFromMem(vecJpeg.data(), static_cast<int>(vecJpeg.size()));
    if (!pstFile) return false;
    const BU_S32 s32Ret = MPP_SnapImage(MPP_PIPE_USAGE_E_CLOSEUP_FULL, WIDTH, HEIGHT, QUALITY, pstFile, PICTURE_MS);
    const Sint64 s64Size = SDL_RWtell(pstFile);
    SDL_RWclose(pstFile);
    return s32Ret == 0 && s64Size > 0 &&
           UTIL_FILE_WriteBufToFile(pathOf(s32Preset).c_str(), vecJpeg.data(), static_cast<BU_S32>(s64Size)) == 0;
}

void removePicture(BU_S32 s32Preset) { unlink(UTIL_ROOT_Path(pathOf(s32Preset).c_str()).c_str()); }
} // namespace

BU_S64 PresetPictures::timeOf(BU_S32 s32Preset)
{
    struct stat stFile {
    };
    return stat(UTIL_ROOT_Path(pathOf(s32Preset).c_str()).c_str(), &stFile) == 0 ? stFile.st_mtim.tv_sec : 0;
}

void PresetPictures::update(BU_S32 s32Preset)
{
    const std::lock_guard guard(m_lock);
    m_waiting.insert(s32Preset);
    if (m_bWorks) return;
    m_bWorks = UTIL_THREAD_RunFuncAsync([pst = shared_from_this()](void *) { pst->work(); }, nullptr) == 0;
}

void PresetPictures::work()
{
    for (;;) {
        BU_S32 s32Preset = 0;
        {
            const std::lock_guard guard(m_lock);
            m_bWorks = !m_waiting.empty();
            if (!m_bWorks) return;
            s32Preset = *m_waiting.begin();
            m_waiting.erase(m_waiting.begin());
        }
        const bool bTaken = isThere(s32Preset) && take(s32Preset);
        if (bTaken)
            m_fnTaken(s32Preset);
        else
            removePicture(s32Preset); // an old one would show something else
    }
}

void PresetPictures::tidy() const
{
    std::error_code error;
    for (const auto &file : std::filesystem::directory_iterator(UTIL_ROOT_Path(FOLDER), error)) {
        const std::string strName = file.path().stem().string();
        BU_S32 s32Preset = -1;
        const auto result = std::from_chars(strName.data(), strName.data() + strName.size(), s32Preset);
        if (result.ec != std::errc{} || !isThere(s32Preset)) std::filesystem::remove(file.path(), error);
    }
}
} // namespace web
