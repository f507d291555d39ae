// The one file that a CKvarnInst reads or writes record by record: which kind of pass is under way,
// and which way it goes. What happens to a pass that another call meets is decided here.
#pragma once

#include <span>
#include <string_view>

#include "../files/textfil.h"
#include "../formats/miljkod.h"
#include "../host/host.h"

namespace kvarn {

enum class PassKind { kodfil, linkod, stampel, miljkod };

// The files that could not be read to their end, by their paths, until they are: one for each kind,
// and for each section of the last kind, whose sections are read by a pass each.
using NotRead = CString[3 + miljkodSections];

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
    // The caption is that of the box about a file that cannot be read to its end.
    ReadPass(CodePass*& pass, PassKind kind, NotRead& notRead, char const* caption,
             int section = 0);

    // No pass is under way: Open comes first.
    bool IsFree() const { return m_pass == nullptr; }
    // Opens the file; an empty path opens none. False after the message that it cannot be opened.
    bool Open(char const* path);

    // Null where this pass is not under way.
    TextReader* File();
    // The next line of a file that a star line ends, and closes it at its end; false there, and
    // where this pass is not under way.
    bool NextLine(std::string_view& line);
    // Closes the file where this pass is under way, after the message when it could not be read so
    // far.
    void End();

  private:
    void CannotRead(char const* path);

    CodePass*& m_pass;
    PassKind m_kind;
    CString& m_notRead;
    char const* m_caption;
};

// A writing pass of one kind, for one call. Any other pass is left alone, but for Begin.
class WritePass {
  public:
    // Does not begin to write the file that could not be read: what the caller has of it is not
    // all.
    WritePass(CodePass*& pass, PassKind kind, NotRead& notRead)
        : m_pass(pass), m_kind(kind), m_notRead(notRead) {}

    // Closes whatever is open, and empties the file that was found, or makes the title block that
    // the caller names; an empty path makes none. False when it cannot be opened.
    bool Begin(char const* path);
    // The same at the end of a file that the caller has made.
    bool BeginAtEnd(char const* path);
    bool MayBegin(char const* path) const;
    bool IsUnderWay() const;
    // False when it failed, or this pass is not under way; so too End, which closes the file.
    bool Write(std::string_view lines);
    bool End();

  private:
    bool Open(char const* path, Writes writes);
    std::span<CString> NotReadOfKind() const;

    CodePass*& m_pass;
    PassKind m_kind;
    NotRead& m_notRead;
};

} // namespace kvarn
