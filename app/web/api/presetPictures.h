/// A small picture of what the camera saw when a preset was stored, as a file beside the web server's other files.
#pragma once

#include "base/types.h"

#include <functional>
#include <memory>
#include <mutex>
#include <set>

namespace web
{
/// Thread: any. Pictures are taken and removed on a thread of their own, in their turn.
class PresetPictures : public std::enable_shared_from_this<PresetPictures>
{
public:
    /// @param fnTaken  told of each preset that has got a picture
    explicit PresetPictures(std::function<void(BU_S32 s32Preset)> fnTaken) : m_fnTaken(std::move(fnTaken)) {}

    /// The preset was stored or deleted: it gets a fresh picture, or loses it.
    void update(BU_S32 s32Preset);
    /// Removes the pictures of presets that are no longer there.
    void tidy() const;

    /// When it was taken [s since 1970]; 0: there is none.
    static BU_S64 timeOf(BU_S32 s32Preset);

private:
    void work();

    const std::function<void(BU_S32)> m_fnTaken;
    std::mutex m_lock; // guards the next two
    std::set<BU_S32> m_waiting;
    bool m_bWorks = false;
};
} // namespace web
