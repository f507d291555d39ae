// The one file that a CKvarnInst reads or writes record by record: which kind of pass is under way,
// and which way it goes. What happens to a pass that another call meets is decided here.
#pragma once

#include <string_view>

#include "../files/textfil.h"

namespace kvarn {

enum class Passlag { kodfil, miljkod, linkod, stampel };

// Shared by the copies of an object, which see the end of a pass whoever ends it.
class PassFil;

// Another holder of the same pass; null stays null.
PassFil* Dela(PassFil* fil);
// One holder less. A pass that nobody holds keeps its file open.
void Slapp(PassFil*& plats);
// Closes the file of whatever pass is under way. False when a write failed with that.
bool StangPass(PassFil*& plats);
// The same only where that pass is on the file of this path, which is about to be replaced or
// deleted: the host may keep the old file under its name as long as it is open.
void ClosePassOn(PassFil*& plats, char const* path);

// A reading pass of one kind, for one call. A reading pass of another kind is closed at once; one
// that writes is left alone, and nothing is read.
class Laspass {
  public:
    Laspass(PassFil*& plats, Passlag slag);

    // No pass is under way: Oppna comes first.
    bool Ledig() const { return m_plats == nullptr; }
    // Opens the file; an empty path opens none. False after the message that it cannot be opened.
    bool Oppna(char const* path, char const* rubrik);

    // Null where this pass is not under way.
    TextReader* Fil();
    // The next line; false at the end, and where this pass is not under way.
    bool NastaRad(std::string_view& rad);
    // The same for a file that a star line ends; closes it at its end.
    bool NastaPost(std::string_view& rad);
    // Closes the file where this pass is under way.
    void Avsluta();

  private:
    PassFil*& m_plats;
    Passlag m_slag;
};

// A writing pass of one kind, for one call. Any other pass is left alone, but for Borja.
class Skrivpass {
  public:
    Skrivpass(PassFil*& plats, Passlag slag) : m_plats(plats), m_slag(slag) {}

    // Closes whatever is open, and makes the file anew; an empty path makes none. False when it
    // cannot be made.
    bool Borja(char const* path);
    bool Pagar() const;
    // False when it failed, or this pass is not under way; so too Avsluta, which closes the file.
    bool Skriv(std::string_view rader);
    bool Avsluta();

  private:
    PassFil*& m_plats;
    Passlag m_slag;
};

} // namespace kvarn
