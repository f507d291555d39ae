// What must not compile, a case each; case 0 is the control that must. tests/CMakeLists.txt
// compiles this file once a case and looks for the reason in what the compiler says.
#if CASE == 9 // texts of another kind
#define UNICODE
#endif
#include "kvarnprog.h"
#include "text/codepage.h"
#include "text/format.h"

void Cases(CKvarnInst& inst) {
#if CASE == 0
    kvarn::Format("%s %d %ld %.*lf"_1252, "a", 1, 2, 3, 4.0);
    inst.WriteKey("KVARNBOK.PAR", "HSKALA", 100);
    inst.WriteKey("KVARNBOK.PAR", "HSKALA", 100L);
    inst.WriteKey("KVARNBOK.PAR", "HSKALA", 2.5, 1);
#elif CASE == 1 // a number where a text is
    kvarn::Format("%s", 1);
#elif CASE == 2 // too few
    kvarn::Format("%d %d", 1);
#elif CASE == 3 // too many
    kvarn::Format("%d", 1, 2);
#elif CASE == 4 // "%ld" is 32 bits
    kvarn::Format("%ld", 1LL);
#elif CASE == 5 // not offered
    kvarn::Format("%x", 1);
#elif CASE == 6 // a whole number as a double
    kvarn::Format("%lf", 1);
#elif CASE == 7 // a double would lose its decimals
    inst.WriteKey("KVARNBOK.PAR", "HSKALA", 2.5);
#elif CASE == 8 // a letter outside the code page
    inst.WriteKey("KVARNBOK.PAR", "α"_1252, 1);
#endif
    static_cast<void>(inst);
}
