// MFC's CStdioFile, for toolchains without MFC. Clients see it only as a member of the key files,
// which never leave it open between calls; files/textfil reads and writes the files themselves.
#pragma once

// A file that is never open.
class CStdioFile {
  public:
    // Not open, and it stays so.
    CStdioFile() = default;
    CStdioFile(CStdioFile const&) = delete;
    CStdioFile& operator=(CStdioFile const&) = delete;
    virtual ~CStdioFile() = default;
};
