// Support point files: any bytes are read without harm, whatever the message buffer holds, and what
// is written is what the next object reads, as far as the file can say it.
#include <cmath>
#include <cstring>
#include <vector>

#include "check.h"
#include "core/message.h"
#include "core/messageout.h"
#include "formats/stodpunkt.h"
#include "geodata/stodpunkt.h"
#include "input.h"
#include "kodmappar.h"
#include "text/letters.h"

namespace {

std::vector<stdpkttype> Points(CStodPunkt& punkter) {
    std::vector<stdpkttype> all;
    for (bool more = punkter.Home() == 0; more; more = punkter++ != nullptr) {
        all.push_back(*punkter.Get_aktel());
    }
    return all;
}

// As a float comes back that was printed with so many decimals.
bool Same(double read, double written, double step) {
    return std::isnan(written)
               ? std::isnan(read)
               : read == written || std::fabs(read - written) <= step + 1e-6 * std::fabs(written);
}

// A name that its own line gives back.
bool IsPlain(std::string_view name) {
    std::string converted(name);
    OemToAnsiNordic(converted.data());
    return converted == name && !name.starts_with('*') && !kvarn::IsGvy(name) &&
           name.find(kvarn::endOfText) == std::string_view::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static Mappar const mappar;
    Input input(data, size);
    std::string const buffer = input.Text(kvarn::messageBufferSize);
    std::memset(MessageBuffer(), 0, kvarn::messageBufferSize);
    std::memcpy(MessageBuffer(), buffer.data(), buffer.size());
    mappar.Tom();
    mappar.Skriv('p', "A$B.STP", input.Rest());

    CStodPunkt punkter(mappar.Sokvag("p\\A$B.STP").c_str());
    std::vector<stdpkttype> const before = Points(punkter);
    bool plain = true;
    for (stdpkttype const& punkt : before) {
        Check(punkt.namn[kvarn::longestStodpunkt] == '\0', "names end in their field");
        plain = plain && IsPlain(punkt.namn);
    }
    std::string const path = mappar.Sokvag("c\\ny.stp");
    Check(punkter.Uppdat(path.c_str()) == 0, "a new file can be written");
    CStodPunkt again(path.c_str());
    for (int i = 0; i < 5; ++i) {
        Check(Same(again.m_huvud.varden[i], punkter.m_huvud.varden[i], 5.1e-7),
              "the header comes back");
    }
    if (plain) {
        std::vector<stdpkttype> const after = Points(again);
        Check(after.size() == before.size(), "no point is lost or made");
        for (std::size_t i = 0; i < after.size(); ++i) {
            Check(std::strcmp(after[i].namn, before[i].namn) == 0, "names come back");
            Check(Same(after[i].niva, before[i].niva, 5.1e-5), "levels come back");
        }
        double const gvy = std::isnan(punkter.m_gvy) ? 0 : punkter.m_gvy; // which is none
        Check(Same(again.m_gvy, gvy, 5.1e-5), "the level comes back");
    }
    Check(mappar.Allt().size() == 2, "nothing is left beside the files");
    return 0;
}
