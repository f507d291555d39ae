#include "regfile.h"

#include <filesystem>
#include <mutex>
#include <new>
#include <string>
#include <utility>

#include "../../compat/win32/paths.h"
#include "../../compat/win32/turn.h"
#include "../../files/filerewrite.h"
#include "parsedfile.h"

namespace kvarn {
namespace {

struct Memory {
    std::mutex inUse;
    ParsedFile<RegStore> store;
};

Memory& LastRead() {
    static Memory memory;
    return memory;
}

} // namespace

std::string StorePath() {
    auto const name = FromHostPath(std::filesystem::path(RegistryFile()).filename().string());
    return name && !name->empty() ? std::string{registryDrive, ':'} + *name : "";
}

LSTATUS ReadStore(std::function<LSTATUS(RegStore const&)> const& look) try {
    Memory& memory = LastRead();
    std::lock_guard const inUse(memory.inUse);
    RegStore const* const store = memory.store.Load(StorePath());
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
    RegStore const* const before = memory.store.Load(path);
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
    memory.store.Remember(std::move(written), std::move(after));
    return ERROR_SUCCESS;
} catch (std::bad_alloc const&) {
    return ERROR_NOT_ENOUGH_MEMORY;
}

} // namespace kvarn
