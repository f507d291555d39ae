#include "filecopy.h"

#include <memory>

#include "outfile.h"

namespace kvarn {
namespace {

// The content of a file, which must not change between opening and the end of the copying.
class FileContent : public Content {
  public:
    explicit FileContent(char const* path)
        : m_file(CreateFileA(path, GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL, nullptr)) {
        m_known = m_file != INVALID_HANDLE_VALUE &&
                  GetFileInformationByHandle(m_file, &m_status) != FALSE;
    }
    ~FileContent() override {
        if (m_file != INVALID_HANDLE_VALUE) {
            CloseHandle(m_file);
        }
    }
    FileContent(FileContent const&) = delete;
    FileContent& operator=(FileContent const&) = delete;

    bool IsKnown() const { return m_known; }
    std::uint64_t Size() const override {
        return std::uint64_t{m_status.nFileSizeHigh} << 32U | m_status.nFileSizeLow;
    }
    std::optional<Looks> Look() const override {
        return Looks{m_status.dwFileAttributes, m_status.ftLastWriteTime};
    }

    bool WriteTo(OutFile& file) override {
        constexpr DWORD bufferSize = 1U << 16U;
        LARGE_INTEGER const beginning{};
        if (SetFilePointerEx(m_file, beginning, nullptr, FILE_BEGIN) == FALSE) {
            return false;
        }
        std::unique_ptr<char[]> const buffer(new char[bufferSize]);
        DWORD count = 0;
        do {
            if (ReadFile(m_file, buffer.get(), bufferSize, &count, nullptr) == FALSE ||
                !file.Write({buffer.get(), count})) {
                return false;
            }
        } while (count > 0);
        return IsUnchanged();
    }

  private:
    // A change would give the copy a newer content than its time says, and hide it from whoever
    // copies newer files.
    bool IsUnchanged() const {
        BY_HANDLE_FILE_INFORMATION now{};
        return GetFileInformationByHandle(m_file, &now) != FALSE &&
               CompareFileTime(&now.ftLastWriteTime, &m_status.ftLastWriteTime) == 0 &&
               now.nFileSizeLow == m_status.nFileSizeLow &&
               now.nFileSizeHigh == m_status.nFileSizeHigh;
    }

    HANDLE m_file;
    BY_HANDLE_FILE_INFORMATION m_status{};
    bool m_known = false;
};

} // namespace

bool CopyWhole(char const* from, char const* to, Existing existing) {
    FileContent content(from);
    return content.IsKnown() &&
           RewriteFile(to, content, existing, Waiting::never) == Rewritten::done;
}

} // namespace kvarn
