// The program's main window: the project that is open, some of its settings, a status bar.
#pragma once

#include <string>

#include <kvarnprog.h>

#include "shownvalue.h"

class MainWindow : public CWnd {
  public:
    enum Command { settings = 100, closeProgram };

    // The language of the program and of the settings pages.
    explicit MainWindow(PageLanguage language);
    // Destroys the window.
    ~MainWindow() override;

    // Reads the project's road too: the library shows a line that it cannot read in the status bar,
    // and a road that it cannot open in a box over this window.
    void OpenProject(char const* folder);

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(int command);
    void Arrange() const;
    void ShowProject();
    void NameBadLine(CVag2 const& road) const;

    PageLanguage m_language;
    CAutoIni m_ini;
    CProjPath m_projekt;
    CKvarnInst m_inst;
    CStatusBar m_statusBar;
    HWND m_label = nullptr;
    HWND m_path = nullptr;
    HWND m_text = nullptr;
};
