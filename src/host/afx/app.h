// MFC's windows, application object and message box, for toolchains without MFC. Names, signatures
// and behaviour are those that MFC documents, for the part of it that the library and its clients
// use. The objects' state lives in the library, so that client and library see the same
// application.
#pragma once

#include "../../compat/types.h"

#include "../../export.h"
#include "cstring.h"

// The Windows headers turn these names into their ANSI forms, MFC's own members included. Other
// hosts do the same here, so that both spell them alike.
#if !defined(_WIN32)
#define GetProfileString GetProfileStringA
#define WriteProfileString WriteProfileStringA
#define MessageBox MessageBoxA
#endif

#if !defined(AFX_IDS_APP_TITLE)
#define AFX_IDS_APP_TITLE 0xE000
#endif

// There are no message maps without MFC: nothing is dispatched.
#if !defined(DECLARE_MESSAGE_MAP)
#define DECLARE_MESSAGE_MAP()
#define BEGIN_MESSAGE_MAP(theClass, baseClass)
#define END_MESSAGE_MAP()
#endif

// A window that the client made. The object does not own the handle.
class KVARNPROG_API CWnd {
  public:
    // Without a window.
    CWnd() = default;
    CWnd(CWnd const&) = delete;
    CWnd& operator=(CWnd const&) = delete;
    // The window stays as it is.
    virtual ~CWnd();

    // The window's handle; null without one.
    HWND GetSafeHwnd() const { return m_hWnd; }
    // Takes a window, in place of the one before. False when it is null.
    bool Attach(HWND window);
    // Gives the window up. Returns its handle, or null.
    HWND Detach();
    // Shows a box over the window, with styles of MessageBox, and returns the button's id. Without
    // a caption Windows shows its own.
    int MessageBox(char const* text, char const* caption = nullptr, UINT style = 0);
    // Repaints what of the window is out of date. Does nothing on hosts without windows.
    void UpdateWindow();

    HWND m_hWnd = nullptr; // not owned
};

// A status bar that the client made, with up to eight panes.
class KVARNPROG_API CStatusBar : public CWnd {
  public:
    // Without a window, and with empty panes.
    CStatusBar() = default;
    ~CStatusBar() override;

    // Sets the text of a pane, counted from 0, and repaints it at once when `update` is not 0. On
    // hosts without windows the text is only kept. FALSE for a pane below 0 or above 7, and nothing
    // changes.
    BOOL SetPaneText(int pane, char const* text, BOOL update = TRUE);
    // The text that was last set; empty for a pane below 0 or above 7.
    CString GetPaneText(int pane) const;

  private:
    static constexpr int panes = 8;
    CString m_texts[panes];
};

// The thread of the client's main window.
class KVARNPROG_API CWinThread {
  public:
    // Without a main window.
    CWinThread() = default;
    CWinThread(CWinThread const&) = delete;
    CWinThread& operator=(CWinThread const&) = delete;
    virtual ~CWinThread();

    // The window over which the library's boxes appear: m_pMainWnd, which may be null.
    virtual CWnd* GetMainWnd();

    CWnd* m_pMainWnd = nullptr; // not owned
};

// The client's application object. The first object registers itself as the application.
class KVARNPROG_API CWinApp : public CWinThread {
  public:
    // The name is copied, and becomes the caption of AfxMessageBox.
    explicit CWinApp(char const* name = nullptr);
    // Frees both names. The application that was registered is then none.
    ~CWinApp() override;

    // The value of a key in the profile file m_pszProfileName, or the default (null: the empty
    // text) when the key is missing. Values are cut at 4,095 characters.
    virtual CString GetProfileString(char const* section, char const* key,
                                     char const* standard = nullptr);
    // Writes a key, or removes it when the value is null. Nonzero on success.
    virtual BOOL WriteProfileString(char const* section, char const* key, char const* value);

    // The name: a heap text (malloc), owned by the object.
    char const* m_pszAppName = nullptr;
    // The profile file: a heap text (malloc), owned by the object.
    char const* m_pszProfileName = nullptr;

  protected:
    // The library's own object, which is not the application.
    enum LibraryObject { libraryObject };
    // Does not register.
    explicit CWinApp(LibraryObject) {}
};

// The client's application object; null without one.
KVARNPROG_API CWinApp* AfxGetApp();
// The same object as a thread.
KVARNPROG_API CWinThread* AfxGetThread();
// Its main window; null without an application object or a window.
KVARNPROG_API CWnd* AfxGetMainWnd();

// Shows a box over the main window. Its caption is the application's name, or its title when it has
// no name. Returns the button's id.
KVARNPROG_API int AfxMessageBox(char const* text, UINT style = 0, UINT help = 0);

// Copies a string resource of the program, else of the library, into a buffer of `size` bytes, cut
// to size - 1 characters. Returns its length, 0 when neither has it.
KVARNPROG_API int AfxLoadString(UINT id, char* buffer, UINT size = 256);
