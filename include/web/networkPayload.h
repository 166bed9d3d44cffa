/// Payloads of the network pages: a card, the camera's addresses and names, NDI, Dante.
#pragma once

#include "base/ipv4.h"
#include "web/payload.h"

/// A network card. Its image is packed: the flags in byte 0 (bit 0 bEnabled, 1 bDhcp, 2 bAutoDns), s32Index at 1, the
/// five addresses of 4 bytes in network byte order from 5 on, interface at 25. With a negative index, which says that
/// no card is described, only the flags and the index are written and read.
struct tag_WEB_RPC_ETHERNET_PAYLOAD_S : WEB_RPC_PAYLOAD_S {
    BU_S32 s32Index = 0;
    BU_CHAR interface[16]{};
    BU_BOOL bEnabled = BU_FALSE;
    BU_BOOL bDhcp = BU_FALSE; ///< else a static address
    BU_CHAR ipaddr[32]{};     ///< a dotted quad, as the four below
    BU_CHAR netmask[32]{};
    BU_CHAR gateway[32]{};
    BU_BOOL bAutoDns = BU_FALSE; ///< name servers by DHCP, else those below
    BU_CHAR dns1[32]{};
    BU_CHAR dns2[32]{};

    void loadBytes(BU_CHAR *buf, unsigned int) override
    {
        for (int n = 0; n < 3; ++n) flag(n) = buf[0] >> n & 1;
        std::memcpy(&s32Index, buf + 1, sizeof s32Index);
        if (s32Index < 0) return;
        for (int n = 0; n < 5; ++n) {
            const std::string strText = base::Ipv4::fromBytes(at(buf, n)).text();
            std::memcpy(address(n).data(), strText.c_str(), strText.size() + 1);
        }
        std::memcpy(interface, buf + 25, sizeof interface);
    }
    /// A text that is not an address leaves its 4 bytes as they are.
    void dumpBytes(BU_CHAR *buf, unsigned int) override
    {
        buf[0] = 0;
        for (int n = 0; n < 3; ++n) buf[0] = static_cast<BU_CHAR>(buf[0] | (flag(n) != BU_FALSE) << n);
        std::memcpy(buf + 1, &s32Index, sizeof s32Index);
        if (s32Index < 0) return;
        for (int n = 0; n < 5; ++n)
            if (const auto ip = base::Ipv4::parse({address(n).data(), strnlen(address(n).data(), address(n).size())}))
                ip->toBytes(at(buf, n));
        std::memcpy(buf + 25, interface, sizeof interface);
    }
    unsigned int getSize() override { return 41; }

private:
    static std::span<BU_CHAR, 4> at(BU_CHAR *pcImage, int n) { return std::span<BU_CHAR, 4>{pcImage + 5 + 4 * n, 4}; }
    BU_BOOL &flag(int n) { return *std::array{&bEnabled, &bDhcp, &bAutoDns}[n]; }
    std::span<BU_CHAR, 32> address(int n) { return *std::array{&ipaddr, &netmask, &gateway, &dns1, &dns2}[n]; }
};
template <> inline constexpr BU_U32 web_layout::IMAGE_SIZE<tag_WEB_RPC_ETHERNET_PAYLOAD_S> = 41;
WEB_FIELDS(tag_WEB_RPC_ETHERNET_PAYLOAD_S, WEB_FIELD(s32Index, 1), WEB_FIELD(interface, 25), WEB_SWITCH(bEnabled, 0),
           WEB_SWITCH(bDhcp, 0), WEB_FIELD(ipaddr, 5), WEB_FIELD(netmask, 9), WEB_FIELD(gateway, 13),
           WEB_SWITCH(bAutoDns, 0), WEB_FIELD(dns1, 17), WEB_FIELD(dns2, 21));
static_assert(web_layout::complete<tag_WEB_RPC_ETHERNET_PAYLOAD_S>(8));

/// The camera's addresses: of the main card, of the full-bandwidth NDI interface, and those to fall back on when DHCP
/// gives none. Texts are dotted quads or names.
struct tag_WEB_RPC_TKVMX_CUSTOMER_NETWORK_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_NETWORK_PAYLOAD_S> {
    BU_U32 bDhcp = 0; ///< else a static address
    BU_CHAR ipaddr[32]{};
    BU_CHAR netmask[32]{};
    BU_CHAR gateway[32]{};
    BU_U32 bAutoDns = 0; ///< name servers by DHCP, else those below
    BU_CHAR dns1[32]{};
    BU_CHAR dns2[32]{};
    BU_U32 dhcpTimeout = 0; ///< as the network service counts it
    BU_CHAR fallbackIpaddr[32]{};
    BU_CHAR fallbackNetmask[32]{};
    BU_CHAR fallbackGateway[32]{};   ///< of a response; a set computes it
    BU_CHAR tarvolkName[32]{};       ///< the host name
    BU_CHAR tarvolkNameSuffix[32]{}; ///< of a response: what the system appends to it
    BU_CHAR fullndi_ipaddr[32]{};
    BU_CHAR fallbackNdiIpaddr[32]{};
    BU_CHAR fallbackNdiNetmask[32]{};
    BU_S32 s32Value = 0; ///< of a response: -2 when an address conflict refused the set
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_NETWORK_PAYLOAD_S, WEB_FIELD(bDhcp, 8), WEB_FIELD(ipaddr, 12),
           WEB_FIELD(netmask, 44), WEB_FIELD(gateway, 76), WEB_FIELD(bAutoDns, 108), WEB_FIELD(dns1, 112),
           WEB_FIELD(dns2, 144), WEB_FIELD(dhcpTimeout, 176), WEB_FIELD(fallbackIpaddr, 180),
           WEB_FIELD(fallbackNetmask, 212), WEB_FIELD(fallbackGateway, 244), WEB_FIELD(tarvolkName, 276),
           WEB_FIELD(tarvolkNameSuffix, 308), WEB_FIELD(fullndi_ipaddr, 340), WEB_FIELD(fallbackNdiIpaddr, 372),
           WEB_FIELD(fallbackNdiNetmask, 404), WEB_FIELD(s32Value, 436));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_NETWORK_PAYLOAD_S, 440);

/// NDI in the network. The suffixes are of a response only.
struct tag_WEB_RPC_TKVMX_CUSTOMER_NDI_NETWORK_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_NDI_NETWORK_PAYLOAD_S> {
    BU_U32 TransmitPreferredMethod = 0;
    BU_U32 Multicast = 0;
    BU_CHAR MulticastNetPrefix[32]{};
    BU_CHAR MulticastNetMask[32]{};
    BU_U32 MulticastTTL = 0;
    BU_U32 NdiDiscoveryServer = 0;
    BU_CHAR NdiDiscoveryServerIP[32]{};
    BU_CHAR MachineName[64]{};
    BU_CHAR MachineNameSuffix[32]{};
    BU_CHAR GroupName[64]{};
    BU_CHAR StreamNameHB[64]{};
    BU_CHAR StreamNameHBSuffix[32]{};
    BU_CHAR StreamNameCloseup[64]{};
    BU_CHAR StreamNameCloseupSuffix[32]{};
    BU_CHAR StreamNamePanorama[64]{};
    BU_CHAR StreamNamePanoramaSuffix[32]{};
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_NDI_NETWORK_PAYLOAD_S, WEB_FIELD(TransmitPreferredMethod, 8),
           WEB_FIELD(Multicast, 12), WEB_FIELD(MulticastNetPrefix, 16), WEB_FIELD(MulticastNetMask, 48),
           WEB_FIELD(MulticastTTL, 80), WEB_FIELD(NdiDiscoveryServer, 84), WEB_FIELD(NdiDiscoveryServerIP, 88),
           WEB_FIELD(MachineName, 120), WEB_FIELD(MachineNameSuffix, 184), WEB_FIELD(GroupName, 216),
           WEB_FIELD(StreamNameHB, 280), WEB_FIELD(StreamNameHBSuffix, 344), WEB_FIELD(StreamNameCloseup, 376),
           WEB_FIELD(StreamNameCloseupSuffix, 440), WEB_FIELD(StreamNamePanorama, 472),
           WEB_FIELD(StreamNamePanoramaSuffix, 536));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_NDI_NETWORK_PAYLOAD_S, 568);

struct tag_WEB_RPC_TKVMX_CUSTOMER_Dante_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_Dante_PAYLOAD_S> {
    BU_U32 Enable = 0;
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_Dante_PAYLOAD_S, WEB_FIELD(Enable, 8));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_Dante_PAYLOAD_S, 16);
