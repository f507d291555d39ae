#include "projektstatus.h"

#include "../core/messageout.h"
#include "../text/text.h"

template class KVARNPROG_LIST_DEFINE list0<projektstatustype>;

namespace {

constexpr int okand = 999;
constexpr unsigned okandText = 5012;

struct Standardstatus {
    int kod;
    unsigned text;
};

constexpr Standardstatus standard[] = {{0, 5006}, {1, 5007}, {2, 5008},         {3, 5009},
                                       {4, 5010}, {5, 5011}, {okand, okandText}};

} // namespace

CProjektStatus::CProjektStatus() : m_status() {}
CProjektStatus::~CProjektStatus() = default;

void CProjektStatus::SetHandle(HINSTANCE modul) {
    m_modul = modul;
}

CString CProjektStatus::TxLoadString(unsigned int id) {
    return kvarn::ResourceText(m_modul, id).c_str();
}

void CProjektStatus::Load() {
    if (m_forsta != nullptr) {
        return;
    }
    for (Standardstatus const& status : standard) {
        projektstatustype post{status.kod, ""};
        kvarn::CopyText(post.text, sizeof post.text, TxLoadString(status.text).GetString());
        Ny(1, &post);
    }
}

int CProjektStatus::Ny(int var, projektstatustype* post) {
    return list0::Ny(var, post);
}

int CProjektStatus::Find(CString text) {
    for (bool finns = Home() == 0; finns; finns = (*this)++ != nullptr) {
        if (kvarn::SameText(kvarn::FieldText(m_aktpost->text), text.GetString())) {
            m_funnen = 1;
            return m_aktpost->kod;
        }
    }
    return okand;
}

int CProjektStatus::SetStatus(int kod) {
    m_status = kod;
    if (Home() != 0) {
        return -1;
    }
    do {
        if (m_aktpost->kod == kod) {
            m_funnen = 1;
            return 0;
        }
    } while ((*this)++ != nullptr);
    m_status = okand;
    return 0;
}

CString CProjektStatus::GetStatus() {
    if (Home() != 0) {
        return {};
    }
    for (int steg = 0; steg < m_status; ++steg) {
        if ((*this)++ == nullptr) {
            m_status = okand;
            return TxLoadString(okandText);
        }
    }
    return std::string(kvarn::FieldText(m_aktpost->text)).c_str();
}
