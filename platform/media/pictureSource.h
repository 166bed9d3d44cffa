/// Where a pipe's pictures come from: its sensor's view of the scene, and the other sensor's as a picture in it.
#pragma once

#include "scene/scene.h"

#include <memory>
#include <optional>

namespace media
{
class PictureSource
{
public:
    explicit PictureSource(BU_S32 s32Pipe) : m_s32Pipe(s32Pipe) {}
    /// Opens the scene and looks at it once, so that the first picture does not take so long.
    void prepare();
    /// The sensor's own picture. @return false: there is none
    bool draw(const SCENE_FRAME_S &stFrame, BU_S64 s64TimeUs);
    /// Whether picture in picture was on in the last draw.
    bool hasInset() const { return m_bInset; }
    /// Makes a copy of the last picture the main picture with its inset.
    void drawInset(const SCENE_FRAME_S &stFrame, BU_S64 s64TimeUs);

private:
    /// One sensor at work.
    struct Sensor {
        PICTURE_SETTINGS_S stSettings;
        PICTURE_STATE_S stState;
    };
    bool look(BU_S32 s32Pipe, Sensor &stSensor, const SCENE_FRAME_S &stFrame, BU_S64 s64TimeUs);

    const BU_S32 m_s32Pipe;
    std::unique_ptr<SCENE_S, void (*)(SCENE_S *)> m_pstScene{nullptr, SCENE_Close};
    Sensor m_stOwn;
    std::optional<Sensor> m_stOther; // while there is an inset
    bool m_bInset = false;
};
} // namespace media
