// Rewrites a whole file so that it holds the old content or the new one, never a half. No host
// offers this in one call. Uses Windows calls alone and works in the same way on every host.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "../compat/calls.h"

namespace kvarn {

enum class Rewritten {
    done,
    cannotOpen, // the file cannot be opened or created for writing; nothing was done
    failed      // a write, a flush or a close failed; the old content is kept, see below
};

// Writes the content beside the file, flushes it to the disk and puts it in the file's place by one
// rename. Symbolic links are followed; attributes and access rights are carried over, owner and
// group where the system lets us. The new file is private until it has the rights of the old one.
// (Another hard link to the file keeps the old content.) Two programs at once need no lock: the
// last one's content wins, whole.
//
// The file is written in place when no file can be made beside it, when the rename is refused for
// half a second though the file opens for writing (another program holds it open), and when it is
// no ordinary file. Its room is then reserved first; readers that use InFile wait until the
// writing is over, and so do other writers. When it fails the old content is put back, and when
// that fails too, the file beside it keeps the new content.
//
// A program that is killed in the middle leaves the file beside it, NAME.<process>-<number>.tmp,
// which the next writer deletes (see temporary.h).
//
// Sources for the rename: MoveFileEx in the Windows documentation (ReplaceFile is several steps,
// any of which may fail); rename in POSIX.1-2017.
Rewritten RewriteFile(char const* path, std::string_view content);

// The same, but the new file gets a name that other programs know, in the same folder, before it
// takes its place. It is whole when it gets the name, which is free or is replaced: another
// program's file of that name is whole as well, and older. When it cannot have the name nothing is
// written, and the result is failed.
Rewritten RewriteFile(char const* path, std::string_view content, char const* knownName);

class OutFile;

// What a file has besides its content.
struct Looks {
    DWORD attributes;
    FILETIME written;
};

// The new content of a file, which need not be a text in memory.
class Content {
  public:
    virtual ~Content() = default;
    // In bytes.
    virtual std::uint64_t Size() const = 0;
    // Writes all of it from its beginning; false when that fails or the source cannot be read
    // whole. Called a second time when the file has to be written in place.
    virtual bool WriteTo(OutFile& file) = 0;
    // Nothing: the file keeps its attributes and gets the present time.
    virtual std::optional<Looks> Look() const { return std::nullopt; }
};

enum class Existing { replaced, kept }; // kept: cannotOpen for a file that is there
enum class Waiting { inTurn, never };   // for another program that has the file open

// The same with a content of any kind.
Rewritten RewriteFile(char const* path, Content& content, Existing existing, Waiting waiting,
                      char const* knownName = nullptr);

// Gives a whole new file a name, in place of what had it: a link is replaced, and not followed. The
// file has the rights of another, before its content. False when that failed; the name then stays
// what it was. The content tells its looks.
bool ReplaceName(char const* path, Content& content, char const* rightsFrom);

// Whether the file exists and can be opened for writing; it is not changed.
bool OpensForWriting(char const* path);

} // namespace kvarn
