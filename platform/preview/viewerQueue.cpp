/// When a viewer loses what waits for it.
#include "viewerQueue.h"

namespace preview
{
bool ViewerQueue::offer(const MessageRef &pstMessage)
{
    const bool bFull = m_waiting.size() >= MESSAGES_MAX || m_bytes + pstMessage->size() > BYTES_MAX;
    if (bFull && !m_waiting.empty()) lose();
    if (m_bAwaitKey && !(pstMessage->isKeyFrame() && !pstMessage->isAudio())) return false;
    m_bAwaitKey = false;
    m_bytes += pstMessage->size();
    m_waiting.push_back(pstMessage);
    return true;
}

MessageRef ViewerQueue::take()
{
    if (m_waiting.empty()) return nullptr;
    MessageRef pstMessage = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_bytes -= pstMessage->size();
    return pstMessage;
}

void ViewerQueue::lose()
{
    m_waiting.clear();
    m_bytes = 0;
    m_bAwaitKey = true;
}
} // namespace preview
