// Walks through the menu as it is shipped: keys on one side, what is shown and what is confirmed on the other.
#include "camera/picture.h"
#include "menuTest.h"
#include "navigator.h"
#include "painter.h"
#include "store/store.h"

#include <map>

using menu::Key;

namespace
{
std::string g_strShutterKey;

void getInfo(void *, OSD_MENU_GET_EVENT_E enEvent, OSD_MENU_CONTROL_PARAM_S *pst)
{
    std::string strText = "answer " + std::to_string(enEvent);
    if (enEvent == OSD_MENU_GET_DEV_E_VIDEO_INFO) strText = "1080P60";
    if (enEvent == OSD_MENU_GET_SHUTTER_E_SPEED) strText = g_strShutterKey;
    pst->acVersion[strText.copy(pst->acVersion, sizeof(pst->acVersion) - 1)] = 0;
}

/// u d l r: the arrows; e: enter; b: back; < > a held left and right; . its end. A number repeats the key behind it.
struct MenuWalk : MenuTest {
    bool walk(const std::string &strKeys)
    {
        using enum Key;
        // clang-format off
        static const std::map<char, Key> KEYS = {{'u', UP}, {'d', DOWN}, {'l', LEFT}, {'r', RIGHT}, {'e', ENTER},
            {'b', BACK}, {'<', HOLD_LEFT}, {'>', HOLD_RIGHT}, {'.', HOLD_END}};
        // clang-format on
        bool bOpen = true;
        int s32Times = 0;
        for (const char c : strKeys)
            if (std::isdigit(c))
                s32Times = s32Times * 10 + c - '0';
            else if (c != ' ')
                for (s32Times = std::max(s32Times, 1); s32Times > 0; --s32Times) bOpen = m_navigator.press(KEYS.at(c));
        return bOpen;
    }
    menu::View view() { return m_navigator.view(menu::PAGE_ROWS); }
    /// "Image | Brightness | 7"
    std::string shown()
    {
        const menu::View shownView = view();
        const auto row = std::ranges::find_if(shownView.listRows, &menu::Row::bSelected);
        if (row == shownView.listRows.end()) return "nothing";
        return shownView.strTitle + " | " + row->strLabel + (row->strValue.empty() ? "" : " | " + row->strValue) +
               (row->bPending ? " ?" : "");
    }

    menu::Description m_description = menu::readDescription(menu_test::shippedDescription());
    menu::Service m_service{menu_test::setParam, menu_test::dataZone, getInfo, nullptr};
    menu::Navigator m_navigator{m_description, m_service, true, [](const std::string &) { return false; }};
};

TEST_F(MenuWalk, KeysLeadWhereTheyShould)
{
    // clang-format off
    const struct { const char *pcKeys, *pcShown, *pcConfirmed; } rows[] = {
        {"", "Menu | Image", ""}, {"d", "Menu | Exposure", ""}, {"l", "Menu | Image", ""}, {"r u", "Image | Back", ""},
        {"e", "Image | Lens | Close-up", ""}, {"u", "Menu | Exit", ""}, // round the end; the advanced page is not there
        {"ed e", "Image | Brightness | 7", ""}, {"e u e", "Menu | Image", ""}, // the page remembers where it was left
        {"ed r", "Image | Brightness | 8", "Brightness=8"}, {"ed r>>>", "Image | Brightness | 11", "Brightness=8"},
        {"ed 3l", "Image | Brightness | 4", "Brightness=6 Brightness=5 Brightness=4"},
        {"ed 9r", "Image | Brightness | 14", "Brightness=8 Brightness=9 Brightness=10 Brightness=11 Brightness=12 "
         "Brightness=13 Brightness=14"}, // the end of the range confirms nothing more
        {"ed r>>>.", "Image | Brightness | 11", "Brightness=8 Brightness=11"}, // held: applied once, at its end
        {"ed r>>>b", "Menu | Image", "Brightness=8"}, {"ed .", "Image | Brightness | 7", ""},
        {"ed r>>>d u", "Image | Brightness | 8", "Brightness=8"}, // without its end the stepped value is forgotten
        {"ed >>.<<<<<<<<<<<.", "Image | Brightness | 0", "Brightness=9 Brightness=0"},
        {"4d e r>>>>>.", "Pan/Tilt | Pan speed | 18", "PanSpeed=13 PanSpeed=18"},
        {"e 8d e", "Image | Wide dynamic range | On", "WdrSwi=On"}, // enter goes on to the next option,
        {"e 8d 3e", "Image | Wide dynamic range | On", "WdrSwi=On WdrSwi=Off WdrSwi=On"}, // round the end
        {"e 8d 3r", "Image | Wide dynamic range | On", "WdrSwi=On"}, // right does not
        {"e 8d r d", "Image | WDR strength | 0", "WdrSwi=On"}, // there only while it means something
        {"e 8d d", "Image | 2D noise reduction | 2", ""}, {"9d e 2d e", "Restart | No", ""},
        {"9d e 2d e e", "System | Restart", ""}, {"9d e 2d e b", "System | Restart", ""},
        {"9d e 2d e l", "System | Restart", ""}, {"9d e 2d e d e", "System | Restart", "Restart"},
        {"9d e 2d r d r", "System | Restart", "Restart"}, // without an enter key
        {"6d e 2r", "Video and audio | Output format | 1080p 50 ?", ""}, {"6d e 2r e", "Output format | No", ""},
        {"6d e 2r d u", "Video and audio | Output format | 1080p 60", ""},
        {"6d e 2r >.", "Video and audio | Output format | 1080p 30 ?", ""}, // waits for enter, however it was stepped
        {"6d e e", "Video and audio | Output format | 1080p 60", ""},
        {"6d e 2r e e", "Video and audio | Output format | 1080p 60", ""},
        {"6d e 2r e d e", "Video and audio | Output format | 1080p 60", "VideoFormat=1080P50"}, // not applied here
        {"2d e d 2d r", "White balance | Red offset | 129", "RStrength=129"}, {"10d e 2d l", "Menu | Information", ""},
        {"2d e 3d >>>>>>>.", "White balance | Red offset | 147", "RStrength=147"}, // 4 steps, then 3 of five
        {"2d e d 5r d e", "White balance | Measure now", // there once the mode is that of one push
         "WbMode=ManualMode WbMode=InDoor WbMode=OutDoor WbMode=StaticWb WbMode=OnePushWb OnePush=On"},
        {"10d e 2d r", "Information | Serial no. | MX24060001", ""},
    };
    // clang-format on
    for (const auto &row : rows) {
        CFG_STORE_Open(nullptr);
        CFG_SETTING_Reload();
        confirmed();
        m_navigator.open(false);
        EXPECT_TRUE(walk(row.pcKeys)) << row.pcKeys;
        EXPECT_EQ(shown(), row.pcShown) << row.pcKeys;
        EXPECT_EQ(confirmed(), row.pcConfirmed) << row.pcKeys;
    }
}

TEST_F(MenuWalk, TheAdvancedMenuHasItsPages)
{
    for (const auto &[bAdvanced, pcShown] : {std::pair(false, "Menu | Information"), {true, "Menu | Advanced"}}) {
        m_navigator.open(bAdvanced);
        walk("2u");
        EXPECT_EQ(shown(), pcShown);
    }
    walk("e");
    std::string strLabels;
    for (const menu::Row &row : view().listRows) strLabels += row.strLabel + ", ";
    EXPECT_EQ(strLabels, "HDMI format, HDMI rate, Exit, Back, ");
}

TEST_F(MenuWalk, InformationIsAskedForByItsName)
{
    walk("10d e");
    std::string strTold;
    for (const menu::Row &row : m_navigator.view(100).listRows)
        if (row.strValue.starts_with("answer")) strTold += row.strLabel + row.strValue.substr(6) + ". ";
    EXPECT_EQ(strTold, "Firmware 3. Image 1. Focus 0. Tracking 2. ");
}

TEST_F(MenuWalk, OneLensNeedsNoChoiceOfLens)
{
    menu::Navigator single(m_description, m_service, false, [](const std::string &) { return true; });
    single.press(Key::ENTER);
    EXPECT_EQ(single.view(1).listRows.at(0).strLabel, "Brightness");
}

TEST_F(MenuWalk, AFirstPageWithoutItemsCanBeLeft)
{
    const auto empty = menu::readDescription(R"({"timeoutSeconds": 1, "words": {"Lens": {"table": "LENS", "labels":
        {"CloseUp": "c"}}}, "pages": [{"name": "M", "label": "M", "items": [
        {"option": "LensImage", "label": "L", "words": "Lens", "twoLenses": true}]}]})");
    menu::Navigator single(empty, m_service, false, [](const std::string &) { return true; });
    EXPECT_TRUE(single.view(8).listRows.empty());
    for (const Key enKey : {Key::UP, Key::DOWN, Key::HOLD_LEFT, Key::HOLD_END}) EXPECT_TRUE(single.press(enKey));
    for (const Key enKey : {Key::LEFT, Key::RIGHT, Key::ENTER, Key::BACK}) EXPECT_FALSE(single.press(enKey));
}

TEST_F(MenuWalk, TheShutterIsThatOfThePresentRate)
{
    CFG_SETTING_Set("ExposureMode", 0, 4, BU_FALSE, BU_FALSE);
    for (const std::string strRate : {"60", "50", "30", "25", "24"}) {
        g_strShutterKey = "ShutterSpeedFps" + strRate;
        m_navigator.open(false);
        walk("de 4d");
        EXPECT_EQ(shown(), "Exposure | Shutter | 1/" + strRate);
        confirmed();
        walk("r");
        EXPECT_EQ(std::ranges::count(confirmed(), '='), 1);
        walk("d");
        EXPECT_EQ(shown(), "Exposure | Gain | 0");
    }
}

TEST_F(MenuWalk, ValuesThatDoNotComeAboutAreTold)
{
    g_bAccept = false;
    walk("ed r");
    EXPECT_EQ(shown(), "Image | Brightness | 7");
    EXPECT_EQ(view().strFoot, "Not accepted");
    walk("d");
    EXPECT_EQ(view().strFoot, "◄ ► change");
    m_service.pfnSetParam = [](ITEM_NODE_S *) { return -1; };
    walk("b 9d e 2d e d e");
    EXPECT_EQ(view().strFoot, "Not accepted");
}

/// Mirror and flip run from the next start on: the stored value is the one to show.
TEST_F(MenuWalk, StoredValuesAreShownWhereTheyRunLater)
{
    walk("e 11d");
    EXPECT_EQ(shown(), "Image | Mirror | Off");
    EXPECT_EQ(view().strFoot, "Runs from the next start on");
    SYS_API_SetMirror(BU_TRUE, BU_TRUE, BU_FALSE);
    EXPECT_EQ(shown(), "Image | Mirror | On");
}

TEST_F(MenuWalk, AddressesAreEditedInTheirRow)
{
    CFG_STORE_SetInt("Network/NetCard0/IpMode", 1), CFG_STORE_SetInt("Network/NetCard0/DnsMode", 1);
    // clang-format off
    for (const auto &[pcKeys, strShown, pcConfirmed] :
         {std::tuple{"7d e", "Address from | Static", ""}, {"d", "Address | 192.168.100.100", ""},
         {"e 2l u", "Address | 192.168.100.110", ""}, {"b", "Address | 192.168.100.100", ""},
         {"e l d e", "Address | 192.168.100.100", "IpAddr=192.168.100.109"}, {"d", "Mask | 255.255.255.0", ""},
         {"d", "Gateway | 192.168.100.1", ""}, {"d", "DNS | Manual", ""}, {"d", "DNS 1", ""}, {"d", "DNS 2", ""}}) {
        // clang-format on
        walk(pcKeys);
        EXPECT_EQ(shown(), std::string("Network | ") + strShown);
        EXPECT_EQ(confirmed(), pcConfirmed);
    }
}

TEST(MenuAddress, PartsStayBelow256)
{
    // clang-format off
    const struct { const char *pcFrom, *pcKeys, *pcText, *pcAddress; } rows[] = {
        {"192.168.1.20", "", "192.168.001.020", "192.168.1.20"}, {"", "", "000.000.000.000", ""},
        {"192.168.1.20", "+", "092.168.001.020", "92.168.1.20"}, // 292 and more are passed over
        {"192.168.1.20", "-", "092.168.001.020", "92.168.1.20"}, {"1.2.3", "", "000.000.000.000", ""},
        {"192.168.1.20", ">>>>+", "192.178.001.020", "192.178.1.20"}, // over the dot
        {"192.168.1.20", "<+", "192.168.001.021", "192.168.1.21"}, // round the end
        {"192.168.1.20", "<-", "192.168.001.029", "192.168.1.29"}, {"1.2.3.4x", "", "000.000.000.000", ""},
        {"250.0.0.0", "><<>>+", "200.000.000.000", "200.0.0.0"},
        {"255.255.255.255", ">>+", "250.255.255.255", "250.255.255.255"},
    };
    // clang-format on
    for (const auto &row : rows) {
        menu::AddressEditor editor(row.pcFrom);
        for (const char c : std::string(row.pcKeys))
            c == '>' || c == '<' ? editor.move(c - '=') : editor.change(',' - c);
        EXPECT_EQ(editor.text(), row.pcText) << row.pcFrom << row.pcKeys;
        EXPECT_EQ(editor.address(), row.pcAddress) << row.pcFrom << row.pcKeys;
    }
}

TEST_F(MenuWalk, LongPagesScroll)
{
    for (const auto &[pcKeys, s32First, pcLast] :
         {std::tuple{"e 7d", 0, "Black and white"}, {"d", 1, "Wide dynamic range"}, {"8d", 0, "Black and white"}}) {
        walk(pcKeys); // the last keys lead round the end
        EXPECT_EQ(view().s32First, s32First) << pcKeys;
        EXPECT_EQ(view().listRows.back().strLabel, pcLast) << pcKeys;
    }
}

TEST_F(MenuWalk, SubPagesAreAnnounced)
{
    for (const auto &[pcKeys, bSubPage] : {std::pair{"u d", true}, {"ed", false}, {"b 9d e 2d", true}, {"e", false}}) {
        walk(pcKeys); // a page, a value, an action that asks first, its answer
        EXPECT_EQ(m_navigator.hasSubPage(), bSubPage) << pcKeys;
    }
}

TEST_F(MenuWalk, TheLanguageNeedsItsCharacters)
{
    CFG_SETTING_Set("Language", 0, 0, BU_FALSE, BU_FALSE);
    EXPECT_EQ(view().strTitle, "Menu");
    menu::Navigator chinese(m_description, m_service, true, [](const std::string &) { return true; });
    EXPECT_EQ(chinese.view(8).strTitle, "菜单");
}
} // namespace
