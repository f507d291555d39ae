#include "passfil.h"

#include <memory>
#include <string>
#include <utility>
#include <variant>

#include "../files/pathparts.h"
#include "oppningsfel.h"

namespace kvarn {

class PassFil {
  public:
    template <class Vag>
    PassFil(Passlag slag, std::in_place_type_t<Vag> vag, char const* path)
        : m_slag(slag), m_path(path), m_fil(vag, path) {}

    Passlag Slag() const { return m_slag; }
    std::string const& Path() const { return m_path; }
    // The file, where it goes that way: TextReader or TextWriter.
    template <class Vag> Vag* Som() { return std::get_if<Vag>(&m_fil); }
    bool ArStangd() const { return std::holds_alternative<std::monostate>(m_fil); }

    bool Stang() {
        auto* const skrivare = Som<TextWriter>();
        bool const skriven = skrivare == nullptr || skrivare->Close();
        m_fil.emplace<std::monostate>();
        return skriven;
    }

    void FlerDelar() { ++m_delare; }
    // True when it was the last.
    bool FarreDelar() { return --m_delare == 0; }

  private:
    Passlag m_slag;
    std::string m_path;
    std::variant<std::monostate, TextReader, TextWriter> m_fil;
    int m_delare = 1;
};

namespace {

// Null where the file cannot be opened that way.
template <class Vag> PassFil* Oppnad(Passlag slag, char const* path) {
    auto fil = std::make_unique<PassFil>(slag, std::in_place_type<Vag>, path);
    return fil->template Som<Vag>()->IsOpen() ? fil.release() : nullptr;
}

} // namespace

PassFil* Dela(PassFil* fil) {
    if (fil != nullptr) {
        fil->FlerDelar();
    }
    return fil;
}

void Slapp(PassFil*& plats) {
    if (plats != nullptr && plats->FarreDelar() && plats->ArStangd()) {
        delete plats;
    }
    plats = nullptr;
}

bool StangPass(PassFil*& plats) {
    bool const skriven = plats == nullptr || plats->Stang();
    Slapp(plats);
    return skriven;
}

void ClosePassOn(PassFil*& plats, char const* path) {
    if (plats != nullptr && SamePath(plats->Path(), path)) {
        StangPass(plats);
    }
}

Laspass::Laspass(PassFil*& plats, Passlag slag) : m_plats(plats), m_slag(slag) {
    bool const avslutad = plats != nullptr && plats->ArStangd(); // by another holder
    bool const annan =
        plats != nullptr && plats->Som<TextReader>() != nullptr && plats->Slag() != slag;
    if (avslutad || annan) {
        StangPass(plats);
    }
}

bool Laspass::Oppna(char const* path, char const* rubrik) {
    if (*path == '\0') {
        return true;
    }
    m_plats = Oppnad<TextReader>(m_slag, path);
    if (m_plats == nullptr) {
        KanInteLasa(path, rubrik);
    }
    return m_plats != nullptr;
}

TextReader* Laspass::Fil() {
    return m_plats != nullptr && m_plats->Slag() == m_slag ? m_plats->Som<TextReader>() : nullptr;
}

bool Laspass::NastaRad(std::string_view& rad) {
    TextReader* const fil = Fil();
    return fil != nullptr && fil->ReadLine(rad);
}

bool Laspass::NastaPost(std::string_view& rad) {
    bool const finns = NastaRad(rad) && !IsStarLine(rad);
    if (!finns) {
        Avsluta();
    }
    return finns;
}

void Laspass::Avsluta() {
    if (Fil() != nullptr) {
        StangPass(m_plats);
    }
}

bool Skrivpass::Borja(char const* path) {
    StangPass(m_plats);
    if (*path == '\0') {
        return true;
    }
    m_plats = Oppnad<TextWriter>(m_slag, path);
    return m_plats != nullptr;
}

bool Skrivpass::Pagar() const {
    return m_plats != nullptr && m_plats->Slag() == m_slag && m_plats->Som<TextWriter>() != nullptr;
}

bool Skrivpass::Skriv(std::string_view rader) {
    return Pagar() && m_plats->Som<TextWriter>()->Write(rader);
}

bool Skrivpass::Avsluta() {
    return Pagar() && StangPass(m_plats);
}

} // namespace kvarn
