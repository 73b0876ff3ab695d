// What the rows of versioned tables are known by and called.
#pragma once

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <string_view>

#include "suite/history/written_table.h"

namespace quillet::suite::row_kinds {

// What a row is known by, and what it is called. Of tables that are not listed whole sets of rows
// come and go, as schedules do.
struct Kind {
  std::string_view table;
  std::string_view keys;
  std::string_view numbered;  // given anew where another row has the number by now
  std::string_view name;      // of the row t, as SQL
};

// The last name that the ledger and the group had while the row stood.
inline constexpr std::string_view pairName =
    "concat('the line of ',ifnull((select p.Particular from Mast_Part for system_time all p"
    " where p.PartId=t.partid and p.row_from<t.row_till order by p.row_till desc limit "
    "1),t.partid),' under ',"
    "ifnull((select g.ALLGRP from Mast_AllGrp for system_time all g where g.ALLID=t.allid"
    " and g.row_from<t.row_till order by g.row_till desc limit 1),t.allid),' (client "
    "',t.code_no,')')";

inline constexpr std::array kinds{
    Kind{"tab_", "code_no,partid,allid", "srno", pairName},
    Kind{"trade_", "code_no,partid,allid", "", pairName},
    Kind{"jrnl_", "code_no,VID,LSrNo", "VID",
         "concat('voucher ',t.VID,' of ',date_format(t.VDate,'%d/%m/%Y'),' (client ',t.code_no,"
         "')')"},
    // A form's own value, which nobody reads by name.
    Kind{"suitemisc", "Section,Name,Client,Yr", "", ""},
    Kind{"rmgrp_", "Code_No,SrNo", "", "concat('the binding of stock groups of ',t.Code_No)"},
    Kind{"master", "code_no,s_yr", "",
         "concat('the year ',t.f_year_dt,' to ',t.s_year_dt,' of client ',t.code_no)"},
    Kind{"mast_part", "PartId", "", "concat('the ledger ',t.Particular)"},
    Kind{"mast_allgrp", "ALLID", "", "concat('the group ',t.ALLGRP)"},
    Kind{"allgrp_map", "Code_No,AllId", "", "'the mapping of a group'"},
    Kind{"rmschsetup", "Code_No,FYr", "", "concat('the stock schedule of ',t.Code_No)"},
    Kind{"main_info1", "code_no", "", "concat('client ',t.code_no)"},
    Kind{"owner1", "code", "", "concat('client ',t.code)"},
};

// "tab_" of "tab_3".
inline std::string prefixOf(const std::string& table) {
  return table.substr(0, table.size() - yearSuffix(table).size());
}

// Null for a table whose rows are known by nothing.
inline const Kind* kindOf(const std::string& table) {
  const std::string prefix = prefixOf(table);
  const auto found = std::ranges::find(kinds, prefix, &Kind::table);
  return found == kinds.end() ? nullptr : &*found;
}

// The forms' own values.
inline bool isValue(const std::string& table) { return table == "suitemisc"; }

// That the rows s and t are the same: "s.code_no=t.code_no and s.partid=t.partid".
inline std::string sameKeys(const Kind& kind) {
  std::string text;
  std::istringstream each{std::string(kind.keys)};
  for (std::string key; std::getline(each, key, ',');) {
    text += (text.empty() ? "s." : " and s.") + key + "=t." + key;
  }
  return text;
}

// What a row is called, with more behind it, as a sentence.
inline std::string sentence(std::string text) {
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] -= 'a' - 'A';
  return text + '.';
}

}  // namespace quillet::suite::row_kinds
