#include "roadlines.h"

#include <geodata/vaglinje.h>
#include <text/scan.h>

#include "../output.h"
#include <formats/checks/linechecker.h>

namespace kvarnio {
namespace {

using kvarn::TextLine;

constexpr char star = '*';

std::string Quoted(std::string_view text) {
    return '"' + OneLine(text) + '"';
}

class Reader {
  public:
    explicit Reader(bool isPlan) : m_isPlan(isPlan) {}

    void Read(TextLine const& line) {
        switch (m_part) {
        case Part::vertices:
            ReadVertex(line);
            break;
        case Part::title:
            ReadHeading(line);
            m_part = Part::secondStar;
            break;
        case Part::secondStar:
            ReadHeading(line);
            m_part = Part::profile;
            break;
        case Part::profile:
        default:
            ReadProfileVertex(line);
        }
        if (line.afterZero) {
            Cut(line.number, "text after a zero byte is not read: " + Quoted(*line.afterZero));
        }
    }
    void ReadBeyondEnd(TextLine const& line) {
        Cut(line.number,
            "everything after the end-of-file character 0x1A is not read: " + Quoted(line.text));
    }

    RoadLines Take() { return std::move(m_read); }

  private:
    enum class Part { vertices, title, secondStar, profile };

    void ReadVertex(TextLine const& line) {
        constexpr int all = 4;
        kovltype v{};
        char rest[2] = "";
        int const count = kvarn::Scan(line.text, v.x, v.y, v.bulge, v.sektion, rest);
        if (count >= all) {
            (m_isPlan ? m_read.plan : m_read.profile).push_back(line.number);
            line.number == 1 ? LookAtHeader(line) : LookAtRest(line, count > all);
        } else if (line.text.starts_with(star)) {
            m_part = Part::title;
        } else {
            Skip(line, "not four numbers");
        }
    }

    // The two lines after the first star are passed over, whatever they are.
    void ReadHeading(TextLine const& line) {
        double number = 0;
        if (kvarn::Scan(line.text, number) == 1) {
            Skip(line, R"(it stands where "Profil" and "*" do)");
        }
    }

    void ReadProfileVertex(TextLine const& line) {
        constexpr int all = 3;
        double height = 0;
        double station = 0;
        double bulge = 0;
        char rest[2] = "";
        int const count = kvarn::Scan(line.text, height, station, bulge, rest);
        if (count >= all) {
            m_read.profile.push_back(line.number);
            LookAtRest(line, count > all);
        } else {
            Skip(line, "not three numbers");
        }
    }

    void LookAtHeader(TextLine const& line) {
        constexpr std::size_t longest = sizeof CVaglinje::namn - 1;
        std::size_t const dollar = line.text.find('$');
        if (dollar == std::string_view::npos) {
            return;
        }
        std::size_t const second = line.text.find('$', dollar + 1);
        std::string_view const name = line.text.substr(dollar + 1, second - dollar - 1);
        if (name.size() > longest) {
            Cut(line.number,
                "the name has " + std::to_string(name.size()) + " characters; 255 are read");
        }
        if (second != std::string_view::npos) {
            Cut(line.number,
                "the name ends at its second \"$\"; not read: " + Quoted(line.text.substr(second)));
        }
    }

    // A decimal comma in the last number, for one.
    void LookAtRest(TextLine const& line, bool more) {
        if (more) {
            Cut(line.number, "text after the numbers is not read: " + Quoted(line.text));
        }
    }

    void Skip(TextLine const& line, char const* why) {
        m_read.skipped.push_back(
            {line.number, std::string("bad line, skipped: ") + why + ": " + Quoted(line.text)});
    }
    void Cut(std::size_t line, std::string what) { m_read.cut.push_back({line, std::move(what)}); }

    bool m_isPlan;
    Part m_part = Part::vertices;
    RoadLines m_read;
};

} // namespace

RoadLines ReadRoadLines(std::string_view content, bool isPlan) {
    Reader reader(isPlan);
    for (TextLine const& line : kvarn::LinesOf(content)) {
        reader.Read(line);
    }
    return reader.Take();
}

} // namespace kvarnio
