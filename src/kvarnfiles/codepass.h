// The one file that a CKvarnInst reads or writes record by record: which kind of pass is under way,
// and which way it goes. What happens to a pass that another call meets is decided here.
#pragma once

#include <string_view>

#include "../files/textfil.h"

namespace kvarn {

enum class PassKind { kodfil, miljkod, linkod, stampel };

// Shared by the copies of an object, which see the end of a pass whoever ends it.
class CodePass;

// Another holder of the same pass; null stays null.
CodePass* Share(CodePass* pass);
// One holder less. A pass that nobody holds keeps its file open.
void Release(CodePass*& pass);
// Closes the file of whatever pass is under way. False when a write failed with that.
bool ClosePass(CodePass*& pass);
// The same only where that pass is on the file of this path, which is about to be replaced or
// deleted: the host may keep the old file under its name as long as it is open.
void ClosePassOn(CodePass*& pass, char const* path);

// A reading pass of one kind, for one call. A reading pass of another kind is closed at once; one
// that writes is left alone, and nothing is read.
class ReadPass {
  public:
    ReadPass(CodePass*& pass, PassKind kind);

    // No pass is under way: Open comes first.
    bool IsFree() const { return m_pass == nullptr; }
    // Opens the file; an empty path opens none. False after the message that it cannot be opened.
    bool Open(char const* path, char const* caption);

    // Null where this pass is not under way.
    TextReader* File();
    // The next line of a file that a star line ends, and closes it at its end; false there, and
    // where this pass is not under way.
    bool NextLine(std::string_view& line);
    // Closes the file where this pass is under way.
    void End();

  private:
    CodePass*& m_pass;
    PassKind m_kind;
};

// A writing pass of one kind, for one call. Any other pass is left alone, but for Begin.
class WritePass {
  public:
    WritePass(CodePass*& pass, PassKind kind) : m_pass(pass), m_kind(kind) {}

    // Closes whatever is open, and makes the file anew; an empty path makes none. False when it
    // cannot be made.
    bool Begin(char const* path);
    bool IsUnderWay() const;
    // False when it failed, or this pass is not under way; so too End, which closes the file.
    bool Write(std::string_view lines);
    bool End();

  private:
    CodePass*& m_pass;
    PassKind m_kind;
};

} // namespace kvarn
