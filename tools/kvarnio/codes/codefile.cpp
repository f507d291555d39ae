#include "codefile.h"

#include <algorithm>
#include <utility>

#include <files/filerewrite.h>

#include "../shared/backup.h"
#include "../shared/copies.h"
#include "../shared/failure.h"
#include "../shared/messages.h"
#include "../shared/platform.h"
#include "scratchcopy.h"

namespace kvarnio {
namespace {

void RequireFile(Context const& context, CodeFormat const& format) {
    if (!InForce(context, format.fileName)) {
        throw Failure(std::string("there is no ") + format.fileName + "\n" + Folders(context) +
                      "kvarnio local create --project DIR makes one in a project.");
    }
}

} // namespace

CodeFile::CodeFile(Context& context, CodeFormat const& format, std::string const& typedFile)
    : m_context(&context), m_format(&format) {
    if (format.fileName == nullptr) {
        m_path = LibraryPath(typedFile);
    } else {
        RequireFile(context, format);
        Copy const copy = *InForce(context, format.fileName);
        m_path = copy.path;
        m_place = copy.place;
    }
    m_content = ReadWhole(m_path);
    {
        MutedMessages const muted; // bad lines are told with their numbers
        m_records = format.read(context.settings, m_path);
    }
    m_findings = format.check(m_content);
}

Losses CodeFile::Write(CodeRecords const& records) {
    std::string written;
    {
        ScratchCopy copy(*m_context, *m_format, m_content);
        m_format->write(copy.Settings(), copy.Path(), records);
        written = m_format->carryOver(m_content, copy.Content());
    }
    CodeRecords read = RecordsOf(written);
    if (read != records) {
        throw Failure("nothing was written: the library would not read the same back from " +
                      Shown(m_path));
    }
    Losses losses = Replace(written);
    m_records = std::move(read);
    return losses;
}

CodeRecords CodeFile::AddMissing(Losses& losses) {
    std::string written;
    {
        MutedMessages const muted;
        ScratchCopy copy(*m_context, *m_format, m_content);
        copy.Settings().MiljkodUppdatX();
        written = copy.Content();
    }
    CodeRecords added;
    if (written != m_content) {
        for (CodeRecord const& record : RecordsOf(written)) {
            if (std::find(m_records.begin(), m_records.end(), record) == m_records.end()) {
                added.push_back(record);
            }
        }
        losses = Replace(m_format->carryOver(m_content, written));
    }
    return added;
}

CodeRecords CodeFile::RecordsOf(std::string const& content) const {
    MutedMessages const muted;
    ScratchCopy copy(*m_context, *m_format, content);
    return m_format->read(copy.Settings(), copy.Path());
}

Losses CodeFile::Replace(std::string const& content) const {
    Losses losses = LossesOf(m_findings);
    if (!kvarn::OpensForWriting(m_path.c_str())) {
        throw Failure(NotWritten(m_path));
    }
    KeepWhatIsLost(m_path, m_content, losses);
    if (kvarn::RewriteFile(m_path.c_str(), content) != kvarn::Rewritten::done) {
        throw Failure(NotWritten(m_path));
    }
    return losses;
}

} // namespace kvarnio
