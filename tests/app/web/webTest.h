// Calls the events of the pages by their number, as a web server does, and shows what the service did.
#pragma once

#include "events.h"
#include "pages/page.h"
#include "support/platformTest.h"

typedef std::vector<std::string> Effects;
typedef tag_WEB_RPC_PANEL_REQ_PAYLOAD_S Request;
typedef tag_WEB_RPC_PANEL_RES_PAYLOAD_S Response;

class WebTest : public PlatformTest
{
protected:
    WebTest()
    {
        setenv("CAMERA_WEB_SERVER", "", 1);
        for (const web::Page *pstPage : web::PAGES)
            for (const auto registerEvent : *pstPage) registerEvent();
        journal::effects();
    }
    template <class Res, class Req> static Res callWith(BU_U32 u32Event, Req req)
    {
        std::string strImage(req.getSize(), '\0');
        req.dumpBytes(strImage.data(), req.getSize());
        auto result = web_rpc::callEvent(u32Event, strImage);
        Res res;
        EXPECT_EQ(result.strBytes.size(), res.getSize()) << result.strBytes;
        if (result.strBytes.size() == res.getSize()) res.loadBytes(result.strBytes.data(), res.getSize());
        return res;
    }
    static Response call(BU_U32 u32Event, BU_S32 s32Item, BU_S32 s32Id = 0, BU_S32 s32Value0 = 0, BU_S32 s32Value1 = 0)
    {
        Request req;
        std::tie(req.s32EventType, req.s32Id, req.s32Value0, req.s32Value1) =
            std::tuple(s32Item, s32Id, s32Value0, s32Value1);
        const auto res = callWith<Response>(u32Event, req);
        EXPECT_EQ(res.bVisible, BU_FALSE);
        return res;
    }
    /// What a call does.
    template <class... A> static Effects effects(const A &...args)
    {
        call(args...);
        return journal::effects();
    }
    /// What a function prints, on both outputs.
    template <class F> static std::string printed(F &&function)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        function();
        return testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
    }

    /// An item that is read with one call and set with one call.
    struct ItemCase {
        BU_S32 s32Item;
        const BU_CHAR *pcName; ///< "ISP_API_*Gain": the star stands for Get and Set
        BU_S32 s32Value;       ///< neither 0 nor the default
        BU_U64 u64SideEffects = 0;
        bool bCamera = false; ///< without a pipe or device argument
    };
    /// The set makes exactly its call; the get answers the value, and nothing when just its own call fails.
    static void check(const ItemCase &st, BU_U32 u32Get, BU_U32 u32Set, BU_S32 s32Id)
    {
        SCOPED_TRACE(std::string(st.pcName) + " of " + std::to_string(s32Id));
        std::string strGet = st.pcName, strSet = st.pcName;
        strGet.replace(strGet.find('*'), 1, "Get");
        strSet.replace(strSet.find('*'), 1, "Set") +=
            (st.bCamera ? "(" : "(" + std::to_string(s32Id) + ", ") + std::to_string(st.s32Value) + ", 1, 1)";
        journal::effects();
        EXPECT_EQ(call(u32Set, st.s32Item, s32Id, st.s32Value).s32SideEffectBitmap, st.u64SideEffects);
        EXPECT_EQ(journal::effects(), Effects{strSet});
        EXPECT_EQ(call(u32Get, st.s32Item, s32Id).s32Value, st.s32Value);
        journal::inject(strGet.c_str(), -1);
        EXPECT_EQ(call(u32Get, st.s32Item, s32Id).s32Value, 0);
        EXPECT_THAT(journal::effects(), testing::IsEmpty());
    }
};
