// The library's texts for programs that keep theirs in UTF-8, as Linux's terminals and files do.
// The code page's table is Unicode's CP1252.TXT, with Windows' own mapping of its five unassigned
// bytes to the control characters of the same number.
#pragma once

#include "../export.h"
#include "../host/host.h"

// The text, which is in code page 1252 and ends with a zero, in UTF-8: up to three bytes for each
// of its own. Null counts as empty.
KVARNPROG_API CString TextToUtf8(char const* text);

// Puts a zero-ended UTF-8 text into `text`, in code page 1252. Null counts as empty. Returns 0, or
// -1 when it is not UTF-8 or has a letter that the code page lacks; `text` is then as it was.
KVARNPROG_API int TextFromUtf8(char const* utf8, CString& text);
