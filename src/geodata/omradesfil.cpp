// The area file of a project: which road, and how much of it is drawn.
#include "../files/filerewrite.h"
#include "../files/pathparts.h"
#include "../files/textfil.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/scan.h"
#include "../text/text.h"
#include "vag2.h"
#include "vagfil.h"

namespace {

constexpr int stjarnrader = 2; // that end what is the user's own

// Two numbers of a line, both or none.
bool LasTva(std::string_view rad, double& forsta, double& andra) {
    double a = 0;
    double b = 0;
    if (kvarn::Scan(rad, a, b) != 2) {
        return false;
    }
    forsta = a;
    andra = b;
    return true;
}

// Appends the lines of the area file up to the second that begins with a star, or all; two such
// lines where there is no file yet. False for a file that cannot be read.
bool LasEgnaRader(char const* path, std::string& rader) {
    kvarn::TextReader fil(path);
    if (fil.Missing()) {
        kvarn::AppendTextMode(rader, "*\n*\n");
        return true;
    }
    std::string_view rad;
    for (int stjarnor = 0; stjarnor < stjarnrader && fil.ReadLine(rad);) {
        stjarnor += kvarn::IsStarLine(rad) ? 1 : 0;
        kvarn::AppendTextMode(rader.append(rad), "\n");
    }
    return fil.IsOpen() && !fil.Failed();
}

} // namespace

int CVag2::ReadOmr(CProjPath* project) {
    constexpr int vagnamn = stjarnrader; // what the next line is
    constexpr int stationer = vagnamn + 1;
    constexpr int avstand = stationer + 1;
    constexpr int klar = avstand + 1;
    if (project == nullptr) {
        return -1;
    }
    kvarn::TextReader fil(project->m_kvarnVl.GetString());
    int lage = 0;
    char rad[256];
    while (fil.ReadLine(rad, sizeof rad)) {
        if (kvarn::IsStarLine(rad)) {
            ++lage;
        } else if (lage == vagnamn) {
            kvarn::CopyText(filnamn, sizeof filnamn, rad);
            ++lage;
        } else if (lage == stationer || lage == avstand) {
            bool const lasta = lage == stationer ? LasTva(rad, omrSekFran, omrSekTill)
                                                 : LasTva(rad, omrAvstMin, omrAvstMax);
            if (!lasta) {
                break;
            }
            ++lage;
        }
    }
    if (fil.Failed() || lage < klar || *filnamn == '\0') {
        return -1;
    }
    return Init(kvarn::PathOf(project->m_kvarnDbf.GetString(), filnamn).c_str());
}

int CVag2::SaveOmr(CProjPath* project) {
    if (project == nullptr) {
        return -1;
    }
    char const* const path = project->m_kvarnVl.GetString();
    std::string text;
    if (!LasEgnaRader(path, text)) {
        return -1;
    }
    kvarn::AppendTextMode(text,
                          kvarn::Format("%s\n%.3lf %.3lf\n%.3lf %.3lf\n", kvarn::FieldText(filnamn),
                                        omrSekFran, omrSekTill, omrAvstMin, omrAvstMax));
    std::string const tillfallig = kvarn::PathOf(project->m_kvarnDbf.GetString(), "vl.tmp");
    return kvarn::RewriteFile(path, text, tillfallig.c_str()) == kvarn::Rewritten::done ? 0 : -1;
}
