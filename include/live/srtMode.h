/// How an SRT connection comes about and how it is encrypted.
#pragma once

#include "base/types.h"

namespace srt_api
{
enum SRT_WORK_MODE_E : BU_S32 { SRT_WORK_MODE_E_NONE = 0, SRT_WORK_MODE_E_LISTENER, SRT_WORK_MODE_E_CALLER };
/// The bytes of the key.
enum SRT_AES_MODE_E : BU_S32 {
    SRT_AES_MODE_E_NONE = 0,
    SRT_AES_MODE_E_128 = 16,
    SRT_AES_MODE_E_192 = 24,
    SRT_AES_MODE_E_256 = 32
};
} // namespace srt_api
