#include "regfile.h"

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <sys/stat.h>

#include "../../compat/win32/files.h"
#include "../../compat/win32/filestamp.h"
#include "../../compat/win32/hostfile.h"
#include "../../compat/win32/paths.h"
#include "../../compat/win32/turn.h"
#include "../../files/filerewrite.h"
#include "../../files/infile.h"

namespace kvarn {
namespace {

// The store's file as a Windows path, from the drive that its folder is; empty when its own name
// has letters outside code page 1252.
std::string StorePath() {
    auto const name = FromHostPath(std::filesystem::path(RegistryFile()).filename().string());
    return name && !name->empty() ? std::string{registryDrive, ':'} + *name : "";
}

// Nothing for a file that may change now and keep its stamp.
std::optional<FileStamp> StampOf(std::string const& path) {
    std::int64_t const now = NanosecondsNow();
    struct stat status {};
    bool const known = FileStatus(path.c_str(), status);
    FileStamp const stamp(status);
    return known && stamp.IsSettled(now) ? std::optional(stamp) : std::nullopt;
}

// The file as it was read last.
struct Memory {
    std::mutex inUse;
    std::optional<FileStamp> stamp; // nothing: its bytes must be read to tell
    std::string bytes;
    RegStore store;
};

Memory& LastRead() {
    static Memory memory;
    return memory;
}

// Null for a file that exists and cannot be read.
RegStore const* Load(std::string const& path, Memory& memory) {
    std::optional<FileStamp> const stamp = StampOf(path); // before the file is read: it may change
    if (stamp && stamp == memory.stamp) {
        return &memory.store;
    }
    std::optional<std::string> read = WholeFileIfThere(path.c_str());
    if (!read) {
        return nullptr;
    }
    std::string bytes = *std::move(read);
    if (bytes != memory.bytes) {
        memory.store = RegStore(bytes);
        memory.bytes = std::move(bytes);
    }
    memory.stamp = stamp;
    return &memory.store;
}

} // namespace

LSTATUS ReadStore(std::function<LSTATUS(RegStore const&)> const& look) try {
    Memory& memory = LastRead();
    std::lock_guard const inUse(memory.inUse);
    RegStore const* const store = Load(StorePath(), memory);
    return store != nullptr ? look(*store) : ERROR_BADDB;
} catch (std::bad_alloc const&) {
    return ERROR_NOT_ENOUGH_MEMORY;
}

LSTATUS ChangeStore(std::function<LSTATUS(RegStore&)> const& change) try {
    std::filesystem::path const file = RegistryFile();
    std::error_code failed;
    std::filesystem::create_directories(file.parent_path(), failed);
    std::string const path = StorePath();
    if (path.empty()) {
        return ERROR_WRITE_FAULT;
    }
    Turn const turn(file);
    Memory& memory = LastRead();
    std::lock_guard const inUse(memory.inUse);
    RegStore const* const before = Load(path, memory);
    if (!turn.Taken() || before == nullptr || !before->Whole()) {
        return ERROR_BADDB;
    }
    RegStore store = *before;
    LSTATUS const result = change(store);
    // The new text is read once more before it is written: a store that cannot be read back would
    // lock everybody out.
    std::string after = store.Bytes();
    if (result != ERROR_SUCCESS || after == before->Bytes()) {
        return result;
    }
    RegStore written(after);
    if (!written.Whole()) { // a name with a line end, for one
        return ERROR_INVALID_NAME;
    }
    if (RewriteFile(path.c_str(), after) != Rewritten::done) {
        return ERROR_WRITE_FAULT;
    }
    memory.stamp.reset();
    memory.store = std::move(written);
    memory.bytes = std::move(after);
    return ERROR_SUCCESS;
} catch (std::bad_alloc const&) {
    return ERROR_NOT_ENOUGH_MEMORY;
}

} // namespace kvarn
