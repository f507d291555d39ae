// The settings environment: where the installation's directories and programs are, and the keys of
// "Markvida.ini".
#pragma once

#include <cstdint>

#include "../export.h"
#include "../host/host.h"

// Construct one, call Init once, then, where users have settings folders of their own, InitXPWay,
// and hand it to the data-file objects. Text is in code page 1252. Nothing but InitXPWay shows a
// message: what is missing reads as empty, a failed write returns 0.
class KVARNPROG_API CAutoIni {
  public:
    // Defaults as given at each member.
    CAutoIni();
    // A copy of all members.
    CAutoIni(CAutoIni const&);
    // Becomes such a copy.
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
    // "Markvida.ini" of the main directory, or to the bare name when that file does not exist.
    //
    // mode not 0: the main directory is the environment variable "KVARNBOK"; keys go to the INI
    // file directly. Without the variable the directories keep their defaults.
    //
    // In both the CFG directory starts as the main directory. Known quirk, kept on purpose:
    // "AUTOGEN" set to "NEJ" does not clear m_autoGen, any word but "JA" and "NEJ" does.
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

    // Finds the installation and the user's own settings folder, which is made and filled at the
    // first start: in the user's application data, "Orsakor\Vallentra\Markvida", R18, R19 or R20 by
    // the release, then the program's name. Called after Init.
    //
    //     ver           release                           found by
    //     18, 19, 20    that release                      its registration, in any folder
    //     0             that of the running program       the program's folder
    //     1             that of the running program       the folder above the program's
    //     others        none: returns -1
    //
    //     sub   the program's name in keys and folders, two characters
    //     dir   for ver 0 and 1 the folder to look for. Null: that of the running program, as the
    //           process's command line tells (after Init(0) the folder above it, since that text is
    //           then the folder itself)
    //
    // The installation is found by "InstallPath" under HKEY_LOCAL_MACHINE,
    // "SOFTWARE\Wow6432Node\Orsakor\Vallentra\Markvida": keys DIST, RELEASE (of the explicit
    // releases only for 20) and the release's own. A user without settings gets them
    // - from the folder of the program's older name, with any ver;
    // - with ver 0 from "Markvida.ConfigSwitcher.exe" in the main directory, which runs to its end
    //   first, or from the folder of all users. The keys "MSG", "SCRIPTPATH", "ACADVER" and
    //   "ACADEXE" are then written, and the INI file is put in its place by one step with them: a
    //   start that is cut short is made again. The folder of a file that could not be copied is
    //   kept in the key "COPYFROM", and a later start copies what is missing.
    // Then the keys are read as Init does; folders of "MSG" and "SCRIPTPATH" that do not exist are
    // replaced by the program's folder in the user's data. Keys go to the user's INI file
    // afterwards, directly or (ver 1) through the application object.
    //
    // Results; a message box tells of all but the first two:
    //
    //      0   ready (a box tells of each file that could not be copied)
    //     -1   no installation found
    //     -2   the user has no settings, and ver is not 0
    //     -3   all users have no settings
    //     -4   the user's folder could not be made
    //     -5   "Markvida.ini" could not be made for the user
    //     -6   the folder "Orsakor" could not be made in the user's data
    int InitXPWay(int ver, char const* sub, char const* dir);

    // Copies newer files to where the running program finds them: those of all users to the user's
    // settings folder, but for "Markvida.ini", and those of the shared program binaries to the
    // installed platform's "Binaries". A file is copied unless the target is as new, to the second.
    // The folders are taken from m_iniFil by fixed widths: a program's name of two characters, a
    // release of three. Shows nothing, and skips a file that cannot be copied.
    //
    // Returns 0, or -1 when the user's folder is missing or m_iniFil is too short for it, or when
    // the platform's "Root Directory" is not registered (the settings are refreshed even then).
    int AllUserFileCheck();

    // Fills a configuration folder with the user's settings files, by the same rule: those with
    // .SDF, .XML, .DAT, .CFG, .KAL or .PAR anywhere in the name, but for "SAMLAREN.DAT". A folder
    // that holds "Kvarnbok.par" is left alone, unless a file failed: the key "COPYTO" keeps such a
    // folder until all are there. Returns 0, or -1 when the folder does not exist.
    int User2Cfg(CString& dir);

    // The install package: m_paket itself, valid while the object lives.
    char* InstallPackage();

    std::int32_t m_lage = 0; // settings mode: 0 through the application object, else the INI file
    CString m_iniFil;        // path of "Markvida.ini", or the bare name; not set by Init in mode 0
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
