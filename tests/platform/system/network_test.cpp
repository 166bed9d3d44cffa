// The network card: what is taken for an address, one rule for setter and store, names.
#include "camera/network.h"

#include "support/platformTest.h"

#include <cstring>

using testing::ElementsAre;

namespace
{
constexpr const BU_CHAR *CARD = "NetCard0", *NONE = nullptr;
constexpr BU_S32 (*SETTERS[])(const BU_CHAR *, const BU_CHAR *) = {
    NET_API_SetIpAddr, NET_API_SetNetMask, NET_API_SetGateWay, NET_API_SetDns1, NET_API_SetDns2};

class Network : public PlatformTest
{
protected:
    void SetUp() override { NET_API_SetIpMode(CARD, IP_MODE_E_STATIC); }
    static NETWORK_CFG_S current()
    {
        NETWORK_CFG_S stCfg{};
        EXPECT_EQ(NET_API_GetAllParamCur(CARD, &stCfg), 0);
        return stCfg;
    }
    static std::vector<std::string> texts()
    {
        const NETWORK_CFG_S st = current();
        return {st.stIpInfo.acIpAddr, st.stIpInfo.acNetMask, st.stIpInfo.acGateWay, st.stDnsInfo.acDns[0],
                st.stDnsInfo.acDns[1]};
    }
    static std::vector<std::string> fallback()
    {
        NETWORK_IP_INFO_S stInfo{};
        EXPECT_EQ(CFG_NETWORK_GetIpInfoFallback(CARD, &stInfo), 0);
        return {stInfo.acIpAddr, stInfo.acNetMask, stInfo.acGateWay};
    }
};

// Every setter of an address, every row: what is refused is not used either when it is stored all the same.
TEST_F(Network, TakesAddressesThatCanBe)
{
    // clang-format off
    const struct { const BU_CHAR *pcText; bool bMachine = false, bMask = false; } rows[] = {
        {"192.168.1.10", true}, {"10.0.0.1", true}, {"127.0.0.1", true}, {"223.255.255.255", true},
        {"255.255.255.0", false, true}, {"255.255.255.255", false, true}, {"128.0.0.0", true, true},
        {"255.255.0.255"}, {"255.255.255.1"}, {"0.0.0.0"}, {"0.1.2.3"}, {"224.0.0.1"}, {"192.168.1"}, {"192.168.1.256"},
        {"192.168.1.1."}, {"192.168.1.1 "}, {" 192.168.1.1"}, {"192.168..1"}, {"1921.68.1.1"}, {"192.168.1.-1"}, {"::1"},
        {"192.168.1.1/24"}, {"192.168.1.4294967297"}, {"192.168.0001.1"}, {"192.168.01.1"}};
    // clang-format on
    for (const auto &row : rows) {
        SCOPED_TRACE(row.pcText);
        CFG_STORE_Open(nullptr);
        NET_API_SetIpMode(CARD, IP_MODE_E_STATIC);
        const BU_S32 s32Machine = row.bMachine ? 0 : -1, s32Mask = row.bMask ? 0 : -1;
        for (auto *pfnSet : SETTERS)
            EXPECT_EQ(pfnSet(CARD, row.pcText), pfnSet == NET_API_SetNetMask ? s32Mask : s32Machine);
        EXPECT_EQ(NET_API_CheckIpConflict(row.pcText), s32Machine);
        EXPECT_EQ(NET_API_FallbackIPReplaceDefaultScript(row.pcText, "255.0.0.0", "10.0.0.1"), s32Machine);
        EXPECT_EQ(NET_API_FallbackIPReplaceDefaultScript("10.0.0.5", row.pcText, ""), s32Mask);
        EXPECT_EQ(NET_API_FallbackIPReplaceDefaultScript("10.0.0.5", "255.0.0.0", row.pcText), s32Machine);
        for (const BU_CHAR *pcKey : {"IpAddr", "NetMask", "GateWay", "Dns1", "Dns2", "FallbackIpAddr"})
            CFG_STORE_SetText((std::string("Network/NetCard0/") + pcKey).c_str(), row.pcText);
        const auto machine = [&](const BU_CHAR *pcElse) { return row.bMachine ? row.pcText : pcElse; };
        EXPECT_THAT(texts(), ElementsAre(machine("192.168.100.100"), row.bMask ? row.pcText : "255.255.255.0",
                                         machine("192.168.100.1"), machine(""), machine("")));
        EXPECT_EQ(fallback()[0], machine("192.168.100.100"));
    }
}

TEST_F(Network, EachSetterKeepsItsOwnField)
{
    const BU_CHAR *const apcSet[] = {"10.0.0.1", "255.0.0.0", "10.0.0.2", "10.0.0.3", "10.0.0.4"};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(SETTERS[i](CARD, apcSet[i]), 0);
    EXPECT_EQ(NET_API_SetNetMode(CARD, BU_FALSE) + NET_API_SetDnsMode(CARD, DNS_MODE_E_MANUAL), 0);
    const NETWORK_CFG_S st = current();
    EXPECT_THAT(texts(), testing::ElementsAreArray(apcSet));
    EXPECT_EQ(std::tuple(std::string(st.acIntf), st.bEnable, st.enIpMode, st.enDnsMode),
              std::tuple("eth0", BU_FALSE, IP_MODE_E_STATIC, DNS_MODE_E_MANUAL));
    EXPECT_EQ(NET_API_SetIpAddr(CARD, ""), -1) << "the others may be empty";
    EXPECT_EQ(NET_API_SetNetMask(CARD, "") + NET_API_SetGateWay(CARD, "") + NET_API_SetDns1(CARD, ""), 0);
    EXPECT_STREQ(current().stIpInfo.acNetMask, "");
    EXPECT_EQ(NET_API_SetIpMode(CARD, static_cast<IP_MODE_E>(2)), -1);
    EXPECT_EQ(NET_API_SetDnsMode(CARD, static_cast<DNS_MODE_E>(-1)), -1);
}

TEST_F(Network, ThereIsOneCard)
{
    tagNETWORK_CARDS_S stCards;
    NETWORK_CFG_S stCfg;
    NETWORK_IP_INFO_S stInfo{"10.0.0.5", "255.0.0.0", ""};
    BU_U32 u32Timeout = 0;
    ASSERT_EQ(CFG_NETWORK_GetCards(&stCards), 0);
    ASSERT_EQ(stCards.s32Cnt, 1);
    EXPECT_STREQ(stCards.acEthName[0], "eth0");
    EXPECT_EQ(CFG_NETWORK_GetCardIntf(stCards.acCards[0], &stCfg), 0);
    EXPECT_EQ(CFG_NETWORK_GetIpInfoFallback(CARD, nullptr) + CFG_NETWORK_SetIpInfoFallback(CARD, nullptr), -2);
    for (const BU_CHAR *pcCard : {"NetCard1", "eth0", "", NONE}) {
        EXPECT_EQ(CFG_NETWORK_GetCardIntf(pcCard, &stCfg), -1);
        EXPECT_EQ(CFG_NETWORK_SetIpInfoFallback(pcCard, &stInfo), -1);
        EXPECT_EQ(CFG_NETWORK_GetDhcpTimeout(pcCard, &u32Timeout), -1);
        EXPECT_EQ(NET_API_SetNetMode(pcCard, BU_TRUE), -1);
        for (auto *pfnSet : SETTERS) EXPECT_EQ(pfnSet(pcCard, "128.0.0.0") + pfnSet(CARD, nullptr), -2);
    }
}

TEST_F(Network, WithDhcpTheAddressIsTheOneThatControllersReachAndNothingReachesTheMachine)
{
    journal::effects();
    NET_API_InitCfgParam();
    NET_API_SetIpAddr(CARD, "192.168.1.10");
    NET_API_SetIpMode(CARD, IP_MODE_E_DHCP);
    EXPECT_STREQ(current().stIpInfo.acIpAddr, "127.0.0.1");
    NET_API_SetIpMode(CARD, IP_MODE_E_STATIC); // what was stored is still there
    EXPECT_STREQ(current().stIpInfo.acIpAddr, "192.168.1.10");
    EXPECT_THAT(journal::effects(), testing::Each(testing::Not(testing::HasSubstr("UTIL_CMD_"))));
}

TEST_F(Network, TheFallbackIsOneStepAllOrNothingWhoeverSetsIt)
{
    NETWORK_IP_INFO_S stGood{"10.0.0.5", "255.0.0.0", "10.0.0.1"}, stBad{"10.0.0.6", "255.0.0.1", "10.0.0.1"}, stOpen;
    std::memset(&stOpen, '1', sizeof(stOpen)); // no terminator anywhere
    EXPECT_EQ(CFG_NETWORK_SetIpInfoFallback(CARD, &stGood), 0);
    EXPECT_EQ(CFG_NETWORK_SetIpInfoFallback(CARD, &stBad), -1);
    EXPECT_EQ(CFG_NETWORK_SetIpInfoFallback(CARD, &stOpen), -1);
    EXPECT_EQ(fallback()[0], "10.0.0.5");
    EXPECT_EQ(NET_API_FallbackIPReplaceDefaultScript("10.1.1.1", "255.255.0.0", "10.1.1.254"), 0);
    EXPECT_EQ(NET_API_FallbackIPReplaceDefaultScript("10.1.1.2", nullptr, ""), -1);
    EXPECT_THAT(fallback(), ElementsAre("10.1.1.1", "255.255.0.0", "10.1.1.254"));
}

TEST_F(Network, TheDhcpTimeoutHasOneRange)
{
    for (const auto &[u32Set, bTaken] :
         {std::pair(0u, false), {1u, true}, {3600u, true}, {3601u, false}, {0xFFFFFFFFu, false}}) {
        CFG_STORE_Open(nullptr);
        BU_U32 u32Timeout = 0;
        EXPECT_EQ(NET_API_SetDhcpTimeout(CARD, IP_MODE_E_DHCP, u32Set), bTaken ? 0 : -1) << u32Set;
        CFG_STORE_SetText("Network/NetCard0/DhcpTimeout", std::to_string(u32Set).c_str());
        CFG_NETWORK_GetDhcpTimeout(CARD, &u32Timeout);
        EXPECT_EQ(u32Timeout, bTaken ? u32Set : 30u);
    }
}

TEST_F(Network, HostNameIsCheckedAndCutToTheBuffer)
{
    const std::string strLong(63, 'x'), strTooLong(64, 'x');
    EXPECT_EQ(CFG_NETWORK_SetHostname(strLong.c_str()) + CFG_NETWORK_SetHostname("Camera-7.studio_2"), 0);
    for (const BU_CHAR *pcName : {"", "a b", "a;reboot", "a/b", strTooLong.c_str(), NONE})
        EXPECT_EQ(CFG_NETWORK_SetHostname(pcName), -1) << (pcName ? pcName : "NULL");
    BU_CHAR acName[9];
    std::memset(acName, '#', sizeof(acName));
    ASSERT_EQ(CFG_NETWORK_GetHostname(acName, 8), 0);
    EXPECT_STREQ(acName, "Camera-");
    EXPECT_EQ(acName[8], '#') << "beyond the buffer";
}
} // namespace
