// The menu's keys and its thread. Keys may come from any thread: they change the status at once and leave the rest, in
// their order, to the menu's own thread, on which pages, values and drawing live.
#include "camera/menu.h"

#include "camera/menuLibrary.h"
#include "camera/picture.h"
#include "camera/settingEvent.h"
#include "media/pipeline.h"
#include "navigator.h"
#include "overlayCanvas.h"
#include "prompt.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/json.h"
#include "util/log.h"
#include "util/program.h"
#include "util/time.h"

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

using namespace menu;

namespace
{
constexpr const BU_CHAR *OWN_FILE = "/app/menu/menu.json"; // of the device root, in place of the program's

/// What a started menu works with.
struct Started {
    Description description;
    const OSD_MENU_CFG_S stCfg;
    Service service;
    Navigator navigator; // looks at description and service

    Started(Description theDescription, const OSD_MENU_CFG_S &stTheCfg, const Service &theService)
        : description(std::move(theDescription)), stCfg(stTheCfg), service(theService),
          navigator(description, service, stCfg.bTkvStatus, canShow)
    {
    }
};

enum class State { CLOSED, OPEN, ADVANCED };

struct Library {
    std::mutex lock; // guards bStarted and changes of enState, and that jobs are queued in the order of those changes
    std::atomic<State> enState{State::CLOSED};
    bool bStarted = false;

    std::atomic<bool> bHasSubPage{false}, bRefreshWaits{false};
    util::TimerQueue queue{"osdMenu"};

    // The menu thread's.
    std::shared_ptr<Started> pStarted;
    PFN_OSD_MENU_GET_INFO pfnGetInfo = nullptr;
    void *pvUser = nullptr;
    bool bOpen = false;
    OverlayCanvas canvas;
    std::optional<View> shown;
    Box shownFor;
    util::TimerQueue::Id timeoutId = 0;
    Prompts prompts{queue};
};
Library &library()
{
    static auto *pst = new Library;
    return *pst;
}

void post(std::function<void()> fn) { library().queue.at(UTIL_TIME_NowMs(), std::move(fn)); }

// --- On the menu's thread.

Box boxIn(const Box &video, const OSD_MENU_RECT_S &st)
{
    const auto even = [](BU_FLOAT f, BU_S32 s32) {
        return static_cast<BU_S32>(std::lround(f * static_cast<BU_FLOAT>(s32) / 2)) * 2;
    };
    return {even(st.fX, video.w), even(st.fY, video.h), even(st.fW, video.w), even(st.fH, video.h)};
}

/// Draws the page when it shows something else than before.
void refresh()
{
    Library &lib = library();
    if (!lib.bOpen) return;
    Started &st = *lib.pStarted;
    View view = st.navigator.view(PAGE_ROWS);
    lib.bHasSubPage = st.navigator.hasSubPage();
    const Box video = videoSize(st.stCfg.bSupport4K);
    if (lib.shown == view && lib.shownFor == video) return;
    const Box box = boxIn(video, st.stCfg.stRect);
    const Surface page = paintPage(view, box.w, box.h);
    lib.canvas.show(page.get(), box, video, st.stCfg.enFormat);
    lib.shown = std::move(view);
    lib.shownFor = video;
}

void hide()
{
    Library &lib = library();
    lib.queue.cancel(lib.timeoutId);
    lib.bOpen = false;
    lib.bHasSubPage = false;
    lib.shown.reset();
    lib.canvas.hide();
}

/// The menu closes by itself: its first page was left, or nobody pressed a key for long.
void closeFromInside()
{
    {
        const std::lock_guard guard(library().lock);
        library().enState = State::CLOSED;
    }
    hide();
}

void countTimeFromNow()
{
    Library &lib = library();
    lib.queue.cancel(lib.timeoutId);
    lib.timeoutId = lib.queue.at(UTIL_TIME_NowMs() + lib.pStarted->description.s32TimeoutMs, closeFromInside);
}

void show(bool bAdvanced)
{
    Library &lib = library();
    if (!lib.pStarted) return;
    lib.bOpen = true;
    lib.pStarted->navigator.open(bAdvanced);
    countTimeFromNow();
    refresh();
}

void onKey(Key enKey)
{
    Library &lib = library();
    if (!lib.bOpen) return;
    countTimeFromNow();
    if (lib.pStarted->navigator.press(enKey))
        refresh();
    else
        closeFromInside();
}

void start(std::shared_ptr<Started> pNew)
{
    Library &lib = library();
    hide();
    pNew->service.pfnGetInfo = lib.pfnGetInfo;
    pNew->service.pvUser = lib.pvUser;
    lib.pStarted = std::move(pNew);
}

// --- On the thread of whoever presses a key.

/// Lock held. Shows or hides what the new status asks for.
void change(State enNew)
{
    Library &lib = library();
    if (lib.enState == enNew) return;
    lib.enState = enNew;
    if (!lib.bStarted) return;
    if (enNew == State::CLOSED)
        post(hide);
    else
        post([enNew] { show(enNew == State::ADVANCED); });
}

/// A key that only an open menu takes.
BU_S32 press(const BU_CHAR *pcFunction, Key enKey)
{
    if (const auto injected = journal::call(pcFunction)) return *injected;
    Library &lib = library();
    const std::lock_guard guard(lib.lock);
    if (lib.enState == State::CLOSED) return -1;
    if (lib.bStarted)
        post([enKey] { onKey(enKey); });
    else if (enKey == Key::BACK)
        lib.enState = State::CLOSED; // a menu without pages is left at once
    return 0;
}

/// A key that opens the menu when it is closed and leaves it otherwise.
BU_S32 toggle(const BU_CHAR *pcFunction, State enWhenOpen)
{
    if (const auto injected = journal::call(pcFunction)) return *injected;
    const std::lock_guard guard(library().lock);
    change(library().enState == State::CLOSED ? enWhenOpen : State::CLOSED);
    return 0;
}

/// A setting changed somewhere: the open page may show it.
void onSetting(const CFG_SETTING_EVENT_S &)
{
    Library &lib = library();
    if (lib.enState == State::CLOSED || lib.bRefreshWaits.exchange(true)) return;
    post([] {
        library().bRefreshWaits = false;
        refresh();
    });
}

std::optional<Description> loadDescription()
{
    const std::string strOwn = UTIL_ROOT_Path(OWN_FILE);
    const std::string strPath = UTIL_FILE_IsExist(OWN_FILE) ? strOwn : util::resource("menu.json");
    std::string strText;
    if (std::FILE *pstFile = std::fopen(strPath.c_str(), "rb")) {
        BU_CHAR acPart[4096];
        while (const std::size_t size = std::fread(acPart, 1, sizeof(acPart), pstFile)) strText.append(acPart, size);
        std::fclose(pstFile);
    }
    try {
        return readDescription(strText);
    } catch (const util::JsonFault &fault) {
        LOG_ERROR("%s:%d: %s\n", strPath.c_str(), fault.s32Line, fault.what());
    }
    return std::nullopt;
}

bool isInPicture(const OSD_MENU_RECT_S &st)
{
    return st.fX >= 0 && st.fY >= 0 && st.fW > 0 && st.fH > 0 && st.fX + st.fW <= 1 && st.fY + st.fH <= 1;
}

BU_S32 say(const std::string &strText)
{
    BU_S32 s32On = BU_FALSE;
    SYS_API_GetPrompt(&s32On);
    if (!s32On) return -1;
    LOG_INFO("prompt: %s\n", strText.c_str());
    const std::lock_guard guard(library().lock);
    if (library().bStarted) post([strText] { library().prompts.say(strText); });
    return 0;
}
} // namespace

static std::string journalText(const OSD_MENU_CFG_S &st)
{
    std::string strText = "{";
    for (const BU_FLOAT f : {st.stRect.fX, st.stRect.fY, st.stRect.fW, st.stRect.fH})
        strText += journal::argument(f) + ", ";
    return strText + std::to_string(st.enFormat) + ", " + std::to_string(st.bSupport4K) + ", " +
           std::to_string(st.bTkvStatus) + "}";
}

BU_S32 CMD_MENU_GetMenuStatus() { return library().enState != State::CLOSED; }
BU_S32 OSD_MENU_GetMenuStatus() { return library().enState != State::CLOSED; }

BU_S32 CMD_MENU_HandleMenuBtn() { return toggle(__func__, State::OPEN); }
BU_S32 CMD_MENU_HandleAdvancedMenuBtn() { return toggle(__func__, State::ADVANCED); }

BU_S32 CMD_MENU_OnlyOpenMenu()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(library().lock);
    if (library().enState == State::CLOSED) change(State::OPEN);
    return 0;
}

BU_S32 CMD_MENU_OnlyCloseMenu()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(library().lock);
    change(State::CLOSED);
    return 0;
}

BU_S32 CMD_MENU_OnlyReturnMenu() { return press(__func__, Key::BACK); }
BU_S32 OSD_MENU_ReturnMenu() { return press(__func__, Key::BACK); }
BU_S32 CMD_MENU_HandeHomeBtn() { return press(__func__, Key::ENTER); }
BU_S32 CMD_MENU_HandeUpBtn() { return press(__func__, Key::UP); }
BU_S32 CMD_MENU_HandeDownBtn() { return press(__func__, Key::DOWN); }
BU_S32 CMD_MENU_HandeLeftBtn() { return press(__func__, Key::LEFT); }
BU_S32 CMD_MENU_HandeRightBtn() { return press(__func__, Key::RIGHT); }
BU_S32 CMD_MENU_HandeUpLeftBtn() { return press(__func__, Key::UP); }
BU_S32 CMD_MENU_HandeUpRightBtn() { return press(__func__, Key::UP); }
BU_S32 CMD_MENU_HandeDownLeftBtn() { return press(__func__, Key::DOWN); }
BU_S32 CMD_MENU_HandeDownRightBtn() { return press(__func__, Key::DOWN); }
BU_S32 CMD_MENU_HandeLeftUpdateParam() { return press(__func__, Key::HOLD_LEFT); }
BU_S32 CMD_MENU_HandeRightUpdateParam() { return press(__func__, Key::HOLD_RIGHT); }
BU_S32 CMD_MENU_HandeSetParam() { return press(__func__, Key::HOLD_END); }

BU_S32 OSD_Menu_HasSubPage()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return library().bHasSubPage;
}

BU_S32 OSD_MENU_InitOpensourceRes()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return loadFonts() ? 0 : -1;
}

BU_S32 OSD_MENU_InitSdkRes(const OSD_MENU_CFG_S *pstCfg, PFN_OSD_MENU_SET_PARAM pfnSetParam,
                           PFN_OSD_MENU_DATA_ZONE pfnDataZone, void *pvPage)
{
    if (const auto injected = journal::call(__func__, pstCfg, pfnSetParam != nullptr, pfnDataZone != nullptr, pvPage))
        return *injected;
    if (!pstCfg || !pfnSetParam || !pfnDataZone || !isInPicture(pstCfg->stRect)) return -1;
    auto description = loadDescription();
    if (!description || !loadFonts()) return -1;
    static const BU_S32 s32Listener = CFG_SETTING_Listen(onSetting);
    auto pNew = std::make_shared<Started>(*std::move(description), *pstCfg, Service{pfnSetParam, pfnDataZone});
    Library &lib = library();
    const std::lock_guard guard(lib.lock);
    lib.bStarted = true;
    lib.bRefreshWaits = false;
    lib.enState = State::CLOSED;
    post([pNew = std::move(pNew)]() mutable { start(std::move(pNew)); });
    return s32Listener > 0 ? 0 : -1;
}

BU_S32 Osd_GetVersionCallback(PFN_OSD_MENU_GET_INFO pfnGetInfo, void *pvUser)
{
    if (const auto injected = journal::call(__func__, pfnGetInfo != nullptr, pvUser)) return *injected;
    post([=] {
        Library &lib = library();
        lib.pfnGetInfo = pfnGetInfo;
        lib.pvUser = pvUser;
        if (!lib.pStarted) return;
        lib.pStarted->service.pfnGetInfo = pfnGetInfo;
        lib.pStarted->service.pvUser = pvUser;
    });
    return 0;
}

BU_S32 OSD_MENU_RefreshCurrentPage()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (library().enState == State::CLOSED) return -1;
    post(refresh);
    return 0;
}

BU_S32 OSD_PROMPT_Init()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    post([] { library().prompts.startStatus(); });
    return 0;
}

BU_S32 PROMPT_API_ShowIpaddr(const BU_CHAR *pcIp)
{
    if (const auto injected = journal::call(__func__, pcIp)) return *injected;
    return pcIp ? say(std::string("IP ") + pcIp) : -1;
}

BU_S32 PROMPT_API_ShowHdmiInfo()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    MPP_VOUT_CFG_S stCfg{};
    if (MPP_GetVoutCfg(MPP_VOUT_ID_2, &stCfg) != 0) return say("HDMI");
    const double dRate = stCfg.s32Fps > 1000 ? stCfg.s32Fps / 1000.0 : stCfg.s32Fps;
    BU_CHAR acText[64];
    std::snprintf(acText, sizeof(acText), "HDMI %u x %u%s %g", stCfg.stResolution.u32Width,
                  stCfg.stResolution.u32Height, stCfg.bInterlaced ? "i" : "p", dRate);
    return say(acText);
}
