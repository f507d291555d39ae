#include "messages.h"

#include <array>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>

#include <kvarnprog.h>
#include <text/codepage.h>

namespace kvarnio {
namespace {

bool messageShown = false;
bool answerIsYes = false;

int DefaultButton(unsigned style) {
    // The buttons of each style, from MB_OK to MB_RETRYCANCEL, in the order of MessageBox.
    constexpr std::array<std::array<int, 3>, 6> buttons = {{{IDOK},
                                                            {IDOK, IDCANCEL},
                                                            {IDABORT, IDRETRY, IDIGNORE},
                                                            {IDYES, IDNO, IDCANCEL},
                                                            {IDYES, IDNO},
                                                            {IDRETRY, IDCANCEL}}};
    unsigned const kind = style & MB_TYPEMASK;
    unsigned const standard = (style & MB_DEFMASK) / MB_DEFBUTTON2;
    return kind < buttons.size() && standard < 3 ? buttons[kind][standard] : IDOK;
}

// The caption, and the lines of the text below it.
int ShowMessage(MessageBoxRequest const& request) {
    if (answerIsYes && (request.style & MB_TYPEMASK) == MB_YESNO) {
        return IDYES; // and need not be shown
    }
    messageShown = true;
    std::cerr << (request.caption != nullptr ? kvarn::ToUtf8(request.caption) : "kvarnio") << ":\n";
    std::istringstream lines(kvarn::ToUtf8(request.text));
    for (std::string line; std::getline(lines, line);) {
        std::cerr << "  " << line << '\n';
    }
    return DefaultButton(request.style);
}

} // namespace

void ShowMessagesOnTerminal() {
    SetMessageBoxHandler(ShowMessage);
}

void AnswerYes() {
    answerIsYes = true;
}

bool MessageWasShown() {
    return std::exchange(messageShown, false);
}

} // namespace kvarnio
