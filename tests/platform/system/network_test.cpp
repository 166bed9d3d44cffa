#include "camera/network.h"

#include "support/platformTest.h"

using testing::Contains;
using testing::Not;

class Network : public PlatformTest
{
protected:
    void SetUp() override { NET_API_SetIpMode("NetCard0", IP_MODE_E_STATIC); }
    NETWORK_CFG_S current()
    {
        NETWORK_CFG_S stCfg{};
        EXPECT_EQ(NET_API_GetAllParamCur("NetCard0", &stCfg), 0);
        return stCfg;
    }
};

struct tagADDRESS_CASE_S {
    const BU_CHAR *pcText;
    bool bMachine, bMask;
};
TEST_F(Network, TakesAddressesThatCanBe)
{
    const tagADDRESS_CASE_S astCases[] = {
        {"192.168.1.10", true, false},
        {"10.0.0.1", true, false},
        {"127.0.0.1", true, false},
        {"223.255.255.255", true, false},
        {"255.255.255.0", false, true},
        {"255.255.255.255", false, true},
        {"128.0.0.0", true, true},
        {"255.255.0.255", false, false},
        {"255.255.255.1", false, false},
        {"0.0.0.0", false, false},
        {"0.1.2.3", false, false},
        {"224.0.0.1", false, false},
        {"192.168.1", false, false},
        {"192.168.1.256", false, false},
        {"192.168.1.1.", false, false},
        {"192.168.1.1 ", false, false},
        {" 192.168.1.1", false, false},
        {"192.168..1", false, false},
        {"1921.68.1.1", false, false},
        {"192.168.1.-1", false, false},
        {"::1", false, false},
        {"192.168.1.1/24", false, false},
        {"192.168.1.4294967297", false, false},
        {"192.168.0001.1", false, false},
    };
    for (const auto &st : astCases) {
        SCOPED_TRACE(st.pcText);
        EXPECT_EQ(NET_API_SetIpAddr("NetCard0", st.pcText), st.bMachine ? 0 : -1);
        EXPECT_EQ(NET_API_SetGateWay("NetCard0", st.pcText), st.bMachine ? 0 : -1);
        EXPECT_EQ(NET_API_SetDns2("NetCard0", st.pcText), st.bMachine ? 0 : -1);
        EXPECT_EQ(NET_API_SetNetMask("NetCard0", st.pcText), st.bMask ? 0 : -1);
        EXPECT_EQ(NET_API_CheckIpConflict(st.pcText), st.bMachine ? 0 : -1);
    }
    EXPECT_STREQ(current().stIpInfo.acIpAddr, "128.0.0.0");
    EXPECT_STREQ(current().stIpInfo.acNetMask, "128.0.0.0");
}

TEST_F(Network, MaskGatewayAndNameServersMayBeEmptyTheAddressMayNot)
{
    ASSERT_EQ(NET_API_SetIpAddr("NetCard0", "192.168.1.10"), 0);
    EXPECT_EQ(NET_API_SetIpAddr("NetCard0", ""), -1);
    EXPECT_EQ(NET_API_SetNetMask("NetCard0", ""), 0);
    EXPECT_EQ(NET_API_SetGateWay("NetCard0", ""), 0);
    EXPECT_EQ(NET_API_SetDns1("NetCard0", ""), 0);
    for (auto *pfnSet : {NET_API_SetIpAddr, NET_API_SetNetMask, NET_API_SetGateWay, NET_API_SetDns1, NET_API_SetDns2}) {
        EXPECT_EQ(pfnSet("NetCard0", nullptr), -1);
        EXPECT_EQ(pfnSet("NetCard9", "192.168.1.1"), -1);
        EXPECT_EQ(pfnSet(nullptr, "192.168.1.1"), -1);
    }
    EXPECT_STREQ(current().stIpInfo.acIpAddr, "192.168.1.10");
    EXPECT_STREQ(current().stIpInfo.acNetMask, "");
    EXPECT_STREQ(current().stIpInfo.acGateWay, "");
}

TEST_F(Network, WithDhcpTheAddressIsTheOneThatControllersReach)
{
    NET_API_SetIpAddr("NetCard0", "192.168.1.10");
    NET_API_SetIpMode("NetCard0", IP_MODE_E_DHCP);
    EXPECT_STREQ(current().stIpInfo.acIpAddr, "127.0.0.1");
    NET_API_SetIpMode("NetCard0", IP_MODE_E_STATIC); // what was stored is still there
    EXPECT_STREQ(current().stIpInfo.acIpAddr, "192.168.1.10");
    EXPECT_EQ(NET_API_SetIpMode("NetCard0", static_cast<IP_MODE_E>(2)), -1);
    EXPECT_EQ(NET_API_SetDnsMode("NetCard0", static_cast<DNS_MODE_E>(-1)), -1);
}

TEST_F(Network, TheFallbackIsOneStepAllOrNothing)
{
    NETWORK_IP_INFO_S stInfo{};
    EXPECT_EQ(NET_API_FallbackIPReplaceDefaultScript("10.1.1.1", "255.0.0.0", "10.1.1.254"), 0);
    EXPECT_EQ(NET_API_FallbackIPReplaceDefaultScript("10.1.1.2", "255.0.0.1", ""), -1);
    EXPECT_EQ(NET_API_FallbackIPReplaceDefaultScript("", "255.0.0.0", ""), -1);
    CFG_NETWORK_GetIpInfoFallback("NetCard0", &stInfo);
    EXPECT_STREQ(stInfo.acIpAddr, "10.1.1.1");
    EXPECT_STREQ(stInfo.acGateWay, "10.1.1.254");
    BU_U32 u32Timeout = 0;
    EXPECT_EQ(NET_API_SetDhcpTimeout("NetCard0", IP_MODE_E_DHCP, 0), -1);
    EXPECT_EQ(NET_API_SetDhcpTimeout("NetCard0", IP_MODE_E_DHCP, 3601), -1);
    EXPECT_EQ(NET_API_SetDhcpTimeout("NetCard0", IP_MODE_E_DHCP, 60), 0);
    CFG_NETWORK_GetDhcpTimeout("NetCard0", &u32Timeout);
    EXPECT_EQ(u32Timeout, 60u);
}

TEST_F(Network, NothingReachesTheMachine)
{
    journal::effects();
    NET_API_InitCfgParam();
    NET_API_SetIpAddr("NetCard0", "192.168.1.10");
    EXPECT_THAT(journal::effects(), Not(Contains(testing::HasSubstr("UTIL_CMD_"))));
}
