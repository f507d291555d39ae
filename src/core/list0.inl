// The members of list0; list0.h includes this file at its end.
#pragma once

// All of them stand outside the class: GCC does not export the inline members of a template,
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
    m_markpost = nullptr;
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
    nod* forra = noder[0];
    forra->forra = nullptr;
    for (std::int32_t i = 1; i < m_antal; ++i) {
        noder[i]->forra = forra;
        forra->nasta = noder[i];
        forra = noder[i];
    }
    forra->nasta = nullptr;
    m_forsta = noder[0];
    m_sista = forra;
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
        // Its place is found before it is taken out: a Sortval that throws loses no record.
        nod* const flyttas = ankare->nasta;
        nod* plats = m_forsta;
        while (plats != nullptr && (plats == flyttas || !Efter(plats, flyttas, nyckel))) {
            plats = plats->nasta;
        }
        if (plats == nullptr) {
            throw ListFel("Internt sorteringsfel i Todbs::Sortera");
        }
        LossaEfter(ankare);
        LankaFore(flyttas, plats);
    }
    if (sorterade != m_antal) {
        KastaSortfel("Fel i sortering\nAntal poster %ld\nSorterade %ld", m_antal, sorterade);
    }
    return 0;
}

template <class T> void list0<T>::LossaEfter(nod* n) {
    nod* const ut = n->nasta;
    n->nasta = ut->nasta;
    if (ut->nasta != nullptr) {
        ut->nasta->forra = n;
    } else {
        m_sista = n;
    }
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

template <class T>
void list0<T>::KastaSortfel(char const* format, std::int32_t forsta, std::int32_t andra) {
    m_text.Format(format, static_cast<long>(forsta), static_cast<long>(andra));
    throw ListFel(m_text.GetString());
}
