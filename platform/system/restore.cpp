#include "camera/restore.h"
#include "motion/presetListeners.h"
#include "settings/settings.h"
#include "store/store.h"
#include "util/journal.h"
#include "util/log.h"

#include <algorithm>

namespace
{
using settings::Section;

/// Which settings a bit takes back.
struct tagSECTION_BIT_S {
    SYSTEM_RESTORE_E enBit;
    Section enSection;
};
constexpr tagSECTION_BIT_S g_astSections[] = {
    {SYSTEM_RESTORE_E_IMAGE, Section::Image},        {SYSTEM_RESTORE_E_IMAGE, Section::Exposure},
    {SYSTEM_RESTORE_E_IMAGE, Section::WhiteBalance}, {SYSTEM_RESTORE_E_PTZ, Section::Lens},
    {SYSTEM_RESTORE_E_PTZ, Section::PanTilt},        {SYSTEM_RESTORE_E_TRACK, Section::Track},
    {SYSTEM_RESTORE_E_SYSTEM, Section::System},      {SYSTEM_RESTORE_E_SYSTEM, Section::Video},
    {SYSTEM_RESTORE_E_SYSTEM, Section::Audio},       {SYSTEM_RESTORE_E_SYSTEM, Section::Lamp},
    {SYSTEM_RESTORE_E_CONTROL, Section::Control},
};

/// And which other keys of the store, kept by the protocols, streams and network themselves.
struct tagPREFIX_BIT_S {
    SYSTEM_RESTORE_E enBit;
    const BU_CHAR *pcPrefix;
};
constexpr tagPREFIX_BIT_S g_astPrefixes[] = {
    {SYSTEM_RESTORE_E_CONTROL, "Visca/"},       {SYSTEM_RESTORE_E_CONTROL, "ViscaNet/"},
    {SYSTEM_RESTORE_E_CONTROL, "ViscaOverIp/"}, {SYSTEM_RESTORE_E_CONTROL, "Freed/"},
    {SYSTEM_RESTORE_E_CONTROL, "Dvip/"},        {SYSTEM_RESTORE_E_CONTROL, "Onvif/"},
    {SYSTEM_RESTORE_E_MEDIA, "LiveMedia/"},     {SYSTEM_RESTORE_E_MEDIA, "Record/"},
    {SYSTEM_RESTORE_E_MEDIA, "Venc/"},          {SYSTEM_RESTORE_E_NETWORK, "Network/"},
    {SYSTEM_RESTORE_E_NETWORK, "Http/"},        {SYSTEM_RESTORE_E_PRESET, "ImagePreset"},
};
constexpr BU_S32 SETTINGS_ONLY = SYSTEM_RESTORE_E_ALL & ~(SYSTEM_RESTORE_E_NETWORK | SYSTEM_RESTORE_E_PRESET);

bool deletePresets()
{
    const auto listPresets = CFG_STORE_ListPresets();
    if (CFG_STORE_DeleteAllPresets() != 0) return false;
    for (const CFG_PRESET_S &stPreset : listPresets) presets::announce(stPreset.s32Id);
    return true;
}
} // namespace

BU_S32 SYSTEM_API_FactoryRestoreConfiguration(BU_S32 s32Bitmap)
{
    if (const auto injected = journal::call(__func__, s32Bitmap)) return *injected;
    const BU_S32 s32Bits = s32Bitmap == -1 ? SYSTEM_RESTORE_E_ALL : s32Bitmap == 0 ? SETTINGS_ONLY : s32Bitmap;
    if ((s32Bits & ~SYSTEM_RESTORE_E_ALL) != 0) return -1;
    LOG_INFO("factory restore, bits 0x%02x\n", s32Bits);
    bool bOk = s32Bitmap != -1 || CFG_STORE_Erase("") == 0;
    for (const auto &st : g_astPrefixes)
        if (s32Bits & st.enBit) bOk &= CFG_STORE_Erase(st.pcPrefix) == 0;
    for (const auto &st : g_astSections)
        if (s32Bits & st.enBit) bOk &= settings::restore(st.enSection) == 0;
    if (s32Bits & SYSTEM_RESTORE_E_PRESET) bOk &= deletePresets();
    return bOk ? 0 : -1;
}
