// Rewriting a whole file so that it holds the old content or the new, never a half: what no host
// offers in one call. Written with the Windows calls alone, the same on every host.
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
// group where the system lets us. (Another hard link to the file keeps the old content.)
//
// Where no file can be made beside it, or the rename is refused though the file opens for writing
// (another program holds it open), or it is no ordinary file, it is written in place: its room is
// reserved first, and the new content is kept beside it, where it could be made, until that has
// succeeded. Two programs that write in place take turns.
//
// A program that is killed in the middle leaves the file beside it: NAME.<process>-<number>.tmp.
//
// On the rename: MoveFileEx in the Windows documentation (where ReplaceFile combines several
// steps); rename in POSIX.1-2017.
Rewritten RewriteFile(char const* path, std::string_view content);

// The same with a name for the file beside it, in the same folder, by which other programs know it:
// whoever makes it is the one who writes. One that is there already is waited for, half a second,
// and then taken over, since its writer was killed. Where it cannot be made nothing is written, and
// the result is failed.
Rewritten RewriteFile(char const* path, std::string_view content, char const* besidePath);

class OutFile;

// What a file looks like beside its content.
struct Looks {
    DWORD attributes;
    FILETIME written;
};

// What a file is to hold, where that is more than a text in memory.
class Content {
  public:
    virtual ~Content() = default;
    // In bytes.
    virtual std::uint64_t Size() const = 0;
    // Writes all of it from its beginning; false when it cannot be had whole. Asked for once more
    // where the file is written in place after all.
    virtual bool WriteTo(OutFile& file) = 0;
    // Nothing: as the file looked before, and changed now.
    virtual std::optional<Looks> Look() const { return std::nullopt; }
};

enum class Existing { replaced, kept }; // kept: cannotOpen for a file that is there
enum class Waiting { inTurn, never };   // for another program that has the file open

// The same with a content of any kind.
Rewritten RewriteFile(char const* path, Content& content, Existing existing, Waiting waiting);

// Whether the file exists and can be opened for writing; it is not changed.
bool OpensForWriting(char const* path);

} // namespace kvarn
