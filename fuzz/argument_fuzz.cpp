// What is typed after the tool's subcommands: any bytes are taken as the value that a plain
// conversion finds, or refused with a reason that can be shown.
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <optional>

#include "codes/codearguments.h"
#include "input.h"
#include "shared/arguments.h"
#include "shared/failure.h"
#include "taken.h"
#include "text/codepage.h"

namespace {

template <class Action> auto Taken(Action action) {
    return TakenUnless<kvarnio::UsageError>(action);
}

bool IsPlain(std::string const& utf8) {
    auto const text = kvarn::FromUtf8(utf8);
    return text && std::none_of(text->begin(), text->end(), [](char c) {
               return static_cast<unsigned char>(c) < ' ' && c != '\t';
           });
}

void CheckTexts(std::string const& typed) {
    auto const text = Taken([&] { return kvarnio::Text("FILE", typed); });
    Check(text.has_value() == IsPlain(typed), "texts of the code page, on one line");
    Check(!text || kvarn::ToUtf8(*text) == typed, "with all their letters");
    Check(Taken([&] { return kvarnio::Value(typed); }) == text, "a value is any text");
    auto const key = Taken([&] { return kvarnio::Key(typed); });
    bool const isKey = text && !typed.empty() && typed.find('=') == std::string::npos;
    Check(key == (isKey ? text : std::nullopt), "a key is a text without an equals sign");
}

void CheckNumbers(std::string const& typed) {
    auto const whole = Taken([&] { return kvarnio::WholeNumber("VALUE", typed); });
    bool const digits = typed.find_first_not_of("-0123456789") == std::string::npos;
    char* end = nullptr;
    long long const number = std::strtoll(typed.c_str(), &end, 10);
    bool const isWhole = digits && !typed.empty() && *end == '\0' && end != typed.c_str() &&
                         number == static_cast<std::int32_t>(number);
    Check(whole == (isWhole ? std::optional(static_cast<int>(number)) : std::nullopt),
          "a whole number of 32 bits");

    auto const decimal = Taken([&] { return kvarnio::Number("VALUE", typed); });
    bool const decimals = typed.find_first_not_of("-+0123456789.eE") == std::string::npos;
    errno = 0;
    double const expected = std::strtod(typed.c_str(), &end);
    bool const isWritten = decimals && !typed.empty() && !typed.starts_with('+') &&
                           end == typed.c_str() + typed.size();
    bool const inRange = errno == 0; // not too near to 0, nor too far from it
    Check(!decimal || (isWritten && *decimal == expected), "a decimal number");
    Check(decimal || !isWritten || !inRange, "and every such number");
}

// A record of each type of column; what is taken keeps its limits.
void CheckCells(Input& in) {
    using kvarnio::Column;
    kvarnio::CodeFormat format{};
    for (auto const type :
         {Column::Type::word, Column::Type::text, Column::Type::whole, Column::Type::number}) {
        Column column{};
        column.name = "cell";
        column.type = type;
        column.least = -5;
        column.most = 1000;
        column.isConverted = in.Bool();
        format.columns.push_back(column);
    }
    kvarnio::CodesArguments arguments(format);
    for (auto& cell : arguments.cells) {
        cell = in.Text(in.Bool() ? 300 : 10);
    }
    auto const record = Taken([&] { return kvarnio::Typed(arguments, nullptr); });
    if (record) {
        Check(record->cells.size() == format.columns.size(), "a cell for each column");
        Check(record->cells[0].find(' ') == std::string::npos && !record->cells[0].empty(),
              "a word");
        Check(std::atoi(record->cells[2].c_str()) >= -5 &&
                  std::atoi(record->cells[2].c_str()) <= 1000,
              "a number in its limits");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Input in(data, size);
    if (in.Bool()) {
        CheckCells(in);
        return 0;
    }
    std::string const typed = in.Rest();
    CheckTexts(typed);
    CheckNumbers(typed);
    return 0;
}
