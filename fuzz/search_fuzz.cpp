// The wildcards of the folder search beside the C library's fnmatch, where the two mean the same:
// stars and letters, in names without a dot. And the ends of patterns that are dropped.
#include <cstdint>
#include <fnmatch.h>
#include <string>

#include "check.h"
#include "compat/win32/search.h"
#include "input.h"

namespace {

// Letters from a few, so that patterns match.
std::string Text(Input& provider, char const* letters) {
    std::string const from = letters;
    std::string text = provider.Text(40);
    for (char& c : text) {
        c = from[static_cast<unsigned char>(c) % from.size()];
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Input provider(data, size);
    std::string const pattern = Text(provider, "ab*A");
    std::string const name = Text(provider, "abAB");
    bool const matches = kvarn::MatchesWildcards(pattern.c_str(), name.c_str());
    bool const expected = fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0;
    Check(matches == expected, "as fnmatch says");

    // Blanks and dots at the end of a pattern count for nothing; one dot alone after a star does.
    std::string const dotted = Text(provider, "aB.?*");
    std::string const named = Text(provider, "Ab.");
    if (!dotted.ends_with('.')) {
        bool const found = kvarn::MatchesWildcards(dotted.c_str(), named.c_str());
        for (char const* const end : {" ", ". ", " . "}) {
            Check(kvarn::MatchesWildcards((dotted + end).c_str(), named.c_str()) == found,
                  "as without blanks");
        }
        bool const withDot = kvarn::MatchesWildcards((dotted + '.').c_str(), named.c_str());
        Check(dotted.ends_with('*') ? !withDot || found : withDot == found, "as without the dot");
    }

    // Anything else ends, and a name always matches itself and every name.
    std::string const wild = provider.Rest();
    kvarn::MatchesWildcards(wild.c_str(), name.c_str());
    kvarn::MatchesWildcards(pattern.c_str(), wild.c_str());
    bool const plain = wild.find_first_of(std::string("*?<>\".\0", 7)) == std::string::npos &&
                       !wild.ends_with(' ');
    Check(!plain || kvarn::MatchesWildcards(wild.c_str(), wild.c_str()), "a name matches itself");
    Check(kvarn::MatchesWildcards("*", wild.c_str()), "a star matches every name");
    return 0;
}
