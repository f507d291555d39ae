// list0::Sortera on a list in random order, beside std::stable_sort of pointers to the same nodes:
// once with the list's own virtual comparison, once with the comparison written out. And the limit,
// which needs no comparison: a radix sort of keys that are taken out of the nodes. All of them
// begin and end with a linked list.
//
// Last a list of files, whose keys the library takes out itself when Init sorts it (the folder that
// is asked for is missing), beside the same with its virtual comparison.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <core/dirsort.h>
#include <core/list0.h>

namespace {

template <std::size_t size> struct Record {
    std::int32_t order;
    char rest[size - sizeof(std::int32_t)];
};

using SmallRecord = Record<32>;
using KeyFileRecord = Record<300>; // as large as cfgtype

template <class T> class List : public list0<T> {
  public:
    explicit List(int count) : m_orders(static_cast<std::size_t>(count)) {
        std::iota(m_orders.begin(), m_orders.end(), 0);
        for (int i = 0; i < count; ++i) {
            this->Ny(1, nullptr);
        }
    }
    virtual ~List() = default;

    // Another random order each time: one that came back could be learnt by the processor.
    void Shuffle() {
        std::shuffle(m_orders.begin(), m_orders.end(), m_random);
        auto const* next = m_orders.data();
        for (Node* node = this->m_forsta; node != nullptr; node = node->nasta) {
            node->post.order = *next++;
        }
    }

    // As Sortera compares: through the current record and the mark's.
    void StableSort() {
        SortNodes([this](Node* a, Node* b) {
            this->aktel = b;
            this->m_aktpost = &b->post;
            this->mark = a;
            this->m_markpost = &a->post;
            return this->Sortval(0) > 0;
        });
    }
    void StableSortInline() {
        SortNodes([](Node* a, Node* b) { return a->post.order < b->post.order; });
    }
    void RadixSort() {
        constexpr unsigned digitBits = 11;
        struct Taken {
            std::uint32_t key;
            Node* node;
        };
        std::vector<Taken> from;
        from.reserve(static_cast<std::size_t>(this->m_antal));
        for (Node* node = this->m_forsta; node != nullptr; node = node->nasta) {
            from.push_back({static_cast<std::uint32_t>(node->post.order) ^ 0x80000000U, node});
        }
        std::vector<Taken> to(from.size());
        for (unsigned shift = 0; shift < 32; shift += digitBits) {
            auto const digit = [=](Taken const& taken) {
                return taken.key >> shift & ((1U << digitBits) - 1);
            };
            std::array<std::size_t, (1U << digitBits) + 1> ends{};
            for (Taken const& taken : from) {
                ++ends[digit(taken) + 1];
            }
            std::partial_sum(ends.begin(), ends.end(), ends.begin());
            for (Taken const& taken : from) {
                to[ends[digit(taken)]++] = taken;
            }
            from.swap(to);
        }
        std::vector<Node*> nodes(from.size());
        std::transform(from.begin(), from.end(), nodes.begin(),
                       [](Taken const& taken) { return taken.node; });
        this->Lanka(nodes.data());
    }

    bool IsSorted() {
        std::int32_t next = 0;
        for (bool there = this->Home() == 0; there; there = (*this)++ != nullptr) {
            if (this->Get_aktel()->order != next++) {
                return false;
            }
        }
        return next == this->m_antal;
    }

  protected:
    int Sortval(int) override { return this->m_aktpost->order - this->m_markpost->order; }

  private:
    using Node = typename list0<T>::nod;

    std::vector<Node*> Nodes() {
        std::vector<Node*> nodes;
        nodes.reserve(static_cast<std::size_t>(this->m_antal));
        for (Node* node = this->m_forsta; node != nullptr; node = node->nasta) {
            nodes.push_back(node);
        }
        return nodes;
    }
    template <class Before> void SortNodes(Before before) {
        std::vector<Node*> nodes = Nodes();
        std::stable_sort(nodes.begin(), nodes.end(), before);
        this->Lanka(nodes.data());
    }

    std::vector<std::int32_t> m_orders;
    std::mt19937 m_random{1};
};

template <class T> void Sort(benchmark::State& state, int count, void (*sort)(List<T>&)) {
    List<T> list(count);
    for (auto _ : state) {
        state.PauseTiming();
        list.Shuffle();
        state.ResumeTiming();
        sort(list);
    }
    if (!list.IsSorted()) {
        state.SkipWithError("the list is not sorted");
    }
}

template <class T> void Register(std::string const& record) {
    using Sorting = void (*)(List<T>&);
    auto const add = [&](int count, char const* name, Sorting sort) {
        std::string const group = "Sortera/" + record + "/" + std::to_string(count);
        auto const run = [=](benchmark::State& state) { Sort<T>(state, count, sort); };
        benchmark::RegisterBenchmark((group + "/" + name).c_str(), run)
            ->Unit(benchmark::kMicrosecond);
    };
    for (int const count : {1'000, 10'000, 100'000, 1'000'000}) {
        add(count, "ours", [](List<T>& list) { list.Sortera(0); });
        add(count, "stable_sort", [](List<T>& list) { list.StableSort(); });
        add(count, "stable_sort inline", [](List<T>& list) { list.StableSortInline(); });
        add(count, "limit", [](List<T>& list) { list.RadixSort(); });
    }
}

// --- A list whose keys the library takes out -----------------------------------------------------

// Names of a number each, in random order.
template <class Files> void Fill(Files& list, std::mt19937& random) {
    constexpr int count = 100'000;
    std::vector<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    std::shuffle(numbers.begin(), numbers.end(), random);
    bool there = list.Home() == 0;
    for (int const number : numbers) {
        there ? 0 : list.Ny(1, nullptr);
        std::snprintf(list.Get_aktel()->namn, sizeof dirsorttype::namn, "%d.DBF", number);
        there = list++ != nullptr;
    }
}

bool IsSorted(CDirSort& list) {
    int next = 0;
    for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
        if (std::atoi(list.Get_aktel()->namn) != next++) {
            return false;
        }
    }
    return true;
}

// One that derives is sorted by its Sortval.
struct ComparingFiles : CDirSort {
    void StableSort() {
        std::vector<nod*> nodes;
        nodes.reserve(static_cast<std::size_t>(m_antal));
        for (nod* node = m_forsta; node != nullptr; node = node->nasta) {
            nodes.push_back(node);
        }
        std::stable_sort(nodes.begin(), nodes.end(), [this](nod* a, nod* b) {
            m_aktpost = &b->post;
            m_markpost = &a->post;
            return Sortval(1) > 0;
        });
        Lanka(nodes.data());
    }
};

template <class Files> void SortFiles(benchmark::State& state, void (*sort)(Files&)) {
    Files list;
    std::mt19937 random{1};
    for (auto _ : state) {
        state.PauseTiming();
        Fill(list, random);
        state.ResumeTiming();
        sort(list);
    }
    if (!IsSorted(list)) {
        state.SkipWithError("the list is not sorted");
    }
}

void SortAgain(CDirSort& list) {
    constexpr int byName = 1;
    list.Init("/missing/*", byName, 0, 0, 0);
}

bool const registered = [] {
    Register<SmallRecord>("32 bytes");
    Register<KeyFileRecord>("300 bytes");
    auto const add = [](char const* name, auto run) {
        benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMicrosecond);
    };
    add("Sortera/files/100000/ours", [](auto& state) { SortFiles<CDirSort>(state, SortAgain); });
    add("Sortera/files/100000/stable_sort", [](auto& state) {
        SortFiles<ComparingFiles>(state, [](ComparingFiles& list) { list.StableSort(); });
    });
    return true;
}();

} // namespace
