// Material files: any bytes are read without harm, every record keeps its bounds, and what a list
// writes is what the next one reads, as far as the file can say it.
#include <cmath>
#include <vector>

#include "check.h"
#include "formats/stenkod.h"
#include "geodata/bergormatelista.h"
#include "input.h"
#include "kodmappar.h"
#include "text/text.h"

namespace {

std::vector<bergmattype> Records(CBergOrMateLista& lista) {
    std::vector<bergmattype> all;
    for (bool more = lista.Home() == 0; more; more = lista++ != nullptr) {
        all.push_back(*lista.Get_aktel());
    }
    return all;
}

void CheckBounds(bergmattype const& post) {
    Check(post.monster >= 1 && post.monster <= kvarn::mostPattern,
          "a pattern is within its limits");
    Check(post.skala >= kvarn::leastScale, "a scale is within its limit");
    Check(post.nr < 0 || post.flagga == 0, "a flag is a user's own");
    Check(post.namn[kvarn::longestMaterialName] == '\0' &&
              post.text[kvarn::longestMaterialText] == '\0',
          "texts end in their fields");
}

// Angles are written in radians with three decimals, and read as degrees.
bool SameAngle(double read, double written) {
    using kvarn::radiansPerDegree;
    double const expected = written * radiansPerDegree;
    return std::isnan(read) == std::isnan(expected) &&
           (std::isnan(read) || read == expected ||
            std::fabs(read - expected) <= 0.00051 * radiansPerDegree + 1e-12 * std::fabs(expected));
}

void CheckReadBack(bergmattype const& read, bergmattype const& written) {
    Check(read.nr == written.nr, "numbers come back in their order");
    Check(kvarn::FieldText(read.namn) == kvarn::FieldText(written.namn), "names come back");
    Check(kvarn::FieldText(read.text) == kvarn::FieldText(written.text), "texts come back");
    if (written.text[0] != '\0') {
        Check(read.skala == written.skala || std::fabs(read.skala - written.skala) <= 0.00051,
              "scales come back with three decimals");
        Check(SameAngle(read.vinkel, written.vinkel), "angles come back as degrees");
        Check(written.nr >= 0 || (read.monster == written.monster && read.flagga == written.flagga),
              "a user's own pattern and flag come back");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static Mappar mappar;
    Input input(data, size);
    int const slag = input.Number(0, 1);
    bool const norsk = input.Bool();
    mappar.Tom();
    char const* const fil = norsk ? kvarn::stenkodFileNorwegian : kvarn::stenkodFile;
    mappar.Skriv('p', fil, input.Rest());

    CBergOrMateLista lista(&mappar.ini, &mappar.proj, slag, norsk ? 1 : 0);
    lista.Init();
    std::vector<bergmattype> const before = Records(lista);
    for (bergmattype const& post : before) {
        CheckBounds(post);
    }
    Check(lista.Save(&lista) == 0, "the file that was read can be written");
    CBergOrMateLista again(&mappar.ini, &mappar.proj, slag, norsk ? 1 : 0);
    again.Init();
    std::vector<bergmattype> const after = Records(again);
    // The shift moves numbers for one reading alone. Entry 0 has a blank for a name, which no line
    // can hold.
    Check(norsk || before.size() == after.size(), "no record is lost or made");
    for (std::size_t i = 1; !norsk && i < before.size(); ++i) {
        CheckReadBack(after[i], before[i]);
    }
    Check(mappar.Allt().size() == 1, "nothing is left beside the file");
    return 0;
}
