// Sound, and the picture in picture.
#include "camera/sound.h"
#include "board/lamp.h"
#include "camera/load.h"
#include "camera/pip.h"

#include "settings/settings.h"
#include "util/journal.h"

#include <array>
#include <iterator>
#include <string>

namespace
{
constexpr BU_S32 PORT_MBIT_S = 1000;

/// The settings of picture in picture and their places in the record.
struct PipField {
    settings::Row enRow;
    BU_S32 MPP_PIP_CONFIG_S::*ps32Field;
};
constexpr PipField PIP_FIELDS[] = {
    {settings::SYS_API_PipEnable, &MPP_PIP_CONFIG_S::bEnablePip},
    {settings::SYS_API_PipMainVideo, &MPP_PIP_CONFIG_S::enMainVideo},
    {settings::SYS_API_PipSubVideo, &MPP_PIP_CONFIG_S::enSubVideo},
    {settings::SYS_API_PipDefaultVideo, &MPP_PIP_CONFIG_S::enDefaultVideo},
    {settings::SYS_API_PipPos, &MPP_PIP_CONFIG_S::enPos},
    {settings::SYS_API_PipSize, &MPP_PIP_CONFIG_S::enSize},
};
} // namespace

std::string journalText(const MPP_PIP_CONFIG_S &stCfg)
{
    std::string strText;
    for (const auto &st : PIP_FIELDS) strText += (strText.empty() ? "{" : ", ") + std::to_string(stCfg.*st.ps32Field);
    return strText + "}";
}

BU_S32 SYS_API_SetAudioinput(BU_S32 s32Input, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Input, bSaveCfg, bUpdate)) return *injected;
    return settings::set(settings::SYS_API_AudioInput, 0, s32Input, bSaveCfg, bUpdate);
}

BU_S32 SYS_API_SetAudioVolume(BU_S32 s32Volume, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Volume, bSaveCfg)) return *injected;
    return settings::set(settings::SYS_API_AudioVolume, 0, s32Volume, bSaveCfg, BU_TRUE);
}

BU_S32 SYS_API_SetATEMSwi(BU_BOOL bOn, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, bOn, bSaveCfg)) return *injected;
    return settings::set(settings::SYS_API_ATEMSwi, 0, bOn, bSaveCfg, BU_TRUE);
}

BU_S32 SYS_API_GetPipConfig(MPP_PIP_CONFIG_S *pstCfg, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pstCfg) return -1;
    for (const auto &st : PIP_FIELDS) settings::get(st.enRow, 0, &(pstCfg->*st.ps32Field), bReread);
    return 0;
}

BU_S32 SYS_API_SetPipConfig(const MPP_PIP_CONFIG_S *pstCfg, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, pstCfg, bSaveCfg, bUpdate)) return *injected;
    if (!pstCfg) return -1;
    std::array<settings::Change, std::size(PIP_FIELDS)> astChanges{};
    for (std::size_t i = 0; i < astChanges.size(); ++i)
        astChanges[i] = {PIP_FIELDS[i].enRow, pstCfg->*PIP_FIELDS[i].ps32Field};
    return settings::setTogether(astChanges, bSaveCfg, bUpdate);
}

BU_S32 SYS_API_GetSpeed() { return PORT_MBIT_S; }
