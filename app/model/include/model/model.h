/// The models of the product, and which one this camera is.
#pragma once

#include "board/device.h"

#include <cstring>
#include <string>
#include <string_view>

namespace model
{
inline constexpr std::string_view TKV_MX = "TKV-MX", QLS_500 = "QLS-500";

/// The name of this camera's model, as its board gives it; empty when it gives none. Thread: any.
inline std::string name()
{
    BU_CHAR acModel[32]{};
    BSP_DEVATTR_GetDeviceModelInner(acModel);
    return {acModel, strnlen(acModel, sizeof(acModel))};
}

/// Whether this camera is one of the models.
template <class... Model> bool isModel(const Model &...models)
{
    const std::string strName = name();
    return ((strName == models) || ...);
}
} // namespace model
