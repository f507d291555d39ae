#include "roadfile.h"

#include <new>

#include "../core/messageout.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "datafile.h"

namespace kvarn {
namespace {

void TellNotOpened(char const* path) {
    Notify(Format("Kan ej öppna väglinje : %s"_1252, path));
}

} // namespace

bool ReadRoadFile(char const* path, std::string& text, CString& notRead) {
    bool const read = ReadDataFile(path, text, notRead);
    if (!read) {
        TellNotOpened(path);
    }
    return read;
}

int WriteRoadFile(char const* path, std::string_view text, CString const& notRead) {
    path = path != nullptr ? path : "";
    Rewritten const result = WriteDataFile(path, text, notRead);
    if (result == Rewritten::cannotOpen) {
        TellNotOpened(path);
    }
    return result == Rewritten::done ? 0 : -1;
}

void ReportBadLine(std::string_view line) try {
    SetLastMessage(Format("Fel rad : %s", line));
    StatusText(std::string(line).c_str()); // a line ends in the middle of its text
} catch (std::bad_alloc const&) {
    if (line.size() > messageBufferSize) { // nobody reads one that is nearly as long as the memory
        ReportBadLine(line.substr(0, messageBufferSize));
    }
}

} // namespace kvarn
