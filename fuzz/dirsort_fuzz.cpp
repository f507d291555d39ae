// Listing a folder: files and folders with any names, sizes and dates, any patterns, keys and
// flags. What is listed is what the folder holds and the pattern takes; the order is that of a
// stable sort by the stated rules.
#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "check.h"
#include "compat/win32/search.h"
#include "core/dirsort.h"
#include "folder.h"
#include "input.h"
#include "text/codepage.h"
#include "text/letters.h"
#include "text/scan.h"
#include "text/text.h"

namespace {

struct Post {
    std::string namn;
    std::int32_t storlek = 0;
    std::string datum;
    std::string tid{};

    bool operator==(Post const&) const = default;
};
using Poster = std::vector<Post>;

// In code page 1252; sometimes one that begins with a number or has an extension of the pattern's.
std::string Namn(Input& in) {
    static constexpr char const* borjan[] = {"",  "", "10", "9", " 9", "-3", "99999999999",
                                             "a", "A"};
    static constexpr char const* slut[] = {"",      "",  ".DBF",   ".dbf",
                                           ".DBFX", ".", ".d.dbf", "~1.DBF"};
    constexpr std::size_t langst = 250;
    std::string namn = in.Pick(borjan);
    namn += in.Text(in.Bool() ? 4 : langst);
    namn += in.Pick(slut);
    std::erase_if(namn, [](char c) { return c == '/' || c == '\\' || c == '\0'; });
    return namn;
}

std::tm Lokal(std::int64_t andrad) {
    std::tm t{};
    std::time_t const now = std::time(nullptr);
    std::tm const zone = *std::localtime(&now);
    std::time_t const local = andrad + zone.tm_gmtoff;
    gmtime_r(&local, &t);
    return t;
}

std::string Datum(std::int64_t andrad) {
    std::tm const t = Lokal(andrad);
    char text[40] = "";
    std::strftime(text, sizeof text, "%Y-%m-%d", &t);
    int const year = t.tm_year + 1900;
    return year < 1970 || year > 2037 ? "1970-01-01" : text;
}

std::string Tid(std::int64_t andrad) {
    std::tm const t = Lokal(andrad);
    char text[8] = "";
    std::strftime(text, sizeof text, "%H.%M", &t);
    return text;
}

class Mapp {
  public:
    explicit Mapp(Input& in) {
        constexpr int mest = 7;
        for (int i = in.Number(0, mest); i > 0; --i) {
            Lagg(Namn(in), in);
        }
    }
    ~Mapp() {
        for (auto const& [post, mapp] : m_innehall) {
            std::string const fil = Vag(post.namn);
            mapp ? rmdir(fil.c_str()) : unlink(fil.c_str());
        }
    }
    Mapp(Mapp const&) = delete;
    Mapp& operator=(Mapp const&) = delete;

    static std::string const& Rot() {
        static Folder const mapp("/dev/shm");
        return mapp.Path();
    }
    // As the system finds them, "." and ".." first.
    Poster Funna(std::string const& monster, bool mappar) const {
        std::size_t const punkt = monster.rfind('.');
        bool const oppen = monster.ends_with('*') || monster.ends_with('?');
        std::string const slut = oppen || punkt == std::string::npos ? "" : monster.substr(punkt);
        Poster funna;
        auto const ta = [&](Post const& post, bool mapp) {
            std::string_view const namn = post.namn;
            bool const passar = kvarn::MatchesWildcards(monster.c_str(), post.namn.c_str()) &&
                                namn.size() >= slut.size() &&
                                kvarn::SameText(namn.substr(namn.size() - slut.size()), slut);
            if (passar && (mappar || !mapp)) {
                funna.push_back(post);
            }
        };
        for (char const* const namn : {".", ".."}) {
            ta({namn, 0, ""}, true);
        }
        for (auto const& [post, mapp] : m_innehall) {
            ta(post, mapp);
        }
        return funna;
    }

  private:
    static std::string Vag(std::string const& namn) { return Rot() + '/' + kvarn::ToUtf8(namn); }

    void Lagg(std::string const& namn, Input& in) {
        bool const mapp = in.Number(0, 5) == 0;
        bool const finns =
            std::any_of(m_innehall.begin(), m_innehall.end(),
                        [&](auto const& annan) { return kvarn::SameText(namn, annan.first.namn); });
        std::string const fil = Vag(namn);
        auto const storlek =
            in.Bool() ? in.Number<std::int64_t>(0, 1100) : in.Number<std::int64_t>(0, 1LL << 33);
        constexpr std::int64_t dygn = 86400;
        std::int64_t const andrad = in.Number<std::int64_t>(-1000 * dygn, 30000 * dygn);
        if (finns || (mapp ? mkdir(fil.c_str(), 0755) != 0 : !Fil(fil, storlek))) {
            return; // such a name cannot be, or has no order beside another
        }
        timespec const tider[] = {{0, UTIME_OMIT}, {andrad, 0}};
        Check(utimensat(AT_FDCWD, fil.c_str(), tider, 0) == 0, "a file's time can be set");
        auto const visad = static_cast<std::int32_t>(storlek);
        Post const post = {namn,
                           mapp                         ? 0
                           : visad >= 1 && visad <= 999 ? 1000
                                                        : visad,
                           Datum(andrad), Tid(andrad)};
        if (namn.size() < sizeof dirsorttype::namn) {
            auto const plats =
                std::find_if(m_innehall.begin(), m_innehall.end(),
                             [&](auto const& annan) { return Fore(namn, annan.first.namn); });
            m_innehall.insert(plats, {post, mapp});
        }
    }
    static bool Fil(std::string const& fil, std::int64_t storlek) {
        int const file = open(fil.c_str(), O_CREAT | O_EXCL | O_WRONLY, 0644);
        if (file < 0) {
            return false;
        }
        bool const gjord = ftruncate(file, storlek) == 0;
        close(file);
        if (!gjord) {
            unlink(fil.c_str());
        }
        return gjord;
    }
    // The order of NTFS.
    static bool Fore(std::string const& a, std::string const& b) {
        auto const stora = [](std::string const& text) {
            std::u32string alla;
            for (char const c : text) {
                alla += kvarn::CodePoint1252(kvarn::Upper1252(c));
            }
            return alla;
        };
        return stora(a) < stora(b);
    }

    std::vector<std::pair<Post, bool>> m_innehall; // and whether it is a folder
};

std::int32_t Tal(std::string const& text) {
    std::int32_t tal = 99999999;
    kvarn::Scan(text, tal);
    return tal;
}

bool Fore(Post const& a, Post const& b, int nyckel) {
    std::string const& x = nyckel == 1 ? a.namn : a.datum;
    std::string const& y = nyckel == 1 ? b.namn : b.datum;
    switch (nyckel) {
    case 1:
    case 3:
        return Tal(x) != Tal(y) ? Tal(x) < Tal(y) : kvarn::CompareUpperNordic(x, y) < 0;
    case -1:
        return Tal(a.namn) > Tal(b.namn);
    case -3:
        return Tal(a.datum) > Tal(b.datum);
    case 2:
    case -2:
        return a.storlek < b.storlek;
    default:
        return false;
    }
}

Poster Lista(CDirSort& lista) {
    Poster poster;
    for (bool finns = lista.Home() == 0; finns; finns = lista++ != nullptr) {
        dirsorttype const& post = *lista.Get_aktel();
        std::string const namn(kvarn::FieldText(post.namn));
        bool const punkter = namn == "." || namn == "..";
        Check(kvarn::FieldText(post.kortNamn) == namn.substr(0, sizeof post.kortNamn - 1),
              "the long name, cut");
        Check(kvarn::FieldText(post.tid).size() == 5 && post.tid[2] == '.', "a time of day");
        poster.push_back({namn, post.storlek, punkter ? "" : post.datum, punkter ? "" : post.tid});
    }
    return poster;
}

// The folder's own dates are not known: their order is not judged.
bool DatumRaknas(int nyckel, Poster const& poster) {
    return (nyckel != 3 && nyckel != -3) ||
           std::none_of(poster.begin(), poster.end(),
                        [](Post const& p) { return p.datum.empty(); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static constexpr char const* monster[] = {"*", "*.*", "*.DBF", "*.", "?*.dbf", "*.DBFX", "a*"};
    Input in(data, size);
    Mapp const mapp(in);
    CDirSort lista;
    Poster modell;
    for (int anrop = in.Number(1, 3); anrop > 0; --anrop) {
        std::string const egen = in.Bool() ? in.Pick(monster) : Namn(in);
        int const nyckel = in.Number(-4, 4);
        int const rensa = in.Number(0, 2);
        bool const mappar = in.Bool();
        Check(lista.Init((mapp.Rot() + '\\' + egen).c_str(), nyckel, rensa, 0, mappar ? 1 : 2) == 0,
              "the stated result");
        if (rensa == 1) {
            modell.clear();
        }
        Poster const funna = mapp.Funna(egen, mappar);
        modell.insert(modell.end(), funna.begin(), funna.end());
        Poster const nu = Lista(lista);
        if (!DatumRaknas(nyckel, modell)) {
            Check(std::is_permutation(nu.begin(), nu.end(), modell.begin(), modell.end()),
                  "what the pattern takes");
            modell = nu;
            continue;
        }
        if (nyckel == -1 || nyckel == -3) {
            std::reverse(modell.begin(), modell.end()); // equal ones come out so
        }
        std::stable_sort(modell.begin(), modell.end(),
                         [&](Post const& a, Post const& b) { return Fore(a, b, nyckel); });
        Check(nu == modell, "what the pattern takes, in the stated order");
    }
    return 0;
}
