#include "codefile.h"

#include <algorithm>
#include <utility>

#include <files/filerewrite.h>
#include <formats/miljkod.h>

#include "../shared/backup.h"
#include "../shared/copies.h"
#include "../shared/failure.h"
#include "../shared/platform.h"

namespace kvarnio {
namespace {

Copy FileInForce(Context const& context, CodeFormat const& format) {
    auto copy = InForce(context, format.fileName);
    if (!copy) {
        throw Failure(std::string("there is no ") + format.fileName + "\n" + Folders(context) +
                      "kvarnio local create --project DIR makes one in a project.");
    }
    return *std::move(copy);
}

} // namespace

CodeFile::CodeFile(Context const& context, CodeFormat const& format, std::string const& typedFile)
    : m_format(&format), m_dryRun(context.dryRun) {
    if (format.fileName == nullptr) {
        m_path = LibraryPath(typedFile);
    } else {
        Copy const copy = FileInForce(context, format);
        m_path = copy.path;
        m_place = copy.place;
    }
    m_content = ReadWhole(m_path);
    m_records = format.read(m_content);
    m_findings = format.check(m_content);
}

Losses CodeFile::Write(CodeRecords const& records) {
    std::string const written = m_format->write(m_content, records);
    CodeRecords read = m_format->read(written);
    if (read != records) {
        throw Failure("nothing was written: the library would not read the same back from " +
                      Shown(m_path));
    }
    Losses losses = Replace(written);
    m_records = std::move(read);
    return losses;
}

CodeRecords CodeFile::AddMissing(Losses& losses) {
    kvarn::LineReader lines(m_content);
    auto const sections = kvarn::WithObligatoryMiljkod(lines, nullptr);
    CodeRecords added;
    if (sections) {
        kvarn::LineReader again(m_content);
        std::string const written = kvarn::InTextMode(kvarn::MiljkodBeginning(again) + *sections);
        for (CodeRecord const& record : m_format->read(written)) {
            if (std::find(m_records.begin(), m_records.end(), record) == m_records.end()) {
                added.push_back(record);
            }
        }
        losses = Replace(written);
    }
    return added;
}

Losses CodeFile::Replace(std::string const& content) const {
    RequireText(m_path, m_content);
    Losses losses = LossesOf(m_findings);
    if (m_dryRun) {
        return losses;
    }
    if (!kvarn::OpensForWriting(m_path.c_str())) {
        throw IoFailure(NotWritten(m_path));
    }
    KeepOld(m_path, losses, m_format->check);
    if (kvarn::RewriteFile(m_path.c_str(), content) != kvarn::Rewritten::done) {
        throw IoFailure(NotWritten(m_path));
    }
    return losses;
}

} // namespace kvarnio
