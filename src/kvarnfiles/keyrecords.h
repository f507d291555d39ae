// The list of records that CKvarnCFG and CKvarnPAR make of their key file, with the fields `nyckel`
// and `varde`. Which lines are stored and lost is said in kvarncfg.h.
#pragma once

#include <string>
#include <string_view>

#include "../formats/keyfile.h"
#include "../host/host.h"
#include "../text/text.h"
#include "keychanges.h"

namespace kvarn {

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

template <class List> int FindKeyRecord(List& list, std::string_view key) {
    SoughtKey const sought(key);
    return list.Find([&](auto const& record) {
        return key.size() <= longestKey && sought.MayBe(record.nyckel, '\0') &&
               SameText(record.nyckel, key);
    });
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

// Sets several keys, or none where one is too long, and rewrites the file (0, or -1 when that
// failed).
template <class List, class Rewrite>
int WriteKeyRecords(List& list, ClientKeys keys, Rewrite rewrite) {
    if (keys.empty()) {
        return 0;
    }
    auto const changes = ChangesOf(keys);
    if (!AllFit(changes)) {
        return TellEach(keys, -1);
    }
    for (KeyChange const& change : changes) {
        SetKeyRecord(list, change.key, change.value);
    }
    return TellEach(keys, rewrite());
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

} // namespace kvarn
