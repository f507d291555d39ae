#include "list0.h"

// Out of line, so that the type information of the exception lives in the library alone and is the
// same on both sides of its border.
ListFel::~ListFel() = default;
