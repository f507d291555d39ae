// The library's one container: a doubly linked list of plain records with a current element, one
// mark, and sorting by a virtual comparison.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <stdexcept>
#include <type_traits>

#include "../export.h"
#include "../host/host.h"

// Thrown by the lists: out of memory and internal errors. what() is the exact text to show.
class KVARNPROG_API ListFel : public std::runtime_error {
  public:
    // The text is copied.
    explicit ListFel(char const* text) : std::runtime_error(text) {}
    // The same text.
    ListFel(ListFel const&) = default;
    // Gets the same text.
    ListFel& operator=(ListFel const&) = default;
    ~ListFel() override;
};

// A list of records of type T. Records are plain (trivially copyable), fixed in size and copied
// byte-wise; each lies in one heap block with its two links.
//
// Results are 0 for success and -1 for an element that does not exist or an empty list, unless the
// operation says otherwise. Every operation that moves the current element refreshes the current
// record. A list is neither copied nor assigned: both throw.
//
//     for (int end = list.Home(); end == 0; end = list++ != nullptr ? 0 : -1)
//         use(list.Get_aktel());
template <class T> class list0 {
    static_assert(std::is_trivially_copyable<T>::value, "records are copied byte-wise");

  public:
    // An empty list.
    list0();

    // Throws ListFel "Internt fel (Initiering list0)".
    list0(list0 const&);

    // Throws ListFel "Internt fel (Tilldelning list0)": nothing is assigned.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
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

    // The current element becomes the first (position 1).
    int Home();
    // The current element becomes the last (position = count).
    int End();

    // Moves the current element one step forward. Returns this list, or null when the list is empty
    // or there is no element in that direction; nothing moves then.
    list0* operator++(int);
    // The same backward.
    list0* operator--(int);

    // The current record, owned by the list and valid until it is deleted; null without a current
    // element.
    T* Get_aktel();

    // Makes current the element whose record lies at exactly this address; an equal record
    // elsewhere is not found. The position is not updated. After -1 the list has no current
    // element until it is positioned again, for example by Home.
    int Set_aktel(T* post);

    // Makes current the first element whose record `matches` (T const&) -> bool answers with true.
    // Returns 0, or -1 when there is none; the last element is then current.
    template <class Matches> KVARNPROG_LOCAL int Find(Matches matches);

    // Puts the mark on the current element. Returns 0 always.
    int Set_mark();

    // Moves the current element to the mark. Returns -1 without a mark. A mark that is no longer
    // in the list is cleared, the first element becomes current, and -1 is returned.
    int Goto_mark();

    // Refreshes the current record from the current element; -1 (and no record) without one.
    int Set_pael();

    // Returns the position of the current element, counted from 1 as last maintained, or -1 when
    // the list is empty. Stores the number of records in *count when count is not null.
    int Where(int* count);

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
    // contradicts itself; the record stays where it was) and
    // "Fel i sortering\nAntal poster %ld\nSorterade %ld" when the records do not match their count.
    int Omsortera(int nyckel);

    // A zero-filled record, the content of a new one.
    static T m_noll;

  protected:
    // An element: a record and its neighbours.
    struct nod {
        nod* forra; // the one before; null at the beginning
        nod* nasta; // the next; null at the end
        T post;     // the record
    };

    // Compares the current record (m_aktpost) with the mark record (m_markpost) under the key:
    // positive when the current record must come after the mark record.
    virtual int Sortval(int nyckel);

    // Refreshes the mark record from the mark; -1 (and no record) without one.
    int Sort_mark();

    // Links the elements in the order of the table, which holds each of them once.
    void Lanka(nod** nodes);

    nod* m_forsta = nullptr; // the first element
    // The last element. Not cleared with the last record: the list is empty when m_forsta is null.
    nod* m_sista = nullptr;
    nod* aktel = nullptr;                                               // the current element
    nod* mark = nullptr;                                                // the marked element
    std::int32_t m_nodstorlek = static_cast<std::int32_t>(sizeof(nod)); // bytes of an element
    std::int32_t m_antal = 0;                                           // count
    std::int32_t m_position = 0; // of the current element, counted from 1
    CString m_text;              // of the last sort failure
    T* m_aktpost = nullptr;      // the current record
    T* m_markpost = nullptr;     // the mark record

  private:
    nod* NyNod(char const* memoryError) const;
    static void Frigor(nod* n);
    // Makes an element current; null leaves the list without a current element.
    int StallPa(nod* n);
    // True when the current element must come after the mark.
    bool Efter(nod* current, nod* candidate, int nyckel);
    // Takes the element after n out of the list; puts an element in before n.
    void LossaEfter(nod* n);
    void LankaFore(nod* added, nod* n);
    // Merges the two sorted runs [a, middle) and [middle, end) of the node table into `out`.
    void Sammanfoga(nod** a, nod** middle, nod** end, nod** out, int nyckel);
    [[noreturn]] void KastaSortfel(char const* format, std::int32_t first, std::int32_t second);

    // An array that is freed with its scope; null when memory is out.
    struct nodtabell {
        explicit nodtabell(std::int32_t count)
            : nodes(new (std::nothrow) nod*[static_cast<std::size_t>(count)]) {}
        ~nodtabell() { delete[] nodes; }
        nodtabell(nodtabell const&) = delete;
        nodtabell& operator=(nodtabell const&) = delete;
        nod** nodes;
    };

    // Puts the current element and the mark back where they were, also when a Sortval throws.
    struct platsminne {
        explicit platsminne(list0& l) : list(l), current(l.aktel), marked(l.mark) {}
        ~platsminne() {
            list.StallPa(current);
            list.mark = marked;
            list.Sort_mark();
        }
        platsminne(platsminne const&) = delete;
        platsminne& operator=(platsminne const&) = delete;
        list0& list;
        nod* current;
        nod* marked;
    };
};

#include "list0.inl"
