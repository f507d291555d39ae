// The program shows itself: it walks through what a user would do and leaves pictures.
#pragma once

#include <string>

#include <windows.h>

#include "mainwindow.h"

class Tour {
  public:
    // Saves the pictures by paths that begin so. The second project's road and settings cannot be
    // opened.
    Tour(MainWindow& window, std::string pictures, std::string secondProject);
    ~Tour();
    Tour(Tour const&) = delete;
    Tour& operator=(Tour const&) = delete;

    // Whether every step went as expected.
    bool Done() const { return m_step == last && !m_failed; }

  private:
    enum Step {
        start,
        sheetOpens,
        wordsShown,
        numberTyped,
        numberRefused,
        keyPressed,
        sheetShown,
        sheetCloses,
        roadBox,
        settingsBox,
        boxCloses,
        last
    };

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
    void Next();
    void Take(char const* name);
    void TakeBox(HWND box, char const* name);
    void Expect(bool right);
    void GiveUp();
    void NextOfSheet(HWND popup);
    void OpenList(HWND sheet);
    void TypeWrongNumber(HWND sheet);
    void RefuseWrongNumber(HWND box);
    void TypeScale(HWND sheet);
    void PressKey(HWND sheet);
    void SaveScale(HWND sheet);

    MainWindow& m_window;
    HWND m_sheet = nullptr;
    std::string m_pictures;
    std::string m_secondProject;
    UINT_PTR m_timer;
    int m_step = start;
    int m_waited = 0;
    bool m_failed = false;
};
