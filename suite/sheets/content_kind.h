// What a file is, by its content: its name is chosen by people and often wrong.
#pragma once

#include <string_view>

namespace quillet::suite {

enum class ContentKind {
  text,      // or what nobody knows
  web,       // tables of a web page, whatever they are called
  workbook,  // zip and XML: .xlsx, .xlsm
  // For the spreadsheet program to turn into such a workbook:
  binaryZip,     // .xlsb
  openDocument,  // .ods
  oldWorkbook,   // .xls
  xmlWorkbook,   // one XML text
  flatDocument,  // .fods
};

// Throws SourceError for what cannot be imported: a picture, a letter, a file with a password.
ContentKind contentKind(std::string_view bytes);

}  // namespace quillet::suite
