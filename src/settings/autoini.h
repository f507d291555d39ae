// The settings environment: where the installation's directories and programs are, and the keys of
// "Markvida.ini".
#pragma once

#include <cstdint>

#include "../compat/host.h"
#include "../library/export.h"

// Construct one, call Init once, and hand it to the data-file objects. Text is in code page 1252.
// Nothing here shows a message: what is missing reads as empty, a failed write returns 0.
class KVARNPROG_API CAutoIni {
  public:
    // Defaults as given at each member.
    CAutoIni();
    CAutoIni(CAutoIni const&);
    CAutoIni& operator=(CAutoIni const&);
    virtual ~CAutoIni();

    // As Init(0).
    int Init();

    // Settles the settings mode and the path of "Markvida.ini" and reads the keys of its section
    // "SYSTEM". Always returns 0: what is missing leaves its member as it was.
    //
    // mode 0: the main directory is the folder of the running program, taken from the process's
    // command line; that folder is written over the command-line text that GetCommandLineA returns.
    // (A command line whose arguments hold a backslash gives a folder inside the arguments.) Keys
    // then go through the client's application object, whose profile file is set to the
    // "Markvida.ini" of the main directory, or to the bare name where there is none.
    //
    // mode not 0: the main directory is the environment variable "KVARNBOK"; keys go to the INI
    // file directly. Without the variable the directories keep their defaults.
    //
    // In both the CFG directory starts as the main directory. Surprising and meant so: "AUTOGEN"
    // set to "NEJ" does not clear m_autoGen, any word but "JA" and "NEJ" does.
    int Init(int mode);

    // The value of a key; empty when file, section or key is missing. Section and key may be
    // spelt in the DOS code page; DOS letters in the value come converted. In mode not 0 a value
    // is cut at 254 characters.
    CString ReadKey(CString section, CString key);

    // The same into a buffer of at least 255 bytes, cut at 254 characters. Section and key are
    // converted in place. Returns 1 when the value is not empty, else 0.
    int ReadKey(char* section, char* key, char* out);

    // Writes a key, without any conversion; an empty value removes it. Returns nonzero on success,
    // 0 on failure and, in mode 0, without an application object.
    int WriteKey(CString section, CString key, CString value);

    // The install package: m_paket itself, valid while the object lives.
    char* InstallPackage();

    std::int32_t m_lage = 0; // settings mode: 0 through the application object, else the INI file
    CString m_iniFil;        // path of "Markvida.ini", or the bare name; not set in mode 0
    CString m_idag;          // today's local date, as 2026-11-15
    CString m_huvudKat = "C:\\Kvarnbok"; // main directory
    CString m_cfgKat = "C:\\Kvarnbok";   // CFG directory, key "KVARNBOK.CFG"
    CString m_medKat;                    // message directory, key "MSG"
    CString m_acadExe;                   // "ACADEXE"
    CString m_acadLtExe;                 // "ACADLTEXE"
    CString m_acadOpt;                   // "ACADOPT"
    std::int32_t m_acadVer = 19;         // "ACADVER"
    CString m_scriptKat;                 // "SCRIPTPATH", trimmed, without trailing backslashes
    CString m_mstationExe;               // "MSTATIONEXE"
    CString m_zipExe;                    // "ZIPEXE"
    CString m_unzipExe;                  // "UNZIPEXE"
    CString m_docExe;                    // "DOCEXE"
    std::int32_t m_autoGen = 0;          // "AUTOGEN": 1 or 0
    std::int32_t m_postMstation = 0;     // "POSTCAD": 1 for "MSTATION", else 0
    std::int32_t m_bankMstation = 0;     // "BANKCAD": 1 for "MSTATION", else 0
    char m_paket[128] = {};              // install package
};
