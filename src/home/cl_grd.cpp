#include "home/cl_grd.h"

#include <algorithm>

#include "controls/form.h"
#include "data/text.h"

namespace quillet {
namespace {

namespace cc = client_columns;

constexpr std::size_t codeColumn = 0;
constexpr std::size_t statusColumn = 2;
constexpr std::size_t groupColumn = 6;

}  // namespace

ClGrd::ClGrd(Form& form, const std::string& name, Context& context)
    : Grid(form, name),
      txtsearch(form, "txtsearch"),
      cbostatus(form, "cbostatus"),
      cbogrpcode(form, "cbogrpcode"),
      cmdcolumns(form, "cmdcolumns", "C&olumns..."),
      lblcount(form, "lblcount"),
      context_(context) {
  zebra = true;
  lblcount.quiet = true;
  KeyPress = [this](Key& key) { typed(key); };
  txtsearch.Change = [this] { showClients(); };
  txtsearch.KeyDown = [this](Key& key) { movedFromSearch(key); };
  txtsearch.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    DblClick();
  };
  cbostatus.Click = [this] { filterChosen(); };
  cbogrpcode.Click = [this] { filterChosen(); };
  cmdcolumns.Click = [this] {
    keepWidths();
    context_.host->ShowClListSetup();
  };
}

void ClGrd::LoadClList(const std::string& status, const std::string& group) {
  clients_.load(*context_.query("select * from TempClTbl order by Name,CodeNo"));
  status_ = status;
  group_ = group;
  fillFilter(cbostatus, statusColumn, "All", status_);
  fillFilter(cbogrpcode, groupColumn, "All", group_);
  setup_ = context_.host->GetSettingINI(cc::section, cc::columnsKey, "");
  columns_ = cc::parse(setup_);
  showColumns();
  showClients();
}

void ClGrd::fillFilter(ComboBox& box, std::size_t column, const char* all,
                       const std::string& chosen) {
  box.clearItems();
  box.addItem(all);
  for (const std::string& value : clients_.values(column)) box.addItem(value);
  box.setChosen(chosen.empty() ? 1 : box.find(chosen));
  if (box.chosen() == 0) {
    // A filter whose last client is gone stays in sight instead of silently hiding everybody.
    box.addItem(chosen);
    box.setChosen(box.size());
  }
}

void ClGrd::filterChosen() {
  status_ = cbostatus.chosen() > 1 ? cbostatus.text() : "";
  group_ = cbogrpcode.chosen() > 1 ? cbogrpcode.text() : "";
  context_.host->SaveSettingINI(cc::section, cc::statusKey, status_);
  context_.host->SaveSettingINI(cc::section, cc::groupKey, group_);
  showClients();
}

void ClGrd::refreshSetup() {
  const auto& host = *context_.host;
  const std::string status = host.GetSettingINI(cc::section, cc::statusKey, "");
  const std::string group = host.GetSettingINI(cc::section, cc::groupKey, "");
  const std::string setup = host.GetSettingINI(cc::section, cc::columnsKey, "");
  if (status == status_ && group == group_ && setup == setup_) return;
  const std::string code = TextMatrix(current(), 0);
  LoadClList(status, group);
  for (int row = 1; row <= rows(); ++row) {
    if (TextMatrix(row, 0) == code) setCurrent(row);
  }
}

void ClGrd::showColumns() {
  std::vector<GridColumn> columns;
  for (const cc::Shown& shown : columns_) {
    columns.push_back(
        {.heading = std::string(cc::all[shown.column].heading), .width = shown.width});
  }
  columns.push_back({.heading = "Position", .hidden = true});
  setColumns(std::move(columns));
}

void ClGrd::showClients() {
  const std::string code = TextMatrix(current(), 0);
  clearSort();
  clearRows();
  shown_ = clients_.matching(txtsearch.text(), columns_, status_, group_);
  reserve(static_cast<int>(shown_.size()));
  int again = 0;
  for (const std::size_t position : shown_) {
    std::vector<std::string> cells;
    cells.reserve(columns_.size() + 1);
    for (const cc::Shown& shown : columns_) cells.push_back(clients_[position][shown.column]);
    cells.push_back(std::to_string(position));
    addRow(std::move(cells));
    if (clients_[position][codeColumn] == code) again = rows();
  }
  setCurrent(again > 0 ? again : 1);
  lblcount.setCaption(std::to_string(shown_.size()) + " of " + std::to_string(clients_.size()) +
                      " clients");
}

void ClGrd::search(const std::string& text) { txtsearch.setText(text); }

void ClGrd::SelectLastClient() {
  const std::string last = context_.host->vLstSelClCode();
  setCurrent(1);
  for (int row = 1; row <= rows(); ++row) {
    if (TextMatrix(row, 0) != last) continue;
    setCurrent(row);
    return;
  }
}

std::string ClGrd::TextMatrix(int row, int column) const {
  if (row < 1 || row > rows()) return {};
  const auto position = static_cast<std::size_t>(std::stoul(cell(row, cols() - 1)));
  return clients_[position].at(static_cast<std::size_t>(column));
}

void ClGrd::typed(Key& key) {
  if (key == keys::Enter) {
    key = keys::none;
    DblClick();
  } else if (key == keys::Backspace) {
    key = keys::none;
    const std::string text = txtsearch.text();
    const std::size_t length = lengthOf(text);
    if (length > 0) search(text.substr(0, offsetOf(text, length - 1)));
  } else if (keys::typesText(key)) {
    std::string text = txtsearch.text();
    appendCharacter(text, key);
    key = keys::none;
    search(text);
  }
}

void ClGrd::movedFromSearch(Key& key) {
  if (key != keys::Up && key != keys::Down && key != keys::PageUp && key != keys::PageDown) return;
  act(key);
  key = keys::none;
}

void ClGrd::keepWidths() {
  bool changed = false;
  for (std::size_t c = 0; c < columns_.size(); ++c) {
    const int width = std::clamp(columns()[c].width, cc::leastWidth, cc::greatestWidth);
    changed = changed || width != columns_[c].width;
    columns_[c].width = width;
  }
  if (!changed) return;
  setup_ = cc::format(columns_);
  context_.host->SaveSettingINI(cc::section, cc::columnsKey, setup_);
}

Node ClGrd::arrangement() {
  return column({row({field("&Find", txtsearch, 30, 1), field("&Status", cbostatus, 14),
                      field("Gro&up", cbogrpcode, 14), item(cmdcolumns)}),
                 item(*this, 1), item(lblcount)},
                1);
}

}  // namespace quillet
