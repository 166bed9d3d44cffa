/// Who watches what: channels, their viewers, and the sinks that bring packets while somebody watches.
#pragma once

#include "inbox.h"
#include "viewerQueue.h"

#include <map>
#include <string>
#include <string_view>

namespace preview
{
/// A connection that watches a channel.
struct Viewer {
    void *pvConnection = nullptr; ///< the owner's
    bool bAudio = false;          ///< wants the sound too
    BU_U32 u32Channel = 0;
    ViewerQueue queue;
};

/// A packet sink in a stream cache, filling the inbox.
class Feed
{
public:
    Feed(std::shared_ptr<Inbox> pstInbox, BU_U32 u32Source, std::string strName)
        : m_pstInbox(std::move(pstInbox)), m_u32Source(u32Source), m_strName(std::move(strName))
    {
    }
    ~Feed() { connect(nullptr); }
    Feed(const Feed &) = delete;
    Feed &operator=(const Feed &) = delete;

    void connect(STREAM_CACHE_S *pstCache); ///< leaves the cache it was connected to; null: none from now on
    void requestKeyFrame() const;
    bool isLive() const { return m_pstCache != nullptr; }

private:
    const std::shared_ptr<Inbox> m_pstInbox;
    const BU_U32 m_u32Source;
    const std::string m_strName;
    STREAM_CACHE_S *m_pstCache = nullptr;
};

/// Thread: the service thread.
class Broadcast
{
public:
    /// @param fnWaiting  is told when a viewer's queue has something to send
    Broadcast(const std::shared_ptr<Inbox> &pstInbox, std::function<void(Viewer &)> fnWaiting);

    void add(Viewer &stViewer);
    void remove(Viewer &stViewer); ///< one that is not there is tolerated
    std::size_t size() const;
    void distribute(); ///< what lies in the inbox, to the viewers
    void requestKeyFrame(const Viewer &stViewer) const;

private:
    struct Channel {
        Channel(const std::shared_ptr<Inbox> &pstInbox, BU_U32 u32Channel)
            : feed(pstInbox, u32Channel, "preview" + std::to_string(u32Channel))
        {
        }
        Feed feed;
        std::vector<Viewer *> viewers;
        BU_U32 u32Sequence = 0;
        BU_S32 s32EncodeType = 0; // what the last key frame was, for packets that do not tell
    };
    void connect();
    void give(const Arrival &stArrival);
    void giveAudio(const Arrival &stArrival);
    void offer(Viewer &stViewer, const MessageRef &pstMessage);

    const std::shared_ptr<Inbox> m_pstInbox;
    const std::function<void(Viewer &)> m_fnWaiting;
    std::map<BU_U32, Channel> m_channels; // by number
    Feed m_audio;
    BU_U32 m_u32AudioSequence = 0;
};
} // namespace preview
