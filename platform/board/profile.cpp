/// Which profile is in use, and its values by path.
#include "board/profile.h"

#include "board/profileData.h"
#include "config/config.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/program.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <mutex>

namespace
{
constexpr std::size_t SIZE_LIMIT = 1024 * 1024;
constexpr const BU_CHAR *DEFAULT_MODEL = "TKV-MX";

struct Current {
    std::mutex lock; // guards profile
    std::shared_ptr<const board::Profile> profile;
};
Current &current()
{
    static auto *pstCurrent = new Current;
    return *pstCurrent;
}

std::string modelOrDefault(const BU_CHAR *pcModel)
{
    if (!pcModel) pcModel = std::getenv("CAMERA_MODEL");
    return pcModel && *pcModel ? pcModel : DEFAULT_MODEL;
}

/// The file of a model, an own copy in the device root first.
std::string fileOf(const std::string &strModel)
{
    if (strModel.find('/') != std::string::npos) return strModel;
    const std::string strOwn = "/app/profiles/" + strModel + ".json";
    return UTIL_FILE_IsExist(strOwn.c_str()) ? UTIL_ROOT_Path(strOwn.c_str())
                                             : util::resource("profiles/" + strModel + ".json");
}

std::unique_ptr<board::Profile> loadFile(const std::string &strFile)
{
    std::ifstream stFile(strFile, std::ios::binary);
    std::string strText(SIZE_LIMIT, 0), strReason = "not there or not readable";
    stFile.read(strText.data(), static_cast<std::streamsize>(strText.size()));
    strText.resize(static_cast<std::size_t>(stFile.gcount()));
    if (stFile.eof()) {
        if (auto profile = board::readProfile(strText, strReason)) return profile;
    } else if (stFile)
        strReason = "larger than 1 MiB";
    LOG_ERROR("board profile %s: %s", strFile.c_str(), strReason.c_str());
    return nullptr;
}
} // namespace

std::shared_ptr<const board::Profile> board::currentProfile()
{
    {
        const std::lock_guard guard(current().lock);
        if (current().profile) return current().profile;
    }
    BSP_PROFILE_Load(nullptr);
    const std::lock_guard guard(current().lock);
    return current().profile;
}

BU_S32 BSP_PROFILE_Load(const BU_CHAR *pcModel)
{
    std::shared_ptr<const board::Profile> profile = loadFile(fileOf(modelOrDefault(pcModel)));
    const BU_S32 s32Ret = profile ? 0 : -1;
    const std::lock_guard guard(current().lock);
    current().profile = profile ? std::move(profile) : std::make_shared<board::Profile>();
    return s32Ret;
}

std::string BSP_PROFILE_GetText(const BU_CHAR *pcPath, const BU_CHAR *pcDefault)
{
    const auto profile = board::currentProfile();
    const auto value = profile->values.find(std::string_view(pcPath));
    return value == profile->values.end() ? pcDefault : value->second;
}

BU_S32 BSP_PROFILE_GetInt(const BU_CHAR *pcPath, BU_S32 s32Default)
{
    const std::string strText = BSP_PROFILE_GetText(pcPath, "");
    BU_S32 s32Value = s32Default;
    const auto [end, error] = std::from_chars(strText.data(), strText.data() + strText.size(), s32Value);
    return error == std::errc() && end == strText.data() + strText.size() ? s32Value : s32Default;
}

BU_S32 CFG_FEATURE_GetConfiguration(tagCFG_FEATURE_LIST_S *pstList)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    const auto profile = board::currentProfile();
    if (!pstList || !profile->stFeatures.bDataInited) return -1;
    *pstList = profile->stFeatures;
    return 0;
}
