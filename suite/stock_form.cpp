#include "suite/stock_form.h"

#include <algorithm>

#include "books/amount.h"
#include "data/names.h"
#include "data/sql.h"
#include "data/text.h"
#include "host/meant_name.h"
#include "suite/schema.h"

namespace quillet::suite {
namespace {

constexpr int stockGroup = 7;  // the primary group of closing stock
constexpr std::size_t amountLength = 20;
constexpr const char* amountFormat = "###0.00";

enum Column { particular, group, amountColumn, partIdColumn, allIdColumn };

// The first row whose name begins with the text, 0 for none.
int firstMatch(const Grid& list, const std::string& text) {
  const std::string wanted = nameKey(text);
  if (wanted.empty()) return 0;
  for (int row = 1; row <= list.rows(); ++row) {
    if (nameKey(list.cell(row, 0)).starts_with(wanted)) return row;
  }
  return 0;
}

}  // namespace

frmTrade::frmTrade(Desk& desk, Dialogs& dialogs) : Form(desk, "frmTrade"), dialogs_(dialogs) {
  setCaption("Closing Stock");
  size = {0.6, 0.6, 1.0};
  vsf.setColumns({{.heading = "Particulars", .width = 32, .stretch = true},
                  {.heading = "Group", .width = 32},
                  {.heading = "Amount", .align = Align::right, .width = 18, .numeric = true},
                  {.heading = "PartId", .hidden = true},
                  {.heading = "AllId", .hidden = true}});
  vsf.DblClick = [this] { trap("VSF_DBLCLICK", [&] { alterLine(); }); };
  vsf.RowColChange = [this] { cmddelete.setEnabled(vsf.current() > 0); };
  vsf.KeyDown = [this](Key& key) {
    if (key != keys::Delete) return;
    key = keys::none;
    click(cmddelete);
  };
  cmddelete.Click = [this] { trap("CMDDELETE_CLICK", [&] { deleteLine(); }); };
  cmddelete.causesValidation = false;
  cmdclose.Click = [this] { close(); };
  cmdclose.causesValidation = false;
  KeyPress = [this](Key& key) { trap("FORM_KEYPRESS", [&] { formKey(key); }); };
  txttotal.rightAligned = true;
  txttotal.setLocked(true);
  txttotal.tabStop = false;
  lblhint.quiet = true;
  attachEntry();
}

void frmTrade::attachEntry() {
  txtpart.maxLength = ledgerNameLength;
  txtgroup.maxLength = ledgerNameLength;
  txtamount.maxLength = amountLength;
  txtamount.rightAligned = true;
  attachList(txtpart, vsfp);
  attachList(txtgroup, vsfg);
  // The beginning of a group's name stands for the name.
  txtgroup.LostFocus = [this] {
    vsfg.setVisible(false);
    if (const auto known = knownGroup()) txtgroup.setText(*known);
  };
  txtamount.GotFocus = [this] { txtamount.selectAll(); };
  txtamount.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    trap("TXTAMOUNT_KEYPRESS", [&] { saveLine(); });
  };
}

void frmTrade::attachList(TextBox& box, Grid& list) {
  list.setColumns({{.heading = "Name", .width = 40, .stretch = true}});
  list.setVisible(false);
  list.dropOf = &box;
  list.DblClick = [&box, &list] {
    if (list.current() > 0) box.setText(list.cell(list.current(), 0));
  };
  box.GotFocus = [&box, &list] {
    list.setVisible(true);
    box.selectAll();
  };
  box.LostFocus = [&list] { list.setVisible(false); };
  box.Change = [&box, &list] { list.setCurrent(firstMatch(list, box.text())); };
  box.KeyDown = [&box, &list](Key& key) {
    if (key != keys::Up && key != keys::Down) return;
    list.act(key);
    key = keys::none;
    if (list.current() > 0) list.DblClick();
  };
  box.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    focusNext();
  };
}

// Escape gives up an entry, then closes; Enter on a line alters it.
void frmTrade::formKey(Key& key) {
  if (key == keys::Escape) {
    key = keys::none;
    if (!entering()) {
      close();
      return;
    }
    clearEntry();
    focus(vsf);
  } else if (key == keys::Enter && active() == &vsf) {
    key = keys::none;
    alterLine();
  }
}

bool frmTrade::entering() const {
  return !(txtpart.text() + txtgroup.text() + txtamount.text()).empty() || altered_;
}

void frmTrade::LoadData(ServiceObject& host, const std::string& client, const std::string& table) {
  host_ = &host;
  client_ = host.escaped(client);
  table_ = sqlName(table);
}

void frmTrade::Show(int modal, std::function<void()> closed) {
  if (modal == 1) {
    showModal(std::move(closed));
  } else {
    show();
  }
}

void frmTrade::load() {
  trap("FORM_LOAD", [&] {
    host_->resize_for_resolution(*this);
    fillGroups();
    fillLedgers();
    showLines();
    clearEntry();
    focus(vsf.rows() > 0 ? static_cast<Control&>(vsf) : txtpart);
  });
}

// --- what is shown ------------------------------------------------------------------------------

RecordsetPtr frmTrade::query(const Sql& sql) {
  return host_->RecordsetQuery(sql, host_->DbObj(), CursorType::static_, LockType::readOnly);
}

void frmTrade::fillGroups() {
  vsfg.clearRows();
  const auto rows = query("select allgrp from mast_allgrp where gid=" + sqlNumber(stockGroup) +
                          " order by allgrp");
  for (; !rows->EOF_(); rows->MoveNext()) vsfg.addRow({rows->text(0)});
}

void frmTrade::fillLedgers() {
  vsfp.clearRows();
  const auto rows = query("select distinct particular from mast_part order by particular");
  vsfp.reserve(static_cast<int>(rows->RecordCount()));
  for (; !rows->EOF_(); rows->MoveNext()) vsfp.addRow({rows->text(0)});
}

// Several rows of one pair, as a merge in a master leaves them, are one line with their sum.
void frmTrade::showLines() {
  const int selected = vsf.current();
  double total = 0;
  vsf.clearRows();
  txttotal.setText("");
  const auto rows = query(
      "select ifnull(partid,0),ifnull(allid,0),sum(amt),(select min(g.allgrp) from "
      "mast_allgrp g where g.allid=t.allid) from " +
      table_ + " t where code_no='" + client_ + "' group by 1,2 order by 1,2");
  for (; !rows->EOF_(); rows->MoveNext()) {
    total += rows->number(2);
    vsf.addRow({host_->GetPart_MastPartId(rows->integer(0)), rows->text(3),
                host_->formatgen(rows->number(2), amountFormat), rows->text(0), rows->text(1)});
  }
  txttotal.setText(host_->formatgen(total, "#,##0.00"));
  vsf.setCurrent(std::min(selected, vsf.rows()));
  cmddelete.setEnabled(vsf.current() > 0);
}

// --- entering -----------------------------------------------------------------------------------

void frmTrade::clearEntry() {
  for (TextBox* box : {&txtpart, &txtgroup, &txtamount}) box->setText("");
  altered_.reset();
  lblhint.setCaption("");
}

void frmTrade::alterLine() {
  const int row = vsf.current();
  if (row == 0) return;
  altered_ = Pair{std::stol(vsf.cell(row, partIdColumn)), std::stol(vsf.cell(row, allIdColumn))};
  txtpart.setText(vsf.cell(row, particular));
  txtgroup.setText(vsf.cell(row, group));
  txtamount.setText(vsf.cell(row, amountColumn));
  focus(txtpart);
  lblhint.setCaption("Altering the selected line. Esc leaves it as it was.");
}

void frmTrade::deleteLine() {
  const int row = vsf.current();
  if (row == 0) return;
  if (ask("Do you want to delete the selected record?", Buttons::YesNo, Icon::none) !=
      Answer::Yes) {
    return;
  }
  change(
      {removal({std::stol(vsf.cell(row, partIdColumn)), std::stol(vsf.cell(row, allIdColumn))})});
}

std::optional<std::string> frmTrade::knownGroup() const {
  const int row = firstMatch(vsfg, txtgroup.text());
  if (row == 0) return std::nullopt;
  return vsfg.cell(row, 0);
}

void frmTrade::saveLine() {
  const std::string name = cleanedName(txtpart.text());
  const auto typed = typedAmount(txtamount.text());
  if (name.empty() || trimmed(txtgroup.text()).empty() || !typed || *typed <= Money()) {
    ask("Cannot save the entry due to invalid data.", Buttons::OK, Icon::none);
    return;
  }
  const auto known = knownGroup();
  const auto found =
      known ? query("SELECT ALLID FROM MAST_ALLGRP WHERE ALLGRP='" + host_->escaped(*known) + "'")
            : nullptr;
  if (!found || found->EOF_()) {
    ask("Group does not exist.", Buttons::OK, Icon::information);
    return;
  }
  const Pair line{host_->GetMax_MastPartId(name), found->integer(0)};
  if (line.partId == 0) {
    ask("Failed to Create Master [" + name + "].", Buttons::OK, Icon::information);
    return;
  }
  if (!ledgerMeant(*host_, dialogs_, name, line.partId, caption())) {
    focus(txtpart);
    lblhint.setCaption(chooseAnotherName);
    return;
  }
  std::vector<Sql> statements;
  if (altered_ && altered_ != line) statements.push_back(removal(*altered_));
  statements.push_back(removal(line));
  const double amount = altered_ == line ? typed->rupees() : merged(line, typed->rupees());
  statements.push_back("insert into " + table_ + "(code_no,partid,allid,amt) values('" + client_ +
                       "'," + sqlNumber(line.partId) + "," + sqlNumber(line.allId) + "," +
                       sqlNumber(amount) + ")");
  change(statements);
  if (vsfp.find(0, name) == 0) fillLedgers();
  focus(txtpart);
}

// The amount with what is stored for the pair, in whole paise.
double frmTrade::merged(Pair line, double amount) {
  const auto stored = query("select sum(amt) from " + table_ + where(line));
  return Money::rounded(amount + stored->number(0)).rupees();
}

Sql frmTrade::removal(Pair line) const { return "delete from " + table_ + where(line); }

Sql frmTrade::where(Pair line) const {
  return " where code_no='" + client_ + "' and ifnull(partid,0)=" + sqlNumber(line.partId) +
         " and ifnull(allid,0)=" + sqlNumber(line.allId);
}

// All of the statements count or none does: an entry that failed is still in its fields and may be
// saved again. Afterwards the list shows what is stored.
void frmTrade::change(const std::vector<Sql>& statements) {
  try {
    host_->ConQuery("start transaction");
    for (const Sql& statement : statements) host_->ConQuery(statement);
    host_->ConQuery("commit");
  } catch (...) {
    host_->ConQuery("rollback");
    showLines();
    throw;
  }
  clearEntry();
  showLines();
  host_->ConQuery(flushTables);
}

Answer frmTrade::ask(const std::string& text, Buttons buttons, Icon icon) {
  return dialogs_.MsgBox(
      {text, "Closing Stock", buttons, icon, buttons == Buttons::OK ? Answer::OK : Answer::No});
}

Node frmTrade::layout() {
  return column({item(vsf, 1),
                 row({field("&Particulars", txtpart, 32, 1), field("&Group", txtgroup, 28, 1),
                      field("A&mount", txtamount, 18), item(vsfp), item(vsfg)}),
                 item(lblhint),
                 row({item(cmddelete), item(cmdclose), gap(), field("Total", txttotal, 18)})});
}

}  // namespace quillet::suite
