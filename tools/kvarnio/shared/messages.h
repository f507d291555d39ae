// The library's message boxes on a terminal.
#pragma once

#include <string>
#include <vector>

namespace kvarnio {

// From now on the library's messages go to standard error, each text once, marked as what programs
// show in a box; they are answered with their default button.
void ShowMessagesOnTerminal();

// From now on a question is answered with Yes.
void AnswerYes();

// Whether the library has shown a message since the last call. What it returned after one is not
// the answer: a file that cannot be opened reads as empty.
bool MessageWasShown();

// The texts of all of them so far, in UTF-8 on one line, each once.
std::vector<std::string> const& MessagesShown();

} // namespace kvarnio
