// MFC's CStdioFile, for toolchains without MFC. Clients see it only as a member of the key files,
// which never leave it open between calls; files/textfil reads and writes the files themselves.
#pragma once

class CStdioFile {
  public:
    CStdioFile() = default;
    CStdioFile(CStdioFile const&) = delete;
    CStdioFile& operator=(CStdioFile const&) = delete;
    virtual ~CStdioFile() = default;
};
