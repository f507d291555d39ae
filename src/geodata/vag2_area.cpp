// CVag2: the project's area file, which names the road and how much of it is drawn.
#include <new>

#include "../files/filerewrite.h"
#include "../files/pathparts.h"
#include "../files/textfil.h"
#include "../formats/omradesfil.h"
#include "../text/text.h"
#include "vag2.h"

namespace {

kvarn::Omrade AreaOf(CVag2 const& road) {
    return {.filnamn = std::string(kvarn::FieldText(road.filnamn)),
            .sekFran = road.omrSekFran,
            .sekTill = road.omrSekTill,
            .avstMin = road.omrAvstMin,
            .avstMax = road.omrAvstMax};
}

} // namespace

int CVag2::ReadOmr(CProjPath* project) {
    static_assert(sizeof filnamn == kvarn::longestOmradesrad + 1);
    if (project == nullptr) {
        return -1;
    }
    kvarn::TextReader file(project->m_kvarnVl.GetString());
    kvarn::Omrade area = AreaOf(*this);
    bool const isComplete = area.Read(file);
    kvarn::CopyText(filnamn, sizeof filnamn, area.filnamn);
    omrSekFran = area.sekFran;
    omrSekTill = area.sekTill;
    omrAvstMin = area.avstMin;
    omrAvstMax = area.avstMax;
    if (!isComplete || file.Failed() || *filnamn == '\0') {
        return -1;
    }
    return Init(kvarn::PathOf(project->m_kvarnDbf.GetString(), filnamn).c_str());
}

int CVag2::SaveOmr(CProjPath* project) try {
    if (project == nullptr) {
        return -1;
    }
    char const* const path = project->m_kvarnVl.GetString();
    std::string text;
    { // closed again before it is replaced
        kvarn::TextReader file(path);
        text = file.Missing() ? kvarn::noOwnLines : kvarn::OwnLines(file);
        if (!file.Missing() && (!file.IsOpen() || file.Failed())) {
            return -1;
        }
    }
    text += AreaOf(*this).Text();
    std::string const temporary = kvarn::PathOf(project->m_kvarnDbf.GetString(), "vl.tmp");
    return kvarn::RewriteFile(path, text, temporary.c_str()) == kvarn::Rewritten::done ? 0 : -1;
} catch (std::bad_alloc const&) {
    return -1;
}
