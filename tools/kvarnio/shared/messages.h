// The library's message boxes on a terminal.
#pragma once

namespace kvarnio {

// From now on the library's messages go to standard error and are answered with their default
// button.
void ShowMessagesOnTerminal();

// From now on a question is answered with Yes.
void AnswerYes();

// Whether the library has shown a message since the last call. What it returned after one is not
// the answer: a file that cannot be opened reads as empty.
bool MessageWasShown();

} // namespace kvarnio
