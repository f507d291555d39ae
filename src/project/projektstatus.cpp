#include "projektstatus.h"

#include "../core/messageout.h"
#include "../host/clienttext.h"
#include "../text/text.h"

template class KVARNPROG_LIST_DEFINE list0<projektstatustype>;

namespace {

constexpr int unknownState = 999;
constexpr unsigned unknownText = 5012;

struct StandardState {
    int kod;
    unsigned text;
};

constexpr StandardState standardStates[] = {
    {0, 5006}, {1, 5007}, {2, 5008}, {3, 5009}, {4, 5010}, {5, 5011}, {unknownState, unknownText}};

} // namespace

CProjektStatus::CProjektStatus() : m_status() {}
CProjektStatus::~CProjektStatus() = default;

void CProjektStatus::SetHandle(HINSTANCE modul) {
    m_modul = modul;
}

CString CProjektStatus::TxLoadString(unsigned int id) {
    return kvarn::ToCString(kvarn::ResourceText(m_modul, id));
}

void CProjektStatus::Load() {
    if (m_forsta != nullptr) {
        return;
    }
    for (StandardState const& status : standardStates) {
        projektstatustype post{status.kod, ""};
        kvarn::CopyText(post.text, sizeof post.text, TxLoadString(status.text).GetString());
        Ny(1, &post);
    }
}

int CProjektStatus::Ny(int var, projektstatustype* post) {
    return list0::Ny(var, post);
}

int CProjektStatus::Find(CString text) {
    for (bool found = Home() == 0; found; found = (*this)++ != nullptr) {
        if (kvarn::SameText(kvarn::FieldText(m_aktpost->text), text.GetString())) {
            m_funnen = 1;
            return m_aktpost->kod;
        }
    }
    return unknownState;
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
    m_status = unknownState;
    return 0;
}

CString CProjektStatus::GetStatus() {
    if (Home() != 0) {
        return {};
    }
    for (int step = 0; step < m_status; ++step) {
        if ((*this)++ == nullptr) {
            m_status = unknownState;
            return TxLoadString(unknownText);
        }
    }
    return kvarn::ToCString(kvarn::FieldText(m_aktpost->text));
}
