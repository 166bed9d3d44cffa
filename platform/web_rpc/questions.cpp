#include "questions.h"

#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/preset.h"
#include "camera/settingEvent.h"
#include "camera/zoom.h"
#include "config/config.h"
#include "presetPictures.h"
#include "scene/scene.h"
#include "store/store.h"
#include "web_client/client.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <optional>

namespace web_rpc
{
namespace
{
using Json = nlohmann::json;
constexpr double MOTOR_PER_DEGREE = 1500, HUNDREDTHS = 100;
constexpr double PICTURE_ASPECT = 16.0 / 9;

tagRESULT_S ok(const Json &json)
{
    return {WEB_CLIENT_RESULT_E_OK, json.dump(-1, ' ', false, Json::error_handler_t::replace)};
}
tagRESULT_S refused(std::string strWhy) { return {WEB_CLIENT_RESULT_E_REFUSED, std::move(strWhy)}; }

double rounded(double d) { return std::round(d * HUNDREDTHS) / HUNDREDTHS; }

Json degrees(const PT_POS_S &stPos)
{
    PT_DEGREE_S stDegree{};
    BSP_PTPosToDegree(0, &stDegree, &stPos, 0);
    return {{"pan", stDegree.s32PanDegree / HUNDREDTHS}, {"tilt", stDegree.s32TiltDegree / HUNDREDTHS}};
}

tagRESULT_S settings(const Json &)
{
    Json list = Json::array();
    for (const CFG_SETTING_INFO_S &stInfo : CFG_SETTING_List()) {
        CFG_VALUE_INT_S stRange{};
        if (CFG_COM_GetIntParams(stInfo.pcKey, &stRange) != 0) continue;
        Json words = Json::array();
        for (const STR2ENUM_MAP_S &stWord : CFG_SETTING_Words(stInfo.pcKey))
            words.push_back({{"word", stWord.text}, {"value", stWord.value}});
        for (BU_S32 s32Pipe = 0; s32Pipe < stInfo.s32Pipes; ++s32Pipe) {
            BU_S32 s32Value = 0;
            if (CFG_SETTING_Get(stInfo.pcKey, s32Pipe, &s32Value, BU_FALSE) != 0) continue;
            Json entry{{"key", stInfo.pcKey},   {"pipe", s32Pipe},         {"min", stRange.s32Min},
                       {"max", stRange.s32Max}, {"step", stRange.s32Step}, {"default", stRange.s32Def},
                       {"value", s32Value}};
            if (!words.empty()) entry["words"] = words;
            list.push_back(std::move(entry));
        }
    }
    return ok(list);
}

tagRESULT_S presets(const Json &)
{
    Json list = Json::array();
    for (const CFG_PRESET_S &stPreset : CFG_STORE_ListPresets()) {
        std::string strName = stPreset.strName;
        std::ranges::replace_if(
            strName, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
        list.push_back(
            {{"id", stPreset.s32Id}, {"name", strName}, {"picture", PresetPictures::timeOf(stPreset.s32Id)}});
    }
    return ok(list);
}

tagRESULT_S position(const Json &) { return {WEB_CLIENT_RESULT_E_OK, positionText()}; }

/// A coordinate of a point of the picture, 0 to 1.
std::optional<double> coordinate(const Json &json, const BU_CHAR *pcName)
{
    const auto it = json.find(pcName);
    if (it == json.end() || !it->is_number()) return std::nullopt;
    const double d = it->get<double>();
    return d >= 0 && d <= 1 ? std::optional(d) : std::nullopt; // not a number is neither
}

/// The picture maps degrees to pixels evenly, so the way follows from the present field of view. It ends at the end of
/// travel: then the point comes as near to the middle as the head can bring it.
tagRESULT_S centre(const Json &json)
{
    auto x = coordinate(json, "x"), y = coordinate(json, "y");
    if (!x || !y) return refused("\"x\" and \"y\" are numbers from 0 to 1: a point of the picture");
    SCENE_VIEW_S stView;
    PICTURE_SETTINGS_S stPicture;
    PT_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = PT_MOTION_E_ABS_POS;
    if (PICTURE_ReadView(&stView) != 0 || PICTURE_ReadSettings(0, &stPicture) != 0 ||
        BSP_PTGetCurPos(0, &stMotion.stPos, PT_DEV_TYPE_PAN_TILE_E) != 0)
        return refused("the camera does not know where it looks");
    if (stPicture.bMirror) x = 1 - *x;
    if (stPicture.bFlip) y = 1 - *y;
    const double dFov = stView.fFov / std::max(stView.fMagnification, 1.0F);
    const PT_DEGREE_S stTarget{
        static_cast<BU_S32>(stMotion.stPos.u32PanPos + std::lround((*x - 0.5) * dFov * MOTOR_PER_DEGREE)),
        static_cast<BU_S32>(stMotion.stPos.u32TiltPos +
                            std::lround((0.5 - *y) * dFov / PICTURE_ASPECT * MOTOR_PER_DEGREE))};
    BSP_PTDegreeToPos(0, &stMotion.stPos, &stTarget, 1);
    if (BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMotion, nullptr) < 0) return refused("the head does not move");
    return ok(degrees(stMotion.stPos));
}

constexpr struct {
    std::string_view key;
    BU_S32 (*pfnPress)();
} MENU_KEYS[] = {{"up", CMD_MENU_HandeUpBtn},       {"down", CMD_MENU_HandeDownBtn},  {"left", CMD_MENU_HandeLeftBtn},
                 {"right", CMD_MENU_HandeRightBtn}, {"enter", CMD_MENU_HandeHomeBtn}, {"back", CMD_MENU_OnlyReturnMenu},
                 {"menu", CMD_MENU_HandleMenuBtn}};

/// Presses a key of the menu; without one, tells only whether the menu is open. All keys but "menu" are for an open
/// menu: a closed one does not take them.
tagRESULT_S menu(const Json &json)
{
    const std::string strKey = json.value("key", Json()).is_string() ? json["key"].get<std::string>() : "";
    const auto *row = std::ranges::find(MENU_KEYS, strKey, [](const auto &stRow) { return stRow.key; });
    if (!strKey.empty() && row == std::end(MENU_KEYS)) return refused("the menu has no such key");
    const bool bTaken = row != std::end(MENU_KEYS) && row->pfnPress() == 0;
    return ok({{"taken", bTaken}, {"open", CMD_MENU_GetMenuStatus() != 0}});
}

constexpr struct {
    std::string_view name;
    tagRESULT_S (*pfnAnswer)(const Json &);
} QUESTIONS[] = {
    {"settings", settings}, {"presets", presets}, {"position", position}, {"centre", centre}, {"menu", menu}};
} // namespace

tagRESULT_S answerQuestion(const std::string &strQuestion, const std::string &strJson)
{
    for (const auto &[name, pfnAnswer] : QUESTIONS) {
        if (name != strQuestion) continue;
        const Json json = strJson.empty() ? Json::object() : Json::parse(strJson, nullptr, false);
        return json.is_object() ? pfnAnswer(json) : refused("not a JSON object");
    }
    return {WEB_CLIENT_RESULT_E_UNKNOWN, "nobody knows the question"};
}

std::string positionText()
{
    PT_POS_S stPos{};
    BU_FLOAT fZoom = 1;
    BSP_PTGetCurPos(0, &stPos, PT_DEV_TYPE_PAN_TILE_E);
    PTZ_API_GetZoomTime(0, &fZoom);
    Json json = degrees(stPos);
    json["zoom"] = rounded(fZoom);
    return json.dump();
}
} // namespace web_rpc
