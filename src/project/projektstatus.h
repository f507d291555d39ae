// The states that a project can be in, with the texts that users see.
#pragma once

#include <cstdint>

#include "../core/list0.h"
#include "../export.h"
#include "../host/host.h"

// A state of a project.
struct projektstatustype {
    std::int32_t kod; // its code
    char text[80];    // what users see, cut at 79 characters
};

extern template class KVARNPROG_LIST_DECLARE list0<projektstatustype>;

// The list of states, and one that is the project's own.
//
//     CProjektStatus status;
//     status.SetHandle(LibraryModule()); // or a module with the texts in another language
//     status.Load();
//     status.SetStatus(3);
//     show(status.GetStatus());          // "Levererat"
//
// The states are 0 ongoing, 1 finished, 2 archived, 3 delivered, 4 dormant, 5 to be archived and
// 999 unknown; their texts are the string resources 5006 to 5012.
class KVARNPROG_API CProjektStatus : public list0<projektstatustype> {
  public:
    // An empty list without a module. Call SetStatus before GetStatus.
    CProjektStatus();
    virtual ~CProjektStatus();

    // Chooses the module whose string resources hold the texts; it must stay loaded. With null the
    // texts are empty.
    void SetHandle(HINSTANCE modul);

    // A text of the module, cut at 254 characters; empty without a module and for an unknown id.
    CString TxLoadString(unsigned int id);

    // Fills an empty list with the seven states; does nothing with any other. Throws ListFel when
    // memory is out.
    void Load();

    // As list0::Ny: appended when var is 1, otherwise inserted before the current entry; zeros
    // without a record. Returns 0. Throws ListFel when memory is out.
    int Ny(int var, projektstatustype* post);

    // The code of the first entry with the text, whose case does not count; that entry becomes
    // current. 999 when no entry has the text.
    int Find(CString text);

    // Sets the state; a code that is not in the list becomes 999. Returns 0, or -1 for an empty
    // list, where the code is stored as it is.
    int SetStatus(int kod);

    // The text of the state. Known quirk, kept on purpose: the state counts as a position in the
    // list and not as a code. 0 and below give the first entry's text, n that of the entry n steps
    // on. Beyond the end the result is the text 5012 ("unknown"), and the state becomes 999. With
    // the seven states position and code agree. Empty for an empty list.
    CString GetStatus();

    std::int32_t m_status;       // code
    CString m_text;              // not used
    std::int32_t m_funnen = 0;   // 1 once Find or SetStatus has found an entry
    HINSTANCE m_modul = nullptr; // where the texts are
};
