#include "scratchcopy.h"

#include <system_error>

#include <files/filerewrite.h>
#include <files/pathparts.h>

#include "../shared/backup.h"
#include "../shared/failure.h"
#include "../shared/platform.h"

namespace kvarnio {
namespace {

std::filesystem::path NewFolder() {
    std::filesystem::path const parent = std::filesystem::temp_directory_path();
    for (int number = 0;; ++number) {
        auto path = parent / ("kvarnio-" + std::to_string(number));
        if (std::filesystem::create_directory(path)) { // by nobody else
            return path;
        }
    }
}

} // namespace

ScratchCopy::ScratchCopy(Context& context, CodeFormat const& format, std::string_view content)
    : m_folder(NewFolder()) {
    std::u8string const utf8 = m_folder.u8string();
    std::string const folder = LibraryFolder({utf8.begin(), utf8.end()});
    m_path = kvarn::PathOf(folder, format.fileName != nullptr ? format.fileName : "STAMP.PAR");
    if (kvarn::RewriteFile(m_path.c_str(), content) != kvarn::Rewritten::done) {
        throw Failure("nothing was written: a copy to work on could not be made, " +
                      NotWritten(m_path));
    }
    m_project.SetPath(folder.c_str());
    m_settings.Init(&context.ini, &m_project);
}

ScratchCopy::~ScratchCopy() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string ScratchCopy::Content() const {
    return ContentOf(HostPath(m_path));
}

} // namespace kvarnio
