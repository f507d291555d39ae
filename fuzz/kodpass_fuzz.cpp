// Any order of calls on three settings facades that are copied, assigned, given up in the middle of
// a pass and made anew, over files of any bytes, some of them missing or folders. What is read is
// compared with a model; what is written changes the pass's own file alone.
#include <algorithm>
#include <fcntl.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <memory>
#include <unistd.h>

#include "check.h"
#include "kodmodell.h"
#include "kvarnfiles/codepass.h"
#include "support/boxes.h"

namespace {

Mappar mappar;
constexpr char const* stampelUtanMapp = "p/finns/ej";

// A pass as its object's copies share it: it reads, writes or is closed.
struct Pass {
    Slag slag;
    std::string fil; // by folder and name
    std::unique_ptr<kvarn::TextReader> in;
    bool oppen = true;
};

struct Objekt {
    Objekt() { inst.Init(&mappar.ini, &mappar.proj); }

    bool Laser() const { return pass != nullptr && pass->oppen && pass->in != nullptr; }
    bool Skriver() const { return pass != nullptr && pass->oppen && pass->in == nullptr; }
    void Stang() {
        if (pass != nullptr) {
            pass->oppen = false; // for every holder
            pass->in = nullptr;
        }
        pass = nullptr;
    }

    CKvarnInst inst;
    std::shared_ptr<Pass> pass;
};

// The file that a pass would take, by folder and name; empty: none.
std::string Fil(CKvarnInst const& inst, Anrop const& anrop) {
    static char const* const namn[] = {"KODFIL.DAT", "MILJKOD.DAT", "LINKOD.PAR"};
    if (anrop.slag == Slag::stampel) {
        return anrop.fil;
    }
    std::string const fil = namn[static_cast<std::size_t>(anrop.slag)];
    for (char const mapp : Mappar::alla) {
        bool const anvand = mapp == 'p' ? inst.m_proj != nullptr : inst.m_ini != nullptr;
        if (anvand && std::filesystem::exists(mappar.Fil(mapp, fil))) {
            return mapp + ('/' + fil);
        }
    }
    return "";
}

class Varld {
  public:
    explicit Varld(FuzzedDataProvider& provider) : m_in(provider) {
        constexpr std::size_t langst = 200;
        mappar.Tom();
        for (char const* const namn : {"KODFIL.DAT", "MILJKOD.DAT", "LINKOD.PAR", "STAMP.PAR"}) {
            std::string const bytes = Kodtext(m_in.ConsumeRandomLengthString(langst));
            auto const finns = m_in.ConsumeIntegral<std::uint8_t>(); // a bit for each folder
            for (std::size_t i = 0; i < Mappar::alla.size(); ++i) {
                if (finns % 16 == 15 && (finns >> 4 >> i & 1) != 0) {
                    std::filesystem::create_directory(mappar.Fil(Mappar::alla[i], namn));
                } else if ((finns >> i & 1) != 0) {
                    mappar.Skriv(Mappar::alla[i], namn, bytes);
                }
            }
        }
    }
    ~Varld() {
        for (; !m_objekt.empty(); m_objekt.pop_back()) {
            Overge(m_objekt.back(), nullptr);
        }
        // A pass that was given up keeps its file open, and is no one's but its own unit's.
        for (Overgiven const& pass : m_overgivna) {
            kvarn::CodePass* fil = kvarn::Share(pass.fil);
            kvarn::ClosePass(fil);
        }
    }
    Varld(Varld const&) = delete;
    Varld& operator=(Varld const&) = delete;

    void Steg() {
        Objekt& objekt = Nagot();
        int const slag = m_in.ConsumeIntegralInRange(0, 9);
        if (slag < 4) {
            LasNagra(objekt);
        } else if (slag < 7) {
            SkrivEn(objekt);
        } else if (slag == 7) {
            Uppdatera(objekt);
        } else if (slag == 8) {
            objekt.inst.Init(m_in.ConsumeBool() ? &mappar.ini : nullptr,
                             m_in.ConsumeBool() ? &mappar.proj : nullptr);
        } else {
            Byt(objekt);
        }
    }

  private:
    struct Overgiven {
        kvarn::CodePass* fil;
        std::shared_ptr<Pass> pass;
    };

    // Before an object goes, or takes over another's pass.
    void Overge(Objekt const& objekt, Objekt const* ny) {
        bool const sist =
            objekt.pass.use_count() == 1 && (ny == nullptr || objekt.pass != ny->pass);
        if (sist && objekt.pass->oppen) {
            m_overgivna.push_back({objekt.inst.m_fil, objekt.pass});
        }
    }
    void Byt(Objekt& objekt) {
        Objekt const& annat = Nagot();
        int const hur = m_in.ConsumeIntegralInRange(0, 2);
        Overge(objekt, hur == 2 ? nullptr : &annat);
        if (hur == 0) {
            objekt = annat;
        } else {
            Objekt const ny = hur == 1 ? Objekt(annat) : Objekt();
            std::destroy_at(&objekt);
            std::construct_at(&objekt, ny);
        }
    }

    Objekt& Nagot() {
        return m_objekt[m_in.ConsumeIntegralInRange<std::size_t>(0, m_objekt.size() - 1)];
    }
    Anrop EttAnrop() {
        static constexpr char const* stampelfiler[] = {"p/STAMP.PAR",  "p/STAMP.PAR",   "c/NY.PAR",
                                                       "p/KODFIL.DAT", stampelUtanMapp, ""};
        Anrop anrop;
        anrop.slag = static_cast<Slag>(m_in.ConsumeIntegralInRange(0, 3));
        anrop.lage = m_in.ConsumeIntegralInRange(-1, 8);
        anrop.fil = stampelfiler[m_in.ConsumeIntegralInRange<std::size_t>(0, 5)];
        return anrop;
    }

    static Svar Lasning(Objekt& objekt, Anrop const& anrop) {
        Svar svar{.result = Slut(anrop.slag)};
        if (objekt.Skriver()) {
            return svar;
        }
        if (!objekt.Laser() || objekt.pass->slag != anrop.slag) {
            objekt.Stang();
            std::string const fil = Fil(objekt.inst, anrop);
            if (fil.empty()) {
                return svar;
            }
            auto in = std::make_unique<kvarn::TextReader>(mappar.Sokvag(fil).c_str());
            if (!in->IsOpen()) {
                svar.result = -1;
                svar.rutor = 1;
                return svar;
            }
            Stall(*in, anrop);
            objekt.pass = std::make_shared<Pass>(Pass{anrop.slag, fil, std::move(in)});
        }
        svar = Nasta(*objekt.pass->in, anrop);
        if (svar.result == Slut(anrop.slag)) {
            objekt.Stang();
        }
        return svar;
    }
    // A record, or all of them.
    void LasNagra(Objekt& objekt) {
        constexpr int mest = 30;
        Anrop anrop = EttAnrop();
        anrop.utan = {m_in.ConsumeBool(), m_in.ConsumeBool()};
        bool vidare = true;
        for (int i = m_in.ConsumeBool() ? mest : 1; i > 0 && vidare; --i) {
            Svar const svar = Las(objekt.inst, mappar, anrop);
            Check(svar == Lasning(objekt, anrop), "what the model reads");
            vidare = svar.result != Slut(anrop.slag) && svar.result != -1;
        }
    }

    // Whether some pass writes the file, and keeps others from it.
    bool Upptagen(std::string const& fil) const {
        auto const skriver = [&](auto const& nagon) {
            Pass const* const pass = nagon.pass.get();
            return pass != nullptr && pass->oppen && pass->in == nullptr && pass->fil == fil;
        };
        return std::any_of(m_objekt.begin(), m_objekt.end(), skriver) ||
               std::any_of(m_overgivna.begin(), m_overgivna.end(), skriver);
    }
    void SkrivEn(Objekt& objekt) {
        constexpr std::size_t langst = 12;
        Anrop anrop = EttAnrop();
        for (std::string& ord : anrop.ord) {
            ord = TillNoll(Kodtext(m_in.ConsumeRandomLengthString(langst)));
        }
        anrop.heltal = {m_in.ConsumeIntegral<int>(), m_in.ConsumeIntegralInRange(-1, 9)};
        bool const kodfil = anrop.slag == Slag::kodfil;
        bool const borjar = anrop.lage == 1 || (kodfil && anrop.lage == 3);
        std::string const ny = borjar ? Fil(objekt.inst, anrop) : "";
        Mappar::Innehall fore = mappar.Allt();

        Svar const svar = Skriv(objekt.inst, mappar, anrop);
        if (borjar) {
            objekt.Stang();
            bool const gar = ny != stampelUtanMapp && !Upptagen(ny) &&
                             (!fore.contains(ny) || fore[ny] != Mappar::mappen);
            Check(svar.rutor == (ny.empty() || gar ? 0 : 1), "a file that is refused is told of");
            if (gar && !ny.empty()) {
                objekt.pass = std::make_shared<Pass>(Pass{anrop.slag, ny, nullptr});
                fore[ny] = "";
            }
        }
        bool const skriver = objekt.Skriver() && objekt.pass->slag == anrop.slag;
        Check(svar.result == (borjar || kodfil || skriver ? 0 : -1), "the stated result");
        std::string const egen = skriver ? objekt.pass->fil : "";
        int const slut[] = {2, 7, 5, 3};
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
        Anrop anrop;
        anrop.slag = Slag::miljkod;
        std::string const egen = Fil(objekt.inst, anrop);
        if (Upptagen(egen) && !(objekt.Skriver() && objekt.pass->fil == egen)) {
            return; // it would wait half a second
        }
        Mappar::Innehall fore = mappar.Allt();
        objekt.Stang();
        objekt.inst.MiljkodUppdatX();
        Boxes::Shown().clear();
        Mappar::Innehall efter = mappar.Allt();
        fore[egen] = efter[egen];
        Check(fore == efter, "updating changes no other file");
    }

    FuzzedDataProvider& m_in;
    std::vector<Objekt> m_objekt{3};
    std::vector<Overgiven> m_overgivna;
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
    FuzzedDataProvider provider(data, size);
    {
        Varld varld(provider);
        for (int i = 0; i < mestaSteg && provider.remaining_bytes() > 0; ++i) {
            varld.Steg();
        }
    }
    Check(LedigtNummer() == ledigt, "no file stays open");
    return 0;
}
