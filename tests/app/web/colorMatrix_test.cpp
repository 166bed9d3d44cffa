// Hue and saturation of the six colours.
#include "camera/image.h"
#include "webTest.h"

namespace
{
typedef tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S Matrix;

class ColorMatrix : public WebTest
{
protected:
    static Matrix call(BU_U32 u32Event, BU_S32 s32Pipe, BU_S32 s32Type)
    {
        Matrix req;
        req.id = s32Pipe;
        req.type = s32Type;
        std::tie(req.red, req.yellow, req.green, req.cyan, req.blue, req.magenta) = std::tuple(1, 2, 3, 4, 5, 6);
        return callWith<Matrix>(u32Event, req);
    }
    static std::vector<BU_S32> get(BU_U32 u32Event, BU_S32 s32Pipe)
    {
        const Matrix res = call(u32Event, s32Pipe, 0);
        EXPECT_TRUE(res.bOk && res.id == s32Pipe && res.type == 0);
        return {res.red, res.yellow, res.green, res.cyan, res.blue, res.magenta};
    }
};

TEST_F(ColorMatrix, SetsAllColoursOrOneAndAnswersThem)
{
    for (const auto &[u32Get, u32Set, strName] : {std::tuple(38U, 39U, "ColorHue"), {40U, 41U, "ColorSat"}}) {
        for (const BU_S32 s32Pipe : {0, 1}) {
            Effects all;
            const std::vector<BU_S32> before = get(u32Get, 1 - s32Pipe);
            for (BU_S32 s32Color = 1; s32Color <= 6; ++s32Color) {
                const std::string strColor = std::to_string(s32Color);
                EXPECT_TRUE(call(u32Set, s32Pipe, s32Color).bOk);
                all.push_back(std::string("ISP_API_Set") + strName + "(" + std::to_string(s32Pipe) + ", " + strColor +
                              ", " + strColor + ", 1, 1)");
                EXPECT_EQ(journal::effects(), Effects{all.back()});
            }
            EXPECT_TRUE(call(u32Set, s32Pipe, 0).bOk);
            EXPECT_EQ(journal::effects(), all);
            EXPECT_EQ(get(u32Get, s32Pipe), (std::vector{1, 2, 3, 4, 5, 6}));
            EXPECT_EQ(get(u32Get, 1 - s32Pipe), before);
        }
        for (const BU_S32 s32Type : {-1, 7, INT32_MIN, INT32_MAX}) EXPECT_FALSE(call(u32Set, 0, s32Type).bOk);
        EXPECT_THAT(journal::effects(), testing::IsEmpty());
        EXPECT_TRUE(call(u32Set, 9, 1).bOk);              // whatever the camera says to it
        ISP_API_SetColorHue(1, 2, 9, BU_FALSE, BU_FALSE); // a get answers what is stored
        ISP_API_SetColorSat(1, 2, 9, BU_FALSE, BU_FALSE);
        journal::inject((std::string("ISP_API_Get") + strName).c_str(), -1);
        EXPECT_EQ(get(u32Get, 1), (std::vector{0, 2, 3, 4, 5, 6}));
        journal::effects();
    }
}
} // namespace
