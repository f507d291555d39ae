#include "files.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class File {
  public:
    File(std::string const& path, int flags)
        : m_file(open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
    ~File() { Close(); }
    File(File const&) = delete;
    File& operator=(File const&) = delete;

    int Descriptor() const { return m_file; }
    bool Write(std::string const& content) const {
        ssize_t const written = write(m_file, content.data(), content.size());
        return written == static_cast<ssize_t>(content.size());
    }
    bool Flush() const { return fsync(m_file) == 0; }
    bool Close() {
        bool const closed = m_file < 0 || close(m_file) == 0;
        m_file = -1;
        return closed;
    }

  private:
    int m_file;
};

bool WriteNew(std::string const& path, std::string const& content) {
    File file(path, O_WRONLY | O_CREAT | O_EXCL);
    return file.Write(content) && file.Flush() && file.Close();
}

bool FlushFolderOf(std::string const& path) {
    File const folder(path.substr(0, path.rfind('/')), O_RDONLY | O_DIRECTORY);
    return folder.Flush();
}

} // namespace

bool ReadWhole(std::string const& path, std::string& content) {
    File const file(path, O_RDONLY);
    struct stat status {};
    if (fstat(file.Descriptor(), &status) != 0) {
        return false;
    }
    content.resize(static_cast<std::size_t>(status.st_size));
    return read(file.Descriptor(), content.data(), content.size()) == status.st_size;
}

bool Save(std::string const& path, std::string const& content, Saving saving) {
    if (saving == Saving::inPlace) {
        File file(path, O_WRONLY | O_CREAT | O_TRUNC);
        return file.Write(content) && file.Close();
    }
    std::string const beside = path + ".tmp";
    return WriteNew(beside, content) && Replace(beside, path);
}

bool Replace(std::string const& beside, std::string const& path) {
    return std::rename(beside.c_str(), path.c_str()) == 0 && FlushFolderOf(path);
}
