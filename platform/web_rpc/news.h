/// News of the camera for the web servers: settings, presets, the position.
#pragma once

#include "connection.h"
#include "presetPictures.h"
#include "util/time.h"

namespace web_rpc
{
/// Listens to the camera while it lives.
class News
{
public:
    static constexpr BU_S32 POSITION_MS = 200; ///< the position is told at most so often, and only when it has changed

    explicit News(std::shared_ptr<Clients> pstClients);
    ~News();
    News(const News &) = delete;
    News &operator=(const News &) = delete;

    void countClients(); ///< their number may have changed. Thread: any

private:
    void tellPosition();

    const std::shared_ptr<Clients> m_pstClients;
    const std::shared_ptr<PresetPictures> m_pstPictures;
    BU_S32 m_s32Settings = 0, m_s32Presets = 0; // numbers of the listeners
    std::mutex m_lock;                          // guards the next two
    bool m_bWatches = false;                    // the position
    std::string m_strPosition;                  // as last told
    util::TimerQueue m_queue{"webNews"};        // last: ends first
};
} // namespace web_rpc
