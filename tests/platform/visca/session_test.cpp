#include "viscaLibTest.h"

#include "camera/menu.h"
#include "camera/power.h"
#include "camera/preset.h"
#include "camera/restore.h"

using namespace visca;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{
const char *const ABS = "81 01 06 02 05 05 00 01 00 00 00 00 00 00 FF"; // moves to a target: runs until its end
const char *const ZOOM_DIRECT = "81 01 04 47 02 00 00 00 FF";
const char *const FOCUS_DIRECT = "81 01 04 48 01 00 00 00 FF";
const char *const RECALL = "81 01 04 3F 02 05 FF";
const char *const LEFT = "81 01 06 01 05 05 01 03 FF";
const char *const STOP = "81 01 06 01 05 05 03 03 FF";
const char *const TELE = "81 01 04 07 02 FF";
const char *const INQUIRY = "81 09 04 00 FF";

struct Dialogue {
    const char *pcName;
    std::vector<std::pair<std::string, std::vector<std::string>>> steps; ///< what comes in and what goes out
};

struct Session : ViscaLibTest {
    Session()
    {
        Service::fnHandle = [](auto enType, auto &stInfo) { return isMove(enType, stInfo) ? 1 : 0; };
        Service::payload = {2};
    }
    /// Another source sends the head to a VISCA position.
    static void moveTo(BU_S16 s16Pan, BU_S16 s16Tilt = 0)
    {
        PT_MOTION_CTRL_S stMove{};
        stMove.enMotionType = PT_MOTION_E_ABS_POS;
        stMove.stPos = {static_cast<BU_U16>(s16Pan), static_cast<BU_U16>(s16Tilt)};
        BSP_PTPosFromVisca(0, &stMove.stPos);
        PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_OTHER, &stMove);
        BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMove, nullptr);
    }
};
struct SessionDialogue : Session, testing::WithParamInterface<Dialogue> {
};
} // namespace

/// A step's input: bytes, with "2: " of that controller; "end 0" or "fail 0" of what the service saw as that number.
TEST_P(SessionDialogue, Answers)
{
    for (const auto &[strIn, listOut] : GetParam().steps) {
        const bool bEnd = strIn.starts_with("end"), bFail = strIn.starts_with("fail"), bPeer = strIn.find(':') == 1;
        if (bEnd || bFail) finish(static_cast<std::size_t>(strIn.back() - '0'), bEnd);
        EXPECT_THAT(bEnd || bFail ? sent() : feed(strIn.substr(bPeer ? 3 : 0), CMD_FROM_E_NET_TCP_IN, bPeer ? 2 : 1),
                    ElementsAreArray(listOut))
            << strIn;
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rows, SessionDialogue, testing::Values(
    Dialogue{"InquiryHasNoAcknowledgement", {{INQUIRY, {"90 50 02 FF"}}}},
    Dialogue{"CommandsInTurnUseTheFirstSocket", {{std::string(TELE) + " " + STOP, {"90 41 FF", "90 51 FF", "90 41 FF", "90 51 FF"}}}},
    Dialogue{"OwnMessagesKeepTheirOrder", {{std::string(INQUIRY) + " " + TELE + " " + INQUIRY, {"90 50 02 FF", "90 41 FF", "90 51 FF", "90 50 02 FF"}}}},
    Dialogue{"TwoSocketsThenFull", {{ABS, {"90 41 FF"}}, {ZOOM_DIRECT, {"90 42 FF"}}, {FOCUS_DIRECT, {"90 60 03 FF"}},
                                         {"81 01 04 35 00 FF", {"90 60 03 FF"}}, {INQUIRY, {"90 50 02 FF"}}}},
    Dialogue{"StopNeedsNoSocketAndEndsTheMove", {{ABS, {"90 41 FF"}}, {ZOOM_DIRECT, {"90 42 FF"}}, {STOP, {"90 61 04 FF", "90 41 FF", "90 51 FF"}},
                                                      {"81 22 FF", {"90 62 04 FF"}}}},
    Dialogue{"DriveOfOtherMotorsLeavesBothMoves", {{FOCUS_DIRECT, {"90 41 FF"}}, {ZOOM_DIRECT, {"90 42 FF"}}, {LEFT, {"90 41 FF", "90 51 FF"}},
                                                        {"81 21 FF", {"90 61 04 FF"}}, {"81 22 FF", {"90 62 04 FF"}}}},
    Dialogue{"CancelNamesARunningCommand", {{ABS, {"90 41 FF"}}, {"81 22 FF", {"90 62 05 FF"}}, {"81 21 FF", {"90 61 04 FF"}}, {"81 21 FF", {"90 61 05 FF"}}}},
    Dialogue{"ClearFreesBothSockets", {{ABS, {"90 41 FF"}}, {ZOOM_DIRECT, {"90 42 FF"}}, {"88 01 00 01 FF", {"88 01 00 01 FF"}}, {ABS, {"90 41 FF"}}, {ZOOM_DIRECT, {"90 42 FF"}},
                                            {"81 01 00 01 FF", {"90 50 FF"}}, {ABS, {"90 41 FF"}}}},
    Dialogue{"LateEndAnswersOnceAndFreesTheSocket", {{ABS, {"90 41 FF"}}, {ZOOM_DIRECT, {"90 42 FF"}}, {"end 1", {"90 52 FF"}}, {"end 1", {}},
                                                          {"fail 0", {"90 61 04 FF"}}, {ABS, {"90 41 FF"}}, {ZOOM_DIRECT, {"90 42 FF"}}}}, // failed: another took the move over
    Dialogue{"EndOfACancelledCommandIsNotTakenForItsSuccessor", {{ABS, {"90 41 FF"}}, {"81 21 FF", {"90 61 04 FF"}}, {ABS, {"90 41 FF"}}, {"end 0", {}},
                                                                      {"end 2", {"90 51 FF"}}}}, // 1 is the cancel message, of which the service hears
    Dialogue{"EachControllerHasItsOwnSockets", {{ABS, {"90 41 FF"}}, {std::string("2: ") + ABS, {"90 41 FF"}}, {"2: 81 22 FF", {"90 62 05 FF"}},
                                                     {"2: 81 21 FF", {"90 61 04 FF"}}, {"81 21 FF", {"90 61 04 FF"}}}},
    Dialogue{"WrongPackets", {{"81 FF", {"90 60 01 FF"}}, {"81 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10 FF", {"90 60 01 FF"}},
                                   {"81 01 04 77 00 FF", {"90 60 02 FF"}}, {"88 01 04 00 02 FF", {"90 60 02 FF"}}, {"8C 09 04 00 FF", {"90 60 02 FF"}}}},
    Dialogue{"AnswersComeFromTheAddressAsked", {{"84 09 04 00 FF", {"C0 50 02 FF"}}, {"87 01 04 07 00 FF", {"F0 41 FF", "F0 51 FF"}}, {"83 01 04 07 FF", {"B0 60 02 FF"}}}},
    Dialogue{"AddressSettingOnTheNetworkChangesNothing", {{"88 30 01 FF", {"88 30 02 FF"}}}}),
    [](const auto &row) { return row.param.pcName; });
// clang-format on

TEST(ViscaSockets, WhatIsBeingAnsweredCannotEndAgainAndKeepsItsSocket)
{
    Peer peer;
    VISCA_MSG_PRI_S stPri{};
    std::optional<Ended> superseded;
    ASSERT_TRUE(library().sockets.open(peer, stPri, {PAN_TILT}, {}, superseded));
    const BU_U32 u32Ticket = origin::ticketOf(stPri);
    for (const Claim enClaim : {Claim::Running, Claim::Ended, Claim::Ended}) {
        EXPECT_EQ(library().sockets.claim(u32Ticket), enClaim);
        EXPECT_TRUE(library().sockets.isEnding(peer) && !library().sockets.isBusy(peer));
        EXPECT_FALSE(library().sockets.closeSocket(peer, 1) || library().sockets.expectBy(u32Ticket, 5));
    }
    library().sockets.close(u32Ticket);
    EXPECT_FALSE(library().sockets.isEnding(peer) || library().sockets.isBusy(peer));
}

TEST_F(Session, CancelAndClearStopTheMotors)
{
    feed(RECALL);
    journal::effects();
    feed("81 21 FF");
    const auto effects = journal::effects();
    EXPECT_THAT(effects, Contains(StartsWith("BSP_PTCtrlMotion(1, ")));
    EXPECT_EQ(std::ranges::count_if(effects, [](const auto &s) { return s.starts_with("BSP_ZFCtrlMotion(1, "); }), 2);
    feed(ZOOM_DIRECT);
    journal::effects();
    feed("81 01 00 01 FF");
    EXPECT_THAT(journal::effects(), testing::Not(Contains(StartsWith("BSP_PTCtrlMotion"))));
}

// The acknowledgement has left before the service is called, whatever the service then says.
TEST_F(Session, AcknowledgesBeforeTheWork)
{
    for (const BU_S32 s32Ret : {0, -1, -2, 1}) {
        std::vector<std::string> listBefore;
        Service::fnHandle = [&](auto, auto &) { return listBefore = sent(), s32Ret; };
        const auto listAfter = feed("81 01 04 35 00 FF");
        EXPECT_THAT(listBefore, ElementsAre("90 41 FF"));
        if (s32Ret == 1)
            EXPECT_THAT(listAfter, IsEmpty());
        else
            EXPECT_THAT(listAfter, ElementsAre(s32Ret == 0 ? "90 51 FF" : "90 61 41 FF")) << s32Ret;
    }
    Service::fnHandle = [](auto, auto &) { return -7; };
    EXPECT_THAT(feed(INQUIRY), ElementsAre("90 60 41 FF")) << "a getter's failure is answered as well";
}

// In one turn of the receiver: all acknowledgements first, then stops, then the other commands, then inquiries.
TEST_F(Session, NobodyWaitsForAnothersWork)
{
    std::vector<std::string> listOrder;
    Service::fnHandle = [&](auto enType, auto &stInfo) {
        listOrder.push_back(std::to_string(enType) + " after " + std::to_string(sent().size()));
        return isMove(enType, stInfo) ? 1 : 0;
    };
    Turn turn([] {}, [] {});
    turn.begin();
    const Bytes data[] = {bytes(INQUIRY), bytes("81 01 04 35 00 FF 81 01 04 35 05 FF"), bytes(STOP)};
    for (BU_U32 u32 = 0; u32 < 3; ++u32) {
        VISCA_MSG_PRI_S stFrom{};
        stFrom.enFrom = CMD_FROM_E_NET_TCP_IN;
        turn.addStream(turn.addLane(m_peer[u32]), stFrom, data[u32], &m_splitter[u32]);
    }
    turn.process();
    EXPECT_THAT(listOrder, ElementsAre("29 after 2", "8 after 1", "59 after 1", "8 after 2"));
}

TEST_F(Session, RelativeMoveStartsFromWhereTheCameraIs)
{
    moveTo(0x0100, -0x40);
    clock().advance(60'000);
    feed("81 01 06 03 05 05 00 00 01 00 0F 0F 0F 00 FF");
    const auto &stPanTilt = Service::seen(0).stPTCtlr;
    EXPECT_EQ(stPanTilt.enPanTiltType, VISCA_MSG_E_PT_REL_POS);
    EXPECT_EQ(stPanTilt.u16PanPos, 0x0110);
    EXPECT_EQ(stPanTilt.u16TiltPos, static_cast<BU_U16>(-0x50));
}

TEST_F(Session, CommandThatNeverEndsIsClosedWhenNothingMoves)
{
    feed(ABS);
    clock().advance(COMMAND_TIMEOUT_MS - 1);
    EXPECT_THAT(sent(), IsEmpty());
    clock().advance(1);
    EXPECT_THAT(sent(), ElementsAre("90 61 41 FF"));
    feed(ABS);
    moveTo(0x0100); // somebody else moves the camera: it may still be on its way
    clock().advance(COMMAND_TIMEOUT_MS);
    EXPECT_THAT(sent(), IsEmpty());
    clock().advance(COMMAND_TIMEOUT_MS);
    EXPECT_THAT(sent(), ElementsAre("90 61 41 FF"));
    EXPECT_EQ(library().sockets.running(), 0u);
}

TEST_F(Session, SupersededRecallIsCancelled)
{
    ZF_API_StartService();
    const auto ended = [](void *, BU_BOOL) { return 0; };
    const PT_CTRL_CALL_FUNC_S stEnd{PT_CTRL_E_FROM_VISCA, ended, sizeof(tagVISCA_CTRL_INFO_S)};
    BSP_PTRegisterRetCallFunc(0, PT_CTRL_E_FROM_VISCA, &stEnd);
    BSP_ZFRegisterRetCallFunc(ZF_CTRL_E_FROM_VISCA, &stEnd);
    moveTo(0x0400);
    clock().advance(60'000);
    ASSERT_EQ(PRESET_API_SetCur(5, "far"), 0);
    moveTo(0);
    clock().advance(60'000);
    Service::fnHandle = [](auto, auto &stInfo) {
        return PRESET_API_GotoById(stInfo.stMemoryCtrl.u8MemVal, PT_CTRL_E_FROM_VISCA, &stInfo);
    };
    EXPECT_THAT(feed(RECALL), ElementsAre("90 41 FF"));
    clock().advance(100);
    moveTo(0);
    clock().advance(60'000);
    EXPECT_THAT(sent(), ElementsAre("90 61 04 FF"));
}

// The record of a power-off command is kept in a file; after the restart no session knows of it, whoever has its
// ticket.
TEST_F(Session, RecordOfAnEarlierRunIsAnsweredByItself)
{
    std::vector<tagVISCA_CTRL_INFO_S> listKept;
    for (int i = 0; i < 3; ++i) {
        start({}, {}, captured());
        Service::listSeen.clear();
        feed("82 01 04 35 00 FF"); // the same socket and ticket in each run
        sent();
        for (tagVISCA_CTRL_INFO_S &stKept : listKept) {
            EXPECT_EQ(VISCA_CtrlMsgReturn(&stKept, BU_TRUE), 0);
            EXPECT_THAT(sent(), ElementsAre("A0 51 FF"));
        }
        listKept.push_back(Service::seen(0));
    }
    BU_S32 s32Run = 0;
    EXPECT_EQ(CFG_STORE_GetInt("Visca/Run", &s32Run), 0);
    CFG_STORE_SetInt("Visca/Run", 0xFFF); // the numbers start over after 4095
    start({}, {}, captured());
    SYSTEM_API_FactoryRestoreConfiguration(SYSTEM_RESTORE_E_CONTROL); // nor does a restore repeat them
    UTIL_THREAD_WaitAsync();
    EXPECT_EQ(CFG_STORE_GetInt("Visca/Run", &s32Run), 0);
    EXPECT_EQ(s32Run, 1);
}

TEST_F(Session, StandbyEndsWithPowerOnAlone)
{
    UTIL_CMD_SetRebootHandler([] {});
    feed(ABS);
    Service::fnHandle = [](auto enType, auto &) {
        return enType == VISCA_CMD_E_POWER ? SYSTEM_API_SleepAppService() + 1 : 0;
    };
    EXPECT_THAT(feed("81 01 04 00 03 FF"), ElementsAre("90 42 FF"));
    EXPECT_THAT(feed(INQUIRY), ElementsAre("90 50 03 FF"));
    EXPECT_THAT(feed("81 01 04 00 03 FF"), ElementsAre("90 61 41 FF"));
    EXPECT_THAT(feed(STOP), ElementsAre("90 61 04 FF", "90 41 FF", "90 51 FF")); // of the move that still ran
    clock().advance(10 * COMMAND_TIMEOUT_MS);
    EXPECT_THAT(sent(), IsEmpty()) << "power-off is answered after the next start";
    EXPECT_THAT(feed("81 01 04 00 02 FF"), ElementsAre("90 41 FF", "90 51 FF"));
    EXPECT_FALSE(SYSTEM_API_IsAsleep());
}

TEST_F(Session, PublicInquiriesOfPictureSettingsHaveTheirPublicForm)
{
    // clang-format off
    const std::tuple<const char *, Bytes, const char *> ROWS[] = {
        {"81 09 04 A1 FF", {0x0A, 0x05}, "90 50 00 00 0A 05 FF"}, {"81 09 7E 32 01 FF", {0x0A, 0x05}, "90 50 0A 05 FF"},
        {"81 09 04 3D FF", {0x00}, "90 50 03 FF"}, {"81 09 04 3D FF", {0x03}, "90 50 02 FF"}, {"81 09 7E 32 08 FF", {0x03}, "90 50 03 FF"}};
    // clang-format on
    for (const auto &[pcIn, payload, pcOut] : ROWS) {
        Service::payload = payload;
        EXPECT_THAT(feed(pcIn), ElementsAre(pcOut)) << pcIn;
    }
}

TEST_F(Session, SerialChainCountsAddressesAndListensToItsOwn)
{
    const auto serial = [this](const char *pcIn) { return feed(pcIn, CMD_FROM_E_UART_RS232, 7); };
    Service::fnHandle = [](auto enType, auto &stInfo) {
        return enType == VISCA_CMD_E_SET_ADDRESS ? VISCA_API_SetAddr(stInfo.u8Address, BU_TRUE) : 0;
    };
    EXPECT_THAT(serial("88 30 03 FF"), ElementsAre("88 30 04 FF"));
    EXPECT_THAT(serial("81 09 04 00 FF"), IsEmpty());
    EXPECT_THAT(serial("83 09 04 00 FF"), ElementsAre("B0 50 02 FF"));
    EXPECT_THAT(serial("83 01 7E 38 01 05 FF"), ElementsAre("B0 41 FF", "B0 51 FF"));
    Service::fnHandle = [](auto, auto &stInfo) { return stInfo.u8Address = 3, 0; };
    EXPECT_THAT(feed("81 09 7E 38 01 FF"), ElementsAre("B0 50 02 FF")) << "the address inquiry tells it in the head";
    EXPECT_THAT(serial("85 09 04 00 FF 88 01 00 01 FF"), ElementsAre("D0 50 02 FF", "88 01 00 01 FF"));
    BU_U8 u8Address = 0;
    library().u8Address = 1;
    EXPECT_EQ(VISCA_API_GetAddr(&u8Address, BU_TRUE), 0);
    EXPECT_EQ(u8Address, 5) << "stored";
}

// Ends come from the motion threads while the receiver cancels and starts: each command is answered exactly once.
TEST_F(Session, EveryCommandEndsOnceWithManyThreads)
{
    constexpr BU_U32 PEERS = 4, ROUNDS = 300;
    std::vector<util::Thread> threads;
    Service::fnHandle = [](auto enType, auto &stInfo) {
        if (!isMove(enType, stInfo)) return 0;
        UTIL_THREAD_RunFuncAsync([stCopy = stInfo](void *) mutable { VISCA_CtrlMsgReturn(&stCopy, BU_TRUE); }, nullptr);
        return 1;
    };
    for (BU_U32 u32 = 0; u32 < PEERS; ++u32)
        threads.emplace_back("controller", [peer = &m_peer[u32], u32](std::stop_token) {
            VISCA_MSG_PRI_S stFrom{};
            stFrom.enFrom = CMD_FROM_E_NET_TCP_IN;
            stFrom.stIpMsg.u64IpAddr = u32;
            Job job;
            for (BU_U32 i = 0; i < ROUNDS; ++i)
                for (const char *pcIn : {ABS, "81 21 FF"}) {
                    accept(bytes(pcIn), stFrom, *peer, job);
                    run(job, [] {});
                }
        });
    threads.clear();
    UTIL_THREAD_WaitAsync();
    BU_U32 u32Accepted = 0, u32Ended = 0;
    for (const std::string &strSent : sent()) {
        u32Accepted += strSent[3] == '4';
        u32Ended += strSent[3] == '5' || strSent.ends_with(" 04 FF");
    }
    EXPECT_GT(u32Accepted, PEERS);
    EXPECT_EQ(u32Accepted, u32Ended);
    EXPECT_EQ(library().sockets.running(), 0u);
}
