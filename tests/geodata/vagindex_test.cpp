// The index of a road line and the line itself against the plain walk, to the last bit: over lines
// of every kind, and points where the answers change. Random, with a fixed seed.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "geodata/vagindex.h"
#include "support/vertices.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// A result and what was written.
struct Answer {
    int result;
    double first;
    double second;
};

bool SameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

bool operator==(Answer const& a, Answer const& b) {
    return a.result == b.result && SameBits(a.first, b.first) && SameBits(a.second, b.second);
}

std::ostream& operator<<(std::ostream& out, Answer const& a) {
    return out << std::setprecision(17) << a.result << ' ' << a.first << ' ' << a.second;
}

// --- The plain walk ------------------------------------------------------------------------------

// Every foot and every vertex, one after another, by the line's own formulas for one segment.
Answer PlainVagstv(CVaglinje& line, Vertices& v, double x, double y) {
    double const sign = v.size() > 1 && v[1].sektion < v[0].sektion ? -1 : 1;
    Answer best = {-1, CVaglinje::Seknoll, 0};
    double nearestFoot = 1.1e9;
    for (std::size_t i = 0; i + 1 < v.size(); ++i) {
        double along = 0;
        double offset = 0;
        int const result =
            std::fabs(v[i].bulge) > 1e-6
                ? line.Padist(&v[i], &v[i + 1], x, y, &along, &offset)
                : line.Pldist(v[i].y, v[i].x, v[i + 1].y, v[i + 1].x, y, x, &offset, &along);
        if (result == 1 && std::fabs(offset) < nearestFoot) {
            nearestFoot = std::fabs(offset);
            best = {nearestFoot <= 1e9 ? 0 : -1, v[i].sektion + sign * along, sign * offset};
        }
    }
    double nearestVertex = 1.1e9;
    std::size_t nearest = 0;
    for (std::size_t i = 0; i < v.size(); ++i) {
        double const dx = v[i].x - x;
        double const dy = v[i].y - y;
        double const distance = std::sqrt(dx * dx + dy * dy);
        if (distance < nearestVertex) {
            nearestVertex = distance;
            nearest = i;
        }
    }
    if (nearest > 0 && nearest + 1 < v.size() && nearestVertex < nearestFoot) {
        double side = 1;
        double along = 0;
        line.Pldist(v[nearest - 1].y, v[nearest - 1].x, v[nearest].y, v[nearest].x, y, x, &side,
                    &along);
        best = {0, v[nearest].sektion, side < 0 ? -nearestVertex : nearestVertex};
    }
    return best;
}

// --- Lines and points ----------------------------------------------------------------------------

using Random = std::mt19937;

double Between(Random& random, double from, double to) {
    return std::uniform_real_distribution<double>(from, to)(random);
}

bool OneIn(Random& random, unsigned n) {
    return random() % n == 0;
}

double AnyOf(Random& random, std::initializer_list<double> values) {
    return values.begin()[random() % values.size()];
}

// How the vertices follow each other.
struct Kind {
    char const* name;
    double arcs;       // their share
    double bulge;      // the largest, or the exponent of the smallest where it is negative
    double turn;       // the largest at a vertex, in radians
    double grid;       // places are multiples of it, 0 for any
    double oddNumbers; // their share
    double origin;
};

constexpr Kind kinds[] = {
    {"winding straights", 0, 0, 0.3, 0, 0, 6.5e6},
    {"winding arcs", 1, 0.1, 0.3, 0, 0, 6.5e6},
    {"arcs beyond a half circle", 0.7, 3, 3, 0, 0, 6.5e6},
    {"flat arcs", 0.9, -6, 0.05, 0, 0, 6.5e6},
    {"hairpins", 0.5, 1, 3.14159, 0, 0, 1e3},
    {"on a grid, with many equally far", 0.3, 1, 3.2, 5, 0, 0},
    {"quarter circles along the axes", 1, 0, 3.2, 10, 0, 100},
    {"numbers of any size", 0.4, 2, 3, 0, 0.1, 0},
    {"far from the origin", 0.5, 0.5, 1, 0, 0, 1e15},
};

double BulgeOf(Kind const& kind, Random& random) {
    if (Between(random, 0, 1) >= kind.arcs) {
        return AnyOf(random, {0, 0, 1e-6, -1e-7});
    }
    double const sign = OneIn(random, 2) ? -1 : 1;
    if (kind.bulge == 0) {
        return sign * AnyOf(random, {0.41421356237309503, 0.4142135623731, 1, 0.19891236737965801});
    }
    return sign * (kind.bulge < 0 ? std::pow(10, Between(random, kind.bulge, -2))
                                  : Between(random, 0, kind.bulge));
}

double Odd(Random& random) {
    return AnyOf(random, {nan, infinity, -infinity, 1e-320, 1e-160, 2e-161, 1e154, -1.3e154, 1e160,
                          1e300, 1.1e9, 1e9, -0.0, 9999999.9});
}

Vertices LineOf(Kind const& kind, Random& random, int count) {
    Vertices line;
    kovltype v = {kind.origin, kind.origin / 40, 0, Between(random, -1e3, 1e3)};
    double heading = Between(random, -4, 4);
    double const sign = OneIn(random, 2) ? -1 : 1;
    double const quarter = std::acos(0.0);
    bool const isAlongAxes = kind.bulge < 0 && OneIn(random, 2);
    for (int i = 0; i < count; ++i) {
        v.bulge = BulgeOf(kind, random);
        line.push_back(v);
        for (double* const number :
             {&line.back().x, &line.back().y, &line.back().bulge, &line.back().sektion}) {
            *number = Between(random, 0, 1) < kind.oddNumbers ? Odd(random) : *number;
        }
        heading += Between(random, -kind.turn, kind.turn);
        if (isAlongAxes) {
            heading = std::round(heading / quarter) * quarter + Between(random, -1e-6, 1e-6);
        }
        // Some coincide, or are too short to be seen.
        double const step =
            OneIn(random, 30) ? AnyOf(random, {0, 0.005, 0.011, 0.09}) : Between(random, 1, 40);
        v.x += step * std::cos(heading);
        v.y += step * std::sin(heading);
        if (i > 0 && OneIn(random, 20)) { // back over the segment before
            v.x = line[line.size() - 2].x;
            v.y = line[line.size() - 2].y;
        }
        if (kind.grid > 0) {
            v.x = kind.grid * std::round(v.x / kind.grid);
            v.y = kind.grid * std::round(v.y / kind.grid);
        }
        if (kind.bulge == 0 && kind.arcs > 0 && OneIn(random, 3)) { // one end on an axis
            kovltype& from = line.back();
            double const d[] = {std::fabs(v.x - from.x), std::fabs(v.y - from.y)};
            from.bulge = std::tan(std::atan2(d[0], d[1]) / 2) * (OneIn(random, 2) ? -1 : 1);
        }
        v.sektion += sign * (OneIn(random, 50) ? Between(random, -50, 0) : step);
    }
    return line;
}

// Near the line, mostly: beside its vertices and about the centres of its arcs, where directions
// along an axis are others than they are.
std::array<double, 2> PointBy(CVaglinje& line, Vertices const& v, Kind const& kind,
                              Random& random) {
    std::size_t const i = random() % v.size();
    kovltype const& p = v[i];
    kovltype const& q = v[std::min(i + 1, v.size() - 1)];
    double const reach = AnyOf(random, {1, 30, 30, 1000, 1e6, 5e8});
    double x = p.x + Between(random, -reach, reach);
    double y = p.y + Between(random, -reach, reach);
    switch (random() % 8) {
    case 0: // an axis through a centre, or nearly
    case 7: {
        kokotype from = {p.y, p.x, p.bulge};
        kokotype to = {q.y, q.x, 0};
        double radius = 0;
        double centreX = 0;
        double centreY = 0;
        line.Bulge_r(&from, &to, &radius, &centreY, &centreX, 1);
        double const beside = AnyOf(random, {0, 0.99e-5, -0.99e-5, 1.01e-5, 3e-6});
        double const along = AnyOf(random, {radius, -radius, radius + 1, 2 - radius, 0});
        bool const isX = OneIn(random, 2);
        x = centreX + (isX ? along : beside);
        y = centreY + (isX ? beside : along);
        if (OneIn(random, 2)) { // or anywhere on the circle
            double const angle = Between(random, 0, 7);
            x = centreX + radius * std::sin(angle);
            y = centreY + radius * std::cos(angle);
        }
        break;
    }
    case 1:
        x = p.x;
        break;
    case 2:
        y = q.y;
        break;
    case 3: // on the segment
        x = p.x + (q.x - p.x) / 4;
        y = p.y + (q.y - p.y) / 4;
        break;
    case 4:
        x = kind.grid > 0 ? kind.grid / 2 * std::round(x / kind.grid * 2) : x;
        y = kind.grid > 0 ? kind.grid / 2 * std::round(y / kind.grid * 2) : y;
        break;
    case 5:
        x = OneIn(random, 20) ? Odd(random) : x;
        break;
    default:
        break;
    }
    return {x, y};
}

double StationBy(Vertices const& v, Random& random) {
    kovltype const& p = v[random() % v.size()];
    double const at = OneIn(random, 2) ? p.sektion : p.y;
    return OneIn(random, 30) ? Odd(random)
                             : at + AnyOf(random, {0, 0.0001, -0.0001, 0.00005, -5, 0.3, 17});
}

// --- The comparison ------------------------------------------------------------------------------

template <class Ask> Answer Asked(double first, double second, Ask ask) {
    Answer answer = {0, 7, 7};
    answer.result = ask(first, second, &answer.first, &answer.second);
    return answer;
}

// What is asked for one point, and a station with the point's y for an offset.
struct Question {
    double x;
    double y;
    double station;
};

void CompareAnswers(CVaglinje& line, CVagindex const& index, Question const& q,
                    Answer const& plain) {
    auto const [x, y, station] = q;
    ASSERT_EQ(Asked(x, y, [&](auto... to) { return line.Vagstv(to..., 0); }), plain);
    ASSERT_EQ(Asked(x, y, [&](auto... to) { return index.Vagstv(to...); }), plain);
    ASSERT_EQ(Asked(x, y, [&](auto... to) { return index.PktIomr(to...); }),
              Asked(x, y, [&](auto... to) { return line.PktIomr(to..., 0); }));
    ASSERT_EQ(Asked(station, y, [&](auto... to) { return index.Vag2xy(to...); }),
              Asked(station, y, [&](auto... to) { return line.Vag2xy(to...); }));
    auto const height = [station = station](auto& of) {
        return Asked(station, 0,
                     [&](double s, double, double* z, double*) { return of.Vagprofz(s, z); });
    };
    ASSERT_EQ(height(index), height(line));
}

void Compare(Kind const& kind, Random& random, int vertices, int& successes) {
    Vertices v = LineOf(kind, random, vertices);
    CVaglinje line;
    Append(line, v);
    line.Reset();
    line.omrAvstMin = -10;
    CVagindex const index(line);
    for (int i = 0; i < 150 && !v.empty() && !testing::Test::HasFatalFailure(); ++i) {
        auto const [x, y] = PointBy(line, v, kind, random);
        double const station = StationBy(v, random);
        SCOPED_TRACE(testing::Message()
                     << std::setprecision(17) << x << ' ' << y << ' ' << station);
        Answer const plain = PlainVagstv(line, v, x, y);
        CompareAnswers(line, index, {x, y, station}, plain);
        successes += plain.result == 0 ? 1 : 0;
    }
}

TEST(Vagindex, AnswersAreThoseOfThePlainWalkToTheLastBit) {
    Random random(20261122);
    for (Kind const& kind : kinds) {
        int successes = 0;
        for (int n = 0; n < 150 && !HasFatalFailure(); ++n) {
            SCOPED_TRACE(testing::Message() << kind.name << ' ' << n);
            unsigned const most = n % 50 == 49 ? 500 : 60;
            Compare(kind, random, n < 8 ? n / 2 : 2 + static_cast<int>(random() % most), successes);
        }
        EXPECT_GT(successes, 5000) << kind.name;
    }
}

// Spikes about a point have their tips equally far from it: the first counts, though the square of
// its distance may be larger by what the root's rounding takes.
TEST(Vagindex, TheFirstOfVerticesWhoseRoundedDistancesAreEqual) {
    Random random(7);
    for (int n = 0; n < 200; ++n) {
        Vertices v;
        for (int i = 0; i < 80; ++i) {
            double const angle = 0.03 * i + Between(random, 0, 0.01);
            double const radius = i % 2 == 0 ? 50 : 5;
            v.push_back({radius * std::cos(angle), radius * std::sin(angle), 0, 10.0 * i});
            v.push_back({5 * v.back().x, 5 * v.back().y, 0, 10.0 * i + 5});
        }
        CVaglinje line;
        Append(line, v);
        Answer const plain = PlainVagstv(line, v, 0, 0);
        ASSERT_EQ(Asked(0, 0, [&](auto... to) { return line.Vagstv(to..., 0); }), plain);
        ASSERT_EQ(Asked(0, 0, [&](auto... to) { return CVagindex(line).Vagstv(to...); }), plain);
    }
}

// Between feet that are nearer than the root of the smallest number.
TEST(Vagindex, SquaresThatComeToNothingRuleNothingOut) {
    Vertices v = {{1e-160, 1e-160, 0.41421356237309503, 0},
                  {0, 1e-160, 0, 1},
                  {-1052688.003, 40.125, 0, 1e12}};
    double const x = 1.000153905013052e-160;
    double const y = 9.9984609584364867e-161;
    CVaglinje line;
    Append(line, v);
    Answer const plain = PlainVagstv(line, v, x, y);
    EXPECT_EQ(plain.first, 1);
    EXPECT_EQ(Asked(x, y, [&](auto... to) { return line.Vagstv(to..., 0); }), plain);
    EXPECT_EQ(Asked(x, y, [&](auto... to) { return CVagindex(line).Vagstv(to...); }), plain);
}

TEST(Vagindex, TheTypeDecidesWhatIsAskedAndTheLineMayChangeAfterwards) {
    for (int const type : {0, 1, 2, 10}) {
        CVaglinje line;
        Append(line, {{0, 0, 0, 0}, {100, 10, 0.01, 10}, {300, 30, 0, 30}});
        line.typ = type;
        line.Reset();
        line.Home();
        CVagindex const index(line);
        EXPECT_EQ(line.Where(nullptr), 1);
        double first = 0;
        double second = 0;
        std::vector<Answer> own;
        own.push_back(Asked(15, 3, [&](auto... to) { return line.Vag2xy(to...); }));
        own.push_back(Asked(150, 3, [&](auto... to) { return line.PktIomr(to..., 0); }));
        own.push_back(Asked(150, 3, [&](auto... to) { return line.Vagstv(to..., 0); }));
        own.push_back({line.Vagprofz(15, &first), 0, 0});
        while (line.Home() == 0) {
            line.Delete();
        }
        line.Reset();
        EXPECT_EQ(Asked(15, 3, [&](auto... to) { return index.Vag2xy(to...); }), own[0]);
        EXPECT_EQ(Asked(150, 3, [&](auto... to) { return index.PktIomr(to...); }), own[1]);
        EXPECT_EQ(Asked(150, 3, [&](auto... to) { return index.Vagstv(to...); }), own[2]);
        EXPECT_EQ(index.Vagprofz(15, &second), own[3].result);
        EXPECT_EQ(first, second);
    }
}

// Each element is answered as if alone, in place, and by several threads at once.
TEST(Vagindex, ArraysAreAnsweredInPlaceAndByThreads) {
    Random random(5);
    CVaglinje line;
    Append(line, LineOf(kinds[1], random, 300));
    line.omrSekFran = -1e5;
    line.omrSekTill = 1e5;
    line.omrAvstMax = 50;
    CVagindex const index(line);
    constexpr int count = 1000;
    std::vector<double> x;
    std::vector<double> y;
    std::vector<Answer> wanted;
    for (int i = 0; i < count; ++i) {
        x.push_back(6.5e6 + Between(random, -500, 500));
        y.push_back(6.5e6 / 40 + Between(random, -500, 500));
        Answer answer = {0, x.back(), y.back()}; // which stay for a point outside
        answer.result = index.PktIomr(x.back(), y.back(), &answer.first, &answer.second);
        wanted.push_back(answer);
    }
    auto const ask = [&] {
        std::vector<double> first = x;
        std::vector<double> second = y;
        std::vector<int> results(count);
        int const succeeded = index.PktIomr(count, first.data(), second.data(), first.data(),
                                            second.data(), results.data());
        EXPECT_EQ(succeeded, std::count(results.begin(), results.end(), 0));
        for (std::size_t i = 0; i < results.size(); ++i) {
            EXPECT_EQ((Answer{results[i], first[i], second[i]}), wanted[i]);
        }
    };
    std::thread other(ask);
    ask();
    other.join();
    EXPECT_GT(index.PktIomr(count, x.data(), y.data(), nullptr, nullptr, nullptr), 10);
}

} // namespace
