// Asks and sets items of the panels and shows what the service did.
#pragma once

#include "handlers.h"
#include "support/platformTest.h"
#include "web/panelPayload.h"

typedef std::vector<std::string> Effects;
typedef tag_WEB_RPC_PANEL_REQ_PAYLOAD_S Request;
typedef tag_WEB_RPC_PANEL_RES_PAYLOAD_S Response;
typedef void (*Handler)(Request *, Response *);

class PanelTest : public PlatformTest
{
protected:
    static Response call(Handler pfn, BU_S32 s32Item, BU_S32 s32Id = 0, BU_S32 s32Value0 = 0, BU_S32 s32Value1 = 0)
    {
        Request req;
        req.s32EventType = s32Item;
        req.s32Id = s32Id;
        req.s32Value0 = s32Value0;
        req.s32Value1 = s32Value1;
        Response res;
        pfn(&req, &res);
        EXPECT_EQ(res.bVisible, BU_FALSE);
        return res;
    }
    static std::string printed(Handler pfn, BU_S32 s32Item, BU_S32 s32Value0 = 0)
    {
        testing::internal::CaptureStdout();
        call(pfn, s32Item, 0, s32Value0);
        return testing::internal::GetCapturedStdout();
    }
};

/// An item that is read with one call and set with one call.
struct tagVALUE_CASE_S {
    BU_S32 s32Item;
    const BU_CHAR *pcName; ///< "ISP_API_*Gain": the star stands for Get and Set
    BU_S32 s32Value;       ///< neither 0 nor the default
    BU_U64 u64SideEffects = 0;
    bool bCamera = false; ///< without a pipe or device argument
};
inline std::ostream &operator<<(std::ostream &out, const tagVALUE_CASE_S &st)
{
    return out << "item " << st.s32Item << ' ' << st.pcName;
}
inline std::string named(const tagVALUE_CASE_S &st, const BU_CHAR *pcVerb)
{
    return std::string(st.pcName).replace(std::string(st.pcName).find('*'), 1, pcVerb);
}

class ItemTest : public PanelTest
{
protected:
    /// The set makes exactly its call; the get answers the value, and nothing when just its own call fails.
    static void check(const tagVALUE_CASE_S &st, Handler pfnGet, Handler pfnSet, BU_S32 s32Id)
    {
        const std::string strDevice = st.bCamera ? "" : std::to_string(s32Id) + ", ";
        journal::effects();
        const Response stSet = call(pfnSet, st.s32Item, s32Id, st.s32Value);
        EXPECT_EQ(journal::effects(),
                  Effects{named(st, "Set") + "(" + strDevice + std::to_string(st.s32Value) + ", 1, 1)"});
        EXPECT_EQ(stSet.s32SideEffectBitmap, st.u64SideEffects);
        EXPECT_EQ(call(pfnGet, st.s32Item, s32Id).s32Value, st.s32Value);
        journal::inject(named(st, "Get").c_str(), -1);
        EXPECT_EQ(call(pfnGet, st.s32Item, s32Id).s32Value, 0);
        EXPECT_THAT(journal::effects(), testing::IsEmpty());
    }
};
