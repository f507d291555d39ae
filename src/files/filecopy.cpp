#include "filecopy.h"

#include <memory>

#include "infile.h"
#include "outfile.h"

namespace kvarn {
namespace {

// The content of a file, which must not change between opening and the end of the copying.
class FileContent : public Content {
  public:
    explicit FileContent(char const* path) : m_file(path), m_status(m_file.Status()) {}

    bool IsKnown() const { return m_status.has_value(); }
    std::uint64_t Size() const override { return SizeIn(*m_status); }
    std::optional<Looks> Look() const override {
        return Looks{m_status->dwFileAttributes, m_status->ftLastWriteTime};
    }

    bool WriteTo(OutFile& file) override {
        constexpr std::size_t bufferSize = 1U << 16U;
        if (!m_file.ToBeginning()) {
            return false;
        }
        std::unique_ptr<char[]> const buffer(new char[bufferSize]);
        auto part = m_file.Read(buffer.get(), bufferSize);
        for (; part && !part->empty(); part = m_file.Read(buffer.get(), bufferSize)) {
            if (!file.Write(*part)) {
                return false;
            }
        }
        return part && IsUnchanged();
    }

  private:
    static std::uint64_t SizeIn(BY_HANDLE_FILE_INFORMATION const& status) {
        return std::uint64_t{status.nFileSizeHigh} << 32U | status.nFileSizeLow;
    }

    // A change would give the copy a newer content than its time says, and hide it from whoever
    // copies newer files.
    bool IsUnchanged() const {
        auto const now = m_file.Status();
        return now && SizeIn(*now) == Size() &&
               CompareFileTime(&now->ftLastWriteTime, &m_status->ftLastWriteTime) == 0;
    }

    InFile m_file;
    std::optional<BY_HANDLE_FILE_INFORMATION> m_status;
};

} // namespace

bool CopyWhole(char const* from, char const* to, Existing existing) {
    FileContent content(from);
    return content.IsKnown() &&
           RewriteFile(to, content, existing, Waiting::never) == Rewritten::done;
}

bool KeepCopy(char const* file, char const* name) {
    FileContent content(file);
    return content.IsKnown() && ReplaceName(name, content, file);
}

} // namespace kvarn
