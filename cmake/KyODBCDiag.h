/* The extension for the details of failures, wherever it is installed. */
#include "kyodbc/frame/KyODBCDiag.h"
