// The stored endpoints: what counts when nothing, or nonsense, is stored; what a change takes.
#include "protocol/visca.h"
#include "protocol/viscaNet.h"
#include "support/platformTest.h"

namespace
{
using Endpoints = PlatformTest;

tagCFG_VISCA_NET_S read(BU_S32 (*pfnGet)(tagCFG_VISCA_NET_S *))
{
    tagCFG_VISCA_NET_S st{};
    EXPECT_EQ(pfnGet(&st), 0);
    return st;
}

TEST_F(Endpoints, HaveTheirDefaultsAndPassNonsenseOver)
{
    const tagCFG_VISCA_NET_S stPlain = read(CFG_SYSTEM_GetViscaNet), stOverIp = read(CFG_SYSTEM_GetViscaOverIp);
    EXPECT_EQ(std::tuple(stPlain.bEnable, stPlain.bProtocolType, stPlain.PortNum), std::tuple(1, 2, 1259));
    EXPECT_EQ(std::tuple(stOverIp.bEnable, stOverIp.PortNum), std::tuple(1, 52381));
    for (const auto &[pcText, s32Port] : {std::pair("0", 1259), {"65536", 1259}, {"x", 1259}, {"65535", 65535}}) {
        CFG_STORE_SetText("ViscaNet/PortNum", pcText);
        EXPECT_EQ(read(CFG_SYSTEM_GetViscaNet).PortNum, s32Port) << pcText;
    }
    CFG_STORE_SetTexts({{"ViscaOverIp/Enable", "0"}, {"ViscaOverIp/IpAddr", std::string(64, '1')}});
    EXPECT_EQ(read(CFG_SYSTEM_GetViscaOverIp).bEnable, 0);
    EXPECT_STREQ(read(CFG_SYSTEM_GetViscaOverIp).IpAddr, "") << "longer than the field";
    EXPECT_EQ(read(CFG_SYSTEM_GetViscaNet).bEnable, 1);
}

TEST_F(Endpoints, AChangeIsStoredInItsPlaceOrRefused)
{
    tagCFG_VISCA_NET_S st{0, 1, 2000, 3, "127.0.0.2"};
    EXPECT_EQ(VISCA_NET_UpdateConfig(&st), 0);
    const auto fields = [](const tagCFG_VISCA_NET_S &one) {
        return std::tuple(one.bEnable, one.bProtocolType, one.PortNum, one.bWorkMode, std::string(one.IpAddr));
    };
    EXPECT_EQ(fields(read(CFG_SYSTEM_GetViscaNet)), fields(st));
    EXPECT_EQ(read(CFG_SYSTEM_GetViscaOverIp).PortNum, 52381);
    for (const tagCFG_VISCA_NET_S &stBad :
         {tagCFG_VISCA_NET_S{2, 1, 2000, 0, {}}, {1, 3, 2000, 0, {}}, {1, 1, 0, 0, {}}, {1, 1, 65536, 0, {}}})
        EXPECT_EQ(VISCA_NET_UpdateConfig(&stBad), -1);
    EXPECT_EQ(read(VISCA_NET_GetCurConfig).PortNum, 2000);
}
} // namespace
