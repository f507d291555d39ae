// list0::Sortera on a list in random order, beside std::stable_sort of pointers to the same nodes:
// once with the list's own virtual comparison, once with the comparison written out. All three
// begin and end with a linked list.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

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

    template <class Before> void SortNodes(Before before) {
        std::vector<Node*> nodes;
        nodes.reserve(static_cast<std::size_t>(this->m_antal));
        for (Node* node = this->m_forsta; node != nullptr; node = node->nasta) {
            nodes.push_back(node);
        }
        std::stable_sort(nodes.begin(), nodes.end(), before);
        Node* last = nullptr;
        for (Node* const node : nodes) {
            node->forra = last;
            (last != nullptr ? last->nasta : this->m_forsta) = node;
            last = node;
        }
        last->nasta = nullptr;
        this->m_sista = last;
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
    for (int const count : {1'000, 10'000, 100'000}) {
        add(count, "ours", [](List<T>& list) { list.Sortera(0); });
        add(count, "stable_sort", [](List<T>& list) { list.StableSort(); });
        add(count, "stable_sort inline", [](List<T>& list) { list.StableSortInline(); });
    }
}

bool const registered = [] {
    Register<SmallRecord>("32 bytes");
    Register<KeyFileRecord>("300 bytes");
    return true;
}();

} // namespace
