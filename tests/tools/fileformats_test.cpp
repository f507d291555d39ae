// The examples of docs/file-formats.md: the files on it are read, and written, as it says.
#include <functional>
#include <map>
#include <regex>
#include <utility>

#include <kvarnprog.h>

#include "kvarnio.h"
#include "support/child.h"
#include "support/infolder.h"

namespace {

// The library's objects on the project that the present folder is.
struct Project {
    Project() {
        ini.m_huvudKat = ini.m_cfgKat = "";
        ini.m_lage = 1;
        ini.m_iniFil = ".\\Markvida.ini";
        paths.SetPath(".");
        inst.Init(&ini, &paths);
    }

    CAutoIni ini;
    CProjPath paths;
    CKvarnInst inst;
    CVag2 road;
};

struct CodeLine {
    std::string words[5];
    int number = 0;
    int step = 0;
};
using CodeLines = std::vector<CodeLine>;

constexpr std::size_t bufferSize = 256;

std::string Decimals(double number) {
    return Json(number).dump();
}

std::string Whole(double number) { // as the files have it
    std::string const text = Decimals(number);
    return text.ends_with(".0") ? text.substr(0, text.size() - 2) : text;
}

void RewriteKodfil(CKvarnInst& inst) {
    char kod[bufferSize];
    char text[bufferSize];
    CodeLines lines;
    while (inst.KodfilDatRead(kod, text) == 0) {
        lines.push_back({{kod, text}});
    }
    int mode = 1;
    for (CodeLine const& line : lines) {
        inst.KodfilDatWrite(mode, line.words[0].c_str(), line.words[1].c_str());
        mode = 0;
    }
    inst.KodfilDatWrite(2, "", "");
}

void RewriteMiljkod(CKvarnInst& inst) {
    constexpr int sections = 3;
    constexpr int lastSection = 3;
    char kod[bufferSize];
    char text[bufferSize];
    CodeLines lines[sections + 1];
    for (int section = 1; section <= sections; ++section) {
        int max = 0;
        int step = 0;
        bool const limits = section == lastSection;
        while (inst.MiljkodRead(section, kod, text, limits ? &max : nullptr,
                                limits ? &step : nullptr) == 0) {
            lines[section].push_back({{kod, text}, max, step});
        }
    }
    inst.MiljKodWrite(1, nullptr, nullptr, 0, 0);
    for (int section = 1; section <= sections; ++section) {
        for (CodeLine const& line : lines[section]) {
            inst.MiljKodWrite(2 * section, line.words[0].c_str(), line.words[1].c_str(),
                              line.number, line.step);
        }
        inst.MiljKodWrite(2 * section + 1, nullptr, nullptr, 0, 0);
    }
}

void RewriteLinkod(CKvarnInst& inst) {
    constexpr int badLine = -2;
    char kod[bufferSize];
    char ord[bufferSize];
    char text[bufferSize];
    double number = 0;
    int whole = 0;
    CodeLines lines;
    for (int kind; (kind = inst.LinkodRead(kod, ord, text, &number, &whole)) != 0;) {
        if (kind != badLine) {
            lines.push_back({{kod, ord, Whole(number), text, std::to_string(whole)}, kind});
        }
    }
    inst.LinkodWrite(1, nullptr, nullptr, nullptr, nullptr, nullptr);
    for (auto const& [words, kind, step] : lines) {
        inst.LinkodWrite(kind == 1 ? 2 : 4, words[0].c_str(), words[1].c_str(), words[2].c_str(),
                         words[3].c_str(), words[4].c_str());
    }
    inst.LinkodWrite(5, nullptr, nullptr, nullptr, nullptr, nullptr);
}

void RewriteStampel(CKvarnInst& inst) {
    constexpr int badLine = -2;
    char const* const path = ".\\STAMPEL.PAR";
    char word1[bufferSize];
    char word2[bufferSize];
    double n[3] = {};
    CodeLines lines;
    for (int read; (read = inst.StampParRead(path, word1, word2, &n[0], &n[1], &n[2])) != 0;) {
        if (read != badLine) {
            lines.push_back({{word1, word2, Whole(n[0]), Whole(n[1]), Whole(n[2])}});
        }
    }
    inst.StampParWrite(path, 1, nullptr, nullptr, nullptr, nullptr, nullptr);
    for (auto const& [w, number, step] : lines) {
        inst.StampParWrite(path, 2, w[0].c_str(), w[1].c_str(), w[2].c_str(), w[3].c_str(),
                           w[4].c_str());
    }
    inst.StampParWrite(path, 3, nullptr, nullptr, nullptr, nullptr, nullptr);
}

void SaveFill(Project& project) {
    constexpr int fill = 1;
    CBergOrMateLista list(&project.ini, &project.paths, fill, 0);
    list.Init();
    EXPECT_EQ(list.Save(nullptr), 0);
}

constexpr char const* pointFile = ".\\BRO$0001.STP";

template <class Numbers> std::string InARow(Numbers const& numbers) {
    std::string text;
    for (double const number : numbers) {
        text += ' ' + Whole(number);
    }
    return text + '\n';
}

std::string Points(Project&) {
    std::fill_n(MessageBuffer(), 1, '\0'); // where the values are read from
    CStodPunkt points(pointFile);
    std::string text = "header" + InARow(points.m_huvud.varden) + "gvy " + Whole(points.m_gvy);
    for (bool there = points.Home() == 0; there; there = points++ != nullptr) {
        stdpkttype const& point = *points.Get_aktel();
        text += "\npoint " + Whole(point.niva) + ':' + InARow(point.varden);
    }
    return text;
}

void SavePoints() {
    std::fill_n(MessageBuffer(), 1, '\0');
    EXPECT_EQ(CStodPunkt(pointFile).Uppdat(nullptr), 0);
}

void SaveRoad(Project& project) {
    EXPECT_EQ(project.road.Init(".\\VAG.VL"), 0);
    EXPECT_EQ(project.road.Uppdat(".\\VAG.VL"), 0);
}

std::string Area(Project& project) {
    CVag2& road = project.road;
    EXPECT_EQ(road.ReadOmr(&project.paths), 0);
    return road.filnamn + (' ' + Whole(road.omrSekFran)) + ' ' + Whole(road.omrSekTill) + ' ' +
           Whole(road.omrAvstMin) + ' ' + Whole(road.omrAvstMax) + '\n';
}

void WriteRegistry() {
    CRegistry registry;
    EXPECT_EQ(registry.SetKey("Software\\Exempel", 0, KEY_ALL_ACCESS), 1);
    EXPECT_EQ(registry.WriteString("Mapp", "C:\\Kvarnbok"), 1);
}

// What the page says that the library does, and what that gives.
using Call = std::function<std::string(Project&)>;

Call Done(std::function<void(Project&)> const& act) {
    return [act](Project& project) {
        act(project);
        return std::string();
    };
}

std::map<std::string, Call> const& Calls() {
    static std::map<std::string, Call> const calls = {
        {"that", Done([](Project&) {})}, // the commands before
        {"`CAutoIni::ReadKey` of SYSTEM ACADVER, SYSTEM ACADOPT and ARKIV MAPPAR",
         [](Project& p) {
             std::string text;
             for (auto const& [section, key] :
                  {std::pair("SYSTEM", "ACADVER"), {"SYSTEM", "ACADOPT"}, {"ARKIV", "MAPPAR"}}) {
                 text +=
                     p.ini.ReadKey(CString(section), CString(key)).GetString() + std::string("\n");
             }
             return text;
         }},
        {"`CAutoIni::WriteKey` of SYSTEM ACADVER 23 and SYSTEM ZIPEXE zip.exe",
         Done([](Project& p) {
             EXPECT_NE(p.ini.WriteKey("SYSTEM", "ACADVER", "23"), 0);
             EXPECT_NE(p.ini.WriteKey("SYSTEM", "ZIPEXE", "zip.exe"), 0);
         })},
        {"`KodfilDatRead` and `KodfilDatWrite` of all records",
         Done([](Project& p) { RewriteKodfil(p.inst); })},
        {"`MiljkodRead` and `MiljKodWrite` of all records",
         Done([](Project& p) { RewriteMiljkod(p.inst); })},
        {"`LinkodRead` and `LinkodWrite` of all records",
         Done([](Project& p) { RewriteLinkod(p.inst); })},
        {"`StampParRead` and `StampParWrite` of all records",
         Done([](Project& p) { RewriteStampel(p.inst); })},
        {"`CBergOrMateLista::Save` of the list of fill", Done(SaveFill)},
        {"`CStodPunkt`", Points},
        {"`CStodPunkt::Uppdat`", Done([](Project&) { SavePoints(); })},
        {"`CVag2::Init` and `CVag2::Uppdat`", Done(SaveRoad)},
        {"`CVag2::ReadOmr`", Area},
        {"`CVag2::SaveOmr`", Done([](Project& p) { EXPECT_EQ(p.road.SaveOmr(&p.paths), 0); })},
        {"`CRegistry::WriteString` of Software\\Exempel Mapp C:\\Kvarnbok",
         Done([](Project&) { WriteRegistry(); })},
    };
    return calls;
}

struct Block {
    std::string intro; // the line above it
    std::string language;
    std::string content;
};
using Sections = std::vector<std::pair<std::string, std::vector<Block>>>;

Sections Page() {
    std::istringstream page(ReadBytes(std::filesystem::path(SAMPLES) / "../docs/file-formats.md"));
    Sections sections = {{"", {}}};
    std::string intro;
    bool inside = false;
    for (std::string line; std::getline(page, line);) {
        std::vector<Block>& blocks = sections.back().second;
        if (line.starts_with("```")) {
            inside = !inside;
            if (inside) {
                blocks.push_back({std::exchange(intro, ""), line.substr(3), ""});
            }
        } else if (inside) {
            blocks.back().content += line + '\n';
        } else if (line.starts_with("## ")) {
            sections.emplace_back(line.substr(3), std::vector<Block>());
        } else if (!line.empty()) {
            intro = line;
        }
    }
    return sections;
}

// The bytes of a file that a block shows.
std::string Bytes(std::string const& content) {
    static std::regex const byte(R"(\n|\\x([0-9A-F]{2}))");
    std::string text;
    std::size_t at = 0;
    for (std::sregex_iterator i(content.begin(), content.end(), byte), end; i != end; ++i) {
        auto const begin = static_cast<std::size_t>(i->position());
        text.append(content, at, begin - at);
        constexpr int sixteen = 16;
        text += (*i)[1].matched
                    ? std::string(1, static_cast<char>(std::stoi((*i)[1], nullptr, sixteen)))
                    : "\r\n";
        at = begin + static_cast<std::size_t>(i->length());
    }
    return text.append(content, at);
}

// The registry's file is UTF-16, of ASCII in the examples.
std::string WithoutZeros(std::string text) {
    if (text.starts_with("\xFF\xFE")) {
        text.erase(0, 2);
        std::erase(text, '\0');
    }
    return text;
}

// With the separators of one host, and without the folder that paths begin with.
std::string Alike(std::string text, std::string folder = {}) {
    std::replace(text.begin(), text.end(), '\\', '/');
    std::replace(folder.begin(), folder.end(), '\\', '/');
    for (std::string const& part : {folder, std::string("./")}) {
        for (std::size_t at = 0; !part.empty() && (at = text.find(part)) != std::string::npos;) {
            text.erase(at, part.size());
        }
    }
    return text;
}

class FileFormatsTest : public KvarnioTest {
  protected:
    void SetUp() override {
        SetMessageBoxHandler([](MessageBoxRequest const&) { return int{IDOK}; });
        std::filesystem::create_directory(m_folder / "e");
    }
    void TearDown() override { SetMessageBoxHandler(nullptr); }

    // What the commands print.
    std::string Printed(std::string const& commands) const {
        std::istringstream lines(commands);
        std::string printed;
        for (std::string line; std::getline(lines, line);) {
            EXPECT_TRUE(line.starts_with("kvarnio ")) << line;
            printed += RunBare(line.substr(line.find(' ') + 1)).out;
        }
        return Alike(printed, Path("e/"));
    }

    // Does what one block says; the output of commands is that of the block after them.
    void Do(Project& project, Block const& block, std::string& printed) {
        static std::regex const file("`([^`]+)`:");
        static std::regex const after("`([^`]+)` after (.+):");
        static std::regex const gives("(.+) gives:");
        SCOPED_TRACE(block.intro + '\n' + block.content);
        std::smatch match;
        if (block.language == "sh") {
            printed = Printed(block.content);
        } else if (block.intro.empty()) {
            EXPECT_EQ(printed, Alike(block.content));
        } else if (std::regex_match(block.intro, match, file)) {
            m_folder.Write("e/" + match[1].str(), Bytes(block.content));
        } else if (std::regex_match(block.intro, match, after)) {
            ASSERT_TRUE(Calls().contains(match[2]));
            Calls().at(match[2])(project);
            EXPECT_EQ(WithoutZeros(m_folder.Read("e/" + match[1].str())), Bytes(block.content));
        } else {
            ASSERT_TRUE(std::regex_match(block.intro, match, gives));
            ASSERT_TRUE(Calls().contains(match[1]));
            EXPECT_EQ(Calls().at(match[1])(project), block.content);
        }
    }
};

TEST_F(FileFormatsTest, FilesAreReadAndWrittenAsTheirPageSays) {
    Words withoutExample;
    for (auto const& [title, blocks] : Page()) {
#if defined(_WIN32)
        if (title.starts_with("On Linux")) {
            continue;
        }
#else
        Variable const store("KVARNPROG_REGISTRY", (m_folder / "e/registry.reg").string());
#endif
        SCOPED_TRACE(title);
        std::filesystem::remove_all(m_folder / "e");
        std::filesystem::create_directory(m_folder / "e");
        InFolder const here(m_folder / "e");
        Project project;
        std::string printed;
        bool hasExample = false;
        for (Block const& block : blocks) {
            if (block.language != "text") {
                Do(project, block, printed);
                hasExample = true;
            }
        }
        if (!hasExample) {
            withoutExample.push_back(title);
        }
    }
    EXPECT_EQ(withoutExample,
              (Words{"", "How to read the examples", "What all text files share", "Other files"}));
}

} // namespace
