/// A video file or a capture device as the scene: decoded in step with the time that is asked for.
#pragma once

#include "scene/scene.h"

#include <functional>
#include <memory>

namespace scene
{
class Film
{
public:
    /// @return null: it cannot be opened or holds no video; the reason is logged. The same name opened again shares the
    /// decoder.
    static std::shared_ptr<Film> open(const BU_CHAR *pcName);

    virtual ~Film() = default;
    /// Calls show(picture) with the picture of the time. A file loops. @return 0, or -1: no picture could be decoded
    /// Thread: any; the picture is valid during the call.
    virtual BU_S32 showAt(BU_S64 s64TimeUs, const std::function<void(const SCENE_FRAME_S &)> &show) = 0;
};
} // namespace scene
