// The list of records that CKvarnCFG and CKvarnPAR make of their key file, with the fields `nyckel`
// and `varde`. Which lines are stored and lost is said in kvarncfg.h.
#pragma once

#include <string>
#include <string_view>

#include "../files/filerewrite.h"
#include "../files/textfil.h"
#include "../formats/keyfile.h"
#include "../host/host.h"
#include "../text/text.h"

namespace kvarn {

enum class KeyFileRead { whole, notOpened, incomplete };

// Appends a record for each line that makes one.
template <class List> void ReadKeys(List& list, LineReader& lines) {
    using Record = std::remove_pointer_t<decltype(list.Get_aktel())>;
    static_assert(sizeof Record::nyckel == longestKey + 1);
    static_assert(sizeof Record::varde == longestWrittenValue + 1);
    for (std::string_view text; lines.ReadLine(text);) {
        KeyLine const line(text);
        if (line.MakesRecord()) {
            list.Ny(1, nullptr);
            CopyText(list.Get_aktel()->nyckel, sizeof Record::nyckel, line.key);
            CopyText(list.Get_aktel()->varde, sizeof Record::varde, line.value);
        }
    }
}

enum class Presence {
    expected, // a look has not found that it is missing
    optional  // a missing file is read whole: there is nothing in it
};

// Of a path; an empty one has no file, which is read whole.
template <class List> KeyFileRead ReadKeyFile(List& list, char const* path, Presence presence) {
    if (*path == '\0') {
        return KeyFileRead::whole;
    }
    TextReader file(path);
    if (!file.IsOpen() && !(file.Missing() && presence == Presence::optional)) {
        return KeyFileRead::notOpened;
    }
    ReadKeys(list, file);
    return file.Failed() ? KeyFileRead::incomplete : KeyFileRead::whole;
}

template <class List> int FindKeyRecord(List& list, std::string_view key) {
    if (list.Home() != 0) {
        return -1;
    }
    do {
        if (SameText(list.Get_aktel()->nyckel, key)) {
            return 0;
        }
    } while (list++ != nullptr);
    return -1;
}

template <class List> CString ReadKeyRecord(List& list, std::string_view key) {
    return FindKeyRecord(list, key) == 0 ? CString(list.Get_aktel()->varde) : CString();
}

// Puts the value into the key's record, or into a new one at the end. -1 when one is too long; a
// new key's record is then already there, with an empty value.
template <class List> int SetKeyRecord(List& list, std::string_view key, std::string_view value) {
    if (FindKeyRecord(list, key) != 0) {
        if (key.size() > longestKey) {
            return -1;
        }
        list.Ny(1, nullptr);
        CopyText(list.Get_aktel()->nyckel, sizeof list.Get_aktel()->nyckel, key);
    }
    if (value.size() > longestWrittenValue) {
        return -1;
    }
    CopyText(list.Get_aktel()->varde, sizeof list.Get_aktel()->varde, value);
    return 0;
}

// The file's content, in list order.
template <class List> std::string KeyFileText(List& list) {
    constexpr std::size_t usualLine = 32; // room for most, made once
    int count = 0;
    list.Where(&count);
    std::string text;
    text.reserve(usualLine * static_cast<std::size_t>(count));
    for (bool more = list.Home() == 0; more; more = list++ != nullptr) {
        AppendKeyLine(text, list.Get_aktel()->nyckel, list.Get_aktel()->varde);
    }
    return text;
}

// Rewrites the file from the list; an empty path leaves the change in memory and is done. A file
// that was not read to its end stays as it is.
template <class List> Rewritten WriteKeyFile(List& list, char const* path, bool incomplete) {
    if (*path == '\0') {
        return Rewritten::done;
    }
    if (incomplete) {
        return OpensForWriting(path) ? Rewritten::failed : Rewritten::cannotOpen;
    }
    return RewriteFile(path, KeyFileText(list));
}

} // namespace kvarn
