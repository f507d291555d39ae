#include "vaglinje.h"

#include <new>

#include "../text/text.h"
#include "roadfile.h"

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
    static_assert(sizeof namn == kvarn::longestVagnamn + 1);
    Tom();
    if (path == nullptr) {
        m_notRead = "";
        return 0;
    }
    std::string text;
    if (!kvarn::ReadRoadFile(path, text, m_notRead)) {
        return -1;
    }
    kvarn::KeepFileName(filnamn, path);
    kvarn::LineReader lines{std::string_view(text)};
    std::string_view line;
    kovltype vertex{};
    for (bool isFirst = true;; isFirst = false) {
        if (!isFirst &&
            lines.TakeLine([&](auto& rest) { return kvarn::TakeVertex(rest, vertex); })) {
            Ny(1, &vertex);
            continue;
        }
        if (!lines.ReadLine(line)) {
            return 0;
        }
        if (isFirst) {
            kvarn::VagfilHeader const header(line);
            typ = header.HasType() ? header.type : typ;
            kvarn::CopyText(namn, sizeof namn, header.Name());
        }
        if (kvarn::ReadVertex(line, vertex)) {
            Ny(1, &vertex);
        } else {
            kvarn::ReportBadLine(line);
        }
    }
}

int CVaglinje::Init(CString path) {
    return Init(path.GetString());
}

int CVaglinje::Uppdat(char const* path) try {
    std::string text;
    kvarn::AppendLine(text, *this, kvarn::FieldText(namn));
    return kvarn::WriteRoadFile(path, text, m_notRead);
} catch (std::bad_alloc const&) {
    return -1;
}

int CVaglinje::Uppdat(CString path) {
    return Uppdat(path.GetString());
}

int CVaglinje::Reset() {
    constexpr double halfWidth = 30; // metres, to either side
    bool const isEmpty = m_forsta == nullptr;
    omrSekFran = isEmpty ? 0 : m_forsta->post.sektion;
    omrSekTill = isEmpty ? 0 : m_sista->post.sektion;
    omrAvstMin = isEmpty ? 0 : -halfWidth;
    omrAvstMax = isEmpty ? 0 : halfWidth;
    if (isEmpty) {
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
