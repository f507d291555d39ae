#include "vaglinje.h"

#include "../files/textfil.h"
#include "../text/text.h"
#include "vagfil.h"

template class KVARNPROG_LIST_DEFINE list0<kovltype>;

double CVaglinje::Seknoll = 9999999.9;
double CVaglinje::Sekkoll = 9999999.0;

CVaglinje::CVaglinje()
    : omrSekFran(0), omrSekTill(0), omrAvstMin(0), omrAvstMax(0), typ(0), namn(), filnamn() {}

CVaglinje::~CVaglinje() = default;

void CVaglinje::Tom() {
    while (Home() == 0) {
        Delete();
    }
}

int CVaglinje::Init(char const* path) {
    Tom();
    if (path == nullptr) {
        m_ejLast = "";
        return 0;
    }
    std::string text;
    if (!kvarn::LasVagfil(path, text, m_ejLast)) {
        return -1;
    }
    kvarn::TaFilnamn(filnamn, path);
    kvarn::LineReader rader{std::string_view(text)};
    std::string_view rad;
    for (bool forsta = true; rader.ReadLine(rad); forsta = false) {
        if (forsta) {
            kvarn::Vaghuvud const huvud = kvarn::LasVaghuvud(rad);
            typ = huvud.HarTyp() ? huvud.typ : typ;
            kvarn::CopyText(namn, sizeof namn, huvud.namn);
        }
        kovltype vertex{};
        if (kvarn::LasVertex(rad, vertex)) {
            Ny(1, &vertex);
        } else {
            kvarn::AnmalFelRad(rad);
        }
    }
    return 0;
}

int CVaglinje::Init(CString path) {
    return Init(path.GetString());
}

int CVaglinje::Uppdat(char const* path) {
    std::string text;
    kvarn::AppendLine(text, *this, kvarn::FieldText(namn));
    return kvarn::SkrivVagfil(path != nullptr ? path : "", text, m_ejLast);
}

int CVaglinje::Uppdat(CString path) {
    return Uppdat(path.GetString());
}

int CVaglinje::Reset() {
    constexpr double halvbredd = 30; // metres
    bool const tom = m_forsta == nullptr;
    omrSekFran = tom ? 0 : m_forsta->post.sektion;
    omrSekTill = tom ? 0 : m_sista->post.sektion;
    omrAvstMin = tom ? 0 : -halvbredd;
    omrAvstMax = tom ? 0 : halvbredd;
    if (tom) {
        return -1;
    }
    Set_mark();
    return 0;
}

int CVaglinje::Vagnu(double* x, double* y, double* sektion) {
    kovltype const* const vertex = Get_aktel();
    if (typ == kvarn::vagtypProfil || vertex == nullptr) {
        return -1;
    }
    *x = vertex->x;
    *y = vertex->y;
    *sektion = vertex->sektion;
    return 0;
}
