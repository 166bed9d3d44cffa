/// What the virtual camera sees: the scene, a view into it, and the image settings that shape the picture.
///
/// Everything here is arithmetic on the arguments: same scene, view, settings and time give the same picture. Nothing
/// waits, nothing reads a clock, no thread is made.
///
/// Directions are degrees: pan 0 looks at the stage, positive to the right; tilt 0 is level, positive up. A picture
/// maps degrees to pixels evenly, so a degree of pan moves it by width / field of view pixels at any place.
#pragma once

#include "picture/picture.h"

#include <memory>
#include <vector>

/// Where the close-up lens looks.
struct SCENE_VIEW_S {
    BU_FLOAT fPan = 0, fTilt = 0;           ///< optical axis [degrees], any pan, tilt -90 to 90
    BU_FLOAT fMagnification = 1;            ///< of lens, sensor and digital zoom together, 1 to 512
    BU_FLOAT fFov = 60;                     ///< horizontal field of view at magnification 1 [degrees]
    BU_FLOAT fDefocus = 0;                  ///< how far the focus is off [dioptres, 1/m]; 0: sharp
    BU_FLOAT fSmearPan = 0, fSmearTilt = 0; ///< how far it turns while the shutter is open [degrees]
    bool operator==(const SCENE_VIEW_S &) const = default;
};

/// Field of view of the fixed panorama lens [degrees]; it looks at pan 0, tilt 0.
inline constexpr BU_FLOAT SCENE_PANORAMA_FOV = 180;
/// Part of the surroundings that a video file or capture device covers, around pan 0 and tilt 0 [degrees].
inline constexpr BU_FLOAT SCENE_FILM_FOV = 120;

/// A person of the synthetic scene: the box around the body, in degrees.
struct SCENE_PERSON_S {
    BU_FLOAT fPan, fTilt; ///< middle of the body
    BU_FLOAT fWidth, fHeight;
    BU_FLOAT fDistanceM;
    BU_FLOAT fHeadPan, fHeadTilt, fHeadSize; ///< middle and height of the head
};

struct SCENE_S;

/// Opens a scene: "synthetic", the path of a video file, or of a V4L2 device ("/dev/video0"). Null takes CAMERA_SCENE,
/// empty the synthetic one. What cannot be opened is logged and replaced by the synthetic scene.
/// @return never null; one for each thread that renders. Scenes of the same file or device share its decoder.
SCENE_S *SCENE_Open(const BU_CHAR *pcScene);
/// Null is tolerated.
void SCENE_Close(SCENE_S *pstScene);

/// Draws the close-up or the panorama as the sensor sees it, in perfect light. @param s64TimeUs  time of the picture,
/// 0 or more; a file loops. @return 0, or -1: null scene, or a size that is odd, below 16 or above 8192
/// Thread: one at a time for each scene.
BU_S32 SCENE_RenderCloseUp(SCENE_S *pstScene, const SCENE_VIEW_S &stView, BU_S64 s64TimeUs, const SCENE_FRAME_S &stOut);
BU_S32 SCENE_RenderPanorama(SCENE_S *pstScene, BU_S64 s64TimeUs, const SCENE_FRAME_S &stOut);

/// Those who walk and stand in the synthetic scene, near ones last; the seated audience is not counted.
std::vector<SCENE_PERSON_S> SCENE_ListPeople(BU_S64 s64TimeUs);

/// Reads all image settings of a pipeline (0 close-up, 1 panorama) from the camera services. Where the close-up's
/// exposure or white balance is to be followed by the full view, the panorama gets the close-up's. Mirror, flip, mount
/// and freeze act on the close-up only. @return 0, or -1: no such pipeline
/// Thread: any; cheap enough for every picture.
BU_S32 PICTURE_ReadSettings(BU_S32 s32Pipe, PICTURE_SETTINGS_S *pstSettings);

/// Reads where the close-up lens looks at this moment. @return 0, or -1: a service refused; the rest is filled
BU_S32 PICTURE_ReadView(SCENE_VIEW_S *pstView);

/// The whole way of a picture: scene, settings, mirror, flip, freeze. @param pstView  null: the panorama
/// @return 0, or -1 as SCENE_RenderCloseUp
BU_S32 PICTURE_Render(SCENE_S *pstScene, const SCENE_VIEW_S *pstView, const PICTURE_SETTINGS_S &stSettings,
                      PICTURE_STATE_S &stState, BU_S64 s64TimeUs, const SCENE_FRAME_S &stOut);
