// What road's queries ask of a road line, and what it answers.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "../shared/road/roadfile.h"

namespace kvarnio {

// A number that is asked or answered.
struct Quantity {
    char const* name;
    std::span<char const* const> headings; // of its column in tables, in code page 1252
    bool isStation = false;
};

struct Answer {
    std::vector<double> values{}; // none for a reason
    std::optional<double> height{};
    std::string reason{};              // why something that was asked for is not there
    std::string const* road = nullptr; // its name
};

// A plan or a profile, with an index for many questions. What is asked does not change it.
class AskedLine {
  public:
    AskedLine(std::vector<kovltype> const& vertices, CVaglinje const& line)
        : m_vertices(vertices), m_index(line) {}

    // The stations in reasons are printed in kilometres and metres where that is wanted.
    Answer Xy(std::vector<double> const& stationAndOffset, bool inKilometres) const;
    Answer Station(std::vector<double> const& xAndY, bool inKilometres) const;
    Answer Z(std::vector<double> const& station, bool inKilometres) const;
    // Of a profile, for a station of its plan.
    Answer Height(double station, bool inKilometres) const;

  private:
    // `line` is what a reason calls the line, here and below.
    Answer Z(double station, char const* line, bool inKilometres) const;
    std::string Outside(double station, char const* line, bool inKilometres) const;

    std::vector<kovltype> const& m_vertices;
    CVagindex m_index;
};

struct Question {
    char const* command;
    char const* what;
    char const* note;
    char const* example;
    std::vector<Quantity const*> asked;
    std::vector<Quantity const*> answered;
    Answer (AskedLine::*ask)(std::vector<double> const& numbers, bool inKilometres) const;
    bool ofProfile;
};

std::vector<Question> const& Questions();

// The names of what is asked, with a text between them.
std::string NamesOf(std::vector<Quantity const*> const& quantities, char const* between);

// An answer that is no number has the reason for it instead.
Answer Ask(Question const& question, AskedLine const& line, std::vector<double> const& numbers,
           bool inKilometres);
// The height at a station, where the answer has one; otherwise the reason why it has none.
void AddHeight(Answer& answer, AskedLine const* profile, double station, bool inKilometres);

// With four decimals, and without the sign that a rounded zero would keep.
std::string Printed(double value);

} // namespace kvarnio
