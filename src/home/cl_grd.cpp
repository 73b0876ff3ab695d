#include "home/cl_grd.h"

#include <algorithm>

#include "controls/form.h"
#include "data/names.h"
#include "data/text.h"

namespace quillet {
namespace {

namespace cc = client_columns;

constexpr char everyClient[] = "select * from TempClTbl order by Name,CodeNo";
constexpr std::size_t statusColumn = 2;
constexpr std::size_t groupColumn = 6;

}  // namespace

ClGrd::ClGrd(Form& form, const std::string& name, Context& context)
    : Grid(form, name),
      txtsearch(form, "txtsearch"),
      cbostatus(form, "cbostatus"),
      cbogrpcode(form, "cbogrpcode"),
      cmdclients(form, "cmdclients", "Clie&nts..."),
      cmdcolumns(form, "cmdcolumns", "C&olumns..."),
      lblcount(form, "lblcount"),
      context_(context) {
  setZebra(true);
  lblcount.setQuiet(true);
  KeyPress = [this](Key& key) { typed(key); };
  txtsearch.Change = [this] { showClients(currentCode()); };
  txtsearch.KeyDown = [this](Key& key) { movedFromSearch(key); };
  txtsearch.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    choose();
  };
  cbostatus.Click = [this] { filterChosen(); };
  cbogrpcode.Click = [this] { filterChosen(); };
  // The list has the keys again when the dialog closes.
  cmdclients.Click = [this] {
    this->form().focus(*this);
    context_.host->ShowClListSelection(status_);
    dialogShown();
  };
  cmdcolumns.Click = [this] {
    this->form().focus(*this);
    keepWidths();
    context_.host->ShowClListSetup();
    dialogShown();
  };
}

// A dialog that is one of our forms is in front now; when it closes, the form of this list comes to
// the front and reads it anew. A host's own dialog is closed by now, unnoticed.
void ClGrd::dialogShown() {
  if (context_.openForms.active() == &form()) form().activate();
}

// --- the list -----------------------------------------------------------------------------------

void ClGrd::LoadClList(const std::string& status, const std::string& group) {
  const auto rows = context_.query(everyClient);
  const std::string current = currentCode();
  setup_ = storedSetup();
  clients_.load(*rows);
  showList(status, group, current);
}

void ClGrd::refresh() {
  notice_.clear();
  const auto rows = context_.query(everyClient);
  const std::string current = currentCode();
  const Setup setup = storedSetup();
  const bool changed = clients_.load(*rows);
  if (!changed && setup == setup_) return;
  const bool sameFilters = setup.status == setup_.status && setup.group == setup_.group;
  const int sorted = setup.columns == setup_.columns ? sortColumn() : -1;
  const bool ascending = sortAscending();
  setup_ = setup;
  // A choice that could not be stored holds as well.
  if (sameFilters) {
    showList(status_, group_, current);
  } else {
    showList(setup.status, setup.group, current);
  }
  if (sorted >= 0) sortBy(sorted);
  if (sorted >= 0 && !ascending) sortBy(sorted);
}

void ClGrd::empty() {
  clearRows();
  clients_ = {};
  notice_.clear();
  search("");
}

void ClGrd::showList(const std::string& status, const std::string& group,
                     const std::string& current) {
  columns_ = cc::parse(setup_.columns);
  showColumns();
  takeFilters(status, group);
  showClients(current);
}

// --- the filters --------------------------------------------------------------------------------

ClGrd::Setup ClGrd::storedSetup() const {
  const auto stored = [&](const char* key) {
    return context_.host->GetSettingINI(cc::section, key, "");
  };
  return {stored(cc::statusKey), stored(cc::groupKey), stored(cc::columnsKey)};
}

// A setting that cannot be stored is no reason not to go on.
void ClGrd::remember(const char* key, const std::string& value, std::string Setup::*read) {
  try {
    context_.host->SaveSettingINI(cc::section, key, value);
    setup_.*read = value;
  } catch (...) {
    reportTrapped(form(), this->name(), "REMEMBER");
  }
}

std::string ClGrd::fillFilter(ComboBox& box, std::size_t column, const std::string& wanted) {
  box.clearItems();
  box.addItem("All");
  for (const std::string& value : clients_.values(column)) box.addItem(value);
  const auto same = std::find_if(box.items().begin() + 1, box.items().end(),
                                 [&](const std::string& item) { return sameName(item, wanted); });
  const bool found = !wanted.empty() && same != box.items().end();
  box.setChosen(found ? static_cast<int>(same - box.items().begin()) + 1 : 1);
  return box.chosen() > 1 ? box.text() : "";
}

void ClGrd::takeFilters(const std::string& status, const std::string& group) {
  status_ = fillFilter(cbostatus, statusColumn, status);
  group_ = fillFilter(cbogrpcode, groupColumn, group);
  notice_.clear();
  if (clients_.size() == 0) {
    // An empty register is no reason to drop the filters.
    status_ = status;
    group_ = group;
    return;
  }
  if (clients_.matching("", columns_, status_, group_).empty()) {
    cbostatus.setChosen(1);
    cbogrpcode.setChosen(1);
    status_ = group_ = "";
  }
  std::string dropped;
  if (status_.empty() && !status.empty()) {
    dropped = "the status \"" + status + '"';
    remember(cc::statusKey, "", &Setup::status);
  }
  if (group_.empty() && !group.empty()) {
    dropped += (dropped.empty() ? "the group \"" : " and the group \"") + group + '"';
    remember(cc::groupKey, "", &Setup::group);
  }
  if (!dropped.empty())
    notice_ = "No client has " + dropped + ". The list is no longer kept to it.";
}

void ClGrd::filterChosen() {
  status_ = cbostatus.chosen() > 1 ? cbostatus.text() : "";
  group_ = cbogrpcode.chosen() > 1 ? cbogrpcode.text() : "";
  showClients(currentCode());
  remember(cc::statusKey, status_, &Setup::status);
  remember(cc::groupKey, group_, &Setup::group);
}

// --- rows and columns ---------------------------------------------------------------------------

void ClGrd::showColumns() {
  std::vector<GridColumn> columns;
  for (const cc::Shown& shown : columns_) {
    columns.push_back(
        {.heading = std::string(cc::all[shown.column].heading), .width = shown.width});
  }
  setColumns(std::move(columns));
}

void ClGrd::showClients(const std::string& current) {
  clearRows();
  const auto found = clients_.matching(txtsearch.text(), columns_, status_, group_);
  reserve(static_cast<int>(found.size()));
  for (const std::size_t position : found) {
    std::vector<std::string> cells;
    cells.reserve(columns_.size());
    for (const cc::Shown& shown : columns_) cells.push_back(clients_[position][shown.column]);
    addRow(std::move(cells), static_cast<long>(position));
  }
  sortAgain();
  if (!setCurrentClient(current)) setCurrent(1);
  setEmptyText(clients_.size() == 0 ? emptyRegister_
               : searching()        ? "No client is found. Esc shows all of them again."
                                    : "No client has this status and this group.");
  lblcount.setCaption(std::to_string(found.size()) + " of " + std::to_string(clients_.size()) +
                      " clients");
}

void ClGrd::search(const std::string& text) { txtsearch.setText(text); }

void ClGrd::SelectLastClient() {
  const std::string last = context_.host->vLstSelClCode();
  setCurrent(1);
  setCurrentClient(last);
}

bool ClGrd::setCurrentClient(const std::string& code) {
  for (int row = 1; row <= rows(); ++row) {
    if (TextMatrix(row, 0) != code) continue;
    setCurrent(row);
    return true;
  }
  return false;
}

void ClGrd::showClient(const std::string& code) {
  if (code.empty() || setCurrentClient(code)) return;
  search("");
  if (setCurrentClient(code)) return;
  cbostatus.setChosen(1);
  cbogrpcode.setChosen(1);
  filterChosen();
  setCurrentClient(code);
}

void ClGrd::setEmptyRegisterText(std::string text) {
  emptyRegister_ = std::move(text);
  if (rows() == 0) setEmptyText(emptyRegister_);
}

void ClGrd::choose() {
  if (clients_.size() == 0) {
    EmptyClick();
  } else {
    DblClick();
  }
}

std::string ClGrd::TextMatrix(int row, int column) const {
  if (row < 1 || row > rows()) return {};
  return clients_[rowId(row)].at(column);
}

void ClGrd::typed(Key& key) {
  if (key == keys::Enter) {
    key = keys::none;
    choose();
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
  handleKey(key);
  key = keys::none;
}

void ClGrd::keepWidths() {
  bool changed = false;
  for (std::size_t c = 0; c < columns_.size(); ++c) {
    const int width = std::clamp(columns()[c].width, cc::leastWidth, cc::greatestWidth);
    changed = changed || width != columns_[c].width;
    columns_[c].width = width;
  }
  if (changed) remember(cc::columnsKey, cc::format(columns_), &Setup::columns);
}

LayoutItem ClGrd::arrangement() {
  return column({row({field("&Find", txtsearch, 30, 1), field("S&tatus", cbostatus, 14),
                      field("Gro&up", cbogrpcode, 14), item(cmdclients), item(cmdcolumns)}),
                 named("Clients", item(*this, 1)), item(lblcount)},
                1);
}

}  // namespace quillet
