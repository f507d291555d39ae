#include "autoini.h"

#include <ctime>
#include <string>

#include "../host/calls.h"
#include "../host/clienttext.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/text.h"

namespace {

constexpr std::size_t valueSize = 255; // as the callers' buffers, see ReadKey in the header

std::string Today() {
    std::time_t const now = std::time(nullptr);
    std::tm const* const local = std::localtime(&now);
    if (local == nullptr) {
        return {};
    }
    // Known quirk, kept on purpose: a year below 80, counted from 1900, belongs to the 2000s.
    constexpr int pivot = 80;
    int const century = local->tm_year < pivot ? 2000 : 1900;
    return kvarn::Format("%4d-%02d-%02d", century + local->tm_year, local->tm_mon + 1,
                         local->tm_mday);
}

void FromDos(CString& text) {
    OemToAnsiNordic(text.GetBuffer());
    text.ReleaseBuffer();
}

} // namespace

CAutoIni::CAutoIni() : m_idag(kvarn::ToCString(Today())) {}
CAutoIni::CAutoIni(CAutoIni const&) = default;
CAutoIni& CAutoIni::operator=(CAutoIni const&) = default;
CAutoIni::~CAutoIni() = default;

CString CAutoIni::ReadKey(CString section, CString key) {
    FromDos(section);
    FromDos(key);
    CString value;
    if (m_lage != 0) {
        char buffer[valueSize] = "";
        GetPrivateProfileStringA(section, key, "", buffer, sizeof buffer, m_iniFil);
        value = buffer;
    } else if (CWinApp* const application = AfxGetApp()) {
        value = application->GetProfileString(section, key);
    }
    FromDos(value);
    return value;
}

int CAutoIni::ReadKey(char* section, char* key, char* out) {
    OemToAnsiNordic(section);
    OemToAnsiNordic(key);
    CString const value = ReadKey(CString(section), CString(key));
    kvarn::CopyText(out, valueSize, value.GetString());
    return out[0] != '\0' ? 1 : 0;
}

int CAutoIni::WriteKey(CString section, CString key, CString value) {
    char const* const text = value.IsEmpty() ? nullptr : value.GetString();
    if (m_lage != 0) {
        return WritePrivateProfileStringA(section, key, text, m_iniFil);
    }
    CWinApp* const application = AfxGetApp();
    return application != nullptr ? application->WriteProfileString(section, key, text) : 0;
}

char* CAutoIni::InstallPackage() {
    return m_paket;
}
