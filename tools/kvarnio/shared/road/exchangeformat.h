// The formats of other programs, by the endings of their files.
#pragma once

#include <string>

namespace kvarnio {

enum class ExchangeFormat { landXml, dxf, geoJson, csv };

// As --format and messages name it.
char const* NameOf(ExchangeFormat format);

// That of a file as the user typed it, by the name that was given or, where none was, by the file's
// ending. Throws UsageError where neither tells, and for a format that is written alone where it is
// to be read.
ExchangeFormat FormatToRead(std::string const& given, std::string const& file);
ExchangeFormat FormatToWrite(std::string const& given, std::string const& file);

// Whether the ending is that of a file which FormatToRead knows.
bool IsExchangeFile(std::string const& file);

// What --format takes, for the help.
std::string FormatsToRead();
std::string FormatsToWrite();

} // namespace kvarnio
