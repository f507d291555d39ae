#include "roadfile.h"

#include <iostream>

#include <CLI/CLI.hpp>

#include "../backup.h"
#include "../failure.h"
#include "../messages.h"
#include "../output.h"
#include "../platform.h"
#include "exchangeformat.h"

namespace kvarnio {
namespace {

void RequireSegment(std::string const& path, std::vector<kovltype> const& vertices,
                    char const* part) {
    if (vertices.size() < 2) {
        throw Failure(Shown(path) + " has " +
                      (vertices.empty() ? "no " : "only one vertex in its ") + part);
    }
}

} // namespace

RoadFile::RoadFile(std::string const& typed) : m_path(LibraryPath(typed)) {
    if (IsExchangeFile(typed)) {
        throw UsageError(typed + " is another program's file: kvarnio road import makes a road "
                                 "file of it");
    }
    int const result = m_road.Init(m_path.c_str());
    if (MessageWasShown() || result != 0) {
        ThrowNotRead(m_path);
    }
    m_content = kvarn::ReadVagfil(ReadWhole(m_path));
}

std::string RoadFile::Name() const {
    return OneLine(m_road.namn);
}

CVaglinje& RoadFile::PlanToAsk() {
    RequireSegment(m_path, Plan(), "plan");
    return m_road.plan;
}

CVaglinje& RoadFile::ProfileToAsk() {
    RequireSegment(m_path, Profile(), "profile");
    return m_road.profil;
}

void RoadFile::WarnOfSkippedLines() const {
    std::size_t const count = m_content.skipped;
    if (count > 0) {
        std::cerr << "kvarnio: " << count << (count == 1 ? " line was" : " lines were")
                  << " skipped in " << Shown(m_path) << "; kvarnio road check names "
                  << (count == 1 ? "it" : "them") << '\n';
    }
}

void AddRoadFile(CLI::App& command, std::string& file) {
    CLI::Validator const named(
        [](std::string& typed) { return typed.empty() ? "FILE is empty" : std::string(); }, "");
    command.add_option("FILE", file, "Road file: a plan, a profile, or both")
        ->required()
        ->check(named);
}

} // namespace kvarnio
