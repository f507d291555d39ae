// The key file: each line of any bytes is a record within its limits or none, the first record with
// a key gives its value, keys are set, and what is written reads back.
#include <algorithm>

#include "check.h"
#include "formats/checks/checks.h"
#include "input.h"
#include "kvarnfiles/keyrecords.h"
#include "kvarnfiles/kvarncfg.h"
#include "textlines.h"

namespace {

using Lista = list0<cfgtype>;
using kvarn::KeyLine;

struct Record {
    std::string key;
    std::string value;
    bool operator==(Record const&) const = default;
};
using Records = std::vector<Record>;

// As the format reads them.
Records RecordsOf(std::string const& text) {
    Records records;
    for (std::string const& bytes : LinesOf(text)) {
        KeyLine const line(bytes);
        Record const record = {std::string(line.key), std::string(line.value)};
        bool const isStored = line.kind == KeyLine::Kind::stored;
        Check(isStored ? record.key + '=' + record.value == bytes && !record.key.empty() &&
                             record.key.size() <= kvarn::longestKey &&
                             record.value.size() <= kvarn::longestValue
                       : record == Record(),
              "a record is its line, within its limits");
        Check(line.MakesRecord() == (bytes.find('=') + 1 > 1), "a line with a key makes one");
        if (line.MakesRecord()) {
            records.push_back(record);
        }
    }
    return records;
}

Records RecordsOf(Lista& list) {
    Records records;
    for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
        records.push_back({list.Get_aktel()->nyckel, list.Get_aktel()->varde});
    }
    return records;
}

void CheckWriting(Lista& list) {
    Records expected = RecordsOf(list);
    std::erase_if(expected, [](Record const& r) { return r.key.empty() || r.value.empty(); });
    for (Record& record : expected) { // a value that can be written alone is dropped
        record = record.value.size() > kvarn::longestValue ? Record() : record;
    }
    Check(RecordsOf(kvarn::KeyFileText(list)) == expected, "what was written reads back");
}

// Sets the key in the list and, by the same rules, in the records.
void CheckSetting(Lista& list, Record const& set) {
    Records expected = RecordsOf(list);
    auto record = std::find_if(expected.begin(), expected.end(),
                               [&](Record const& r) { return kvarn::SameText(r.key, set.key); });
    bool const keyFits = record != expected.end() || set.key.size() <= kvarn::longestKey;
    bool const bothFit = keyFits && set.value.size() <= kvarn::longestWrittenValue;
    if (record == expected.end() && keyFits) {
        record = expected.insert(record, {set.key, ""});
    }
    if (bothFit) {
        record->value = set.value;
    }
    Check((kvarn::SetKeyRecord(list, set.key, set.value) == 0) == bothFit,
          "a text that is too long is refused");
    Check(RecordsOf(list) == expected, "only the key's first record changes");
}

// A text of one line as a client hands it over, often about as long as the limit.
std::string Text(Input& provider, std::size_t limit, std::string_view excluded) {
    std::string text = provider.Text(2 * limit);
    std::erase_if(text, [&](char c) { return excluded.find(c) != std::string_view::npos; });
    if (provider.Bool()) {
        text.resize(limit - 1 + provider.Number<std::size_t>(0, 2), 'x');
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr int mostKeys = 4;
    Input provider(data, size);
    Records keys;
    for (int i = provider.Number(0, mostKeys); i > 0; --i) {
        std::string const key = Text(provider, kvarn::longestKey, {"=\n\x1A\0", 4});
        keys.push_back({key, Text(provider, kvarn::longestValue, {"\n\x1A\0", 3})});
    }
    std::string const text = provider.Rest();
    kvarn::CheckKeys(text, {});

    Lista list;
    kvarn::LineReader lines{std::string_view(text)};
    kvarn::ReadKeys(list, lines);
    Records const records = RecordsOf(list);
    Check(records == RecordsOf(text), "the list holds what the format reads");
    CheckWriting(list);
    for (Record const& record : records) {
        kvarn::LineReader again{std::string_view(text)};
        Check(record.key.empty() || kvarn::ReadKeyRecord(list, record.key) ==
                                        kvarn::ValueOf(again, record.key).c_str(),
              "a key is found without a list");
    }
    std::vector<kvarn::KeyChange> changes;
    for (Record const& key : keys) {
        CheckSetting(list, key);
        changes.push_back({key.key, key.value});
    }
    CheckWriting(list);
    if (std::all_of(changes.begin(), changes.end(), [](auto const& c) { return c.Fits(); })) {
        kvarn::LineReader before{std::string_view(text)};
        Check(kvarn::WithKeys(before, changes) == kvarn::KeyFileText(list),
              "keys are written without a list as with one");
    }
    return 0;
}
