// The roads that a query asks: one, or several of which the nearest comes first.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "questions.h"

namespace kvarnio {

// As the user typed them.
struct RoadsWanted {
    std::string file;
    std::vector<std::string> also; // road files, and folders for those in them that have a plan
    std::string profile;           // the file of the profile, where it is not the road's
    bool height = false;
    bool kilometres = false; // in reasons
};

class AskedRoads {
  public:
    // Throws Failure where a file has not what is asked of it.
    AskedRoads(RoadsWanted const& wanted, Question const& question);
    ~AskedRoads();
    AskedRoads(AskedRoads const&) = delete;
    AskedRoads& operator=(AskedRoads const&) = delete;

    // Whether an answer tells its road.
    bool AreSeveral() const { return m_wanted.several; }
    bool HasHeight() const { return m_wanted.height; }
    bool InKilometres() const { return m_wanted.kilometres; }

    // The nearest road's answer.
    Answer Ask(std::vector<double> const& numbers) const;
    // Those of all roads that have one, the nearest first; without any, the reason alone.
    std::vector<Answer> AskAll(std::vector<double> const& numbers) const;
    // Whether a file is one of the roads' or the profile's.
    bool Includes(std::filesystem::path const& file) const;

  private:
    struct Road;
    struct Wanted {
        bool several;
        bool height;
        bool kilometres;
    };

    void Add(std::string const& typed);
    void AddFolder(std::string const& typed);
    void NameRoads();
    Answer AnswerOf(Road const& road, std::vector<double> const& numbers) const;
    void AddHeightTo(Answer& answer, Road const& road, std::vector<double> const& numbers) const;
    Answer NoRoad() const;

    Wanted m_wanted;
    Question const& m_question;
    std::unique_ptr<RoadFile> m_profileFile; // of its own
    std::vector<std::unique_ptr<Road>> m_roads;
};

} // namespace kvarnio
