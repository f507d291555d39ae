// The answers of --json have the shapes that their page shows.
#include <regex>

#include "kvarnio.h"
#include "support/infolder.h"
#include "support/installation.h"

namespace {

// Whether two texts have the same names and kinds of values; of arrays, each element of either has
// its like in the other.
bool SameShape(Json const& a, Json const& b);

bool EachHasItsLike(Json const& elements, Json const& among) {
    return std::all_of(elements.begin(), elements.end(), [&](Json const& element) {
        return std::any_of(among.begin(), among.end(),
                           [&](Json const& other) { return SameShape(element, other); });
    });
}

bool SameShape(Json const& a, Json const& b) {
    if (a.is_array() && b.is_array()) {
        return EachHasItsLike(a, b) && EachHasItsLike(b, a);
    }
    if (a.is_object() && b.is_object()) {
        auto const& [members, others] = std::pair(a.items(), b.items());
        return a.size() == b.size() &&
               std::all_of(members.begin(), members.end(), [&](auto const& member) {
                   return b.contains(member.key()) && SameShape(member.value(), b[member.key()]);
               });
    }
    return a.is_number() ? b.is_number() : a.type() == b.type();
}

struct Answer {
    std::string title;
    Words commands; // the last one is asked
    Json shape;
};

std::vector<Answer> Page() {
    std::string const page = ReadBytes(std::filesystem::path(SAMPLES) / "../docs/json.md");
    std::regex const section("\n## ([^\n]+)\n(?:(?!```|## )[^\n]*\n)*```\n([^`]*)```\n\n"
                             "```json\n([^`]*)```\n");
    std::vector<Answer> answers;
    for (std::sregex_iterator i(page.begin(), page.end(), section), end; i != end; ++i) {
        answers.push_back({(*i)[1], {}, Json::parse((*i)[3].str())});
        std::istringstream lines((*i)[2]);
        for (std::string line; std::getline(lines, line);) {
            answers.back().commands.push_back(line.substr(line.find(' ') + 1));
        }
    }
    return answers;
}

class JsonTest : public KvarnioTest {
  protected:
    // The names of a command's subcommands, as its help lists them.
    Words Subcommands(std::string const& command) const {
        std::string const help = RunBare(command + " --help").out;
        std::size_t const list = help.find("\nSubcommands:\n");
        Words names;
        std::istringstream lines(list == std::string::npos ? "" : help.substr(list + 14));
        for (std::string line; std::getline(lines, line) && line.starts_with("  ");) {
            if (line[2] != ' ') {
                names.push_back(line.substr(2, line.find(' ', 2) - 2));
            }
        }
        return names;
    }

    Installation m_registry;
};

TEST_F(JsonTest, AnswersHaveTheShapesOfTheirPage) {
    std::string const key = "Software\\Exempel";
    m_registry.Set(HKEY_CURRENT_USER, key, "Namn", "V\xE4g 27");
    CRegistry registry;
    registry.SetKey(key.c_str(), 0, KEY_ALL_ACCESS);
    registry.WriteInt("Bredd", 320);
    for (Answer const& answer : Page()) {
        SCOPED_TRACE(answer.title);
        std::filesystem::remove_all(m_folder / "c");
        std::filesystem::copy(std::filesystem::path(SAMPLES) / "drives/c", m_folder / "c",
                              std::filesystem::copy_options::recursive);
        InFolder const project(m_folder / vag27);
        Result result{};
        for (std::string const& command : answer.commands) {
            result = Run(command + " --json");
        }
        ASSERT_TRUE(Json::accept(result.out)) << result.out << result.err;
        EXPECT_TRUE(SameShape(Json::parse(result.out), answer.shape)) << result.out;
    }
    registry.DeleteKey(key.c_str());
}

TEST_F(JsonTest, EveryCommandIsOnThePage) {
    std::string titles;
    for (Answer const& answer : Page()) {
        titles += answer.title + ", ";
    }
    for (std::string const& command : Subcommands("")) {
        Words const below = Subcommands(command);
        for (std::string const& name : below) {
            ExpectPart(titles, std::string(command).append(" ").append(name));
        }
        ExpectPart(titles, below.empty() ? command : command + ' ');
    }
}

TEST_F(JsonTest, WhatCannotBeDoneIsToldSo) {
    std::vector<std::pair<char const*, int>> cases = {{"get KVARNBOK.PAR NEJ", notThere},
                                                      {"get", wrongUsage},
                                                      {"no-command", wrongUsage},
                                                      {"check no-such-file", notThere}};
#if !defined(_WIN32) // whose arguments are UTF-16
    cases.emplace_back("road info \xFF.vl", wrongUsage);
#endif
    for (auto const& [line, status] : cases) {
        Result const result = Run(std::string(line) + " --json");
        EXPECT_EQ(result.status, status) << line;
        ASSERT_TRUE(Json::accept(result.out)) << line << result.out;
        EXPECT_EQ(Json::parse(result.out)["status"], status);
        ExpectPart(result.err, "kvarnio: ");
    }
    Json const missing = Json::parse(RunBare("points finns-ej.stp --json").out);
    ASSERT_EQ(missing["programsShow"].size(), 1U);
    ExpectPart(missing["programsShow"][0], "Kan ej öppna stödpunkt : ");
}

} // namespace
