// The layout of a project on disk: the names of its files and folders, and their full paths.
#pragma once

#include "../export.h"
#include "../host/host.h"

class CAutoIni;

// Names and full paths of a project's files and folders.
class KVARNPROG_API CProjPath {
  public:
    // All paths empty.
    CProjPath();
    // A copy of all paths.
    CProjPath(CProjPath const&);
    // Becomes such a copy.
    CProjPath& operator=(CProjPath const&);
    virtual ~CProjPath();

    // Fills every path below from the project folder and the names at this moment. The folder is
    // used as given: it must not end in a backslash. The disk is neither read nor changed. Returns
    // 0.
    int SetPath(char const* folder);

    // Makes a project on disk, or what an existing one lacks; this object's paths are neither read
    // nor changed. Each flag makes something when it is not 0:
    //
    //     create           the project's folder, with missing levels above it. A folder that holds
    //                      a drawing database is refused when drawing is set, too: string 6039
    //                      ("Markvida-databas finns redan i Katalog:\n%s"), silently when not
    //                      interactive
    //     interactive      nothing. With create it asks whether an existing folder shall be used
    //                      (string 6040; the default button No ends the call), and it shows which
    //                      program's folder could not be made
    //     drawing          KvarnDbfKat, KvarnRitKat, StackKat
    //     postProcessing   PostDbfKat, StabRitKat, PostRitKat
    //     rockDrilling     StenDbfKat, StenRitKat, StackKat
    //     construction     FaltverkDbfKat, FaltverkRitKat, and in the first the file Faltverk.krd
    //                      with three stars; an existing file is kept
    //     folderList       further folders when create is 0 (with create they are always made):
    //                      key "MAPPAR" in section "ARKIV" of the settings file names a text file
    //                      with one folder a line, below the project's. Without a settings object,
    //                      the key or the file no folders are made
    //
    // path is the project's folder, with backslashes, on an existing drive or share; its root is
    // that of PathStripToRoot in the Windows documentation. Returns 1 when everything exists.
    // Returns 0 at the first failure, where what was made stays; for a list that cannot be read to
    // its end; and for an empty or null path, where nothing is made.
    //
    // A box always shows a level of the project's folder or of the list that cannot be made ("Fel,
    // kan EJ skapa katalog:\n%s"), and the file ("Fel, kan EJ skapa fil:\n%s"). The texts pass
    // through the shared message buffer.
    int CreateProjectStructure(char const* const path, CAutoIni* settings, int create,
                               int interactive, int drawing, int postProcessing, int rockDrilling,
                               int construction, int folderList);

    // The same. When create or folderList is set, it makes a settings object, by InitXPWay(0, "sv",
    // nullptr), which may make a user's first settings, or by Init() when that fails.
    int CreateProjectStructure(char const* const path, int create, int interactive, int drawing,
                               int postProcessing, int rockDrilling, int construction,
                               int folderList);

    // File and folder names. A host may point any of them at another name, which must stay valid;
    // every path that is built later reads the pointer at that moment. The pointers are shared by
    // all objects and not locked: set them at start-up.
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
    static char* StackKat;        // stack folder
    static char* StabRitKat;      // stability program's drawing folder
    static char* KvarnRitKat;     // drawing program's drawing folder
    static char* StenRitKat;      // rock-drilling program's drawing folder
    static char* StenDbfKat;      // rock-drilling program's data folder
    static char* PostRitKat;      // post-processing program's drawing folder
    static char* FaltverkRitKat;  // construction program's drawing folder
    static char* FaltverkDbfKat;  // construction program's data folder
    static char* Pictures;        // picture folder
    static char* KvarnZipNamn;    // project archive
    static char* KvarnAvpNamn;    // in the data folder
    static char* KvarnVlNamn;     // area file of the road set, in the data folder
    static char* KvarnParNamn;    // drawing program's parameter file
    static char* KvarnCfgNamn;    // drawing program's configuration file
    static char* RamvalNamn;      // frame choice
    static char* StenVlNamn;      // rock-drilling program's road-line file
    static char* Jb23ParNamn;     // Jb2/Jb3 scales
    static char* Kodfil;          // code file
    static char* Miljkod;         // environmental code file
    static char* Linkod;          // line code file
    static char* Gvrref;          // reference file
    static char* StenParNamn;     // rock-drilling program's parameter file

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
    // Makes one folder, whose parent must exist. Returns 1 when it exists or was made. Otherwise
    // returns 0 with the message "Fel, kan EJ skapa katalog:\n%s" in the shared message buffer,
    // and shows it when showError is not 0.
    int CreateFolder(CString path, int showError);
};
