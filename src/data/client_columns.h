// The columns of the client list: what each is called in the settings, in the grid's heading and in
// the table TempClTbl, and how a person arranged them. The arrangement is kept as one setting,
// "code:12,name:40": the columns shown, in order, with their widths in characters.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet::client_columns {

// Where the settings of the client list stand.
inline constexpr char section[] = "ClientList";
inline constexpr char columnsKey[] = "Columns";
inline constexpr char statusKey[] = "Status";  // only clients of this status; "" for all
inline constexpr char groupKey[] = "Group";    // only clients of this group code; "" for all

struct Column {
  std::string_view key;
  std::string_view heading;
  std::string_view field;
  int width;
};

inline constexpr std::array<Column, 9> all{{
    {"code", "Code", "CodeNo", 12},
    {"name", "Name", "Name", 40},
    {"status", "Status", "Status", 14},
    {"father", "Father/Husband Name", "Father", 28},
    {"born", "DOB/DOI", "Born", 12},
    {"address", "Address", "Address", 40},
    {"group_code", "Group Code", "GroupCode", 12},
    {"group_name", "Group Name", "GroupName", 24},
    {"company", "Company Name", "Company", 28},
}};

inline constexpr int leastWidth = 4;
inline constexpr int greatestWidth = 120;

struct Shown {
  std::size_t column;  // position in `all`
  int width;
};

// Every column in its own order and width.
std::vector<Shown> defaults();
// Reads the setting. Unknown and repeated columns are left out and widths kept within bounds; the
// code is always among the columns, first when it was missing, because a client is chosen by it. An
// empty or unusable setting gives the defaults.
std::vector<Shown> parse(std::string_view setting);
std::string format(const std::vector<Shown>& columns);

}  // namespace quillet::client_columns
