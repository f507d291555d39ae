// Everything that is asked of a road line and done to it, over vertices of any kind, beside a model
// written apart.
//
// A line is made of numbers that like to meet: values that were used before, values a tolerance
// away, the limits of the type. Then operations follow, each compared with the model, which
// afterwards takes over the line's vertices.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <limits>
#include <vector>

#include "check.h"
#include "formats/vagfil.h"
#include "geodata/vagindex.h"
#include "input.h"
#include "vaglista.h"
#include "vagmodell.h"

namespace {

constexpr double untouched = -77.25; // in variables that an operation may leave alone

// --- Comparing -----------------------------------------------------------------------------------

bool Exactly(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

// What is computed; the last digits are free.
bool Nearly(double a, double b) {
    constexpr double relative = 1e-9;
    return Exactly(a, b) || (std::isfinite(a) && std::isfinite(b) &&
                             std::fabs(a - b) <= relative * std::max(std::fabs(a), std::fabs(b)));
}

bool Same(Svar const& a, Svar const& b) {
    return a.result == b.result && Nearly(a.first, b.first) && Nearly(a.second, b.second) &&
           Nearly(a.third, b.third);
}

// --- Numbers, points and vertices ----------------------------------------------------------------

class Player {
  public:
    Player(std::uint8_t const* data, std::size_t size) : m_provider(data, size) {}

    void Play() {
        constexpr int most = 24;
        m_line.typ = Type();
        Follow();
        for (int i = m_provider.Number(0, 10); i > 0; --i) {
            kovltype vertex = Vertex();
            m_line.Ny(1, &vertex);
            Follow();
        }
        for (int i = 0; i < most && m_provider.Remaining() > 0; ++i) {
            Operate();
            m_line.CheckSound();
            CheckRecords();
            Follow();
        }
    }

  private:
    static constexpr double infinity = std::numeric_limits<double>::infinity();
    static constexpr double nan = std::numeric_limits<double>::quiet_NaN();

    std::int32_t Type() {
        static constexpr std::int32_t types[] = {1, 1, 1, 0, 10, 2};
        return m_provider.Pick(types);
    }

    int Mode() {
        static constexpr int modes[] = {0, 1, 2, 7};
        return m_provider.Pick(modes);
    }

    double Used() {
        if (m_model.v.empty()) {
            return 0;
        }
        auto const index = m_provider.Number<std::size_t>(0, m_model.v.size() - 1);
        kovltype const& v = m_model.v[index];
        double const values[] = {v.x, v.y, v.sektion, v.sektion};
        return m_provider.Pick(values);
    }

    double Number() {
        // clang-format off
        static constexpr double steps[] = {
            0.0001, -0.0001, 0.00005, -0.00005, 0.0002, -0.0002, 0.001, -0.001, 0.0011,
            0.01, -0.01, 0.5, -0.5, 0.00001, -0.00001, 1, -1, 30};
        static constexpr double odd[] = {
            nan, infinity, -infinity, -0.0, 1e-320, -1e-320, 1e-160, 1e154, 1e300, -1e300,
            std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
            1e9, 1.05e9, 1.1e9, 1e12, // about the longest offset
            9999999.0, 9999999.9, 999999.9, 0.0099, 0.01, 1e-5, 1.1e-5};
        // clang-format on
        switch (m_provider.Number(0, 9)) {
        case 0:
            return m_provider.Pick(odd);
        case 1:
            return std::bit_cast<double>(m_provider.Number<std::uint64_t>());
        case 2:
        case 3:
            return Used();
        case 4:
            return Used() + m_provider.Pick(steps);
        case 5:
            return m_provider.Number<std::int32_t>() / 1000.0;
        case 6:
            return m_provider.Number<std::int16_t>() / 16.0;
        case 7:
            return m_provider.Number(0, 20) * 10.0;
        default:
            return m_provider.Number(-8, 8);
        }
    }

    double Bulge() {
        static constexpr double bulges[] = {
            0, 1e-6, 1.0000001e-6, 0.41421356237309503, 1, 0.25, 0.05, 2, 1e-5, 100};
        switch (m_provider.Number(0, 7)) {
        case 0:
            return Number();
        case 1:
        case 2:
            return 0;
        default:
            double const bulge = m_provider.Pick(bulges);
            return m_provider.Bool() ? -bulge : bulge;
        }
    }

    // Often along an axis from the last vertex, at the station that its distance gives.
    kovltype Vertex() {
        if (m_model.v.empty() || m_provider.Bool()) {
            return {Number(), Number(), Bulge(), Number()};
        }
        kovltype v = m_model.v.back();
        double const step = m_provider.Number(1, 100);
        int const direction = m_provider.Number(0, 7);
        v.x += direction % 3 == 0 ? step : direction % 3 == 1 ? -step : 0;
        v.y += direction / 3 == 0 ? step : direction / 3 == 1 ? -step : 0;
        bool const decreasing = m_model.v.size() > 1 && m_model.v[1].sektion < m_model.v[0].sektion;
        v.sektion += decreasing ? -step : step;
        v.bulge = Bulge();
        return v;
    }

    struct Point {
        double x;
        double y;
    };

    // Often at a station of the line.
    Point APoint() {
        if (m_provider.Bool()) {
            double const x = Number();
            return {x, Number()};
        }
        double const station = Number();
        Svar const at = m_model.Vag2xy(station, Number());
        return {at.first, at.second};
    }

    // Where the quadrants about an arc's centre meet.
    Point AboutCentre(kovltype const& p1, kovltype const& p2) {
        static constexpr double steps[] = {0, 0.99e-5, 1.01e-5, 1, 30};
        Svar const circle = BulgeToRadius({p1.y, p1.x, p1.bulge}, {p2.y, p2.x, 0});
        double const x = m_provider.Pick(steps);
        double const y = m_provider.Pick(steps);
        return {circle.third + (m_provider.Bool() ? x : -x),
                circle.second + (m_provider.Bool() ? y : -y)};
    }

    kokotype Corner() {
        double const a = Number();
        double const b = Number();
        return {a, b, Bulge()};
    }

    void Follow() {
        m_model.v = m_line.Vertices();
        m_before = m_model.v;
        m_model.typ = m_line.typ;
        m_model.omrSekFran = m_line.omrSekFran;
        m_model.omrSekTill = m_line.omrSekTill;
        m_model.omrAvstMin = m_line.omrAvstMin;
        m_model.omrAvstMax = m_line.omrAvstMax;
    }

    void CheckRecords() const {
        std::vector<kovltype> const vertices = m_line.Vertices();
        Check(vertices.size() == m_model.v.size(), "as many vertices as the model");
        for (std::size_t i = 0; i < vertices.size(); ++i) {
            kovltype const& ours = vertices[i];
            kovltype const& model = m_model.v[i];
            Compare("a vertex", {static_cast<double>(i)}, {0, ours.x, ours.y, ours.sektion},
                    {0, model.x, model.y, model.sektion});
            Check(Exactly(ours.bulge, model.bulge), "a vertex's bulge");
        }
        Check(m_line.typ == m_model.typ && Exactly(m_line.omrSekFran, m_model.omrSekFran) &&
                  Exactly(m_line.omrSekTill, m_model.omrSekTill) &&
                  Exactly(m_line.omrAvstMin, m_model.omrAvstMin) &&
                  Exactly(m_line.omrAvstMax, m_model.omrAvstMax),
              "the model's type and area");
    }

    // The vertices before the operation are shown where the answers differ.
    void Compare(char const* operation, std::initializer_list<double> arguments, Svar const& ours,
                 Svar const& model) const {
        if (Same(ours, model)) {
            return;
        }
        for (kovltype const& v : m_before) {
            std::fprintf(stderr, "  %.17g %.17g %.17g %.17g\n", v.x, v.y, v.bulge, v.sektion);
        }
        for (double const argument : arguments) {
            std::fprintf(stderr, "argument %.17g\n", argument);
        }
        Check(false, operation);
    }

    // The index of the line gives the same to the last digit.
    void CompareIndex(char const* operation, Svar const& ours, Svar const& index) const {
        Check(ours.result == index.result && Exactly(ours.first, index.first) &&
                  Exactly(ours.second, index.second),
              operation);
    }

    // --- Operations ------------------------------------------------------------------------------

    void Operate() {
        using P = Player;
        // Some are more often asked for: they hold most rules.
        // clang-format off
        static constexpr void (P::*operations[])() = {
            &P::Pldist, &P::Padist, &P::BulgeToRadiusBoth, &P::RadiusToBulgeBoth, &P::Vag2xy,
            &P::Vag2xy, &P::Vagprofz, &P::Vagstv, &P::Vagstv, &P::Vagstv, &P::PktIomr,
            &P::SektKorr, &P::SektBerak, &P::Extend, &P::Area, &P::Vagnu, &P::List, &P::List};
        // clang-format on
        (this->*m_provider.Pick(operations))();
    }

    void Pldist() {
        double n[6];
        for (double& number : n) {
            number = Number();
        }
        Svar ours = {0, untouched, untouched};
        Svar const model = m_model.Pldist(n[0], n[1], n[2], n[3], n[4], n[5], ours);
        ours.result = m_line.Pldist(n[0], n[1], n[2], n[3], n[4], n[5], &ours.first, &ours.second);
        Compare("Pldist", {n[0], n[1], n[2], n[3], n[4], n[5]}, ours, model);
    }

    void Padist() {
        kovltype p1 = Vertex();
        kovltype p2 = Vertex();
        Point const p = m_provider.Bool() ? APoint() : AboutCentre(p1, p2);
        Svar ours = {0, untouched, untouched};
        Svar const model = m_model.Padist(p1, p2, p.x, p.y, ours);
        ours.result = m_line.Padist(&p1, &p2, p.x, p.y, &ours.first, &ours.second);
        Compare("Padist", {p1.x, p1.y, p1.bulge, p2.x, p2.y, p.x, p.y}, ours, model);
    }

    void BulgeToRadiusBoth() {
        kokotype p1 = Corner();
        kokotype p2 = Corner();
        Svar const model = BulgeToRadius(p1, p2);
        Svar ours;
        ours.result = m_line.Bulge_r(&p1, &p2, &ours.first, &ours.second, &ours.third, 1);
        Compare("Bulge_r, to radius", {p1.x, p1.y, p1.bulge, p2.x, p2.y}, ours, model);
    }

    void RadiusToBulgeBoth() {
        kokotype p1 = Corner();
        kokotype p2 = Corner();
        double radius = Number();
        double const model = RadiusToBulge(p1, p2, radius);
        int const result = m_line.Bulge_r(&p1, &p2, &radius, nullptr, nullptr, 0);
        Compare("Bulge_r, to bulge", {p1.x, p1.y, p2.x, p2.y, radius}, {result, p1.bulge},
                {0, model});
    }

    void Vag2xy() {
        double const station = Number();
        double const offset = Number();
        Svar ours = {0, untouched, untouched};
        Svar const model = m_model.Vag2xy(station, offset);
        Svar index = ours;
        ours.result = m_line.Vag2xy(station, offset, &ours.first, &ours.second);
        index.result = CVagindex(m_line).Vag2xy(station, offset, &index.first, &index.second);
        CompareIndex("Vag2xy of the index", ours, index);
        Compare("Vag2xy", {station, offset}, ours, model);
        if (model.result == 0) {
            CheckWalk(m_line, m_model.Sok(station));
        }
    }

    void Vagprofz() {
        double const station = Number();
        Svar ours = {0, untouched};
        Svar const model = m_model.Vagprofz(station);
        Svar index = ours;
        ours.result = m_line.Vagprofz(station, &ours.first);
        index.result = CVagindex(m_line).Vagprofz(station, &index.first);
        CompareIndex("Vagprofz of the index", ours, index);
        Compare("Vagprofz", {station}, ours, model);
        if (model.result == 0) {
            CheckWalk(m_line, m_model.SokHojd(station));
        }
    }

    void Vagstv() {
        Point const p = APoint();
        int const mode = Mode();
        Svar ours = {0, untouched, untouched};
        Svar const model = m_model.Vagstv(p.x, p.y, mode);
        Svar index = ours;
        ours.result = m_line.Vagstv(p.x, p.y, &ours.first, &ours.second, mode);
        if (mode == 0) {
            index.result = CVagindex(m_line).Vagstv(p.x, p.y, &index.first, &index.second);
            CompareIndex("Vagstv of the index", ours, index);
        }
        Compare("Vagstv", {p.x, p.y, static_cast<double>(mode)}, ours, model);
    }

    void PktIomr() {
        Point const p = APoint();
        int const mode = Mode();
        Svar ours = {0, untouched, untouched};
        Svar model = m_model.PktIomr(p.x, p.y, mode, ours);
        double* const station = m_provider.Bool() ? &ours.first : nullptr;
        double* const offset = m_provider.Bool() ? &ours.second : nullptr;
        Svar index = ours;
        ours.result = m_line.PktIomr(p.x, p.y, station, offset, mode);
        if (mode == 0) {
            index.result =
                CVagindex(m_line).PktIomr(p.x, p.y, station != nullptr ? &index.first : nullptr,
                                          offset != nullptr ? &index.second : nullptr);
            CompareIndex("PktIomr of the index", ours, index);
        }
        model.first = station != nullptr ? model.first : untouched;
        model.second = offset != nullptr ? model.second : untouched;
        Compare("PktIomr", {p.x, p.y, static_cast<double>(mode)}, ours, model);
    }

    void SektKorr() {
        Point const p = APoint();
        double const station = Number();
        int const model = m_model.SektKorr(p.x, p.y, station);
        Compare("SektKorr", {p.x, p.y, station}, {m_line.SektKorr(p.x, p.y, station)}, {model});
    }

    void SektBerak() {
        double const start = Number();
        int const model = m_model.SektBerak(start);
        Compare("SektBerak", {start}, {m_line.SektBerak(start)}, {model});
    }

    void Extend() {
        double const before = Number();
        double const after = Number();
        int const model = m_model.Extend(before, after);
        Compare("Extend", {before, after}, {m_line.Extend(before, after)}, {model});
    }

    void Area() {
        if (m_provider.Bool()) {
            int const index = m_line.Index();
            int const model = m_model.Reset();
            Check(m_line.Reset() == model && m_line.Index() == index, "Reset");
            return;
        }
        for (double* limit :
             {&m_line.omrSekFran, &m_line.omrSekTill, &m_line.omrAvstMin, &m_line.omrAvstMax}) {
            *limit = Number();
        }
        Follow();
    }

    // What clients do to the list between the operations.
    void List() {
        using Change = void (*)(Line & line, kovltype & vertex);
        static constexpr Change changes[] = {
            [](Line& line, kovltype& vertex) { line.Ny(1, &vertex); },
            [](Line& line, kovltype& vertex) {
                if (line.Index() >= 0) { // otherwise the list cannot tell the position
                    line.Ny(0, &vertex);
                }
            },
            [](Line& line, kovltype&) { line.Delete(); },
            [](Line& line, kovltype&) { line.Home(); },
            [](Line& line, kovltype&) { line.End(); },
            [](Line& line, kovltype&) { line++; },
            [](Line& line, kovltype& vertex) { line.Set_aktel(&vertex); }, // none is current then
        };
        kovltype vertex = Vertex();
        m_line.typ = m_provider.Number(0, 8) == 0 ? Type() : m_line.typ;
        m_provider.Pick(changes)(m_line, vertex);
        Follow();
    }

    void Vagnu() {
        int const index = m_line.Index();
        Svar model = {-1, untouched, untouched, untouched};
        Svar ours = model;
        if (index >= 0 && m_model.typ != kvarn::vagtypProfil) {
            kovltype const& v = m_model.v[static_cast<std::size_t>(index)];
            model = {0, v.x, v.y, v.sektion};
        }
        ours.result = m_line.Vagnu(&ours.first, &ours.second, &ours.third);
        Compare("Vagnu", {}, ours, model);
    }

    Input m_provider;
    Line m_line;
    Vagmodell m_model;
    std::vector<kovltype> m_before; // an operation
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Player(data, size).Play();
    return 0;
}
