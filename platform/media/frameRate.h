/// Frame rates, and which of the output's frames a slower consumer takes. Frames are numbered on the monotonic clock:
/// number k is due k frame times after its zero, so that nothing drifts and all pipes and consumers keep step.
#pragma once

#include "base/types.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace media
{
struct FrameRate {
    BU_S32 s32Num = 30, s32Den = 1; ///< frames / seconds
    constexpr bool operator==(const FrameRate &) const = default;

    /// The rates of 1001 have codes in thousandths, the others stand for themselves: 59940, 29970, 23980; 1 to 60.
    static constexpr std::optional<FrameRate> ofCode(BU_S64 s64Code)
    {
        if (const auto *pst = std::ranges::find(NTSC, s64Code, &Ntsc::s32Code); pst != std::end(NTSC))
            return FrameRate{pst->s32Whole * 1000, 1001};
        return s64Code >= 1 && s64Code <= 60 ? std::optional(FrameRate{static_cast<BU_S32>(s64Code), 1}) : std::nullopt;
    }
    constexpr BU_S32 code() const
    {
        const auto *pst = std::ranges::find(NTSC, s32Num / 1000, &Ntsc::s32Whole);
        return s32Den == 1 ? s32Num : pst->s32Code;
    }

    constexpr BU_S64 dueUs(BU_S64 s64Frame) const { return s64Frame * s32Den * 1'000'000 / s32Num; }
    /// The last frame that is due at a time.
    constexpr BU_S64 frameAt(BU_S64 s64Us) const
    {
        const BU_S64 s64Frame = s64Us / 1'000'000 * s32Num / s32Den + s64Us % 1'000'000 * s32Num / s32Den / 1'000'000;
        return dueUs(s64Frame + 2) <= s64Us ? s64Frame + 2 : dueUs(s64Frame + 1) <= s64Us ? s64Frame + 1 : s64Frame;
    }
    constexpr bool isFasterThan(const FrameRate &st) const
    {
        return static_cast<BU_S64>(s32Num) * st.s32Den > static_cast<BU_S64>(st.s32Num) * s32Den;
    }

    /// What a consumer that wants this rate gets from an output: no more than its rate, and a rate of 1001 from such an
    /// output where a whole one is wanted.
    constexpr FrameRate from(const FrameRate &stOutput) const
    {
        FrameRate st = *this;
        if (stOutput.s32Den == 1001 && s32Den == 1 &&
            std::ranges::find(NTSC, s32Num, &Ntsc::s32Whole) != std::end(NTSC))
            st = {s32Num * 1000, 1001};
        return st.isFasterThan(stOutput) ? stOutput : st;
    }
    /// The first of the output's frames from s64Frame on that a consumer of this rate, no faster, takes.
    constexpr BU_S64 nextOf(const FrameRate &stOutput, BU_S64 s64Frame) const
    {
        const BU_S64 s64Num = static_cast<BU_S64>(s32Num) * stOutput.s32Den,
                     s64Den = static_cast<BU_S64>(s32Den) * stOutput.s32Num;   // its rate as a part of the output's
        const BU_S64 s64Next = (s64Frame * s64Num + s64Den - s64Num) / s64Den; // the first not taken before s64Frame
        return (s64Next * s64Den + s64Num - 1) / s64Num;
    }

private:
    struct Ntsc {
        BU_S32 s32Code, s32Whole;
    };
    static constexpr Ntsc NTSC[] = {{59940, 60}, {29970, 30}, {23980, 24}};
};
} // namespace media
