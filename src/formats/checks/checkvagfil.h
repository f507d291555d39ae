// What a road file holds, and what of it is not read.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "../vagfil.h"
#include "finding.h"

namespace kvarn {

// The vertices of a plan or a profile, and the line of each.
struct VagfilPart {
    void Add(VagfilLine const& line) {
        vertices.push_back(line.vertex);
        lines.push_back(line.line.number);
    }

    std::vector<kovltype> vertices;
    std::vector<std::size_t> lines;
};

struct VagfilContent {
    VagfilPart plan;
    VagfilPart profile;
    std::size_t skipped = 0; // lines that give no vertex, and are no part of a heading
};

VagfilContent ReadVagfil(std::string_view content);

// Of its lines alone: what the vertices make of a road is not looked at.
std::vector<Finding> CheckVagfil(std::string_view content);

} // namespace kvarn
