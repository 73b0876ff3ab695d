#include "masters/group_columns.h"

namespace quillet {
namespace {

constexpr const char* section = "AllGrp";
constexpr const char* setup = "GRP_MAST_SETUP";
constexpr const char* usual = "Group|Under Group|User Group";

}  // namespace

void GroupColumns::setColumns() {
  master_.setColumns({{.heading = "Group", .width = 36, .stretch = true},
                      {.heading = "Under Group", .width = 30},
                      {.heading = "User Group", .align = Align::center, .width = 10},
                      {.heading = "Schedule VI", .width = 20},
                      {.heading = "Income Tax", .width = 20},
                      {.heading = "Mapping", .align = Align::center, .width = 10}});
  page_.setColumns({{.heading = "Column", .width = 30, .stretch = true},
                    {.heading = "Shown", .align = Align::center, .width = 8, .tick = true}});
  page_.sortable = false;
  showUsual();
}

void GroupColumns::showUsual() { show(usual); }

void GroupColumns::read(ServiceObject& host) { show(host.GetMiscOthInf(section, setup, usual)); }

void GroupColumns::show(const std::string& kept) {
  for (int column = under; column <= mapping; ++column) {
    const std::string& heading = master_.columns()[static_cast<std::size_t>(column)].heading;
    master_.setColumnHidden(column,
                            ('|' + kept + '|').find('|' + heading + '|') == std::string::npos);
  }
}

void GroupColumns::list() {
  page_.clearRows();
  for (int column = under; column <= mapping; ++column) {
    const GridColumn& shown = master_.columns()[static_cast<std::size_t>(column)];
    page_.addRow({shown.heading, shown.hidden ? "" : "1"}, column);
  }
  page_.setCurrent(1);
}

void GroupColumns::take(ServiceObject& host) {
  std::string kept = master_.columns()[name].heading;
  for (int row = 1; row <= page_.rows(); ++row) {
    if (page_.ticked(row)) kept += '|' + page_.cell(row, 0);
  }
  host.SetMiscOthInf(section, setup, kept, "", "");
  show(kept);
}

bool GroupColumns::showMapping() const {
  for (const int column : {schedule6, incomeTax, mapping}) {
    if (!master_.columns()[static_cast<std::size_t>(column)].hidden) return true;
  }
  return false;
}

}  // namespace quillet
