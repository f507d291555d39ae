#include <algorithm>

#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

bool LeadsUp(std::string_view folder) {
    for (std::string_view rest = folder; !rest.empty();) {
        std::size_t const end = std::min(rest.find_first_of("\\/"), rest.size());
        if (rest.substr(0, end) == "..") {
            return true;
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return false;
}

} // namespace

std::vector<Finding> CheckMappar(std::string_view content) {
    LineChecker checker(content);
    for (TextLine const& line : checker.Lines()) {
        if (LeadsUp(line.text)) {
            checker.Add(line.number, Rule::leadsOut,
                        "leads out of the project's folder, and is made there", Loss::none,
                        line.text);
        }
    }
    return checker.Take();
}

} // namespace kvarn
