/// Files, shell and the device root.
///
/// Every fixed path ("/var/...", "/app/...", "/dev/...", "/mnt/sdcard") lies below the device root: "/" on the camera,
/// a folder on a PC (CAMERA_ROOT). Nothing outside it is ever touched.
#pragma once

#include "base/types.h"

#include <string>

/// The path below the device root. ".." steps stay inside. The first use sets the root, when nobody has, from
/// CAMERA_ROOT, else <state folder of the user>/ptz-camera. Thread: any.
std::string UTIL_ROOT_Path(const BU_CHAR *pcPath);

/// Sets the device root and makes its folders. Called before any module starts; tests call it per case.
/// @return 0, or -1: cannot be made or written, the reason is logged; every file below it then fails
BU_S32 UTIL_ROOT_Set(const BU_CHAR *pcFolder);

BU_BOOL UTIL_FILE_IsExist(const BU_CHAR *pcPath);

/// Reads a whole file into an allocated buffer, one zero byte behind it; the caller frees it with free.
/// @return 0, or -1: no such file, larger than 64 MiB, or not readable; nothing is allocated then
BU_S32 UTIL_FILE_ReadFileToBuf(const BU_CHAR *pcPath, BU_CHAR **ppcBuf, BU_S32 *ps32Size);

/// Replaces a file's content in one step, and makes its folders: at any time the file holds the old or the new bytes,
/// never a part. What returns 0 survives a power cut.
/// @return 0, or -1; the reason is logged
BU_S32 UTIL_FILE_WriteBufToFile(const BU_CHAR *pcPath, const void *pvBuf, BU_S32 s32Size);
/// The same for a file that only the camera's own user may read, also while it is written (mode 0600).
BU_S32 UTIL_FILE_WriteSecretToFile(const BU_CHAR *pcPath, const void *pvBuf, BU_S32 s32Size);

/// Runs a shell command of the service. The PC platform has no shell: it performs, inside the device root, the commands
/// with a meaning here: "reboot" (the process replaces itself after 300 ms), "sync", "ln -s", "rm", "mv", "touch",
/// "mkdir", joined by ';', '&', "&&" or "||", with quoted words. Anything else, also a pipeline, a redirection, a
/// pattern or an unknown option, is logged as skipped and counts as done. A link that is there already is left as it
/// is.
/// @return 0 performed or skipped, -1 failed or not understood; of several commands the last one's
/// Thread: any.
BU_S32 UTIL_CMD_RunSafe(const BU_CHAR *pcCommand);

/// What "reboot" does, on the calling thread; null: the process replaces itself by a fresh one. For tests.
void UTIL_CMD_SetRebootHandler(void (*pfnReboot)());
