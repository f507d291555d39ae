// The file of the Jb2/Jb3 scales.
#pragma once

#include <span>

#include "../formats/keyfile.h"
#include "../project/projpath.h"
#include "../settings/autoini.h"

namespace kvarn {

enum class Jb23Written {
    done,   // also where no folder is known for a new file: nothing is written
    unread, // the file exists and cannot be opened, or not be read to its end
    failed  // it cannot be written, and stays as it is
};

// Writes keys, one after the other (see CKvarnInst::Jb23WriteKey), in one rewriting of the file.
Jb23Written WriteJb23(CProjPath const* projekt, CAutoIni const* ini,
                      std::span<KeyChange const> changes);

} // namespace kvarn
