// One code file: the copy in force, what the library reads of it, and writing it anew.
#pragma once

#include <string>

#include "../formats/codeformat.h"
#include "../shared/context.h"
#include "../shared/losses.h"

namespace kvarnio {

class CodeFile {
  public:
    // The file in force, or the one that the user names. Throws Failure where there is none, or it
    // cannot be read.
    CodeFile(Context& context, CodeFormat const& format, std::string const& typedFile);

    std::string const& Path() const { return m_path; }   // of the library
    std::string const& Place() const { return m_place; } // "project", "CFG", "main", or empty
    CodeRecords const& Records() const { return m_records; }
    std::vector<Finding> const& Findings() const { return m_findings; }

    // Writes the file anew with these records, through the library, and keeps the old one where
    // something is lost: this is returned. All or nothing: the library's pass works on a copy,
    // which takes the file's place when it reads back as it shall. Throws Failure.
    Losses Write(CodeRecords const& records);

    // The same with the codes that the library adds where they are missing. Returns these; where
    // there are none nothing is written.
    CodeRecords AddMissing(Losses& losses);

  private:
    CodeRecords RecordsOf(std::string const& content) const;
    Losses Replace(std::string const& content) const;

    Context* m_context;
    CodeFormat const* m_format;
    std::string m_path;
    std::string m_place;
    std::string m_content;
    CodeRecords m_records;
    std::vector<Finding> m_findings;
};

} // namespace kvarnio
