// A road file, as the library reads it.
#pragma once

#include <string>
#include <vector>

#include <formats/checks/checkvagfil.h>
#include <kvarnprog.h>

namespace CLI {
class App;
}

namespace kvarnio {

class RoadFile {
  public:
    // A file as the user typed it. Throws Failure for one that cannot be read.
    explicit RoadFile(std::string const& typed);

    std::string const& Path() const { return m_path; } // of the library
    std::string Name() const;                          // of the road, in UTF-8 on one line
    std::vector<kovltype> const& Plan() const { return m_content.plan.vertices; }
    std::vector<kovltype> const& Profile() const { return m_content.profile.vertices; }
    kvarn::VagfilContent const& Content() const { return m_content; }
    CVag2& Road() { return m_road; } // its lists are walked by asking them

    // For the commands that need one of them. Throw Failure where it is too short to ask.
    CVaglinje& PlanToAsk();
    CVaglinje& ProfileToAsk();
    // Tells on standard error of lines that give no vertex.
    void WarnOfSkippedLines() const;

  private:
    std::string m_path;
    CVag2 m_road;
    kvarn::VagfilContent m_content;
};

// The argument that all of road's commands begin with.
void AddRoadFile(CLI::App& command, std::string& file);

} // namespace kvarnio
