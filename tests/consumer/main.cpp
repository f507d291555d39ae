#include "core/message.h"

#include <kvarnprog.h>

#include <cstdio>
#include <cstring>

// Derives from a list of the library's, catches what it throws, and asks for a default.
namespace {

class Lista : public list0<partype> {
  public:
    virtual ~Lista() = default;
};

bool CopyIsRefused() {
    Lista lista;
    try {
        Lista copy(lista);
    } catch (std::runtime_error const& error) {
        return std::strcmp(error.what(), "Internt fel (Initiering list0)") == 0;
    }
    return false;
}

} // namespace

int main() {
    CAutoIni ini;
    CProjPath projekt;
    projekt.SetPath("nowhere");
    CKvarnInst inst;
    inst.Init(&ini, &projekt);
    bool const answered = inst.ReadKey(CProjPath::KvarnParNamn, "HSKALA") == "100";
    std::printf("%s %d %d\n", ClientMessage(), answered, CopyIsRefused());
    return answered && CopyIsRefused() ? 0 : 1;
}
