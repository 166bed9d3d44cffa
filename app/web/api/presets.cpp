// The stored presets, with their pictures, and each change.
#include "camera/preset.h"

#include "api.h"
#include "presetPictures.h"

#include <algorithm>
#include <string>
#include <utility>

namespace
{
struct Preset {
    BU_S32 id;
    BU_CHAR name[sizeof(PRESET_INFO_S::acName)];
    BU_S64 picture; ///< when it was taken [s since 1970]; 0: there is none
};
struct Presets {
    std::vector<Preset> list;
};
struct PresetNews {
    BU_S32 preset;
};
} // namespace

WEB_FIELDS(Preset, WEB_FIELD(id, 0), WEB_FIELD(name, 0), WEB_FIELD(picture, 0));
WEB_FIELDS(Presets, WEB_LIST(list));
WEB_FIELDS(PresetNews, WEB_FIELD(preset, 0));

namespace
{
BU_S32 g_s32Listener = 0;

const BU_CHAR *answer(const web::Nothing &, Presets &stAnswer)
{
    for (const PRESET_INFO_S &stInfo : PRESET_API_List()) {
        Preset st{stInfo.s32PresetId, {}, web::PresetPictures::timeOf(stInfo.s32PresetId)};
        std::ranges::replace_copy_if(
            stInfo.acName, st.name, [](BU_CHAR c) { return c > 0 && c < ' '; }, ' ');
        stAnswer.list.push_back(st);
    }
    return nullptr;
}

void tellChange(BU_S32 s32Preset) { web::tell(("preset/" + std::to_string(s32Preset)).c_str(), PresetNews{s32Preset}); }

void start()
{
    web::registerQuestion<web::Nothing, Presets, answer>("presets");
    const auto pstPictures = std::make_shared<web::PresetPictures>(tellChange);
    pstPictures->tidy();
    // What runs just now when the listener is taken away still ends: it holds what it uses.
    g_s32Listener = PRESET_API_Listen([pstPictures](BU_S32 s32Preset) {
        tellChange(s32Preset);
        pstPictures->update(s32Preset);
    });
}
} // namespace

const web::Subject web::PRESETS{start, [] { PRESET_API_Unlisten(std::exchange(g_s32Listener, 0)); }};
