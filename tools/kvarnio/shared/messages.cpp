#include "messages.h"

#include <algorithm>
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
std::vector<std::string> shown;

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

std::string NameOf(int button) {
    constexpr std::array<char const*, 8> names = {"",      "OK",     "Cancel", "Abort",
                                                  "Retry", "Ignore", "Yes",    "No"};
    return names.at(static_cast<std::size_t>(button));
}

// Its lines one after the other.
std::string OnOneLine(std::string const& text) {
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;) {
        line += (line.empty() ? "" : " ") + word;
    }
    return line;
}

int ShowMessage(MessageBoxRequest const& request) {
    unsigned const kind = request.style & MB_TYPEMASK;
    if (answerIsYes && kind == MB_YESNO) {
        return IDYES; // and need not be shown
    }
    messageShown = true;
    int const answer = DefaultButton(request.style);
    std::string const text = OnOneLine(kvarn::ToUtf8(request.text));
    if (std::find(shown.begin(), shown.end(), text) == shown.end()) {
        shown.push_back(text);
        std::cerr << "programs show: \"" << text << '"'
                  << (kind == MB_OK ? "" : ", answered " + NameOf(answer)) << '\n';
    }
    return answer;
}

} // namespace

void ShowMessagesOnTerminal() {
    SetMessageBoxHandler(ShowMessage);
}

void AnswerYes() {
    answerIsYes = true;
}

std::vector<std::string> const& MessagesShown() {
    return shown;
}

bool MessageWasShown() {
    return std::exchange(messageShown, false);
}

} // namespace kvarnio
