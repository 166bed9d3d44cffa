#include "camera/network.h"
#include "protocol/viscaNet.h"
#include "support/platformTest.h"

#include <cstring>

namespace
{
typedef PlatformTest ConfigTest;

TEST_F(ConfigTest, EndpointsHaveTheirDefaultsAndIgnoreStoredNonsense)
{
    tagCFG_VISCA_NET_S stPlain, stOverIp;
    const auto read = [&] {
        return CFG_SYSTEM_GetViscaNet(&stPlain) == 0 && CFG_SYSTEM_GetViscaOverIp(&stOverIp) == 0;
    };
    ASSERT_TRUE(read());
    EXPECT_EQ(std::tuple(stPlain.bEnable, stPlain.bProtocolType, stPlain.PortNum), std::tuple(1, 2, 1259));
    EXPECT_EQ(std::tuple(stOverIp.bEnable, stOverIp.PortNum), std::tuple(1, 52381));
    const std::tuple<const BU_CHAR *, const BU_CHAR *, BU_S32> rows[] = {
        {"ViscaNet/PortNum", "0", 1259},
        {"ViscaNet/PortNum", "65536", 1259},
        {"ViscaNet/PortNum", "x", 1259},
        {"ViscaNet/PortNum", "65535", 65535},
    };
    for (const auto &[pcKey, pcText, s32Port] : rows) {
        CFG_STORE_SetText(pcKey, pcText);
        ASSERT_TRUE(read());
        EXPECT_EQ(stPlain.PortNum, s32Port) << pcText;
    }
    CFG_STORE_SetInt("ViscaOverIp/Enable", 0);
    CFG_STORE_SetText("ViscaOverIp/IpAddr", std::string(64, '1').c_str());
    ASSERT_TRUE(read());
    EXPECT_EQ(stOverIp.bEnable, 0);
    EXPECT_STREQ(stOverIp.IpAddr, "") << "longer than the field";
    EXPECT_EQ(stPlain.bEnable, 1);
}

TEST_F(ConfigTest, UnknownCardsAreRefused)
{
    tagNETWORK_CARDS_S stCards;
    tagNETWORK_CFG_S stCfg;
    ASSERT_EQ(CFG_NETWORK_GetCards(&stCards), 0);
    for (BU_S32 i = 0; i < stCards.s32Cnt; i++) EXPECT_EQ(CFG_NETWORK_GetCardIntf(stCards.acCards[i], &stCfg), 0);
    for (const BU_CHAR *pcCard : {"NetCard1", "eth0", "", static_cast<const BU_CHAR *>(nullptr)})
        EXPECT_EQ(CFG_NETWORK_GetCardIntf(pcCard, &stCfg), -1);
}

TEST_F(ConfigTest, FallbackTakesAddressesOnlyAndAllOrNothing)
{
    NETWORK_IP_INFO_S stGood{"10.0.0.5", "255.0.0.0", "10.0.0.1"}, stBad{"10.0.0.6", "255.0.0", "10.0.0.1"}, stRead;
    NETWORK_IP_INFO_S stOpen;
    std::memset(&stOpen, '1', sizeof(stOpen)); // no terminator anywhere
    EXPECT_EQ(CFG_NETWORK_SetIpInfoFallback("NetCard0", &stGood), 0);
    EXPECT_EQ(CFG_NETWORK_SetIpInfoFallback("NetCard0", &stBad), -1);
    EXPECT_EQ(CFG_NETWORK_SetIpInfoFallback("NetCard0", &stOpen), -1);
    ASSERT_EQ(CFG_NETWORK_GetIpInfoFallback("NetCard0", &stRead), 0);
    EXPECT_STREQ(stRead.acIpAddr, "10.0.0.5");
}

TEST_F(ConfigTest, HostNameIsCheckedAndCutToTheBuffer)
{
    EXPECT_EQ(CFG_NETWORK_SetHostname("Camera-7.studio_2"), 0);
    const std::string strLong(64, 'x');
    for (const BU_CHAR *pcName : {"", "a b", "a;reboot", "a/b", strLong.c_str(), static_cast<const BU_CHAR *>(nullptr)})
        EXPECT_EQ(CFG_NETWORK_SetHostname(pcName), -1) << (pcName ? pcName : "NULL");
    BU_CHAR acName[9];
    std::memset(acName, '#', sizeof(acName));
    ASSERT_EQ(CFG_NETWORK_GetHostname(acName, 8), 0);
    EXPECT_STREQ(acName, "Camera-");
    EXPECT_EQ(acName[8], '#') << "beyond the buffer";
}
} // namespace
