/// Overlays: canvases that are blended over the pictures of the close-up encoders.
///
/// A canvas is drawn by its owner, in its own memory and time; MPP_OSD_OneToManyUpdateAllTarget shows what it holds at
/// that moment. Thread: any; one at a time for each canvas.
#pragma once

#include "base/types.h"
#include "media/frame.h"

enum OSD_FORMAT_E : BU_S32 { OSD_FORMAT_E_ARGB1555 = 0, OSD_FORMAT_E_ARGB4444, OSD_FORMAT_E_ARGB8888 };

struct SDL_Surface;
struct SDL_Palette;
#ifndef SDL_rect_h_ // a source that needs SDL's headers includes them before this one
struct SDL_Rect {
    int x, y, w, h;
};
#endif

/// One canvas on several outputs; zero before first use.
struct OSD_ONE_TO_MANY_S {
    void *priv;
};
struct OSD_MENU_CANVAS_S {
    MPP_MMZ_MEM_S stMenuMem;      ///< the canvas: rows of stMenuRect.w pixels without gaps; straight alpha
    MPP_MMZ_MEM_S stMenuMemScale; ///< not used, as stRectScaleFactor: each output scales for itself
    SDL_Rect stMenuRect;          ///< size of the canvas and its place in stVideoRect
    SDL_Rect stVideoRect;         ///< the whole picture, in the same units; empty: the size of the canvas
    OSD_FORMAT_E enFormat;
    struct {
        float fX, fY;
    } stRectScaleFactor;
    BU_U8 fgAlpha, bgAlpha;  ///< of a set and a clear alpha bit of ARGB1555
    SDL_Palette *pstPalette; ///< the drawer's
    BU_U8 u8BgIdx;
};

/// @param s32Targets  bit mask of the outputs: 1 the close-up main encoder, 2 the close-up sub encoder. @return 0 or -1
BU_S32 MPP_OSD_OneToManyCreate(OSD_ONE_TO_MANY_S *pstManager, BU_S32 s32Targets);
/// Allocates the canvas memory, where OSD_COMM_CreateSurface has not done so. @param pvArg  not used. @return 0 or -1
BU_S32 MPP_OSD_OneToManyInitCanvas(OSD_ONE_TO_MANY_S *pstManager, OSD_MENU_CANVAS_S *pstCanvas, void *pvArg);
/// Shows the canvas as it is now on all outputs, or takes it away. The canvas is copied. @return 0 or -1
BU_S32 MPP_OSD_OneToManyUpdateAllTarget(OSD_ONE_TO_MANY_S *pstManager, BU_BOOL bShow, OSD_MENU_CANVAS_S *pstCanvas);
/// Takes the overlay away; a manager that was not created is tolerated. @return 0, or -1: null
BU_S32 MPP_OSD_OneToManyDestroy(OSD_ONE_TO_MANY_S *pstManager);

/// A surface to draw on, over the canvas memory, which it allocates where there is none. @return null: failed
SDL_Surface *OSD_COMM_CreateSurface(OSD_MENU_CANVAS_S *pstCanvas);
/// Draws the outline of a rectangle; what lies outside the surface is cut. @param u32Argb  0xAARRGGBB. @return 0 or -1
BU_S32 OSD_COMM_DrawRect(SDL_Surface *pstSurface, SDL_Rect stRect, BU_S32 s32LineWidth, BU_U32 u32Argb);
/// Frees the surface and the canvas memory and clears the pointer. @return 0, or -1: null
BU_S32 OSD_COMM_DestroySurface(OSD_MENU_CANVAS_S *pstCanvas, SDL_Surface **ppstSurface);
