// The settings of the camera: their ranges, words and values, and each change.
#include "api.h"
#include "camera/settingEvent.h"
#include "config/config.h"

#include <cstdio>
#include <utility>

namespace
{
struct Word {
    BU_S32 value;
    const BU_CHAR *word;
};
struct Setting {
    BU_S32 def;
    const BU_CHAR *key;
    BU_S32 max, min, pipe, step, value;
    std::vector<Word> words; ///< of a setting whose values are words
};
struct Settings {
    std::vector<Setting> list;
};
struct SettingNews {
    const BU_CHAR *setting;
    BU_S32 pipe, value;
};
} // namespace

WEB_FIELDS(Word, WEB_FIELD(value, 0), WEB_FIELD(word, 0));
WEB_FIELDS(Setting, web_layout::field<BU_S32>("default", offsetof(Here, def), 0, false), WEB_FIELD(key, 0),
           WEB_FIELD(max, 0), WEB_FIELD(min, 0), WEB_FIELD(pipe, 0), WEB_FIELD(step, 0), WEB_FIELD(value, 0),
           WEB_FIELD(words, 0));
WEB_FIELDS(Settings, WEB_LIST(list));
WEB_FIELDS(SettingNews, WEB_FIELD(setting, 0), WEB_FIELD(pipe, 0), WEB_FIELD(value, 0));

namespace
{
BU_S32 g_s32Listener = 0;

const BU_CHAR *answer(const web::Nothing &, Settings &stAnswer)
{
    for (const CFG_SETTING_INFO_S &stInfo : CFG_SETTING_List()) {
        CFG_VALUE_INT_S stRange{};
        if (CFG_COM_GetIntParams(stInfo.pcKey, &stRange) != 0) continue;
        Setting st{stRange.s32Def, stInfo.pcKey, stRange.s32Max, stRange.s32Min, 0, stRange.s32Step, 0, {}};
        for (const STR2ENUM_MAP_S &stWord : CFG_SETTING_Words(stInfo.pcKey))
            st.words.push_back({stWord.value, stWord.text});
        for (; st.pipe < stInfo.s32Pipes; ++st.pipe)
            if (CFG_SETTING_Get(stInfo.pcKey, st.pipe, &st.value, BU_FALSE) == 0) stAnswer.list.push_back(st);
    }
    return nullptr;
}

void tellChange(const CFG_SETTING_EVENT_S &stEvent)
{
    BU_CHAR acSubject[64];
    std::snprintf(acSubject, sizeof(acSubject), "%s/%d", stEvent.pcKey, stEvent.s32Pipe);
    web::tell(acSubject, SettingNews{stEvent.pcKey, stEvent.s32Pipe, stEvent.s32Value});
}
} // namespace

const web::Subject web::SETTINGS{[] {
                                     registerQuestion<Nothing, Settings, answer>("settings");
                                     g_s32Listener = CFG_SETTING_Listen(tellChange);
                                 },
                                 [] { CFG_SETTING_Unlisten(std::exchange(g_s32Listener, 0)); }};
