// Calls of the code files' passes, and a reader of their lines once more, step by step and with
// sscanf: what the fuzzers compare the library with. The rules are those of kvarninst.h; lines
// themselves are left to lines.h, which has a target of its own.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "kodmappar.h"
#include "kvarnfiles/kvarninst.h"
#include "text/lines.h"

enum class Slag { kodfil, miljkod, linkod, stampel };

// A call that reads or writes a record.
struct Anrop {
    Slag slag{};
    int lage = 0;                     // mode, or the section to be read
    std::array<std::string, 5> ord{}; // a, b, c, text and e of a line code
    std::array<int, 2> heltal{};      // maximum and step
    std::array<bool, 2> utan{};       // the reader gets a null for one of them
    std::string fil = "p/STAMP.PAR";  // the title block's; empty: none
};

// What it returned and showed, and what the caller's variables hold afterwards.
struct Svar {
    int result = 0;
    std::array<std::string, 3> ord{"\n", "\n", "\n"}; // a line end is in no word
    std::array<double, 3> tal{-1.25, -2.25, -3.25};
    std::array<int, 2> heltal{-77, -78};
    int rutor = 0; // message boxes

    bool operator==(Svar const& annat) const; // a number that is none equals another
};

// The library's answer, where its buffers of 256 bytes are enough.
Svar Las(CKvarnInst& inst, Mappar const& mappar, Anrop const& anrop);
Svar Skriv(CKvarnInst& inst, Mappar const& mappar, Anrop const& anrop);

// The model's: a reader that was opened is put where the records begin; then each call reads the
// next of them.
void Stall(kvarn::LineReader& fil, Anrop const& anrop);
Svar Nasta(kvarn::LineReader& fil, Anrop const& anrop);
// A reader's result at the end.
int Slut(Slag slag);

std::string TillNoll(std::string_view text);                  // up to its first zero
std::string Kort(std::string const& text);                    // what a buffer holds
std::string UtanBlanka(std::string text, bool borjan = true); // at its end, and its beginning
std::string DosTillAnsi(std::string text);
// As "%d", which saturates; the value stays where there is no number.
bool Heltal(std::string const& text, int& value);

// The fuzzer's bytes with some of them, from 0xA0 on, replaced by the pieces that files consist of.
std::string Kodtext(std::string_view bytes);
