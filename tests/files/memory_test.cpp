// Memory that runs out while a file with a very long line is read or written: the result is that of
// a file that cannot be read or written, and the file holds its old content or its new one. Each
// large allocation fails in turn, alone and with all that follow.
#include <cstdlib>
#include <new>

#include "core/registry.h"
#include "host/calls.h"
#include "support/child.h"
#include "support/projekt.h"
#include "text/utf16.h"

namespace {

constexpr std::size_t largeSize = 30000; // bytes: what the long line needs, and nothing else
constexpr std::size_t longLine = 60000;

// Which of the large allocations fails.
class Shortage {
  public:
    Shortage(int failing, bool andAllAfter) : m_failing(failing), m_andAllAfter(andAllAfter) {}

    template <class Call> auto During(Call call) {
        struct Lack {
            ~Lack() { s_now = nullptr; }
        };
        Lack const lack;
        s_now = this;
        return call();
    }

    bool Happened() const { return m_seen >= m_failing; }
    static bool Fails(std::size_t size) {
        if (s_now == nullptr || size < largeSize) {
            return false;
        }
        int const number = ++s_now->m_seen;
        return number == s_now->m_failing || (s_now->m_andAllAfter && number > s_now->m_failing);
    }

  private:
    static Shortage* s_now;
    int m_failing;
    bool m_andAllAfter;
    int m_seen = 0;
};
Shortage* Shortage::s_now = nullptr;

void* Allocated(std::size_t size) {
    return Shortage::Fails(size) ? nullptr : std::malloc(size > 0 ? size : 1);
}
void* AllocatedOrThrown(std::size_t size) {
    void* const memory = Allocated(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

// Does it with each shortage, and last without one.
template <class Action> void WithEachShortage(Action action) {
    for (bool const andAllAfter : {false, true}) {
        bool happened = true;
        for (int failing = 1; happened; ++failing) {
            SCOPED_TRACE(std::to_string(failing) + (andAllAfter ? " and all after" : ""));
            ASSERT_LT(failing, 200);
            Shortage shortage(failing, andAllAfter);
            action(shortage);
            happened = shortage.Happened();
            ASSERT_FALSE(testing::Test::HasFailure());
            ASSERT_TRUE(happened || failing > 1); // there is one to fail
        }
    }
}

} // namespace

void* operator new(std::size_t size) {
    return AllocatedOrThrown(size);
}
void* operator new[](std::size_t size) {
    return AllocatedOrThrown(size);
}
void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
    return Allocated(size);
}
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
    return Allocated(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

class MemoryTest : public ProjektTest {
  protected:
    CKvarnInst Inst() {
        CKvarnInst inst;
        inst.Init(&m_ini, &m_projekt);
        return inst;
    }
    // A file of the project's is written, which says whether it succeeded: with memory enough, and
    // with each shortage. It then holds what its result says, and nothing else is left.
    template <class Action>
    void ExpectOldOrNew(std::string const& name, std::string const& before, Action write) {
        Write(name, before);
        ASSERT_TRUE(write());
        std::string const after = Read(name);
        ASSERT_FALSE(after == before);
        auto const names = NamesIn(m_folder / "projekt");
        int refused = 0;
        WithEachShortage([&](Shortage& shortage) {
            Write(name, before);
            bool const written = shortage.During(write);
            EXPECT_TRUE(written || shortage.Happened());
            EXPECT_TRUE(Read(name) == (written ? after : before));
            EXPECT_EQ(NamesIn(m_folder / "projekt"), names);
            refused += written ? 0 : 1;
        });
        EXPECT_GT(refused, 0);
    }

    std::string const m_line = std::string(longLine, 'x');
    Boxes const m_boxes;
};

TEST_F(MemoryTest, AnIniFile) {
    std::string const ini = "[S]\r\nL=" + m_line + "\r\nK=old\r\n";
    std::string const path = Api("x.ini");
    Write("x.ini", ini);
    std::string value(longLine + 1, '\0');
    WithEachShortage([&](Shortage& shortage) {
        DWORD const length = shortage.During([&] {
            return GetPrivateProfileStringA("S", "L", "none", value.data(), longLine + 1,
                                            path.c_str());
        });
        EXPECT_TRUE(value.substr(0, length) == (shortage.Happened() ? "none" : m_line));
    });
    ExpectOldOrNew("x.ini", ini, [&] {
        return WritePrivateProfileStringA("S", "K", "new", path.c_str()) != FALSE;
    });
}

TEST_F(MemoryTest, AKeyFile) {
    Write("KVARNBOK.PAR", "HSKALA=" + m_line + "\r\nVSKALA=333\r\n");
    WithEachShortage([&](Shortage& shortage) {
        CKvarnInst inst = Inst();
        int const value =
            shortage.During([&] { return inst.ReadKeyInt("KVARNBOK.PAR", "VSKALA", 0); });
        EXPECT_TRUE(value == 333 || shortage.Happened());
    });
    ExpectOldOrNew("KVARNBOK.PAR", "HSKALA=" + m_line + "\r\nVSKALA=333\r\n",
                   [&] { return Inst().WriteKey("KVARNBOK.PAR", "VSKALA", 444) == 0; });
}

TEST_F(MemoryTest, ACodeFile) {
    std::string const file = "head " + m_line + "\r\n*\r\nA 1\r\n";
    Write("KODFIL.DAT", file);
    WithEachShortage([&](Shortage& shortage) {
        char code[256];
        char text[256];
        CKvarnInst inst = Inst();
        int const read = shortage.During([&] { return inst.KodfilDatRead(code, text); });
        EXPECT_EQ(read, shortage.Happened() ? -1 : 0);
        while (inst.KodfilDatRead(code, text) == 0) { // the end ends the pass
        }
        Boxes::Shown().clear();
    });
    ExpectOldOrNew("KODFIL.DAT", file, [&] {
        Inst().KodfilDatWrite(3, "NY", "kod");
        bool const written = Boxes::Shown().empty();
        Boxes::Shown().clear();
        return written;
    });
}

TEST_F(MemoryTest, TheRegistry) {
    Variable const store("KVARNPROG_REGISTRY", (m_folder / "projekt/store.reg").string());
    CRegistry registry;
    ASSERT_EQ(registry.SetKey("Software\\KvarnProgTest", 1, KEY_ALL_ACCESS), 1);
    ASSERT_EQ(registry.WriteInt("N", 1), 1);
    std::string const small = Read("store.reg");
    std::string const large = small + kvarn::ToBytes(kvarn::ToUtf16("; " + m_line + "\r\n"));
    WithEachShortage([&](Shortage& shortage) {
        Write("store.reg", small); // so that the other has to be read anew
        EXPECT_EQ(registry.ReadInt("N", 0), 1);
        Write("store.reg", large);
        int const value = shortage.During([&] { return registry.ReadInt("N", 0); });
        EXPECT_EQ(value, shortage.Happened() ? 0 : 1);
    });
    ExpectOldOrNew("store.reg", large, [&] { return registry.WriteInt("N", 2) == 1; });
}

} // namespace
