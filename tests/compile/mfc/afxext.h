// Nothing that the library uses stands here alone.
#pragma once

#include "afxwin.h"
