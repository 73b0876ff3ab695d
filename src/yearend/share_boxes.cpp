#include "yearend/share_boxes.h"

#include <algorithm>

#include "books/amount.h"
#include "books/ledger_list.h"
#include "books/primary_groups.h"
#include "data/names.h"
#include "yearend/frmbringfwd.h"

namespace quillet {
namespace {

constexpr std::size_t nameLength = 100;
constexpr std::size_t percentLength = 9;

bool takesProfit(int primary) {
  return primary == static_cast<int>(PrimaryGroup::capital) ||
         primary == static_cast<int>(PrimaryGroup::reserves);
}

bool isSameLedger(const ProfitShare& a, const ProfitShare& b) {
  return a.pair == b.pair && a.ledger == b.ledger;
}

}  // namespace

ShareBoxes::ShareBoxes(frmbringfwd& form, Context& context, ForwardReview& review)
    : form_(form),
      context_(context),
      review_(review),
      stockLedgers_(form.vsfp),
      capitalLedgers_(form.vsfc) {
  form.vsfs.setColumns({{.heading = "Capital", .width = 17, .stretch = true},
                        {.heading = "Group", .width = 24, .stretch = true},
                        {.heading = "Per Cent", .align = Align::right, .width = 8},
                        {.heading = "Share", .align = Align::right, .width = 13}});
  form.vsfs.setFixedRows(3);
  form.vsfs.sortable = false;
  form.txtpercent.setMaxLength(percentLength);
  for (TextBox* box : {&form.txtstock, &form.txtcapital}) box->setMaxLength(nameLength);
  stockLedgers_.attach(form.txtstock);
  capitalLedgers_.attach(form.txtcapital);
  form.chkzero.Click = [this] {
    review_.choose([&](OpeningChoices& choices) { choices.keepsZero = form_.chkzero.checked(); });
    form_.reviewed();
  };
  form.cbostock.Click = [this] { takeStock(); };
  form.txtstock.LostFocus = [this] {
    stockLedgers_.hide();
    takeStock();
  };
  form.vsfs.RowColChange = [this] { show(); };
  form.vsfs.KeyPress = [this](Key& key) {
    const bool typed = (key >= U'0' && key <= U'9') || key == U'.';
    if (key != keys::Enter && !typed) return;
    form_.mnushares.Click();
    if (typed && form_.active() == &form_.txtpercent) form_.handleKey(key);
    key = keys::none;
  };
  form.vsfs.DblClick = [this] { form_.mnushares.Click(); };
  form.mnushares.Click = [this] {
    if (!form_.txtpercent.focusable()) return;
    form_.focus(form_.txtpercent);
    form_.txtpercent.selectAll();
  };
  form.txtpercent.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    percentTyped();
  };
  form.txtpercent.LostFocus = [this] {
    if (form_.txtpercent.text() != percentInList() && !takePercent()) restore();
  };
  form.cmdcapital.Click = [this] { addLedger(); };
}

void ShareBoxes::begin() {
  groups_.load(*context_.host);
  const NameList ledgers = allLedgers(*context_.host);
  stockLedgers_.fill(ledgers);
  capitalLedgers_.fill(ledgers);
  const auto primary = primaryGroups(*context_.host);
  form_.cbostock.clearItems();
  form_.cbocapital.clearItems();
  for (const NameList::Entry& group : groups_.names().entries()) {
    const auto found = primary.find(group.id);
    if (found == primary.end()) continue;
    if (found->second == static_cast<int>(PrimaryGroup::openingStock)) {
      form_.cbostock.addItem(group.name, group.id);
    }
    if (takesProfit(found->second)) form_.cbocapital.addItem(group.name, group.id);
  }
  form_.cbocapital.setChosen(std::min(1, form_.cbocapital.size()));
  form_.txtcapital.setText("");
  capital_.clear();
  offerCapital();
  form_.vsfs.clearRows();
  show();
  form_.vsfs.setCurrent(std::min(1, form_.vsfs.rows()));
}

// The old year's ledgers of capital and reserves, and whoever has a share.
void ShareBoxes::offerCapital() {
  const auto offer = [&](const ProfitShare& share) {
    const bool known = std::ranges::any_of(
        capital_, [&](const ProfitShare& each) { return isSameLedger(each, share); });
    if (!known) capital_.push_back({.pair = share.pair, .ledger = share.ledger});
  };
  // Drawings stand under capital, too, and come behind it.
  for (const bool inCredit : {true, false}) {
    for (const ClosingLine& line : review_.books().closing.lines) {
      const bool isCapital = takesProfit(line.primary) && (line.balance < Money()) == inCredit;
      if (isCapital) offer({.pair = line.pair});
    }
  }
  for (const ProfitShare& share : review_.choices().shares) offer(share);
}

// --- what is shown ------------------------------------------------------------------------------

void ShareBoxes::show() {
  const OpeningChoices& choices = review_.choices();
  const bool hasStock = !review_.opening().unboundStock.isZero();
  form_.chkzero.setChecked(choices.keepsZero);
  for (Control* box :
       {static_cast<Control*>(&form_.cbostock), static_cast<Control*>(&form_.txtstock)}) {
    box->setEnabled(hasStock);
  }
  form_.cbostock.setChosen(form_.cbostock.findData(choices.stock.allId));
  showShares();
  const int row = form_.vsfs.current();
  const bool hasProfit = !review_.opening().profit.isZero();
  form_.txtpercent.setEnabled(hasProfit && row != 0);
  form_.mnushares.setEnabled(hasProfit && row != 0);
  // A box in which a person types keeps its text.
  if (form_.active() != &form_.txtpercent) form_.txtpercent.setText(percentInList());
  if (form_.active() != &form_.txtstock) showStockLedger();
}

void ShareBoxes::showStockLedger() {
  const OpeningChoices& choices = review_.choices();
  form_.txtstock.setText(choices.stock.partId == 0
                             ? choices.stockLedger
                             : context_.host->GetPart_MastPartId(choices.stock.partId));
  stockLedgers_.hide();
}

void ShareBoxes::restore() {
  form_.txtpercent.setText(percentInList());
  showStockLedger();
}

void ShareBoxes::focusAsked() {
  const Opening::Choice asked = review_.opening().asked;
  if (asked == Opening::Choice::stockGroup) form_.focus(form_.cbostock);
  if (asked == Opening::Choice::stockLedger) form_.focus(form_.txtstock);
  if (asked == Opening::Choice::shares) form_.focus(form_.vsfs);
}

std::string ShareBoxes::percentInList() const {
  const int row = form_.vsfs.current();
  return row == 0 ? "" : form_.vsfs.cell(row, 2);
}

void ShareBoxes::showShares() {
  offerCapital();
  Grid& grid = form_.vsfs;
  for (std::size_t at = 0; at < capital_.size(); ++at) {
    const int row = static_cast<int>(at) + 1;
    const auto cells = cellsOf(capital_[at]);
    if (row > grid.rows()) grid.addRow({}, row);
    for (int column = 0; column < grid.cols(); ++column) {
      grid.setCell(row, column, cells[static_cast<std::size_t>(column)]);
    }
  }
}

std::vector<std::string> ShareBoxes::cellsOf(const ProfitShare& share) const {
  const auto& shares = review_.choices().shares;
  std::string percent;
  std::string amount;
  for (std::size_t at = 0; at < shares.size(); ++at) {
    if (!isSameLedger(shares[at], share)) continue;
    percent = percentText(shares[at].millionths);
    if (sumOf(shares) != wholeShare) continue;
    amount = groupedBalance(*context_.host, -amountsOf(review_.opening().profit, shares)[at]);
  }
  return {
      share.pair.partId == 0 ? share.ledger : context_.host->GetPart_MastPartId(share.pair.partId),
      groups_.name(share.pair.allId), percent, amount};
}

// --- what a person does -------------------------------------------------------------------------

// 0 for a name that the master does not have: the ledger is made when it is written.
long ShareBoxes::ledgerNamed(const std::string& name) {
  return name.empty() ? 0 : context_.host->GetMax_MastPartId(name, false);
}

void ShareBoxes::takeStock() {
  if (!review_.isOpen()) return;
  const std::string name = cleanedName(form_.txtstock.text());
  const LedgerGroup stock{ledgerNamed(name), form_.cbostock.chosenData()};
  review_.choose([&](OpeningChoices& choices) {
    choices.stock = stock;
    choices.stockLedger = stock.partId == 0 ? name : "";
  });
  form_.reviewed();
}

// Goes on with the next one.
void ShareBoxes::percentTyped() {
  if (!takePercent()) return form_.txtpercent.selectAll();
  form_.focus(form_.vsfs);
  const int row = form_.vsfs.current();
  if (row < form_.vsfs.rows()) form_.vsfs.setCurrent(row + 1);
}

// False for a text that is no per cent, which a message says.
bool ShareBoxes::takePercent() {
  const int row = form_.vsfs.current();
  if (row == 0) return true;
  const std::string typed = form_.txtpercent.text();
  const auto millionths = cleanedName(typed).empty() ? 0L : typedPercent(typed);
  if (!millionths) {
    context_.MsgBox("'" + typed + "' is no per cent. Type a number from 0 to 100, such as 33.3333.",
                    Buttons::OK, Icon::information);
    return false;
  }
  ProfitShare share = capital_.at(static_cast<std::size_t>(row - 1));
  share.millionths = *millionths;
  review_.choose([&](OpeningChoices& choices) {
    std::erase_if(choices.shares,
                  [&](const ProfitShare& each) { return isSameLedger(each, share); });
    if (share.millionths != 0) choices.shares.push_back(share);
    // In the order in which they are listed.
    std::ranges::stable_sort(choices.shares, {}, [&](const ProfitShare& each) {
      return std::ranges::find_if(capital_,
                                  [&](const auto& listed) { return isSameLedger(listed, each); }) -
             capital_.begin();
    });
  });
  form_.reviewed();
  return true;
}

void ShareBoxes::addLedger() {
  const std::string name = cleanedName(form_.txtcapital.text());
  if (name.empty() || form_.cbocapital.chosen() == 0) {
    context_.MsgBox("Type the ledger that takes a share, and choose its group.", Buttons::OK,
                    Icon::information);
    form_.focus(form_.txtcapital);
    return;
  }
  ProfitShare share{.pair = {ledgerNamed(name), form_.cbocapital.chosenData()}};
  if (share.pair.partId == 0) share.ledger = name;
  const auto found = std::ranges::find_if(
      capital_, [&](const ProfitShare& each) { return isSameLedger(each, share); });
  const auto row = static_cast<int>(found - capital_.begin()) + 1;
  if (found == capital_.end()) capital_.push_back(share);
  form_.txtcapital.setText("");
  capitalLedgers_.hide();
  showShares();
  form_.vsfs.setCurrent(row);
  form_.mnushares.Click();
}

}  // namespace quillet
