// The key file that CKvarnCFG and CKvarnPAR share: lines of key=value in a list of records with the
// fields `nyckel` and `varde`. Which lines are stored and lost is said in kvarncfg.h.
#pragma once

#include <string>
#include <string_view>

#include "../files/existence.h"
#include "../files/filerewrite.h"
#include "../files/textfil.h"
#include "../host/host.h"
#include "../text/text.h"

namespace kvarn {

constexpr std::size_t langstaLasta = 258;   // value: characters that reading takes
constexpr std::size_t langstaSkrivna = 259; // and writing

enum class Inlasning { hel, gickEjAttOppna, avbruten };

// Appends a record for each stored line.
template <class Lista> void LasNycklar(Lista& lista, TextReader& fil) {
    std::string_view rad;
    while (fil.ReadLine(rad)) {
        std::size_t const likhet = rad.find('=');
        if (likhet == std::string_view::npos || likhet == 0 || lista.Ny(1, nullptr) != 0) {
            continue;
        }
        // The record stands there before the lengths are looked at: a line that is too long leaves
        // it empty.
        auto* const post = lista.Get_aktel();
        std::string_view const varde = rad.substr(likhet + 1);
        if (likhet < sizeof post->nyckel && varde.size() <= langstaLasta) {
            CopyText(post->nyckel, sizeof post->nyckel, rad.substr(0, likhet));
            CopyText(post->varde, sizeof post->varde, varde);
        }
    }
}

// A missing file, or an empty path, is read whole: there is nothing in it. A file that cannot even
// be looked at is not.
template <class Lista> Inlasning LasNyckelfil(Lista& lista, char const* path) {
    if (*path == '\0') {
        return Inlasning::hel;
    }
    TextReader fil(path);
    if (!fil.IsOpen()) {
        return fil.Missing()      ? Inlasning::hel
               : FileExists(path) ? Inlasning::gickEjAttOppna
                                  : Inlasning::avbruten;
    }
    LasNycklar(lista, fil);
    return fil.Failed() ? Inlasning::avbruten : Inlasning::hel;
}

template <class Lista> int SokNyckel(Lista& lista, std::string_view nyckel) {
    if (lista.Home() != 0) {
        return -1;
    }
    do {
        if (SameText(lista.Get_aktel()->nyckel, nyckel)) {
            return 0;
        }
    } while (lista++ != nullptr);
    return -1;
}

template <class Lista> CString LasNyckel(Lista& lista, std::string_view nyckel) {
    return SokNyckel(lista, nyckel) == 0 ? CString(lista.Get_aktel()->varde) : CString();
}

// Puts the value into the key's record, or into a new one at the end. -1 when one is too long; a
// new key's record is then already there, with an empty value.
template <class Lista>
int SattNyckel(Lista& lista, std::string_view nyckel, std::string_view varde) {
    if (SokNyckel(lista, nyckel) != 0) {
        if (nyckel.size() >= sizeof lista.Get_aktel()->nyckel || lista.Ny(1, nullptr) != 0) {
            return -1;
        }
        CopyText(lista.Get_aktel()->nyckel, sizeof lista.Get_aktel()->nyckel, nyckel);
    }
    if (varde.size() > langstaSkrivna) {
        return -1;
    }
    CopyText(lista.Get_aktel()->varde, sizeof lista.Get_aktel()->varde, varde);
    return 0;
}

// The file's content: a line for each record with a value, in list order.
template <class Lista> std::string Nyckelrader(Lista& lista) {
    constexpr std::size_t vanligRad = 32;
    int antal = 0;
    lista.Where(&antal);
    std::string rader;
    rader.reserve(vanligRad * static_cast<std::size_t>(antal));
    for (bool finns = lista.Home() == 0; finns; finns = lista++ != nullptr) {
        auto const* const post = lista.Get_aktel();
        if (post->varde[0] != '\0') {
            AppendTextMode(rader, post->nyckel);
            rader += '=';
            AppendTextMode(rader, post->varde);
            rader += "\r\n";
        }
    }
    return rader;
}

// Rewrites the file from the list; an empty path leaves the change in memory and is done. A file
// that was not read to its end stays as it is.
template <class Lista> Rewritten SkrivNyckelfil(Lista& lista, char const* path, bool ofullstandig) {
    if (*path == '\0') {
        return Rewritten::done;
    }
    if (ofullstandig) {
        return OpensForWriting(path) ? Rewritten::failed : Rewritten::cannotOpen;
    }
    return RewriteFile(path, Nyckelrader(lista));
}

} // namespace kvarn
