// A project's folders: any path, any list of further folders, any choices, over a disk that holds
// some of them already, or files in their places. Whatever the result, nothing that was there
// changes, and nothing but folders and the one mark file is made, all of it in the project.
#include <algorithm>

#include "check.h"
#include "files/existence.h"
#include "folder.h"
#include "formats/mappar.h"
#include "input.h"
#include "project/projpath.h"
#include "settings/autoini.h"
#include "support/boxes.h"
#include "tree.h"

namespace {

using Namn = std::vector<std::string>;

struct Val {
    explicit Val(Input& in)
        : skapa(in.Bool()), fraga(in.Bool()), kvarn(in.Bool()), post(in.Bool()), sten(in.Bool()),
          faltverk(in.Bool()), mappar(in.Bool()), ini(in.Bool()) {}

    Namn Mappar() const {
        Namn namn;
        auto const lagg = [&](bool med, Namn const& deras) {
            namn.insert(namn.end(), deras.begin(), med ? deras.end() : deras.begin());
        };
        lagg(kvarn, {"KVARNBOK.DBF", "KVARNBOK.RIT", "STACK"});
        lagg(post, {"SKOGSBOK.DBF", "DAMMSBOK.RIT", "SKOGSBOK.RIT"});
        lagg(sten, {"KLIPPBOK.DBF", "KLIPPBOK.RIT", "STACK"});
        lagg(faltverk, {"FALTVERK.DBF", "FALTVERK.RIT", "FALTVERK.DBF\\Faltverk.krd"});
        return namn;
    }

    bool skapa, fraga, kvarn, post, sten, faltverk, mappar, ini;
};

class Varld {
  public:
    explicit Varld(Input& in) : val(in) {
        Empty(Opened(Rot()));
        constexpr std::size_t langst = 30;
        projekt =
            Api("p") + (in.Bool() ? "" : std::string("\\") + Harmless(in.Text(langst)).c_str());
        lista = Harmless(in.Text(200));
        if (in.Number(0, 7) == 7) {
            MakeFolders(Rot() + "/lista"); // which no reader opens
            lista.clear();
        } else {
            WriteFile(Rot() + "/lista", lista);
        }
        WriteFile(Rot() + "/x.ini", "[ARKIV]\r\nMAPPAR=" + Api("lista") + "\r\n");
        for (char const* const namn : {"p", "p/KVARNBOK.DBS", "p/STACK", "p/kvarnbok.dbf",
                                       "p/FALTVERK.DBF/Faltverk.krd", "p/a", "p/a/b"}) {
            int const vad = in.Number(0, 5);
            if (vad == 1) {
                WriteFile(Rot() + '/' + namn, "fil");
            } else if (vad > 1 && vad < 4) {
                MakeFolders(Rot() + '/' + namn);
            }
        }
        ini.m_lage = 1;
        ini.m_iniFil = Api("x.ini").c_str();
    }

    static std::string const& Rot() {
        static Folder const mapp("/dev/shm");
        return mapp.Path();
    }
    static std::string Api(std::string const& namn) {
        std::string vag = Rot() + '/' + namn;
        std::replace(vag.begin(), vag.end(), '/', '\\');
        return vag;
    }
    int Skapa() {
        CProjPath proj;
        return proj.CreateProjectStructure(projekt.c_str(), val.ini ? &ini : nullptr, val.skapa,
                                           val.fraga, val.kvarn, val.post, val.sten, val.faltverk,
                                           val.mappar);
    }
    bool Finns(std::string const& namn) const {
        return kvarn::FileExists((projekt + '\\' + namn).c_str());
    }
    bool AlltFinns() const {
        Namn namn = val.Mappar();
        kvarn::LineReader rader{std::string_view(lista)};
        std::string_view rad;
        while (val.ini && (val.skapa || val.mappar) && kvarn::NextMapp(rader, rad)) {
            namn.emplace_back(rad);
        }
        return (!val.skapa || kvarn::IsThere(projekt.c_str())) &&
               std::all_of(namn.begin(), namn.end(), [&](std::string const& ett) {
                   return kvarn::IsThere((projekt + '\\' + ett).c_str());
               });
    }

    Val val;
    std::string projekt;
    std::string lista;
    CAutoIni ini;
};

// The new entries are folders, and all of them are the project's.
void CheckNytt(Tree const& fore, Tree const& efter) {
    for (auto const& [vag, post] : fore) {
        auto const nu = efter.find(vag);
        Check(nu != efter.end() && nu->second == post, "what was there stays as it was");
    }
    for (auto const& [vag, post] : efter) {
        bool const ny = !fore.contains(vag);
        bool const marke = vag.ends_with("/Faltverk.krd") && post.bytes == "***";
        Check(!ny || post.isFolder || marke, "folders are made, and the mark file");
        Check(!ny || vag == "p" || vag.starts_with("p/"), "in the project alone");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr int ja = 6;
    constexpr int nej = 7;
    Input in(data, size);
    bool const svarJa = in.Bool();
    Boxes const boxes(svarJa ? ja : nej);
    Varld varld(in);
    Val const& val = varld.val;
    Tree const fore = TreeOf(Varld::Rot());
    bool const fanns = kvarn::FileExists(varld.projekt.c_str());
    bool const databas = fanns && varld.Finns("KVARNBOK.DBS");
    bool const nekad = val.skapa && ((val.kvarn && databas) || (val.fraga && fanns && !svarJa));

    int const gick = varld.Skapa();
    Tree const efter = TreeOf(Varld::Rot());
    CheckNytt(fore, efter);
    Check(gick == (varld.AlltFinns() && !nekad ? 1 : 0), "1 when everything is there");
    Check(!nekad || efter == fore, "a refusal makes nothing");
    auto const fel =
        std::count_if(Boxes::Shown().begin(), Boxes::Shown().end(),
                      [](ShownBox const& box) { return box.text.starts_with("Fel,"); });
    Check(gick == 0 || fel == 0, "no failure is shown where there is none");
    Check(gick == 1 || nekad || !val.fraga || fel == 1, "a failure is shown");
    if (gick == 1 && !varld.Finns("KVARNBOK.DBS")) { // which a further folder can be, too
        varld.val.fraga = false;
        Check(varld.Skapa() == 1 && TreeOf(Varld::Rot()) == efter, "once more changes nothing");
    }
    return 0;
}
