// The members of list0; list0.h includes this file at its end.
#pragma once

// All members are defined outside the class: GCC does not export the inline members of a template,
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
        nod* const next = n->nasta;
        Frigor(n);
        n = next;
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

template <class T> typename list0<T>::nod* list0<T>::NyNod(char const* memoryError) const {
    // Without std::bad_alloc: clients catch ListFel alone.
    void* const block = ::operator new(static_cast<std::size_t>(m_nodstorlek), std::nothrow);
    if (block == nullptr) {
        throw ListFel(memoryError);
    }
    return ::new (block) nod; // links and record are set by the caller
}

template <class T> int list0<T>::Ny(int var, T* post) {
    var == 1 ? Add() : Insert();
    std::memcpy(m_aktpost, post != nullptr ? post : &m_noll, sizeof(T));
    return 0;
}

template <class T> int list0<T>::Add() {
    nod* const added = NyNod("Minnesbrist (Class list0)");
    added->nasta = nullptr;
    if (m_forsta == nullptr) {
        added->forra = nullptr;
        m_forsta = aktel = added;
        m_position = 1;
    } else {
        added->forra = m_sista;
        m_sista->nasta = added;
        if (aktel == nullptr) { // lost by Set_aktel
            aktel = m_forsta;
            m_position = 1;
        }
    }
    int steps = 0;
    for (; aktel != added; aktel = aktel->nasta) {
        ++steps;
    }
    m_position += steps;
    ++m_antal;
    m_sista = added;
    Set_pael();
    return steps;
}

template <class T> int list0<T>::Insert() {
    if (m_forsta == nullptr) {
        return Add();
    }
    nod* const added = NyNod("Minnebrist (Class list0)");
    LankaFore(added, aktel != nullptr ? aktel : m_forsta);
    ++m_antal;
    StallPa(added);
    return 0;
}

template <class T> int list0<T>::Delete() {
    if (m_forsta == nullptr || aktel == nullptr) {
        return -1;
    }
    nod* const removed = aktel;
    if (mark == removed) {
        mark = nullptr;
        m_markpost = nullptr;
    }
    if (removed == m_forsta) {
        m_forsta = aktel = removed->nasta;
        if (aktel != nullptr) {
            aktel->forra = nullptr;
        }
    } else if (removed->nasta != nullptr) {
        aktel = removed->nasta;
        aktel->forra = removed->forra;
        removed->forra->nasta = aktel;
    } else {
        --m_position;
        aktel = m_sista = removed->forra;
        aktel->nasta = nullptr;
    }
    --m_antal;
    Frigor(removed);
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

template <class T> template <class Matches> int list0<T>::Find(Matches matches) {
    if (Home() != 0) {
        return -1;
    }
    while (!matches(static_cast<T const&>(aktel->post))) {
        if (aktel->nasta == nullptr) {
            Set_pael();
            return -1;
        }
        aktel = aktel->nasta;
        ++m_position;
    }
    return Set_pael();
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

template <class T> int list0<T>::Where(int* count) {
    if (count != nullptr) {
        *count = m_antal;
    }
    return m_forsta != nullptr ? m_position : -1;
}

template <class T> bool list0<T>::Efter(nod* current, nod* candidate, int nyckel) {
    aktel = current;
    m_aktpost = &current->post;
    mark = candidate;
    m_markpost = &candidate->post;
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
    nodtabell table(m_antal);
    if (table.nodes == nullptr) {
        throw ListFel("Minnebrist (Pek-Class list0)");
    }
    nodtabell spare(m_antal);
    if (spare.nodes == nullptr) {
        throw ListFel("Minnebrist (Sort-Class list0)");
    }
    std::int32_t count = 0;
    nod* n = m_forsta;
    for (; n != nullptr && count < m_antal; n = n->nasta) {
        table.nodes[count++] = n;
    }
    if (n != nullptr || count != m_antal) {
        KastaSortfel("Sorteringfel ! %ld st av %ld", count, m_antal);
    }

    platsminne const place(*this);
    nod** from = table.nodes;
    nod** to = spare.nodes;
    for (std::int64_t width = 1; width < count; width *= 2) {
        for (std::int64_t i = 0; i < count; i += 2 * width) {
            std::int64_t const middle = i + width < count ? i + width : count;
            std::int64_t const end = i + 2 * width < count ? i + 2 * width : count;
            Sammanfoga(from + i, from + middle, from + end, to + i, nyckel);
        }
        nod** const swapped = from;
        from = to;
        to = swapped;
    }
    Lanka(from);
    return 0;
}

template <class T>
void list0<T>::Sammanfoga(nod** a, nod** middle, nod** end, nod** out, int nyckel) {
    nod** b = middle;
    // Runs that already follow each other are copied: a sorted list costs n comparisons a round.
    if (a < middle && b < end && !Efter(middle[-1], *b, nyckel)) {
        b = end;
        for (; a < b; ++a) {
            *out++ = *a;
        }
        return;
    }
    while (a < middle && b < end) {
        *out++ = Efter(*a, *b, nyckel) ? *b++ : *a++;
    }
    while (a < middle) {
        *out++ = *a++;
    }
    while (b < end) {
        *out++ = *b++;
    }
}

template <class T> void list0<T>::Lanka(nod** nodes) {
    nod* previous = nodes[0];
    previous->forra = nullptr;
    for (std::int32_t i = 1; i < m_antal; ++i) {
        nodes[i]->forra = previous;
        previous->nasta = nodes[i];
        previous = nodes[i];
    }
    previous->nasta = nullptr;
    m_forsta = nodes[0];
    m_sista = previous;
}

template <class T> int list0<T>::Omsortera(int nyckel) {
    if (m_antal < 1) {
        return -1;
    }
    if (m_antal == 1) {
        return 0;
    }
    nod* anchor = m_forsta;
    std::int32_t sorted = 1;
    for (; anchor->nasta != nullptr; ++sorted) {
        if (!Efter(anchor, anchor->nasta, nyckel)) {
            anchor = anchor->nasta;
            continue;
        }
        // Its place is found before it is taken out: a Sortval that throws loses no record.
        nod* const moved = anchor->nasta;
        nod* place = m_forsta;
        while (place != nullptr && (place == moved || !Efter(place, moved, nyckel))) {
            place = place->nasta;
        }
        if (place == nullptr) {
            throw ListFel("Internt sorteringsfel i Todbs::Sortera");
        }
        LossaEfter(anchor);
        LankaFore(moved, place);
    }
    if (sorted != m_antal) {
        KastaSortfel("Fel i sortering\nAntal poster %ld\nSorterade %ld", m_antal, sorted);
    }
    return 0;
}

template <class T> void list0<T>::LossaEfter(nod* n) {
    nod* const out = n->nasta;
    n->nasta = out->nasta;
    if (out->nasta != nullptr) {
        out->nasta->forra = n;
    } else {
        m_sista = n;
    }
}

template <class T> void list0<T>::LankaFore(nod* added, nod* n) {
    added->forra = n->forra;
    added->nasta = n;
    if (n->forra != nullptr) {
        n->forra->nasta = added;
    } else {
        m_forsta = added;
    }
    n->forra = added;
}

template <class T>
void list0<T>::KastaSortfel(char const* format, std::int32_t first, std::int32_t second) {
    m_text.Format(format, static_cast<long>(first), static_cast<long>(second));
    throw ListFel(m_text.GetString());
}
