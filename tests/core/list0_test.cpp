// The list is a template that any record type may use: it is tested on a record of its own, beside
// a std::vector as the model.
#include "core/list0.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

int allocationsLeft = -1; // negative: no limit

bool Refused() {
    return allocationsLeft >= 0 && allocationsLeft-- == 0;
}

} // namespace

// The lists of this program take their memory from here, so that it can run out.
void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
    return Refused() ? nullptr : ::operator new(size);
}
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
    return Refused() ? nullptr : ::operator new[](size);
}

namespace {

// Of a value the last two digits are sorted by; the others tell equal ones apart.
struct posttype {
    int varde;
};

enum Nyckel { stigande = 1, omvandLika = 2, motsagande = 3, kastar = 4 };

class Lista : public list0<posttype> {
  public:
    virtual ~Lista() = default;

    void Fyll(std::vector<int> const& varden) {
        for (int const varde : varden) {
            posttype post{varde};
            Ny(1, &post);
        }
    }
    // Reads forwards and checks the links backwards, leaving the list as it was.
    std::vector<int> Varden() {
        std::vector<int> fram;
        std::vector<int> bak;
        for (nod* n = m_forsta; n != nullptr; n = n->nasta) {
            fram.push_back(n->post.varde);
        }
        for (nod* n = m_forsta != nullptr ? m_sista : nullptr; n != nullptr; n = n->forra) {
            bak.insert(bak.begin(), n->post.varde);
        }
        EXPECT_EQ(fram, bak);
        return fram;
    }
    int Position() { return Where(nullptr); }
    int Antal() {
        int antal = -1;
        Where(&antal);
        return antal;
    }
    void ForfalskaAntal(int antal) { m_antal = antal; }
    void TappaMarkeratUrListan() { mark = &m_los; }
    std::string Text() const { return m_text.GetString(); }
    int jamforelser = 0;

  protected:
    int Sortval(int nyckel) override {
        ++jamforelser;
        int const skillnad = m_aktpost->varde % 100 - m_markpost->varde % 100;
        switch (nyckel) {
        case stigande:
            return skillnad;
        case omvandLika:
            return skillnad + 1;
        case motsagande: // positive for neighbours, never for the walk from the first
            return jamforelser == 1 ? 1 : 0;
        default: // throws while the place of a record is sought
            if (jamforelser > 1) {
                throw std::runtime_error("Sortval");
            }
            return 1;
        }
    }

  private:
    nod m_los{};
};

template <class F> std::string Kastat(F f) {
    try {
        f();
    } catch (ListFel const& fel) {
        return fel.what();
    } catch (std::runtime_error const&) {
        return "of Sortval's own";
    }
    return "nothing thrown";
}

TEST(List0, ANewRecordIsZeroOrTheGivenOneAndAddCountsTheStepsToIt) {
    Lista lista;
    EXPECT_EQ(lista.Ny(1, nullptr), 0);
    EXPECT_EQ(lista.Get_aktel()->varde, 0);
    posttype post{7};
    EXPECT_EQ(lista.Ny(0, &post), 0);
    EXPECT_EQ(lista.Varden(), (std::vector<int>{7, 0}));
    EXPECT_EQ(lista.Add(), 2);
    EXPECT_EQ(lista.Add(), 1);
    EXPECT_EQ(Lista().Add(), 0);
}

TEST(List0, EmptyListAnswersEverywhere) {
    Lista lista;
    int antal = 5;
    EXPECT_EQ(lista.Where(&antal), -1);
    EXPECT_EQ(antal, 0);
    EXPECT_EQ(lista.Where(nullptr), -1);
    EXPECT_EQ(lista.Get_aktel(), nullptr);
    EXPECT_EQ(lista.Set_mark(), 0);
    EXPECT_EQ(lista.Goto_mark(), -1);
    EXPECT_EQ(lista.Sortera(stigande), -1);
    EXPECT_EQ(lista.Omsortera(stigande), -1);
}

TEST(List0, SetAktelTakesTheAddressAndLosesTheCurrentElementWhenItIsNotThere) {
    Lista lista;
    lista.Fyll({1, 2, 3});
    lista.Home();
    posttype* const forsta = lista.Get_aktel();
    lista.End();
    EXPECT_EQ(lista.Set_aktel(forsta), 0);
    EXPECT_EQ(lista.Position(), 3); // not updated

    posttype kopia = *forsta;
    EXPECT_EQ(lista.Set_aktel(&kopia), -1);
    EXPECT_EQ(lista++, nullptr);
    EXPECT_EQ(lista--, nullptr);
    EXPECT_EQ(lista.Delete(), -1);
    EXPECT_EQ(lista.Get_aktel(), nullptr);
    EXPECT_EQ(lista.Add(), 3); // no crash: counted from the first
    EXPECT_EQ(lista.Set_aktel(&kopia), -1);
    EXPECT_EQ(lista.Insert(), 0);
    EXPECT_EQ(lista.Antal(), 5);
}

TEST(List0, MarkSurvivesAllButItsOwnRemoval) {
    Lista lista;
    lista.Fyll({1, 2, 3});
    lista.Home();
    lista++;
    lista.Set_mark();
    lista.Home();
    lista.Delete();
    EXPECT_EQ(lista.Goto_mark(), 0);
    EXPECT_EQ(lista.Get_aktel()->varde, 2);
    EXPECT_EQ(lista.Position(), 1);
    lista.Delete();
    EXPECT_EQ(lista.Goto_mark(), -1);

    lista.Fyll({4, 5});
    lista.TappaMarkeratUrListan();
    EXPECT_EQ(lista.Goto_mark(), -1);
    EXPECT_EQ(lista.Get_aktel()->varde, 3); // the first
    EXPECT_EQ(lista.Position(), 3);         // the walked count
    EXPECT_EQ(lista.Goto_mark(), -1);       // cleared
}

TEST(List0, RandomOperationsAgreeWithAVector) {
    std::mt19937 slump(20261121);
    Lista lista;
    std::vector<int> modell;
    std::ptrdiff_t aktuell = 0;
    for (int i = 0; i < 20000; ++i) {
        posttype post{i};
        switch (slump() % 8) {
        case 0:
            lista.Ny(1, &post);
            modell.push_back(i);
            aktuell = std::ssize(modell) - 1;
            break;
        case 1:
            lista.Ny(0, &post);
            modell.insert(modell.begin() + aktuell, i);
            break;
        case 2:
        case 3:
            EXPECT_EQ(lista.Delete(), modell.size() > 1 ? 0 : -1);
            if (!modell.empty()) {
                modell.erase(modell.begin() + aktuell);
                aktuell = std::min(aktuell, std::max(std::ssize(modell), std::ptrdiff_t{1}) - 1);
            }
            break;
        case 4:
            aktuell = lista++ != nullptr ? aktuell + 1 : aktuell;
            break;
        case 5:
            aktuell = lista-- != nullptr ? aktuell - 1 : aktuell;
            break;
        case 6:
            EXPECT_EQ(lista.Home(), modell.empty() ? -1 : 0);
            aktuell = 0;
            break;
        default: // on a list that became empty, too, which may remember its last record
            EXPECT_EQ(lista.End(), modell.empty() ? -1 : 0);
            aktuell = std::max(std::ssize(modell), std::ptrdiff_t{1}) - 1;
            break;
        }
        ASSERT_EQ(lista.Varden(), modell);
        if (!modell.empty()) {
            ASSERT_EQ(lista.Get_aktel()->varde, modell.begin()[aktuell]);
            ASSERT_EQ(lista.Position(), aktuell + 1);
        }
    }
}

std::vector<int> Ordnade(std::vector<int> varden) {
    std::stable_sort(varden.begin(), varden.end(), [](int a, int b) { return a % 100 < b % 100; });
    return varden;
}

// Equal records keep their order, or come out in reverse under a key that is positive for them.
TEST(List0, SorteraOrdersInNLogNComparisonsAndKeepsCurrentAndMark) {
    std::mt19937 slump(4711);
    for (int const antal : {2, 3, 4, 5, 7, 8, 31, 64, 100, 5000}) {
        for (int const nyckel : {stigande, omvandLika, stigande, omvandLika}) {
            SCOPED_TRACE(antal);
            std::vector<int> varden(static_cast<std::size_t>(antal));
            for (int nr = 0; int& varde : varden) {
                varde = 100 * nr++ + static_cast<int>(slump() % 9);
            }
            Lista lista;
            lista.Fyll(varden);
            lista.Home();
            lista++;
            lista.Set_mark();
            lista.Home();
            ASSERT_EQ(lista.Sortera(nyckel), 0);
            EXPECT_LE(lista.jamforelser, antal * (std::ceil(std::log2(antal)) + 1));
            EXPECT_EQ(lista.Get_aktel()->varde, varden[0]);
            EXPECT_EQ(lista.Position(), 1); // the old index, not recomputed
            EXPECT_EQ(lista.Goto_mark(), 0);
            EXPECT_EQ(lista.Get_aktel()->varde, varden[1]);
            if (nyckel == omvandLika) {
                std::reverse(varden.begin(), varden.end());
            }
            ASSERT_EQ(lista.Varden(), Ordnade(varden));
        }
    }
}

TEST(List0, OmsorteraOrdersAndLeavesTheListWhole) {
    std::mt19937 slump(42);
    for (int varv = 0; varv < 200; ++varv) {
        std::vector<int> varden(2 + slump() % 30);
        std::iota(varden.begin(), varden.end(), 0);
        std::swap(varden[slump() % varden.size()], varden[slump() % varden.size()]);
        varden[slump() % varden.size()] = 100 + static_cast<int>(slump() % 30);
        Lista lista;
        lista.Fyll(varden);
        ASSERT_EQ(lista.Omsortera(stigande), 0);
        ASSERT_EQ(lista.Varden(), Ordnade(varden));
    }
}

TEST(List0, CopiesAreRefused) {
    Lista lista;
    EXPECT_EQ(Kastat([&] { new Lista(lista); }), "Internt fel (Initiering list0)");
    EXPECT_EQ(Kastat([&] { lista = Lista(); }), "Internt fel (Tilldelning list0)");
}

TEST(List0, EveryFailureHasItsTextAndLeavesTheListAsItWas) {
    constexpr int enough = -1;
    std::tuple<int, void (*)(Lista&), char const*> const fall[] = {
        {0, [](Lista& l) { l.Add(); }, "Minnesbrist (Class list0)"},
        {0, [](Lista& l) { l.Insert(); }, "Minnebrist (Class list0)"},
        {0, [](Lista& l) { l.Sortera(stigande); }, "Minnebrist (Pek-Class list0)"},
        {1, [](Lista& l) { l.Sortera(stigande); }, "Minnebrist (Sort-Class list0)"},
        {enough, [](Lista& l) { l.Omsortera(motsagande); },
         "Internt sorteringsfel i Todbs::Sortera"},
        {enough, [](Lista& l) { l.Omsortera(kastar); }, "of Sortval's own"},
        {enough, [](Lista& l) { l.Sortera(kastar); }, "of Sortval's own"},
    };
    for (auto const& [allocations, call, text] : fall) {
        Lista lista;
        lista.Fyll({3, 1, 2});
        allocationsLeft = allocations;
        std::string const kastat = Kastat([&lista, call = call] { call(lista); });
        allocationsLeft = enough;
        EXPECT_EQ(kastat, text);
        EXPECT_EQ(lista.Varden(), (std::vector<int>{3, 1, 2})) << text;
        EXPECT_EQ(lista.Antal(), 3) << text;
    }
}

TEST(List0, SortsOfAWrongCountTellIt) {
    Lista lista;
    lista.Fyll({3, 1, 2});
    lista.ForfalskaAntal(4);
    EXPECT_EQ(Kastat([&] { lista.Sortera(stigande); }), "Sorteringfel ! 3 st av 4");
    EXPECT_EQ(lista.Text(), "Sorteringfel ! 3 st av 4");
    EXPECT_EQ(lista.Varden(), (std::vector<int>{3, 1, 2}));
    EXPECT_EQ(Kastat([&] { lista.Omsortera(stigande); }),
              "Fel i sortering\nAntal poster 4\nSorterade 3");
}

} // namespace
