// A key and its value, for the operations that write several at once.
#pragma once

// The texts stay the caller's.
struct nyckelvarde {
    char const* nyckel; // null is an empty text
    char const* varde;  // an empty value removes the key
    int resultat;       // set by the writing, see CKvarnInst::WriteKeys
};
