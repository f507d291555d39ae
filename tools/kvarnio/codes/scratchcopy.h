// A copy of a code file in a folder of the tool's own, which the library takes for a project's:
// what its passes do there can be looked at before it counts.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "../formats/codeformat.h"
#include "../shared/context.h"

namespace kvarnio {

class ScratchCopy {
  public:
    // Throws Failure where it cannot be made.
    ScratchCopy(Context& context, CodeFormat const& format, std::string_view content);
    ~ScratchCopy();
    ScratchCopy(ScratchCopy const&) = delete;
    ScratchCopy& operator=(ScratchCopy const&) = delete;

    std::string const& Path() const { return m_path; } // of the library
    CKvarnInst& Settings() { return m_settings; }
    std::string Content() const;

  private:
    std::filesystem::path m_folder;
    std::string m_path;
    CProjPath m_project;
    CKvarnInst m_settings;
};

} // namespace kvarnio
