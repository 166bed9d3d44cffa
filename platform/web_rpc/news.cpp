#include "news.h"

#include "camera/preset.h"
#include "camera/settingEvent.h"
#include "questions.h"

namespace web_rpc
{
namespace
{
void tellPreset(Clients &clients, BU_S32 s32Preset)
{
    const std::string strPreset = std::to_string(s32Preset);
    clients.tell("preset/" + strPreset, "{\"preset\":" + strPreset + "}");
}
} // namespace

News::News(std::shared_ptr<Clients> pstClients)
    : m_pstClients(std::move(pstClients)), m_pstPictures(std::make_shared<PresetPictures>(
                                               [pst = m_pstClients](BU_S32 s32Preset) { tellPreset(*pst, s32Preset); }))
{
    m_pstPictures->tidy();
    // What runs just now when a listener is taken away still ends: it holds what it uses.
    m_s32Settings = CFG_SETTING_Listen([pst = m_pstClients](const CFG_SETTING_EVENT_S &stEvent) {
        if (pst->count() == 0) return;
        const std::string strKey = stEvent.pcKey, strPipe = std::to_string(stEvent.s32Pipe);
        pst->tell(strKey + "/" + strPipe, "{\"setting\":\"" + strKey + "\",\"pipe\":" + strPipe +
                                              ",\"value\":" + std::to_string(stEvent.s32Value) + "}");
    });
    m_s32Presets = PRESET_API_Listen([pst = m_pstClients, pstPictures = m_pstPictures](BU_S32 s32Preset) {
        tellPreset(*pst, s32Preset);
        pstPictures->update(s32Preset);
    });
}

News::~News()
{
    CFG_SETTING_Unlisten(m_s32Settings);
    PRESET_API_Unlisten(m_s32Presets);
}

void News::countClients()
{
    const std::lock_guard guard(m_lock);
    if (m_bWatches || m_pstClients->count() == 0) return;
    m_bWatches = true;
    m_queue.at(UTIL_TIME_NowMs(), [this] { tellPosition(); });
}

void News::tellPosition()
{
    std::string strPosition = positionText();
    {
        const std::lock_guard guard(m_lock);
        m_bWatches = m_pstClients->count() > 0;
        if (!m_bWatches) return;
        m_queue.at(UTIL_TIME_NowMs() + POSITION_MS, [this] { tellPosition(); });
        if (strPosition == m_strPosition) return;
        m_strPosition = strPosition;
    }
    m_pstClients->tell("position", "{\"position\":" + strPosition + "}");
}
} // namespace web_rpc
