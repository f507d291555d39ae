#include "codereport.h"

#include <iostream>

#include <text/codepage.h>

#include "codearguments.h"

namespace kvarnio {
namespace {

Json ValueOf(Column const& column, std::string const& cell) {
    switch (column.type) {
    case Column::Type::whole:
        return cell.empty() ? Json() : Json(std::stoi(cell));
    case Column::Type::number:
        return std::stod(cell);
    case Column::Type::word:
    case Column::Type::text:
    default:
        return kvarn::ToUtf8(cell);
    }
}

std::vector<std::string> Row(CodeFormat const& format, CodeRecord const& record) {
    std::vector<std::string> row;
    for (std::string const& cell : record.cells) {
        row.push_back(OneLine(cell));
    }
    if (format.hasFamilies) {
        row.insert(row.begin() + 1, record.family);
    }
    return row;
}

} // namespace

Json ToJson(CodeFormat const& format, CodeRecord const& record) {
    Json json = Json::object();
    for (std::size_t i = 0; i < format.columns.size(); ++i) {
        json[format.columns[i].name] = ValueOf(format.columns[i], record.cells[i]);
    }
    if (format.hasFamilies) {
        json["family"] = *record.family != '\0' ? Json(record.family) : Json();
    }
    return json;
}

Json ToJson(CodeFormat const& format, CodeRecords const& records) {
    Json json = Json::array();
    for (CodeRecord const& record : records) {
        json.push_back(ToJson(format, record));
    }
    return json;
}

std::string Shown(CodeFormat const& format, CodeRecord const& record) {
    std::string line;
    for (std::size_t i = 0; i < record.cells.size(); ++i) {
        if (!record.cells[i].empty()) {
            Column const& column = format.columns[i];
            line += line.empty() ? "" : " ";
            line.append(column.option != nullptr ? std::string(column.name) + '=' : "");
            line += OneLine(record.cells[i]);
        }
    }
    return line;
}

void PrintCodes(CodeFormat const& format, CodeRecords const& records) {
    std::vector<std::vector<std::string>> rows(1);
    for (Column const& column : format.columns) {
        rows[0].push_back(Heading(column));
    }
    if (format.hasFamilies) {
        rows[0].insert(rows[0].begin() + 1, "FAMILY");
    }
    for (CodeRecord const& record : records) {
        rows.push_back(Row(format, record));
    }
    PrintTable(rows);
}

void PrintUnread(CodeFile const& file) {
    for (Finding const& finding : LossesOf(file.Findings()).lines) {
        std::cerr << Shown(file.Path()) << ':' << finding.line << ": not read, " << finding.what
                  << ": " << OneLine(finding.text) << '\n';
    }
}

void Report(Context const& context, CodeFormat const& format, CodeFile const& file,
            Losses const& losses, CodeChange const& change) {
    PrintLosses(file.Path(), losses);
    if (format.fileName != nullptr) {
        WarnOfSharedFile(context, file.Path(), format.fileName);
    }
    if (context.json) {
        Json json = {{"was", change.was != nullptr ? ToJson(format, *change.was) : Json()},
                     {"now", change.now != nullptr ? ToJson(format, *change.now) : Json()},
                     {"written", context.dryRun ? Json() : Json(Shown(file.Path()))}};
        AddLosses(json, losses);
        PrintJson(json);
        return;
    }
    std::string const was = change.was != nullptr ? Shown(format, *change.was) : "";
    std::string const now = change.now != nullptr ? Shown(format, *change.now) : "";
    bool const both = !was.empty() && !now.empty();
    std::cout << (context.dryRun ? "would be written: " : "") << Shown(file.Path()) << ": "
              << change.verb << ' ' << (now.empty() ? was : now)
              << (both ? " (was " + was + ')' : "") << '\n';
}

} // namespace kvarnio
