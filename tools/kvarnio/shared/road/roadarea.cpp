#include "roadarea.h"

#include <formats/omradesfil.h>
#include <text/codepage.h>

#include "../backup.h"

namespace kvarnio {

std::optional<Area> AreaOf(Context const& context, RoadFile& file) {
    if (file.Plan().empty()) {
        return std::nullopt;
    }
    if (!context.project.m_projKat.IsEmpty()) {
        std::string const content = ReadIfThere(context.project.m_kvarnVl.GetString());
        kvarn::LineReader lines{std::string_view(content)};
        kvarn::Omrade area;
        if (area.Read(lines) &&
            kvarn::CompareNoCase1252(area.filnamn, FileNameOf(file.Path())) == 0) {
            return Area{area.sekFran, area.sekTill, area.avstMin, area.avstMax};
        }
    }
    CVaglinje const& plan = file.Road().plan;
    return Area{plan.omrSekFran, plan.omrSekTill, plan.omrAvstMin, plan.omrAvstMax};
}

std::string FileNameOf(std::string const& path) {
    return path.substr(path.find_last_of("\\/") + 1);
}

} // namespace kvarnio
