// The library's one container: a doubly linked list of plain records with a current element, one
// mark, and sorting by a virtual comparison.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <stdexcept>
#include <type_traits>

#include "../compat/host.h"
#include "../library/export.h"

// Thrown by the lists: out of memory and internal errors. what() is the exact text to show.
class KVARNPROG_API ListFel : public std::runtime_error {
  public:
    explicit ListFel(char const* text) : std::runtime_error(text) {}
    ListFel(ListFel const&) = default;
    ListFel& operator=(ListFel const&) = default;
    ~ListFel() override;
};

// A list of records of type T. Records are plain (trivially copyable), fixed in size and copied
// byte-wise; each lies in one heap block with its two links.
//
// Results are 0 for success and -1 for an element that does not exist or an empty list, where
// nothing else is said. Every operation that moves the current element refreshes the current
// record. A list is neither copied nor assigned: both throw.
//
//     for (int slut = lista.Home(); slut == 0; slut = lista++ != nullptr ? 0 : -1)
//         use(lista.Get_aktel());
template <class T> class list0 {
    static_assert(std::is_trivially_copyable<T>::value, "records are copied byte-wise");

  public:
    // An empty list.
    list0();

    // Throws ListFel "Internt fel (Initiering list0)".
    list0(list0 const&);

    // Throws ListFel "Internt fel (Tilldelning list0)".
    list0& operator=(list0 const&);

    // Frees every record. Not virtual: deriving classes add a virtual destructor of their own.
    ~list0();

    // A new record, which becomes current: appended at the end when var is 1, otherwise inserted
    // before the current element. Filled from *post, or with zeros (m_noll) when post is null.
    // Returns 0. Throws ListFel when memory is out; the list is then unchanged.
    int Ny(int var, T* post);

    // Appends a record of undefined content and makes it current. Returns the number of steps
    // that the current element moved forward to reach it (0 when the list was empty).
    // Throws ListFel "Minnesbrist (Class list0)".
    int Add();

    // Inserts a record of undefined content before the current element and makes it current; on an
    // empty list it is Add. The position keeps its value: the new record takes the index of the
    // one it was put before. Returns 0. Throws ListFel "Minnebrist (Class list0)".
    int Insert();

    // Removes the current element; its successor becomes current, or its predecessor when it was
    // the last. A mark on it is cleared. Returns 0, or -1 when the list is or became empty.
    int Delete();

    // The current element becomes the first (position 1) or the last (position = count).
    int Home();
    int End();

    // Moves the current element one step. Returns this list, or null when the list is empty or
    // there is no element in that direction; nothing moves then.
    list0* operator++(int);
    list0* operator--(int);

    // The current record, owned by the list and valid until it is deleted; null without a current
    // element.
    T* Get_aktel();

    // Makes current the element whose record lies at exactly this address; an equal record
    // elsewhere is not found. The position is not updated. After -1 the list has no current
    // element until it is positioned again, for example by Home.
    int Set_aktel(T* post);

    // Puts the mark on the current element. Returns 0 always.
    int Set_mark();

    // Moves the current element to the mark. Returns -1 without a mark. A mark that is no longer
    // in the list is cleared, the first element becomes current, and -1 is returned.
    int Goto_mark();

    // Refreshes the current record from the current element; -1 (and no record) without one.
    int Set_pael();

    // Returns the position of the current element, counted from 1 as last maintained, or -1 when
    // the list is empty. Stores the number of records in *antal when antal is not null.
    int Where(int* antal);

    // Sorts ascending by Sortval under the key, in n log n comparisons, relinking records without
    // moving them. Stable; a comparison that is positive for equal elements too brings them out in
    // reverse order. The current element and the mark stay where they were, the position keeps its
    // value. Returns 0, or -1 when the list is empty. Throws ListFel
    // "Minnebrist (Pek-Class list0)" or "Minnebrist (Sort-Class list0)" when memory is out and
    // "Sorteringfel ! %ld st av %ld" when the records do not match their count; the list is then
    // unchanged.
    int Sortera(int nyckel);

    // Re-sorts by insertion, for lists that are nearly in order. The current element and the mark
    // are left where the last comparison put them. Returns 0, or -1 when the list is empty. Throws
    // ListFel "Internt sorteringsfel i Todbs::Sortera" when a record fits nowhere (a Sortval that
    // contradicts itself; the record goes back where it was) and
    // "Fel i sortering\nAntal poster %ld\nSorterade %ld" when the records do not match their count.
    int Omsortera(int nyckel);

    // A zero-filled record, the content of a new one.
    static T m_noll;

  protected:
    struct nod {
        nod* forra;
        nod* nasta;
        T post;
    };

    // Compares the current record (m_aktpost) with the mark record (m_markpost) under the key:
    // positive when the current record must come after the mark record.
    virtual int Sortval(int nyckel);

    // Refreshes the mark record from the mark; -1 (and no record) without one.
    int Sort_mark();

    nod* m_forsta = nullptr;
    // Stale once the last record is gone: emptiness is told by m_forsta alone.
    nod* m_sista = nullptr;
    nod* aktel = nullptr;
    nod* mark = nullptr;
    std::int32_t m_nodstorlek = static_cast<std::int32_t>(sizeof(nod));
    std::int32_t m_antal = 0;
    std::int32_t m_position = 0;
    CString m_text; // of the last sort failure
    T* m_aktpost = nullptr;
    T* m_markpost = nullptr;

  private:
    nod* NyNod(char const* minnesfel) const;
    static void Frigor(nod* n);
    // Current = the element, or none.
    int StallPa(nod* n);
    // True when the current element must come after the mark.
    bool Efter(nod* aktuell, nod* jamford, int nyckel);
    // Takes the element after n out of the list, and puts it in again before or after another.
    nod* LossaEfter(nod* n);
    void LankaFore(nod* ny, nod* n);
    void LankaEfter(nod* ny, nod* n);
    // Merges the two sorted runs [a, mitten) and [mitten, slut) of the node table into `ut`.
    void Sammanfoga(nod** a, nod** mitten, nod** slut, nod** ut, int nyckel);
    void Lanka(nod** noder);
    [[noreturn]] void KastaSortfel(char const* format, std::int32_t forsta, std::int32_t andra);

    // An array that is freed with its scope; null when memory is out.
    struct nodtabell {
        explicit nodtabell(std::int32_t antal)
            : noder(new (std::nothrow) nod*[static_cast<std::size_t>(antal)]) {}
        ~nodtabell() { delete[] noder; }
        nodtabell(nodtabell const&) = delete;
        nodtabell& operator=(nodtabell const&) = delete;
        nod** noder;
    };

    // Puts the current element and the mark back where they were, also when a Sortval throws.
    struct platsminne {
        explicit platsminne(list0& l) : lista(l), aktuell(l.aktel), markerad(l.mark) {}
        ~platsminne() {
            lista.StallPa(aktuell);
            lista.mark = markerad;
            lista.Sort_mark();
        }
        platsminne(platsminne const&) = delete;
        platsminne& operator=(platsminne const&) = delete;
        list0& lista;
        nod* aktuell;
        nod* markerad;
    };
};

// Every member is defined outside the class: GCC does not export the inline members of a template,
// and clients derive from the library's instantiations.

template <class T> T list0<T>::m_noll{};

template <class T> list0<T>::list0() = default;

template <class T> list0<T>::list0(list0 const&) {
    throw ListFel("Internt fel (Initiering list0)");
}

template <class T> list0<T>& list0<T>::operator=(list0 const&) {
    throw ListFel("Internt fel (Tilldelning list0)");
}

template <class T> list0<T>::~list0() {
    for (nod* n = m_forsta; n != nullptr;) {
        nod* const nasta = n->nasta;
        Frigor(n);
        n = nasta;
    }
}

template <class T> int list0<T>::Sortval(int) {
    return 0;
}

template <class T> T* list0<T>::Get_aktel() {
    Set_pael();
    return m_aktpost;
}

template <class T> void list0<T>::Frigor(nod* n) {
    ::operator delete(n);
}

template <class T> int list0<T>::StallPa(nod* n) {
    aktel = n;
    return Set_pael();
}

template <class T> typename list0<T>::nod* list0<T>::NyNod(char const* minnesfel) const {
    void* const block = ::operator new(static_cast<std::size_t>(m_nodstorlek), std::nothrow);
    if (block == nullptr) {
        throw ListFel(minnesfel);
    }
    return ::new (block) nod; // links and record are set by the caller
}

template <class T> int list0<T>::Ny(int var, T* post) {
    int const resultat = var == 1 ? Add() : Insert();
    if (resultat < 0) {
        return resultat;
    }
    std::memcpy(m_aktpost, post != nullptr ? post : &m_noll, sizeof(T));
    return 0;
}

template <class T> int list0<T>::Add() {
    nod* const ny = NyNod("Minnesbrist (Class list0)");
    ny->nasta = nullptr;
    if (m_forsta == nullptr) {
        ny->forra = nullptr;
        m_forsta = aktel = ny;
        m_position = 1;
    } else {
        ny->forra = m_sista;
        m_sista->nasta = ny;
        if (aktel == nullptr) { // lost by Set_aktel
            aktel = m_forsta;
            m_position = 1;
        }
    }
    int steg = 0;
    for (; aktel != ny; aktel = aktel->nasta) {
        ++steg;
    }
    m_position += steg;
    ++m_antal;
    m_sista = ny;
    Set_pael();
    return steg;
}

template <class T> int list0<T>::Insert() {
    if (m_forsta == nullptr) {
        return Add();
    }
    nod* const ny = NyNod("Minnebrist (Class list0)");
    LankaFore(ny, aktel != nullptr ? aktel : m_forsta);
    ++m_antal;
    StallPa(ny);
    return 0;
}

template <class T> int list0<T>::Delete() {
    if (m_forsta == nullptr || aktel == nullptr) {
        return -1;
    }
    nod* const bort = aktel;
    if (mark == bort) {
        mark = nullptr;
        m_markpost = nullptr;
    }
    if (bort == m_forsta) {
        m_forsta = aktel = bort->nasta;
        if (aktel != nullptr) {
            aktel->forra = nullptr;
        }
    } else if (bort->nasta != nullptr) {
        aktel = bort->nasta;
        aktel->forra = bort->forra;
        bort->forra->nasta = aktel;
    } else {
        --m_position;
        aktel = m_sista = bort->forra;
        aktel->nasta = nullptr;
    }
    --m_antal;
    Frigor(bort);
    return Set_pael();
}

template <class T> int list0<T>::Home() {
    if (m_forsta == nullptr) {
        return -1;
    }
    m_position = 1;
    return StallPa(m_forsta);
}

template <class T> int list0<T>::End() {
    if (m_forsta == nullptr) {
        return -1;
    }
    m_position = m_antal;
    return StallPa(m_sista);
}

template <class T> list0<T>* list0<T>::operator++(int) {
    if (m_forsta == nullptr || aktel == nullptr || aktel->nasta == nullptr) {
        return nullptr;
    }
    ++m_position;
    StallPa(aktel->nasta);
    return this;
}

template <class T> list0<T>* list0<T>::operator--(int) {
    if (m_forsta == nullptr || aktel == nullptr || aktel->forra == nullptr) {
        return nullptr;
    }
    --m_position;
    StallPa(aktel->forra);
    return this;
}

template <class T> int list0<T>::Set_aktel(T* post) {
    for (aktel = m_forsta; aktel != nullptr; aktel = aktel->nasta) {
        if (&aktel->post == post) {
            return Set_pael();
        }
    }
    return -1;
}

template <class T> int list0<T>::Set_mark() {
    mark = aktel;
    m_markpost = m_aktpost;
    return 0;
}

template <class T> int list0<T>::Goto_mark() {
    if (mark == nullptr) {
        return -1;
    }
    m_position = 0;
    for (nod* n = m_forsta; n != nullptr; n = n->nasta) {
        ++m_position;
        if (n == mark) {
            return StallPa(n);
        }
    }
    mark = nullptr;
    StallPa(m_forsta);
    return -1;
}

template <class T> int list0<T>::Set_pael() {
    m_aktpost = aktel != nullptr ? &aktel->post : nullptr;
    return m_aktpost != nullptr ? 0 : -1;
}

template <class T> int list0<T>::Sort_mark() {
    m_markpost = mark != nullptr ? &mark->post : nullptr;
    return m_markpost != nullptr ? 0 : -1;
}

template <class T> int list0<T>::Where(int* antal) {
    if (antal != nullptr) {
        *antal = m_antal;
    }
    return m_forsta != nullptr ? m_position : -1;
}

template <class T> bool list0<T>::Efter(nod* aktuell, nod* jamford, int nyckel) {
    aktel = aktuell;
    m_aktpost = &aktuell->post;
    mark = jamford;
    m_markpost = &jamford->post;
    return Sortval(nyckel) > 0;
}

// A merge sort over a table of the nodes. Taking the right-hand element exactly when the comparison
// is positive gives the order of a selection that replaces its candidate under the same condition:
// each pass of that selection prefers the earlier of two that compare as not after, the later
// otherwise.
template <class T> int list0<T>::Sortera(int nyckel) {
    if (m_antal < 1) {
        return -1;
    }
    if (m_antal == 1) {
        return 0;
    }
    nodtabell tabell(m_antal);
    if (tabell.noder == nullptr) {
        throw ListFel("Minnebrist (Pek-Class list0)");
    }
    nodtabell hjalp(m_antal);
    if (hjalp.noder == nullptr) {
        throw ListFel("Minnebrist (Sort-Class list0)");
    }
    std::int32_t antal = 0;
    nod* n = m_forsta;
    for (; n != nullptr && antal < m_antal; n = n->nasta) {
        tabell.noder[antal++] = n;
    }
    if (n != nullptr || antal != m_antal) {
        KastaSortfel("Sorteringfel ! %ld st av %ld", antal, m_antal);
    }

    platsminne const plats(*this);
    nod** fran = tabell.noder;
    nod** till = hjalp.noder;
    for (std::int64_t bredd = 1; bredd < antal; bredd *= 2) {
        for (std::int64_t i = 0; i < antal; i += 2 * bredd) {
            std::int64_t const mitten = i + bredd < antal ? i + bredd : antal;
            std::int64_t const slut = i + 2 * bredd < antal ? i + 2 * bredd : antal;
            Sammanfoga(fran + i, fran + mitten, fran + slut, till + i, nyckel);
        }
        nod** const bytt = fran;
        fran = till;
        till = bytt;
    }
    Lanka(fran);
    return 0;
}

template <class T>
void list0<T>::Sammanfoga(nod** a, nod** mitten, nod** slut, nod** ut, int nyckel) {
    nod** b = mitten;
    // Runs that already follow each other are copied: a sorted list costs n comparisons a round.
    if (a < mitten && b < slut && !Efter(mitten[-1], *b, nyckel)) {
        b = slut;
        for (; a < b; ++a) {
            *ut++ = *a;
        }
        return;
    }
    while (a < mitten && b < slut) {
        *ut++ = Efter(*a, *b, nyckel) ? *b++ : *a++;
    }
    while (a < mitten) {
        *ut++ = *a++;
    }
    while (b < slut) {
        *ut++ = *b++;
    }
}

template <class T> void list0<T>::Lanka(nod** noder) {
    nod* forra = nullptr;
    for (std::int32_t i = 0; i < m_antal; ++i) {
        noder[i]->forra = forra;
        if (forra != nullptr) {
            forra->nasta = noder[i];
        }
        forra = noder[i];
    }
    m_forsta = noder[0];
    m_sista = forra;
    m_sista->nasta = nullptr;
}

template <class T> int list0<T>::Omsortera(int nyckel) {
    if (m_antal < 1) {
        return -1;
    }
    if (m_antal == 1) {
        return 0;
    }
    nod* ankare = m_forsta;
    std::int32_t sorterade = 1;
    for (; ankare->nasta != nullptr; ++sorterade) {
        if (!Efter(ankare, ankare->nasta, nyckel)) {
            ankare = ankare->nasta;
            continue;
        }
        nod* const flyttas = LossaEfter(ankare);
        nod* plats = m_forsta;
        while (plats != nullptr && !Efter(plats, flyttas, nyckel)) {
            plats = plats->nasta;
        }
        if (plats == nullptr) {
            LankaEfter(flyttas, ankare);
            throw ListFel("Internt sorteringsfel i Todbs::Sortera");
        }
        LankaFore(flyttas, plats);
    }
    if (sorterade != m_antal) {
        KastaSortfel("Fel i sortering\nAntal poster %ld\nSorterade %ld", m_antal, sorterade);
    }
    return 0;
}

template <class T> typename list0<T>::nod* list0<T>::LossaEfter(nod* n) {
    nod* const ut = n->nasta;
    n->nasta = ut->nasta;
    if (ut->nasta != nullptr) {
        ut->nasta->forra = n;
    } else {
        m_sista = n;
    }
    return ut;
}

template <class T> void list0<T>::LankaFore(nod* ny, nod* n) {
    ny->forra = n->forra;
    ny->nasta = n;
    if (n->forra != nullptr) {
        n->forra->nasta = ny;
    } else {
        m_forsta = ny;
    }
    n->forra = ny;
}

template <class T> void list0<T>::LankaEfter(nod* ny, nod* n) {
    ny->forra = n;
    ny->nasta = n->nasta;
    if (n->nasta != nullptr) {
        n->nasta->forra = ny;
    } else {
        m_sista = ny;
    }
    n->nasta = ny;
}

template <class T>
void list0<T>::KastaSortfel(char const* format, std::int32_t forsta, std::int32_t andra) {
    m_text.Format(format, static_cast<long>(forsta), static_cast<long>(andra));
    throw ListFel(m_text.GetString());
}
