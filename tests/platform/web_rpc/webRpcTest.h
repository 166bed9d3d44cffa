/// Base of the tests of the running service: real time, a store in memory, a device root of its own, and handlers that
/// the test holds up.
#pragma once

#include "peer.h"
#include "store/store.h"
#include "support/await.h"
#include "util/file.h"
#include "util/thread.h"
#include "util/time.h"
#include "web/panelPayload.h"
#include "web/webRpc.h"
#include "web_client/client.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <vector>

/// A door that handlers wait at.
class Gate
{
public:
    void open(bool bOpen = true) { m_bOpen = bOpen; }
    void pass()
    {
        ++m_s32Waiting;
        EXPECT_TRUE(await([this] { return m_bOpen.load(); }));
        --m_s32Waiting;
    }
    void waitFor(int s32Waiting)
    {
        EXPECT_TRUE(await([&] { return m_s32Waiting == s32Waiting; }));
    }

private:
    std::atomic<bool> m_bOpen{false};
    std::atomic<int> m_s32Waiting{0};
};

/// The events of the tests, each of a page of its own: SUM and COUNT answer at once, SILENT says nothing, HALF lacks
/// factories; the handlers of the GATED ones wait. NEIGHBOUR is gated too, and of GATED's page.
enum : BU_U32 { SUM = 1, COUNT = 3, SILENT = 5, HALF = 38, GATED = 7, NEIGHBOUR = 9 };
constexpr BU_U32 GATED_EVENTS[] = {GATED, 23, 19, 26, 11, 15, 66, 88, NEIGHBOUR};

/// The questions: "echo" answers with what it was asked, and refuses a negative number; "many" answers with so many
/// lines.
struct Echo {
    BU_S32 number = 5;
    BU_CHAR text[16]{};
};
struct Line {
    const BU_CHAR *line;
    std::vector<Echo> more;
};
struct Lines {
    std::vector<Line> lines;
};
WEB_FIELDS(Echo, WEB_FIELD(number, 0), WEB_FIELD(text, 0));
WEB_FIELDS(Line, WEB_FIELD(line, 0), WEB_FIELD(more, 0));
WEB_FIELDS(Lines, WEB_LIST(lines));

class WebRpcTest : public testing::Test
{
protected:
    enum class Time { REAL, MANUAL };
    explicit WebRpcTest(const std::string &strFolder = "", Time enTime = Time::REAL);
    ~WebRpcTest() override;

    util::ManualClock &clock() { return *m_clock; }
    static Gate &gate()
    {
        static Gate stGate;
        return stGate;
    }
    /// A request whose items are 1, 2, ... but for the first.
    static std::string request(BU_S32 s32Item);
    static BU_S32 valueOf(const std::string &strResponse); ///< s32Value of a panel response
    static bool answers(const Peer &peer);                 ///< the service, to that one
    static BU_S32 tell(const BU_CHAR *pcSubject, BU_S32 s32Number, const BU_CHAR *pcText = "");

private:
    std::optional<util::ManualClock> m_clock;
    const std::string m_strRoot = mkdtemp(std::string("/tmp/camera-test-XXXXXX").data());
};
