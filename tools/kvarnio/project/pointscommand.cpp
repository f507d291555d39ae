// kvarnio points.
#include <algorithm>
#include <charconv>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <formats/stodpunkt.h>
#include <text/codepage.h>
#include <text/text.h>

#include "../commands.h"
#include "../shared/backup.h"
#include "../shared/messages.h"
#include "../shared/output.h"
#include "../shared/platform.h"

namespace kvarnio {
namespace {

// The double with the float's shortest digits.
double AsTyped(float number) {
    char digits[32];
    auto const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    double typed = 0;
    std::from_chars(digits, end, typed);
    return typed;
}

std::vector<double> AsTyped(float const (&numbers)[6]) {
    return {AsTyped(numbers[0]), AsTyped(numbers[1]), AsTyped(numbers[2]),
            AsTyped(numbers[3]), AsTyped(numbers[4]), AsTyped(numbers[5])};
}

// A support point file as programs hold it, and what the file says.
class Points {
  public:
    explicit Points(std::string const& typed)
        : m_path(LibraryPath(typed)), m_points(m_path.c_str()) {
        if (MessageWasShown()) {
            ThrowNotRead(m_path);
        }
        for (bool there = m_points.Home() == 0; there; there = m_points++ != nullptr) {
            m_read.push_back(*m_points.Get_aktel());
        }
        std::string const content = ReadWhole(m_path);
        kvarn::LineReader lines{std::string_view(content)};
        bool hasNumber = false;
        for (kvarn::StodpunktLine const& line : kvarn::StodpunktHeader(lines).numbers) {
            double values[kvarn::stodpunktNumbers];
            hasNumber = hasNumber || kvarn::ReadValues(line.line.text, values) > 0;
            m_headerInFile.push_back(OneLine(kvarn::Trimmed(line.line.text)));
        }
        if (!hasNumber) {
            throw Failure(Shown(m_path) +
                          " is no file of support points: its header holds no number");
        }
        kvarn::StodpunktReader blocks(lines);
        for (kvarn::StodpunktBlock block; blocks.Next(block);) {
            if (!block.IsGvy()) {
                double v[kvarn::stodpunktNumbers];
                int const count = std::max(kvarn::ReadValues(block.rest.line.text, v), 0);
                m_valuesInFile.emplace_back(v, v + count);
            }
        }
        if (m_valuesInFile.size() != m_read.size()) {
            throw IoFailure(Shown(m_path) + " has changed while it was read");
        }
    }

    std::string const& Path() const { return m_path; }
    std::string Name() const { return m_points.m_namn.GetString(); }
    double Gvy() const { return AsTyped(m_points.m_gvy); }
    // A number of the header, counted from 0.
    double Header(std::size_t i) const {
        auto const& header = m_points.m_huvud;
        return i < std::size(header.varden) ? header.varden[i] : double{header.varde6};
    }
    std::vector<stdpkttype> const& Read() const { return m_read; }
    // The header's lines, empty where the file ends before; and of each point as many of its values
    // as its line begins with.
    std::vector<std::string> const& HeaderInFile() const { return m_headerInFile; }
    std::vector<std::vector<double>> const& ValuesInFile() const { return m_valuesInFile; }

  private:
    std::string m_path; // of the library
    CStodPunkt m_points;
    std::vector<stdpkttype> m_read;
    std::vector<std::string> m_headerInFile;
    std::vector<std::vector<double>> m_valuesInFile;
};

constexpr char const* notFromTheFile =
    "The library reads a point's values from its message buffer and not from the file, and keeps "
    "half of the\nbits of the header's sixth number. Both are lost when a program writes the "
    "file.\n";

std::string Row(std::vector<double> const& numbers) {
    std::string row;
    for (double const number : numbers) {
        row += (row.empty() ? "" : " ") + Shortest(number);
    }
    return row;
}

void PrintPoints(Points const& points) {
    std::string const name = points.Name();
    PrintTable({{"FILE", Shown(points.Path())},
                {"NAME", name.empty() ? "none: there is no \"$\" in the path" : OneLine(name)},
                {"GVY", points.Gvy() == 0 ? "none" : Shortest(points.Gvy())}});
    std::cout << '\n';
    std::vector<std::vector<std::string>> header = {{"HEADER", "IN THE FILE", "READ"}};
    for (std::size_t i = 0; i < points.HeaderInFile().size(); ++i) {
        header.push_back(
            {std::to_string(i + 1), points.HeaderInFile()[i], Shortest(points.Header(i))});
    }
    PrintTable(header);
    std::cout << '\n';
    std::vector<std::vector<std::string>> rows = {
        {"POINT", "LEVEL", "VALUES IN THE FILE", "VALUES READ"}};
    for (std::size_t i = 0; i < points.Read().size(); ++i) {
        stdpkttype const& point = points.Read()[i];
        rows.push_back({OneLine(point.namn), Shortest(AsTyped(point.niva)),
                        Row(points.ValuesInFile()[i]), Row(AsTyped(point.varden))});
    }
    PrintTable(rows);
    std::cout << '\n' << notFromTheFile;
}

Json ToJson(Points const& points) {
    Json json = {{"file", Shown(points.Path())},
                 {"name", kvarn::ToUtf8(points.Name())},
                 {"gvy", points.Gvy()},
                 {"header", Json::array()},
                 {"points", Json::array()}};
    for (std::size_t i = 0; i < points.HeaderInFile().size(); ++i) {
        json["header"].push_back(
            {{"inFile", points.HeaderInFile()[i]}, {"read", points.Header(i)}});
    }
    for (std::size_t i = 0; i < points.Read().size(); ++i) {
        stdpkttype const& point = points.Read()[i];
        json["points"].push_back({{"name", kvarn::ToUtf8(point.namn)},
                                  {"level", AsTyped(point.niva)},
                                  {"inFile", points.ValuesInFile()[i]},
                                  {"read", AsTyped(point.varden)}});
    }
    return json;
}

ExitStatus Show(Context& context, std::string const& typed) {
    Points const points(typed);
    context.json ? PrintJson(ToJson(points)) : PrintPoints(points);
    return done;
}

} // namespace

void AddPointsCommand(CommandLine& line) {
    auto const file = std::make_shared<std::string>();
    CLI::App& points = line.AddCommand(
        "points", "Show a file of support points: its header, its level and its points",
        "What stands in the file is shown beside what programs hold of it, which differs.\n"
        "Example: kvarnio points 'BRO$0001.STP'");
    points.add_option("FILE", *file, "File of support points")->required();
    line.Run(points, [file](Context& context) { return Show(context, *file); });
}

} // namespace kvarnio
