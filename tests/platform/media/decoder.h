/// Decodes packets with the decoders of libavcodec.
#pragma once

#include "base/types.h"

#include <memory>
#include <vector>

struct tagDECODED_S {
    int s32Width = 0, s32Height = 0;      ///< pictures
    std::vector<BU_U8> vecY, vecU, vecV;  ///< planes without gaps
    std::vector<float> vecLeft, vecRight; ///< sound
};

class Decoder
{
public:
    explicit Decoder(BU_S32 s32StreamType);
    ~Decoder();
    /// What the packet gives, at once; sizes 0: nothing or an error.
    tagDECODED_S decode(const BU_U8 *pu8, std::size_t size);
    tagDECODED_S decode(const std::vector<BU_U8> &vec) { return decode(vec.data(), vec.size()); }

private:
    struct Impl;
    std::unique_ptr<Impl> m_pst;
};
