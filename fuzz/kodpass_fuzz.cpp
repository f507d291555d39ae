// Any order of calls on three settings facades that are copied, assigned and made anew, over files
// of any bytes, some of them missing or folders. A model knows which pass is open: a read gives
// what a twin reads that nobody disturbs, a write changes the pass's own file alone.
#include <algorithm>
#include <fcntl.h>
#include <memory>
#include <set>
#include <unistd.h>
#include <utility>

#include "check.h"
#include "input.h"
#include "kodmappar.h"
#include "kvarnfiles/codepass.h"
#include "kvarnfiles/kvarninst.h"
#include "support/boxes.h"

namespace {

using Slag = kvarn::PassKind;

Mappar mappar;
constexpr char const* stampelUtanMapp = "p/finns/ej";

// --- The library's calls -------------------------------------------------------------------------

struct Anrop {
    Slag slag{};
    int lage = 0;    // mode, or the section to be read
    std::string fil; // the title block's; empty: none

    std::string Stampelfil() const { return fil.empty() ? "" : mappar.Sokvag(fil); }
};

struct Svar {
    int result;
    std::string ord; // as many as were read; a line end is in none
    std::size_t rutor = 0;

    bool operator==(Svar const&) const = default;
};

std::size_t Rutor() {
    return std::exchange(Boxes::Shown(), {}).size();
}

// A reader's answer at the end.
Svar Slut(Slag slag) {
    return {slag == Slag::kodfil || slag == Slag::miljkod ? -1 : 0, "\n\n\n"};
}

Svar Las(CKvarnInst& inst, Anrop const& anrop) {
    using Buffert = char[256]; // the sanitizer sees a write beyond it
    Buffert a = "\n";
    Buffert b = "\n";
    Buffert c = "\n";
    double tal[3] = {};
    int heltal[2] = {};
    int const result =
        anrop.slag == Slag::kodfil    ? inst.KodfilDatRead(a, b)
        : anrop.slag == Slag::miljkod ? inst.MiljkodRead(anrop.lage, a, b, heltal, heltal + 1)
        : anrop.slag == Slag::linkod
            ? inst.LinkodRead(a, b, c, tal, heltal)
            : inst.StampParRead(anrop.Stampelfil().c_str(), a, b, tal, tal + 1, tal + 2);
    return {result, std::string(a) + b + c, Rutor()};
}

int Skriv(CKvarnInst& inst, Anrop const& anrop, char const* a, char const* b) {
    return anrop.slag == Slag::kodfil    ? inst.KodfilDatWrite(anrop.lage, a, b)
           : anrop.slag == Slag::miljkod ? inst.MiljKodWrite(anrop.lage, a, b, 6, 1)
           : anrop.slag == Slag::linkod  ? inst.LinkodWrite(anrop.lage, a, b, "1.5", b, "2")
                                        : inst.StampParWrite(anrop.Stampelfil().c_str(), anrop.lage,
                                                             a, b, "1", "2", nullptr);
}

// --- The model -----------------------------------------------------------------------------------

// A pass as its object's copies share it: it reads, writes or is closed.
struct Pass {
    Slag slag;
    std::string fil; // by folder and name
    bool laser;
    bool oppen = true;
    CKvarnInst tvilling{}; // of the one that began to read

    Pass(Slag s, std::string f, bool l) : slag(s), fil(std::move(f)), laser(l) {}
    ~Pass() { kvarn::ClosePass(tvilling.m_fil); }
    Pass(Pass const&) = delete;
    Pass& operator=(Pass const&) = delete;
};

struct Objekt {
    Objekt() { inst.Init(&mappar.ini, &mappar.proj); }

    bool Laser() const { return pass != nullptr && pass->oppen && pass->laser; }
    bool Skriver() const { return pass != nullptr && pass->oppen && !pass->laser; }
    void Stang() {
        if (pass != nullptr) {
            pass->oppen = false; // for every holder
            kvarn::ClosePass(pass->tvilling.m_fil);
        }
        pass = nullptr;
    }

    // The file that a pass would take, by folder and name; empty: none.
    std::string Fil(Anrop const& anrop) const {
        if (anrop.slag == Slag::stampel) {
            return anrop.fil;
        }
        std::string const fil = anrop.slag == Slag::kodfil    ? "KODFIL.DAT"
                                : anrop.slag == Slag::miljkod ? "MILJKOD.DAT"
                                                              : "LINKOD.PAR";
        for (char const mapp : Mappar::alla) {
            bool const anvand = mapp == 'p' ? inst.m_proj != nullptr : inst.m_ini != nullptr;
            if (anvand && std::filesystem::exists(mappar.Fil(mapp, fil))) {
                return mapp + ('/' + fil);
            }
        }
        return "";
    }

    // What a read gives.
    Svar Lasning(Anrop const& anrop) {
        if (Skriver()) {
            return Slut(anrop.slag);
        }
        if (!Laser() || pass->slag != anrop.slag) {
            Stang();
            pass = std::make_shared<Pass>(anrop.slag, Fil(anrop), true);
            pass->tvilling.Init(inst.m_ini, inst.m_proj);
        }
        Svar svar = Las(pass->tvilling, anrop);
        if (pass->tvilling.m_fil == nullptr) {
            Stang();
        }
        return svar;
    }

    CKvarnInst inst;
    std::shared_ptr<Pass> pass;
};

class Varld {
  public:
    explicit Varld(Input& provider) : m_in(provider) {
        constexpr std::size_t langst = 200;
        mappar.Tom();
        for (char const* const namn : {"KODFIL.DAT", "MILJKOD.DAT", "LINKOD.PAR", "STAMP.PAR"}) {
            std::string const bytes = m_in.Text(langst);
            auto const finns = m_in.Number<std::uint8_t>(); // a bit for each folder
            for (std::size_t i = 0; i < Mappar::alla.size(); ++i) {
                if (finns % 16 == 15 && (finns >> 4 >> i & 1) != 0) {
                    std::filesystem::create_directory(mappar.Fil(Mappar::alla[i], namn));
                } else if ((finns >> i & 1) != 0) {
                    mappar.Skriv(Mappar::alla[i], namn, bytes);
                }
            }
        }
    }
    // A pass that nobody holds any more keeps its file open.
    ~Varld() {
        std::set<kvarn::CodePass*> oppna;
        for (Objekt const& objekt : m_objekt) {
            if (objekt.Laser() || objekt.Skriver()) {
                oppna.insert(objekt.inst.m_fil);
            }
        }
        m_objekt.clear();
        for (kvarn::CodePass* const pass : oppna) {
            kvarn::CodePass* fil = kvarn::Share(pass);
            kvarn::ClosePass(fil);
        }
    }
    Varld(Varld const&) = delete;
    Varld& operator=(Varld const&) = delete;

    void Steg() {
        Objekt& objekt = Nagot();
        int const slag = m_in.Number(0, 9);
        if (slag < 4) {
            LasNagra(objekt);
        } else if (slag < 7) {
            SkrivEn(objekt);
        } else if (slag == 7) {
            Uppdatera(objekt);
        } else if (slag == 8) {
            objekt.inst.Init(m_in.Bool() ? &mappar.ini : nullptr,
                             m_in.Bool() ? &mappar.proj : nullptr);
        } else {
            Byt(m_in.Number<std::size_t>(0, antal - 1));
        }
    }

  private:
    static constexpr std::size_t antal = 3; // objects in use; those behind them were given up

    Objekt& Nagot() { return m_objekt[m_in.Number<std::size_t>(0, antal - 1)]; }
    void Byt(std::size_t nummer) {
        Objekt const annat = m_in.Bool() ? Nagot() : Objekt();
        m_objekt.push_back(m_objekt[nummer]);
        m_objekt[nummer] = annat;
    }
    Anrop EttAnrop() {
        static constexpr char const* stampelfiler[] = {"p/STAMP.PAR",  "p/STAMP.PAR",   "c/NY.PAR",
                                                       "p/KODFIL.DAT", stampelUtanMapp, ""};
        auto const slag = static_cast<Slag>(m_in.Number(0, 3));
        return {slag, m_in.Number(-1, 8), m_in.Pick(stampelfiler)};
    }

    // A record, or all of them.
    void LasNagra(Objekt& objekt) {
        constexpr int mest = 30;
        Anrop const anrop = EttAnrop();
        bool vidare = true;
        for (int i = m_in.Bool() ? mest : 1; i > 0 && vidare; --i) {
            Svar const svar = Las(objekt.inst, anrop);
            Check(svar == objekt.Lasning(anrop), "what the twin reads");
            vidare = objekt.Laser();
        }
    }

    // Whether some pass writes the file, and keeps others from it.
    bool Upptagen(std::string const& fil) const {
        return std::any_of(m_objekt.begin(), m_objekt.end(), [&](Objekt const& objekt) {
            return objekt.Skriver() && objekt.pass->fil == fil;
        });
    }
    void SkrivEn(Objekt& objekt) {
        static constexpr char const* ord[] = {"K", "Lera", "*", "", nullptr};
        Anrop const anrop = EttAnrop();
        bool const kodfil = anrop.slag == Slag::kodfil;
        bool const borjar = anrop.lage == 1 || (kodfil && anrop.lage == 3);
        std::string const ny = borjar ? objekt.Fil(anrop) : "";
        bool const mapp = std::filesystem::is_directory(mappar.Rot() + '/' + ny);
        Mappar::Innehall fore = mappar.Allt();

        int const result = Skriv(objekt.inst, anrop, m_in.Pick(ord), m_in.Pick(ord));
        std::size_t const rutor = Rutor();
        if (borjar) {
            objekt.Stang();
            bool const gar = ny != stampelUtanMapp && !Upptagen(ny) && !mapp;
            Check(rutor == (ny.empty() || gar ? 0U : 1U), "a file that is refused is told of");
            if (gar && !ny.empty()) {
                objekt.pass = std::make_shared<Pass>(anrop.slag, ny, false);
                fore[ny] = "";
            }
        }
        bool const skriver = objekt.Skriver() && objekt.pass->slag == anrop.slag;
        Check(result == (borjar || kodfil || skriver ? 0 : -1), "the stated result");
        std::string const egen = skriver ? objekt.pass->fil : "";
        int const slut[] = {2, 5, 3, 7};
        if (int const lage = slut[static_cast<int>(anrop.slag)];
            skriver && (anrop.lage == lage || (kodfil && anrop.lage > lage))) {
            objekt.Stang();
        }
        for (auto const& [namn, bytes] : mappar.Allt()) {
            Check(namn == egen ? bytes.starts_with(fore[namn]) : bytes == fore[namn],
                  "a pass adds to its own file");
            fore.erase(namn);
        }
        Check(fore.empty(), "and takes none away");
    }
    void Uppdatera(Objekt& objekt) {
        std::string const egen = objekt.Fil({Slag::miljkod, 0, ""});
        if (Upptagen(egen) && !(objekt.Skriver() && objekt.pass->fil == egen)) {
            return; // it would wait half a second
        }
        Mappar::Innehall fore = mappar.Allt();
        objekt.Stang();
        objekt.inst.MiljkodUppdatX();
        Rutor();
        Mappar::Innehall efter = mappar.Allt();
        fore[egen] = efter[egen];
        Check(fore == efter, "updating changes no other file");
    }

    Input& m_in;
    std::vector<Objekt> m_objekt{antal};
};

// The lowest number that is free: a file that stays open takes it.
int LedigtNummer() {
    int const nummer = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(nummer);
    return nummer;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr int mestaSteg = 40;
    static Boxes const boxes;
    int const ledigt = LedigtNummer();
    Input provider(data, size);
    {
        Varld varld(provider);
        for (int i = 0; i < mestaSteg && provider.Remaining() > 0; ++i) {
            varld.Steg();
        }
    }
    Check(LedigtNummer() == ledigt, "no file stays open");
    return 0;
}
