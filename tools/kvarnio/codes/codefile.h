// One code file: the copy in force, what the library reads of it, and writing it anew.
#pragma once

#include <string>

#include "../shared/context.h"
#include "../shared/losses.h"
#include "codeformat.h"

namespace kvarnio {

class CodeFile {
  public:
    // The file in force, or the one that the user names. Throws Failure where there is none, or it
    // cannot be read.
    CodeFile(Context const& context, CodeFormat const& format, std::string const& typedFile);

    std::string const& Path() const { return m_path; }   // of the library
    std::string const& Place() const { return m_place; } // "project", "CFG", "main", or empty
    CodeRecords const& Records() const { return m_records; }
    std::vector<Finding> const& Findings() const { return m_findings; }

    // Writes the file anew with these records, all or nothing, and keeps the old one; what is lost
    // is returned. A dry run writes nothing. Throws Failure, also where it would not read back so.
    Losses Write(CodeRecords const& records);

    // The same with the codes that the library adds where they are missing. Returns these; where
    // there are none nothing is written.
    CodeRecords AddMissing(Losses& losses);

  private:
    Losses Replace(std::string const& content) const;

    CodeFormat const* m_format;
    bool m_dryRun;
    std::string m_path;
    std::string m_place;
    std::string m_content;
    CodeRecords m_records;
    std::vector<Finding> m_findings;
};

} // namespace kvarnio
