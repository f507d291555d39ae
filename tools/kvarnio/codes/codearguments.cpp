#include "codearguments.h"

#include <algorithm>

#include <formats/checks/doubtfulletters.h>
#include <formats/kodtexts.h>
#include <text/codepage.h>
#include <text/text.h>

#include "../shared/arguments.h"
#include "../shared/failure.h"

namespace kvarnio {
namespace {

constexpr std::size_t longest = kvarn::longestKodtext;

std::string WordCell(char const* what, std::string const& typed) {
    std::string word = Text(what, typed);
    if (word.empty() || word.find_first_of(" \t") != std::string::npos || word.size() > longest) {
        throw UsageError(std::string(what) + " \"" + typed +
                         "\" is not one word of at most 255 characters");
    }
    return word;
}

std::string WholeCell(Column const& column, char const* what, std::string const& typed) {
    int const number = WholeNumber(what, typed);
    if (number < column.least || number > column.most) {
        throw UsageError(std::string(what) + " must lie from " + std::to_string(column.least) +
                         " to " + std::to_string(column.most));
    }
    return std::to_string(number);
}

std::string TextCell(char const* what, std::string const& typed) {
    std::string const text = Text(what, typed);
    if (text.size() > longest) {
        throw UsageError(std::string(what) + " has more than 255 characters");
    }
    return std::string(kvarn::Trimmed(text));
}

std::string Cell(Column const& column, std::string const& typed) {
    std::string const name = Heading(column);
    char const* const what = name.c_str();
    std::string cell = column.type == Column::Type::number  ? Shortest(Number(what, typed))
                       : column.type == Column::Type::whole ? WholeCell(column, what, typed)
                       : column.type == Column::Type::word  ? WordCell(what, typed)
                                                            : TextCell(what, typed);
    if (column.isConverted && kvarn::Converted(cell) != cell) {
        throw UsageError(name + " \"" + typed + "\" would be read as \"" +
                         kvarn::ToUtf8(kvarn::Converted(cell)) +
                         "\": the file's DOS letters are converted");
    }
    return cell;
}

} // namespace

std::string Heading(Column const& column) {
    std::string heading = column.name;
    std::transform(heading.begin(), heading.end(), heading.begin(), kvarn::Upper1252);
    return heading;
}

CodeRecord Typed(CodesArguments const& arguments, CodeRecord const* other) {
    CodeRecord record;
    for (std::size_t i = 0; i < arguments.cells.size(); ++i) {
        Column const& column = arguments.format.columns[i];
        if (arguments.cells[i]) {
            record.cells.push_back(Cell(column, *arguments.cells[i]));
        } else if (other != nullptr) {
            record.cells.push_back(other->cells[i]);
        } else {
            record.cells.emplace_back(column.otherwise != nullptr ? column.otherwise : "");
        }
    }
    return record;
}

} // namespace kvarnio
