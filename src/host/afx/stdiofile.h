// MFC's CStdioFile, for toolchains without MFC. Clients meet it only as a member of the key files,
// which never leave it open between calls; the files themselves are read and written by
// files/textfil.
#pragma once

class CStdioFile {
  public:
    CStdioFile() = default;
    CStdioFile(CStdioFile const&) = delete;
    CStdioFile& operator=(CStdioFile const&) = delete;
    virtual ~CStdioFile() = default;
};
