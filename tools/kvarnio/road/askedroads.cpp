#include "askedroads.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include <files/pathparts.h>
#include <text/codepage.h>

#include "../shared/copies.h"
#include "../shared/failure.h"
#include "../shared/folder.h"
#include "../shared/output.h"
#include "../shared/platform.h"

namespace kvarnio {
namespace {

std::string NameOf(std::string const& path) {
    return path.substr(path.rfind('\\') + 1);
}

bool IsSameFile(std::filesystem::path const& file, RoadFile const& road) {
    std::error_code notThere;
    return std::filesystem::equivalent(file, HostPath(road.Path()), notThere);
}

} // namespace

struct AskedRoads::Road {
    explicit Road(std::string const& typed) : file(typed) {}

    RoadFile file;
    std::optional<AskedLine> line; // what the question is about
    std::optional<AskedLine> profile;
    std::string name{};
};

AskedRoads::AskedRoads(RoadsWanted const& wanted, Question const& question)
    : m_wanted{!wanted.also.empty(), wanted.height || !wanted.profile.empty(), wanted.kilometres},
      m_question(question) {
    if (AreSeveral() && !wanted.profile.empty()) {
        throw UsageError("--profile is the profile of one road: leave out --also");
    }
    Add(wanted.file);
    if (!wanted.profile.empty()) {
        m_profileFile = std::make_unique<RoadFile>(wanted.profile);
        m_profileFile->WarnOfSkippedLines();
        CVaglinje const& profile = m_profileFile->ProfileToAsk();
        m_roads.front()->profile.emplace(m_profileFile->Profile(), profile);
    } else if (HasHeight() && !AreSeveral() && !m_roads.front()->profile) {
        throw Failure(Shown(m_roads.front()->file.Path()) +
                      " has no profile to take heights from; --profile names the file of one");
    }
    for (std::string const& typed : wanted.also) {
        IsFolder(LibraryFolder(typed) + '\\') ? AddFolder(typed) : Add(typed);
    }
    NameRoads();
}

AskedRoads::~AskedRoads() = default;

// A file that is named twice, or lies in a folder that is, is asked once.
void AskedRoads::Add(std::string const& typed) {
    auto road = std::make_unique<Road>(typed);
    if (Includes(HostPath(road->file.Path()))) {
        return;
    }
    road->file.WarnOfSkippedLines();
    if (m_question.ofProfile) {
        CVaglinje const& line = road->file.ProfileToAsk();
        road->line.emplace(road->file.Profile(), line);
    } else {
        CVaglinje const& line = road->file.PlanToAsk();
        road->line.emplace(road->file.Plan(), line);
    }
    if (HasHeight() && road->file.Profile().size() > 1) {
        CVaglinje const& profile = road->file.ProfileToAsk();
        road->profile.emplace(road->file.Profile(), profile);
    }
    m_roads.push_back(std::move(road));
}

// An area file has the extension of roads too, and no plan.
void AskedRoads::AddFolder(std::string const& typed) {
    std::string const folder = LibraryFolder(typed);
    bool hasPlan = false;
    for (std::string const& name : NamesIn(folder)) {
        std::string const path = kvarn::PathOf(folder, name);
        if (HasExtension(name, ".VL") && !IsFolder(path + '\\') &&
            RoadFile(kvarn::ToUtf8(path)).Plan().size() > 1) {
            Add(kvarn::ToUtf8(path));
            hasPlan = true;
        }
    }
    if (!hasPlan) {
        throw Failure("there is no road file (.VL) with a plan in " + Shown(folder));
    }
}

// The file's name is enough, unless two roads have it.
void AskedRoads::NameRoads() {
    for (auto const& road : m_roads) {
        std::string const name = NameOf(road->file.Path());
        auto const ofThatName =
            std::count_if(m_roads.begin(), m_roads.end(), [&](auto const& other) {
                return kvarn::CompareNoCase1252(NameOf(other->file.Path()), name) == 0;
            });
        road->name = ofThatName > 1 ? Shown(road->file.Path()) : kvarn::ToUtf8(name);
    }
}

bool AskedRoads::Includes(std::filesystem::path const& file) const {
    return (m_profileFile && IsSameFile(file, *m_profileFile)) ||
           std::any_of(m_roads.begin(), m_roads.end(),
                       [&](auto const& road) { return IsSameFile(file, road->file); });
}

Answer AskedRoads::AnswerOf(Road const& road, std::vector<double> const& numbers) const {
    Answer answer = kvarnio::Ask(m_question, *road.line, numbers, InKilometres());
    answer.road = &road.name;
    return answer;
}

void AskedRoads::AddHeightTo(Answer& answer, Road const& road,
                             std::vector<double> const& numbers) const {
    if (HasHeight() && !answer.values.empty()) {
        double const station =
            m_question.asked.front()->isStation ? numbers.front() : answer.values.front();
        AddHeight(answer, road.profile ? &*road.profile : nullptr, station, InKilometres());
    }
}

Answer AskedRoads::NoRoad() const {
    return {.reason =
                "the point lies beside no segment and no inner vertex of " +
                (m_roads.size() == 1 ? "the line"
                                     : "any of the " + std::to_string(m_roads.size()) + " roads")};
}

Answer AskedRoads::Ask(std::vector<double> const& numbers) const {
    if (AreSeveral()) {
        Road const* nearest = nullptr;
        Answer best = NoRoad();
        for (auto const& road : m_roads) {
            Answer answer = AnswerOf(*road, numbers);
            if (!answer.values.empty() &&
                (nearest == nullptr ||
                 std::fabs(answer.values.back()) < std::fabs(best.values.back()))) {
                nearest = road.get();
                best = std::move(answer);
            }
        }
        if (nearest != nullptr) {
            AddHeightTo(best, *nearest, numbers);
        }
        return best;
    }
    Answer answer = AnswerOf(*m_roads.front(), numbers);
    AddHeightTo(answer, *m_roads.front(), numbers);
    return answer;
}

std::vector<Answer> AskedRoads::AskAll(std::vector<double> const& numbers) const {
    std::vector<Answer> answers;
    for (auto const& road : m_roads) {
        Answer answer = AnswerOf(*road, numbers);
        if (!answer.values.empty()) {
            AddHeightTo(answer, *road, numbers);
            answers.push_back(std::move(answer));
        }
    }
    std::stable_sort(answers.begin(), answers.end(), [](Answer const& a, Answer const& b) {
        return std::fabs(a.values.back()) < std::fabs(b.values.back());
    });
    return answers.empty() ? std::vector<Answer>{NoRoad()} : answers;
}

} // namespace kvarnio
