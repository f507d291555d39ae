// Rewriting a whole file so that it holds the old content or the new, never a half.
#pragma once

#include <string_view>

namespace kvarn {

enum class Rewritten {
    done,
    cannotOpen, // the file cannot be opened or created for writing; nothing was done
    failed      // a write, a flush or a close failed; an ordinary file keeps its old content
};

// Writes the content beside the file, flushes it to the disk and replaces the file by it in one
// step. Links are followed; attributes, mode and owner are carried over. Where no file can be made
// beside it, or the replacement is refused though the file opens for writing (another program holds
// it open), the file is rewritten in place, and the new content is kept beside it until that has
// succeeded. What is not an ordinary file is written in place.
//
// On the replacement: MoveFileEx in the Windows documentation (one rename on one volume, where
// ReplaceFile combines several steps); rename in POSIX.1-2017.
Rewritten RewriteFile(char const* path, std::string_view content);

// Whether the file exists and can be opened for writing; it is not changed.
bool OpensForWriting(char const* path);

} // namespace kvarn
