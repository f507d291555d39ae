// A project's own copies: files, folders and names in small letters in any of the three folders,
// then any order of calls, judged after each by the table of the set.
#include <algorithm>
#include <cctype>

#include "check.h"
#include "input.h"
#include "kodmappar.h"
#include "kvarnfiles/kvarninst.h"

namespace {

struct Lokalfil {
    char const* namn; // as the model has it: the host's own spelling does not matter
    char const* tom;
    bool skrivsOver;
};
constexpr Lokalfil parfil = {"KVARNBOK.PAR", "*\r\n", false};
constexpr Lokalfil stenfil = {"KLIPPBOK.PAR", "*\r\n", false};
constexpr Lokalfil kodfiler[] = {
    {"LINKOD.PAR", "*\r\n", true},   {"KODFIL.DAT", "*\r\n*\r\n", true},
    {"STENKOD.DAT", nullptr, false}, {"STENKODN.DAT", nullptr, false},
    {"JB23.PAR", "*\r\n", true},     {"MILJKOD.DAT", "*\r\n*\r\n*\r\n*\r\n*\r\n", true}};

struct Modell {
    Mappar::Innehall filer;
    bool medProjekt = true;
    bool medIni = true;

    std::string* Fil(char mapp, char const* namn) {
        auto const fil = filer.find(mapp + ('/' + std::string(namn)));
        return fil != filer.end() && (mapp == 'p' ? medProjekt : medIni) ? &fil->second : nullptr;
    }
    void Skapa(Lokalfil const& fil, bool skrivOver) {
        std::string const* const mal = Fil('p', fil.namn);
        if (!medProjekt || (mal != nullptr && !(skrivOver && fil.skrivsOver))) {
            return;
        }
        std::string const* const kalla =
            Fil('c', fil.namn) != nullptr ? Fil('c', fil.namn) : Fil('m', fil.namn);
        bool const kan = (mal == nullptr || *mal != Mappar::mappen) &&
                         (kalla != nullptr ? *kalla != Mappar::mappen : fil.tom != nullptr);
        if (kan) {
            filer["p/" + std::string(fil.namn)] = kalla != nullptr ? *kalla : fil.tom;
        }
    }
    void SkapaAlla(bool skrivOver, bool medParfil) {
        if (medParfil) {
            Skapa(parfil, skrivOver);
        }
        for (Lokalfil const& fil : kodfiler) {
            Skapa(fil, skrivOver);
        }
    }
    void TaBort(Lokalfil const& fil) {
        std::string const* const egen = Fil('p', fil.namn);
        if (egen != nullptr && *egen != Mappar::mappen) {
            filer.erase("p/" + std::string(fil.namn));
        }
    }
};

Mappar::Innehall MedStora(Mappar::Innehall const& filer) {
    Mappar::Innehall stora;
    for (auto const& [eget, bytes] : filer) {
        std::string namn = eget;
        std::transform(namn.begin() + 2, namn.end(), namn.begin() + 2,
                       [](char c) { return static_cast<char>(std::toupper(c)); });
        Check(stora.emplace(namn, bytes).second, "no name twice");
    }
    return stora;
}

void LaggUt(Mappar const& mappar, Input& provider, char mapp, std::string namn) {
    enum { ingen, fil, smaBokstaver, mapp_, slag };
    int const vad = provider.Number<std::uint8_t>() % slag;
    if (vad == smaBokstaver) {
        std::transform(namn.begin(), namn.end(), namn.begin(),
                       [](char c) { return static_cast<char>(std::tolower(c)); });
    }
    if (vad == mapp_) {
        std::filesystem::create_directory(mappar.Fil(mapp, namn));
    } else if (vad != ingen) {
        constexpr std::size_t langst = 8;
        mappar.Skriv(mapp, namn, provider.Text(langst) + mapp);
    }
}

int Anropa(CKvarnInst& inst, Modell& modell, Input& provider) {
    bool const skrivOver = provider.Bool();
    bool const medParfil = provider.Bool();
    switch (provider.Number(0, 5)) {
    case 0:
        modell.SkapaAlla(skrivOver, medParfil);
        return inst.CreateLokalaFiler(skrivOver ? -1 : 0, medParfil ? 2 : 0);
    case 1:
        modell.Skapa(stenfil, skrivOver);
        return inst.CreateLokalStenFil(skrivOver ? 1 : 0);
    case 2: {
        bool const egna = modell.Fil('p', parfil.namn) != nullptr;
        if (egna) {
            modell.SkapaAlla(false, false);
        }
        return inst.ProjInst() - (egna ? 1 : 0);
    }
    case 3:
        return inst.ProjStenInst() - (modell.Fil('p', stenfil.namn) != nullptr ? 1 : 0);
    case 4:
        modell.TaBort(parfil);
        for (Lokalfil const& fil : kodfiler) {
            modell.TaBort(fil);
        }
        return inst.RemoveLokalaFiler();
    default:
        modell.TaBort(stenfil);
        return inst.RemoveLokalStenFil();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr int mestaAnrop = 12;
    static Mappar mappar;
    mappar.Tom();
    Input provider(data, size);
    for (char const mapp : Mappar::alla) {
        for (char const* const namn : {"KVARNBOK.PAR", "LINKOD.PAR", "KODFIL.DAT", "Stenkod.dat",
                                       "StenkodN.dat", "JB23.PAR", "MILJKOD.DAT", "KLIPPBOK.PAR"}) {
            LaggUt(mappar, provider, mapp, namn);
        }
    }
    Modell modell{MedStora(mappar.Allt())};
    CKvarnInst inst;
    for (int i = 0; i < mestaAnrop && provider.Remaining() > 0; ++i) {
        constexpr int sallan = 7;
        modell.medProjekt = provider.Number(0, sallan) != sallan;
        modell.medIni = provider.Number(0, sallan) != sallan;
        inst.Init(modell.medIni ? &mappar.ini : nullptr,
                  modell.medProjekt ? &mappar.proj : nullptr);
        Check(Anropa(inst, modell, provider) == 0, "the stated result");
        Check(MedStora(mappar.Allt()) == modell.filer, "the table's files and no others");
    }
    return 0;
}
