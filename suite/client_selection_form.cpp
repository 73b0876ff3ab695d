#include "suite/client_selection_form.h"

#include <utility>

#include "data/client_columns.h"

namespace quillet::suite {
namespace {

namespace cc = client_columns;

constexpr const char* everyone = "(All)";

std::string chosenText(const ComboBox& box) { return box.chosen() > 1 ? box.text() : ""; }

}  // namespace

frmClSelection::frmClSelection(OpenForms& openForms, Database& database, Settings& settings,
                               std::string status)
    : Form(openForms, "frmClSelection"),
      database_(database),
      settings_(settings),
      status_(std::move(status)) {
  setCaption("Clients Shown");
  size = {0.3, 0.25, 1.0};
  cmdok.Click = [this] { save(chosenText(cbostatus), chosenText(cbogroup)); };
  cmdall.Click = [this] { save("", ""); };
  cmdcancel.Click = [this] { close(); };
  KeyPress = [this](Key& key) {
    if (key == keys::Escape) {
      key = keys::none;
      close();
    }
  };
}

void frmClSelection::load() {
  logErrors("FORM_LOAD", [&] {
    fill(cbostatus, "Status",
         status_.empty() ? settings_.get(cc::section, cc::statusKey) : status_);
    fill(cbogroup, "GroupCode", settings_.get(cc::section, cc::groupKey));
  });
}

void frmClSelection::fill(ComboBox& box, const std::string& column, const std::string& chosen) {
  box.clearItems();
  box.addItem(everyone);
  const RecordsetPtr values = database_.query(
      "select distinct " + column + " from TempClTbl where " + column + "<>'' order by " + column);
  for (; !values->EOF_(); values->MoveNext()) box.addItem(values->text(0));
  const int position = chosen.empty() ? 1 : box.find(chosen);
  box.setChosen(position == 0 ? 1 : position);
}

void frmClSelection::save(const std::string& status, const std::string& group) {
  settings_.set(cc::section, cc::statusKey, status);
  settings_.set(cc::section, cc::groupKey, group);
  close();
}

LayoutItem frmClSelection::layout() {
  return column({field("&Status", cbostatus, 30), field("&Group", cbogroup, 30), gap(),
                 row({gap(), item(cmdok), item(cmdall), item(cmdcancel)})});
}

}  // namespace quillet::suite
