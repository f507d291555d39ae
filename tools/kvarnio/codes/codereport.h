// How the records of code files are shown, and what is told of a change.
#pragma once

#include <string>

#include "codefile.h"

namespace kvarnio {

Json ToJson(CodeFormat const& format, CodeRecord const& record);
Json ToJson(CodeFormat const& format, CodeRecords const& records);

// On one line, in UTF-8.
std::string Shown(CodeFormat const& format, CodeRecord const& record);

void PrintCodes(CodeFormat const& format, CodeRecords const& records);

// Tells on standard error what of the file is in none of its records.
void PrintUnread(CodeFile const& file);

struct CodeChange {
    char const* verb; // what was done to the record
    CodeRecord const* was;
    CodeRecord const* now;
};

// What was written, on standard output; what was lost, and a change that went to the shared file,
// on standard error.
void Report(Context const& context, CodeFormat const& format, CodeFile const& file,
            Losses const& losses, CodeChange const& change);

} // namespace kvarnio
