#include "suite/client_setup_form.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace quillet::suite {
namespace {

namespace cc = client_columns;

enum GridColumnAt { ticks, headings, widths };

// A row's id is the position of its column among all, counted from 1.
long idOf(std::size_t column) { return static_cast<long>(column) + 1; }

int widthIn(const std::string& text, int usual) {
  int width = usual;
  std::from_chars(text.data(), text.data() + text.size(), width);
  return std::clamp(width, cc::leastWidth, cc::greatestWidth);
}

}  // namespace

frmClSetup::frmClSetup(OpenForms& openForms, Settings& settings)
    : Form(openForms, "frmClSetup"), settings_(settings) {
  setCaption("Columns of the Client List");
  size = {0.4, 0.5, 1.0};
  vsf.setColumns({{.heading = "Show", .width = 6, .tick = true},
                  {.heading = "Column", .width = 16, .stretch = true},
                  {.heading = "Width", .align = Align::right, .width = 8, .editable = true}});
  vsf.sortable = false;  // the order of the columns is what is set up
  vsf.AfterEdit = [this](int row, int column) { edited(row, column); };
  vsf.RowColChange = [this] { enableMoves(); };
  cmdup.Click = [this] { move(-1); };
  cmddown.Click = [this] { move(1); };
  cmddefault.Click = [this] { show(cc::defaults()); };
  cmdok.Click = [this] { save(); };
  cmdcancel.Click = [this] { close(); };
  KeyPress = [this](Key& key) {
    if (key == keys::Escape) {
      key = keys::none;
      close();
    }
  };
}

void frmClSetup::load() {
  logErrors("FORM_LOAD", [&] { show(cc::parse(settings_.get(cc::section, cc::columnsKey))); });
}

// The columns shown come first, in their order; the others follow without a tick.
void frmClSetup::show(const std::vector<cc::Shown>& columns) {
  vsf.clearRows();
  const auto add = [&](std::size_t column, int width, bool shown) {
    vsf.addRow({shown ? "1" : "", std::string(cc::all[column].heading), std::to_string(width)},
               idOf(column));
  };
  for (const cc::Shown& shown : columns) add(shown.column, shown.width, true);
  for (std::size_t i = 0; i < cc::all.size(); ++i) {
    if (vsf.findId(idOf(i)) == 0) add(i, cc::all[i].width, false);
  }
  vsf.setCurrent(1);
  enableMoves();
}

void frmClSetup::edited(int row, int column) {
  const cc::Column& arranged = cc::all[vsf.rowId(row) - 1];
  // A client is chosen by its code, so the code stays.
  if (column == ticks && &arranged == &cc::all.front()) vsf.setCell(row, ticks, "1");
  if (column == widths) {
    vsf.setCell(row, widths, std::to_string(widthIn(vsf.cell(row, widths), arranged.width)));
  }
}

void frmClSetup::move(int by) {
  const int from = vsf.current();
  const int to = from + by;
  if (from == 0 || to < 1 || to > vsf.rows()) return;
  vsf.moveRow(from, to);
  enableMoves();
}

void frmClSetup::enableMoves() {
  cmdup.setEnabled(vsf.current() > 1);
  cmddown.setEnabled(vsf.current() > 0 && vsf.current() < vsf.rows());
}

void frmClSetup::save() {
  std::vector<cc::Shown> columns;
  for (int row = 1; row <= vsf.rows(); ++row) {
    if (!vsf.ticked(row)) continue;
    const std::size_t column = vsf.rowId(row) - 1;
    columns.push_back({column, widthIn(vsf.cell(row, widths), cc::all[column].width)});
  }
  settings_.set(cc::section, cc::columnsKey, cc::format(columns));
  close();
}

LayoutItem frmClSetup::layout() {
  return column({row({named("Columns", item(vsf, 1)),
                      column({item(cmdup), item(cmddown), item(cmddefault), gap()})},
                     1),
                 row({gap(), item(cmdok), item(cmdcancel)})});
}

}  // namespace quillet::suite
