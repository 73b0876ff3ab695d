// The protocol between Quillet and quillet-calc: lines of fields that tabs separate, ended by a
// line feed. Tab, line feed, carriage return and backslash inside a field are escaped.
//
//   open PATH                    ok SHEET...  the names of its worksheets
//   text SHEET ROW COLUMN TEXT   (no answer)  sheets count from 0, rows and columns from 1
//   number SHEET ROW COLUMN NUMBER (no answer)
//   save, close, quit            ok
//
// The answer to a failed command: error MESSAGE
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet::suite {

using CalcLine = std::vector<std::string>;

inline std::string calcText(const CalcLine& fields) {
  std::string text;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) text += '\t';
    for (const char c : fields[i]) {
      switch (c) {
        case '\t':
          text += "\\t";
          break;
        case '\n':
          text += "\\n";
          break;
        case '\r':
          text += "\\r";
          break;
        case '\\':
          text += "\\\\";
          break;
        default:
          text += c;
      }
    }
  }
  return text + '\n';
}

// The line without its line feed.
inline CalcLine calcLine(std::string_view text) {
  CalcLine fields(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\t') {
      fields.emplace_back();
    } else if (text[i] == '\\' && i + 1 < text.size()) {
      const char c = text[++i];
      fields.back() += c == 't' ? '\t' : c == 'n' ? '\n' : c == 'r' ? '\r' : c;
    } else {
      fields.back() += text[i];
    }
  }
  return fields;
}

}  // namespace quillet::suite
