/* The library's chief header, wherever it is installed. */
#include "kyodbc/frame/KyODBC.h"
