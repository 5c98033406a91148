// Names of the result codes, for logs and the debugger.
#ifndef KYODBC_FRAME_RESULT_CODE_NAMES_H
#define KYODBC_FRAME_RESULT_CODE_NAMES_H

#include "platform/types.h"

// The constant's name in result_codes.h, "unknown code" for any other number. Never null; static memory.
const char* ResultCodeName(WORD code);

#endif
