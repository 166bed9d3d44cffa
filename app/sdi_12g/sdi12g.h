/// The 12G-SDI board.
#pragma once

#include "base/types.h"

/// Powers the board. @return 0
BU_S32 FPGA_12GSDI_Prepare();
/// Starts the board's process. @return 0
BU_S32 FPGA_12GSDI_InitProcess();
