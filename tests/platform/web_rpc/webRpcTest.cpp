// The events and questions of the tests.
#include "webRpcTest.h"

#include <atomic>
#include <cstring>

namespace
{
typedef tag_WEB_RPC_PANEL_REQ_PAYLOAD_S Request;
typedef tag_WEB_RPC_PANEL_RES_PAYLOAD_S Response;

std::atomic<BU_S32> g_s32Count{0};

template <class T> WEB_RPC_PAYLOAD_S *create() { return new T(); }

template <auto Handle> void handle(WEB_RPC_PAYLOAD_S *pstRequest, WEB_RPC_PAYLOAD_S *pstResponse)
{
    Handle(*static_cast<const Request *>(pstRequest), *static_cast<Response *>(pstResponse));
}

void registerEvent(BU_U32 u32Event, void (*pfnHandler)(WEB_RPC_PAYLOAD_S *, WEB_RPC_PAYLOAD_S *))
{
    const auto enEvent = static_cast<tag_WEB_RPC_EVENT_GROUP_E>(u32Event);
    EXPECT_EQ(WEB_RPC_RegisterMainHandler(enEvent, pfnHandler), 0);
    EXPECT_EQ(WEB_RPC_RegisterReqPayloadCreator(enEvent, create<Request>), 0);
    EXPECT_EQ(WEB_RPC_RegisterResPayloadCreator(enEvent, create<Response>), 0);
}

void registerAll()
{
    g_s32Count = 0;
    registerEvent(SUM, handle<[](const Request &st, Response &stResponse) {
                      stResponse.bVisible = BU_TRUE;
                      stResponse.s32Value =
                          st.s32EventType + st.s32Id + st.s32Value0 + st.s32Value1 + st.s32Value2 + st.s32Value3;
                      stResponse.s32SideEffectBitmap = 0x8877665544332211;
                  }>);
    registerEvent(COUNT, handle<[](const Request &, Response &stResponse) { stResponse.s32Value = ++g_s32Count; }>);
    registerEvent(SILENT, handle<[](const Request &, Response &) {}>);
    EXPECT_EQ(WEB_RPC_RegisterMainHandler(static_cast<tag_WEB_RPC_EVENT_GROUP_E>(HALF),
                                          handle<[](const Request &, Response &) {}>),
              0);
}

const BU_CHAR *answerEcho(const void *pvRequest, void *pvAnswer)
{
    const auto &st = *static_cast<const Echo *>(pvRequest);
    *static_cast<Echo *>(pvAnswer) = st;
    return st.number < 0 ? "too dark" : nullptr;
}

const BU_CHAR *answerMany(const void *pvRequest, void *pvAnswer)
{
    auto &lines = static_cast<Lines *>(pvAnswer)->lines;
    lines.resize(static_cast<std::size_t>(static_cast<const Echo *>(pvRequest)->number), {"a \"line\"", {}});
    if (!lines.empty()) lines.back() = {nullptr, {{7, "x"}}};
    return nullptr;
}
} // namespace

WebRpcTest::WebRpcTest(const std::string &strFolder, Time enTime)
{
    if (enTime == Time::MANUAL) m_clock.emplace();
    UTIL_ROOT_Set((m_strRoot + strFolder).c_str());
    registerAll();
    gate().open(false);
    for (const BU_U32 u32Event : GATED_EVENTS)
        registerEvent(u32Event, handle<[](const Request &st, Response &stResponse) {
                          gate().pass();
                          stResponse.s32Value = st.s32EventType;
                      }>);
    EXPECT_EQ(WEB_RPC_RegisterQuestion("echo", WEB_RPC_RECORD<Echo>, WEB_RPC_RECORD<Echo>, answerEcho), 0);
    EXPECT_EQ(WEB_RPC_RegisterQuestion("many", WEB_RPC_RECORD<Echo>, WEB_RPC_RECORD<Lines>, answerMany), 0);
    EXPECT_EQ(WEB_RPC_InitForAppMain(), 0);
}

WebRpcTest::~WebRpcTest()
{
    gate().open();
    EXPECT_EQ(WEB_RPC_UnInitForAppMain(BU_FALSE), 0);
    UTIL_THREAD_WaitAsync();
    std::filesystem::remove_all(m_strRoot);
}

std::string WebRpcTest::request(BU_S32 s32Item)
{
    Request st;
    std::tie(st.s32EventType, st.s32Id, st.s32Value0, st.s32Value1, st.s32Value2, st.s32Value3) =
        std::tuple(s32Item, 1, 2, 3, 4, 5);
    std::string strImage(st.getSize(), '\xEE'); // head and padding: anything
    st.dumpBytes(strImage.data(), st.getSize());
    return strImage;
}

BU_S32 WebRpcTest::valueOf(const std::string &strResponse)
{
    BU_S32 s32Value = 0;
    EXPECT_EQ(strResponse.size(), 32U);
    if (strResponse.size() == 32) std::memcpy(&s32Value, strResponse.data() + 16, sizeof(s32Value));
    return s32Value;
}

bool WebRpcTest::answers(const Peer &peer)
{
    static BU_U32 s_u32Id = 100'000;
    peer.call(++s_u32Id, SUM, request(1));
    const auto st = peer.answer();
    return st.u32Id == s_u32Id && valueOf(st.strBytes) == 1 + 1 + 2 + 3 + 4 + 5;
}

BU_S32 WebRpcTest::tell(const BU_CHAR *pcSubject, BU_S32 s32Number, const BU_CHAR *pcText)
{
    Echo st{.number = s32Number};
    std::strcpy(st.text, pcText);
    return WEB_RPC_Tell(pcSubject, web_layout::RECORD<Echo>, &st);
}
