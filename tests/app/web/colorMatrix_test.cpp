#include "camera/image.h"
#include "handlers.h"
#include "support/platformTest.h"
#include "web/colorMatrixPayload.h"

#include <tuple>

namespace
{
typedef tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S Matrix;
typedef std::vector<std::string> Effects;

struct tagMATRIX_CASE_S {
    void (*pfnGet)(Matrix *, Matrix *);
    void (*pfnSet)(Matrix *, Matrix *);
    const BU_CHAR *pcName;
};
class ColorMatrix : public PlatformTest, public testing::WithParamInterface<tagMATRIX_CASE_S>
{
protected:
    static BU_BOOL set(BU_S32 s32Pipe, BU_S32 s32Type)
    {
        Matrix req, res;
        req.id = s32Pipe;
        req.type = s32Type;
        std::tie(req.red, req.yellow, req.green, req.cyan, req.blue, req.magenta) = std::tuple(1, 2, 3, 4, 5, 6);
        GetParam().pfnSet(&req, &res);
        return res.bOk;
    }
    static std::vector<BU_S32> get(BU_S32 s32Pipe)
    {
        Matrix req, res;
        req.id = s32Pipe;
        req.red = res.red = 99; // of no meaning in a get
        GetParam().pfnGet(&req, &res);
        EXPECT_EQ(res.bOk, BU_TRUE);
        EXPECT_EQ(res.id, s32Pipe);
        return {res.red, res.yellow, res.green, res.cyan, res.blue, res.magenta};
    }
    static std::string effect(BU_S32 s32Pipe, BU_S32 s32Color)
    {
        return std::string("ISP_API_Set") + GetParam().pcName + "(" + std::to_string(s32Pipe) + ", " +
               std::to_string(s32Color) + ", " + std::to_string(s32Color) + ", 1, 1)";
    }
};

TEST_P(ColorMatrix, SetsAllColoursOrOne)
{
    for (const BU_S32 s32Pipe : {0, 1}) {
        Effects all;
        for (BU_S32 s32Color = 1; s32Color <= 6; ++s32Color) {
            EXPECT_EQ(set(s32Pipe, s32Color), BU_TRUE);
            EXPECT_EQ(journal::effects(), Effects{effect(s32Pipe, s32Color)});
            all.push_back(effect(s32Pipe, s32Color));
        }
        EXPECT_EQ(set(s32Pipe, 0), BU_TRUE);
        EXPECT_EQ(journal::effects(), all);
    }
    for (const BU_S32 s32Type : {-1, 7, INT32_MIN, INT32_MAX}) EXPECT_EQ(set(0, s32Type), BU_FALSE) << s32Type;
    EXPECT_THAT(journal::effects(), testing::IsEmpty());
    EXPECT_EQ(set(9, 1), BU_TRUE); // whatever the camera says to it
}

TEST_P(ColorMatrix, AnswersTheStoredColoursOfThePipe)
{
    const std::vector<BU_S32> before = get(0);
    EXPECT_EQ(set(1, 0), BU_TRUE);
    EXPECT_EQ(get(0), before);
    EXPECT_EQ(get(1), (std::vector{1, 2, 3, 4, 5, 6}));
    ISP_API_SetColorHue(1, 2, 9, BU_FALSE, BU_FALSE);
    ISP_API_SetColorSat(1, 2, 9, BU_FALSE, BU_FALSE);
    journal::inject((std::string("ISP_API_Get") + GetParam().pcName).c_str(), -1);
    EXPECT_EQ(get(1), (std::vector{0, 2, 3, 4, 5, 6}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ColorMatrix,
    testing::ValuesIn<tagMATRIX_CASE_S>({{webRpcGetColorMatrixHue, webRpcSetColorMatrixHue, "ColorHue"},
                                         {webRpcGetColorMatrixSaturation, webRpcSetColorMatrixSaturation, "ColorSat"}}),
    [](const auto &stInfo) { return stInfo.param.pcName; });
} // namespace
