// The layout of a project on disk: the names of its files and folders, and their full paths.
#pragma once

#include "../export.h"
#include "../host/host.h"

class CAutoIni;

class KVARNPROG_API CProjPath {
  public:
    // All paths empty.
    CProjPath();
    CProjPath(CProjPath const&);
    CProjPath& operator=(CProjPath const&);
    virtual ~CProjPath();

    // Fills every path below from the project folder and the names at this moment. The folder is
    // taken as it is (without a trailing backslash, please: none is removed); nothing is looked
    // up or made on disk. Returns 0.
    int SetPath(char const* folder);

    // Makes a project on disk, or what an existing one lacks; this object's paths are neither read
    // nor changed. Flags are not 0 for yes:
    //
    // create          the project's folder, with missing levels above it. A folder that holds a
    //                 drawing database is refused when drawing is asked for: string 6039
    //                 ("Markvida-databas finns redan i Katalog:\n%s"), silently when not
    //                 interactive
    // interactive     with create, asks whether an existing folder shall be used (string 6040; No
    // is the
    //                 default, and ends the call), and tells which program's folder failed
    // drawing         KvarnDbfKat, KvarnRitKat, StackKat
    // postProcessing  PostDbfKat, StabRitKat, PostRitKat
    // rockDrilling    StenDbfKat, StenRitKat, StackKat
    // construction    FaltverkDbfKat, FaltverkRitKat, and in the first the file Faltverk.krd, which
    //                 holds three stars; one that is there stays
    // folderList      further folders when create is 0 (with create they are always made): the
    //                 settings file's key "MAPPAR" in section "ARKIV" names a text file with a
    //                 folder a line, below the project's. No settings object, key or file: none
    //
    // path is the project's folder, with backslashes, on a drive or a share that is there. Returns
    // 1 when all of it stands; 0 at the first failure, where what was made stays, for a list that
    // cannot be read to its end, and for a path that is empty or null, where nothing is made. A
    // level of the project's folder or of the list that cannot be made is always shown ("Fel, kan
    // EJ skapa katalog:\n%s"), and so is the file ("Fel, kan EJ skapa fil:\n%s"). The texts pass
    // through the shared message buffer. The root of a path is that of PathStripToRoot in the
    // Windows documentation.
    int CreateProjectStructure(char const* const path, CAutoIni* settings, int create,
                               int interactive, int drawing, int postProcessing, int rockDrilling,
                               int construction, int folderList);

    // The same with a settings object of its own where the list may be wanted: started by
    // InitXPWay(0, "sv", nullptr), which may make a user's first settings, else by Init().
    int CreateProjectStructure(char const* const path, int create, int interactive, int drawing,
                               int postProcessing, int rockDrilling, int construction,
                               int folderList);

    // File and folder names. A host may point any of them at another name, which it keeps; every
    // path that is built later reads the pointer at that moment. Class-wide and not locked: set
    // them, if at all, at start-up.
    static char* KvarnDbsNamn;    // drawing program's database
    static char* KvarnDbkNamn;    // its companion
    static char* StenDbsNamn;     // rock-drilling program's database
    static char* StenDbkNamn;     // its companion
    static char* FaltverkDbsNamn; // construction program's database
    static char* FaltverkDbkNamn; // its companion
    static char* TerrDbsNamn;     // terrain database of the post-processing program
    static char* UtvDbsNamn;      // evaluation database
    static char* UtvDbkNamn;      // its companion
    static char* KvarnDbfKat;     // drawing program's data folder
    static char* PostDbfKat;      // post-processing program's data folder
    static char* StackKat;
    static char* StabRitKat;     // stability program's drawing folder
    static char* KvarnRitKat;    // drawing program's drawing folder
    static char* StenRitKat;     // rock-drilling program's drawing folder
    static char* StenDbfKat;     // rock-drilling program's data folder
    static char* PostRitKat;     // post-processing program's drawing folder
    static char* FaltverkRitKat; // construction program's drawing folder
    static char* FaltverkDbfKat; // construction program's data folder
    static char* Pictures;       // picture folder
    static char* KvarnZipNamn;   // project archive
    static char* KvarnAvpNamn;   // in the data folder
    static char* KvarnVlNamn;    // area file of the road set, in the data folder
    static char* KvarnParNamn;   // drawing program's parameter file
    static char* KvarnCfgNamn;   // drawing program's configuration file
    static char* RamvalNamn;     // frame choice
    static char* StenVlNamn;     // rock-drilling program's road-line file
    static char* Jb23ParNamn;    // Jb2/Jb3 scales
    static char* Kodfil;         // code file
    static char* Miljkod;        // environmental code file
    static char* Linkod;         // line code file
    static char* Gvrref;         // reference file
    static char* StenParNamn;    // rock-drilling program's parameter file

    // Full paths, filled by SetPath.
    CString m_projKat;     // project folder, as given
    CString m_zip;         // archive
    CString m_kvarnDbs;    // drawing database
    CString m_faltverkDbs; // construction database
    CString m_terrDbs;     // terrain database
    CString m_stenDbs;     // rock database
    CString m_kvarnDbf;    // drawing data folder
    CString m_kvarnRit;    // drawing folder
    CString m_stack;       // stack folder
    CString m_postDbf;     // post-processing data folder
    CString m_postRit;     // post-processing drawing folder
    CString m_stabRit;     // stability drawing folder
    CString m_utvDbs;      // evaluation database
    CString m_kvarnAvp;    // in the drawing data folder
    CString m_kvarnVl;     // area file, in the drawing data folder
    CString m_kvarnPar;    // project's parameter file
    CString m_stenPar;     // project's rock-drilling parameter file
    CString m_pictures;    // picture folder

  private:
    // Makes one folder, whose parent must exist. Returns 1 when it exists or was made, else 0; the
    // message "Fel, kan EJ skapa katalog:\n%s" is then in the shared message buffer, and shown
    // when showError is not 0.
    int CreateFolder(CString path, int showError);
};
