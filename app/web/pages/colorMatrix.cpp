// Hue and saturation of the six colours.
#include "camera/image.h"
#include "page.h"

#include <array>

namespace
{
typedef tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S Matrix;
typedef BU_S32 (*GetColor)(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 *ps32Value, BU_BOOL bReread);
typedef BU_S32 (*SetColor)(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

constexpr BU_S32 ALL_COLORS = 0;
/// Colour 1 first.
constexpr std::array COLORS{&Matrix::red,  &Matrix::yellow, &Matrix::green,
                            &Matrix::cyan, &Matrix::blue,   &Matrix::magenta};
constexpr auto COLOR_COUNT = static_cast<BU_S32>(COLORS.size());

BU_S32 Matrix::*color(BU_S32 s32Color) { return COLORS[static_cast<std::size_t>(s32Color - 1)]; }

void getMatrix(GetColor pfnGet, const Matrix &req, Matrix &res)
{
    res.id = req.id;
    for (BU_S32 s32Color = 1; s32Color <= COLOR_COUNT; ++s32Color) {
        BU_S32 &s32Value = res.*color(s32Color);
        s32Value = 0;
        pfnGet(req.id, s32Color, &s32Value, BU_TRUE);
    }
    res.bOk = BU_TRUE;
}

void setMatrix(SetColor pfnSet, const Matrix &req, Matrix &res)
{
    if (req.type < ALL_COLORS || req.type > COLOR_COUNT) return;
    const BU_S32 s32First = req.type == ALL_COLORS ? 1 : req.type;
    const BU_S32 s32Last = req.type == ALL_COLORS ? COLOR_COUNT : req.type;
    for (BU_S32 s32Color = s32First; s32Color <= s32Last; ++s32Color)
        pfnSet(req.id, s32Color, req.*color(s32Color), BU_TRUE, BU_TRUE);
    res.bOk = BU_TRUE;
}

void webRpcGetColorMatrixHue(Matrix *req, Matrix *res) { getMatrix(ISP_API_GetColorHue, *req, *res); }
void webRpcSetColorMatrixHue(Matrix *req, Matrix *res) { setMatrix(ISP_API_SetColorHue, *req, *res); }
void webRpcGetColorMatrixSaturation(Matrix *req, Matrix *res) { getMatrix(ISP_API_GetColorSat, *req, *res); }
void webRpcSetColorMatrixSaturation(Matrix *req, Matrix *res) { setMatrix(ISP_API_SetColorSat, *req, *res); }

constexpr void (*EVENTS[])() = {
    WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_GET_COLOR_MATRIX_HUE, webRpcGetColorMatrixHue>,
    WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_SET_COLOR_MATRIX_HUE, webRpcSetColorMatrixHue>,
    WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_GET_COLOR_MATRIX_SATURATION, webRpcGetColorMatrixSaturation>,
    WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_SET_COLOR_MATRIX_SATURATION, webRpcSetColorMatrixSaturation>,
};
} // namespace

const web::Page web::COLOR_MATRIX{EVENTS};
