// The key file: any bytes are read within the limits of a record, keys are set, and what is written
// reads back.
#include <algorithm>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <vector>

#include "check.h"
#include "kvarnfiles/keyrecords.h"
#include "kvarnfiles/kvarncfg.h"

namespace {

using Lista = list0<cfgtype>;

using kvarn::longestKey;
using kvarn::longestValue;
using kvarn::longestWrittenValue;

struct Record {
    std::string key;
    std::string value;
    bool operator==(Record const&) const = default;
};
using Records = std::vector<Record>;

void Read(Lista& list, std::string const& content) {
    kvarn::LineReader reader{std::string_view(content)};
    kvarn::ReadKeys(list, reader);
}

Records RecordsOf(Lista& list) {
    Records records;
    for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
        records.push_back({list.Get_aktel()->nyckel, list.Get_aktel()->varde});
    }
    return records;
}

// A record keeps its limits, and its line is in the file.
void CheckBounds(Records const& records, std::string const& content) {
    for (Record const& record : records) {
        bool const isEmpty = record.key.empty() && record.value.empty();
        Check(isEmpty || (!record.key.empty() && record.key.size() <= longestKey &&
                          record.value.size() <= longestValue),
              "a record within its limits");
        Check(isEmpty || content.find(record.key + '=' + record.value) != std::string::npos,
              "a record is a line");
    }
}

// What is left of the records when they are written and read again.
Records ReadBack(Records records) {
    std::erase_if(records, [](Record const& r) { return r.key.empty() || r.value.empty(); });
    for (Record& record : records) {
        if (record.value.size() > longestValue) {
            record = {};
        }
    }
    return records;
}

void CheckWriting(Lista& list) {
    std::string const content = kvarn::KeyFileText(list);
    Lista again;
    Read(again, content);
    Check(RecordsOf(again) == ReadBack(RecordsOf(list)), "what was written reads back");
}

Records::iterator Find(Records& records, std::string const& key) {
    return std::find_if(records.begin(), records.end(),
                        [&](Record const& r) { return kvarn::SameText(r.key, key); });
}

// Sets the key in the list and, by the same rules, in the records.
void CheckSetting(Lista& list, std::string const& key, std::string const& value) {
    Records expected = RecordsOf(list);
    auto record = Find(expected, key);
    bool const keyFits = record != expected.end() || key.size() <= longestKey;
    bool const valueFits = value.size() <= longestWrittenValue;
    if (record == expected.end() && keyFits) {
        record = expected.insert(expected.end(), {key, ""});
    }
    if (keyFits && valueFits) {
        record->value = value;
    }
    int const result = kvarn::SetKeyRecord(list, key, value);
    Check((result == 0) == (keyFits && valueFits), "a text that is too long is refused");
    Check(RecordsOf(list) == expected, "only the key's first record changes");
    Check(result != 0 || kvarn::ReadKeyRecord(list, key) == value.c_str(),
          "a key that was set is read");
}

// A text of one line as a client hands it over, often about as long as the limit.
std::string Text(FuzzedDataProvider& provider, std::size_t limit, char const* excluded) {
    std::string text = provider.ConsumeRandomLengthString(2 * limit);
    std::erase_if(text, [&](char c) {
        return c == '\0' || std::string_view(excluded).find(c) != std::string_view::npos;
    });
    if (provider.ConsumeBool()) {
        text.resize(limit - 1 + provider.ConsumeIntegralInRange<std::size_t>(0, 2), 'x');
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr int mostKeys = 4;
    FuzzedDataProvider provider(data, size);
    Records keys;
    for (int i = provider.ConsumeIntegralInRange(0, mostKeys); i > 0; --i) {
        std::string const key = Text(provider, longestKey, "=\n\x1A");
        keys.push_back({key, Text(provider, longestValue, "\n\x1A")});
    }
    std::string const content = provider.ConsumeRemainingBytesAsString();

    Lista list;
    Read(list, content);
    CheckBounds(RecordsOf(list), content);
    CheckWriting(list);
    for (Record const& key : keys) {
        CheckSetting(list, key.key, key.value);
    }
    CheckWriting(list);
    return 0;
}
