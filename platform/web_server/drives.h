/// Movements that pages have begun and that go on until they are stopped. A page that is gone without a stop (its
/// browser was killed, its network lost) must not leave the camera moving.
#pragma once

#include "web_client/client.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace web_server
{
/// By session. Thread: the network thread.
class Drives
{
public:
    struct Stop {
        tag_WEB_RPC_EVENT_GROUP_E enEvent;
        std::string strImage;
    };

    /// A call goes to the camera: it may begin or end a movement.
    void note(const std::string &strSession, tag_WEB_RPC_EVENT_GROUP_E enEvent, const std::string &strImage);
    /// What ends the movements of a session; they count as ended.
    std::vector<Stop> take(const std::string &strSession);

private:
    std::map<std::string, std::set<std::pair<tag_WEB_RPC_EVENT_GROUP_E, BU_S32>>> m_running; // events and their items
};
} // namespace web_server
