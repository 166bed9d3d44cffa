/// What waits to be sent to one viewer.
#pragma once

#include "message.h"

#include <deque>

namespace preview
{
/// Bounded. A viewer that falls too far behind loses all that waits and goes on at the next key frame, as it started.
class ViewerQueue
{
public:
    static constexpr std::size_t MESSAGES_MAX = 90, BYTES_MAX = 2 << 20; ///< one message fits, whatever its size

    /// @return true: taken
    bool offer(const MessageRef &pstMessage);
    MessageRef take(); ///< null: nothing waits
    void lose();
    bool isEmpty() const { return m_waiting.empty(); }
    bool awaitsKeyFrame() const { return m_bAwaitKey; }

private:
    std::deque<MessageRef> m_waiting;
    std::size_t m_bytes = 0;
    bool m_bAwaitKey = true;
};
} // namespace preview
