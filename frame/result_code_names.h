// Names and meanings of the result codes, for logs, the debugger and the details of failures.
#ifndef KYODBC_FRAME_RESULT_CODE_NAMES_H
#define KYODBC_FRAME_RESULT_CODE_NAMES_H

#include "platform/types.h"

// The constant's name in result_codes.h, "unknown code" for any other number. Never null; static memory.
const char* ResultCodeName(WORD code);

// What the code means, as one sentence for people. Never null; static memory.
const char* ResultCodeMeaning(WORD code);

#endif
