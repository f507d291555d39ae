#include "parfile.h"

#include "../files/textfil.h"
#include "../formats/keyfile.h"
#include "../project/sokordning.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "cannotopen.h"
#include "keyrecords.h"

namespace kvarn {

void ParFile::TellCannotRead() const {
    CannotRead(path, Format("Läsning av %s - inställningar"_1252, program).c_str());
}

CString ParFile::ReadKey(std::string_view key) const {
    if (path.IsEmpty()) {
        return {};
    }
    TextReader file(path);
    std::string const value = ValueOf(file, key);
    if (ReadingOf(file, path) == KeyFileRead::notOpened) {
        TellCannotRead();
    }
    return value.c_str();
}

ParFile KvarnParFile(CAutoIni const* ini, CProjPath const* projekt) {
    return {ForstFunna(projekt != nullptr ? projekt->m_kvarnPar : CString(), ini,
                       CProjPath::KvarnParNamn),
            "Kvarnbok"};
}

ParFile StenParFile(CAutoIni const* ini, CProjPath const* projekt) {
    return {ForstFunna(projekt != nullptr ? projekt->m_stenPar : CString(), ini,
                       CProjPath::StenParNamn),
            "Klippbok"};
}

} // namespace kvarn
