#include "journal/frmjrnl.h"

#include <algorithm>

#include "books/amount.h"
#include "books/clients.h"
#include "data/year.h"
#include "journal/form_parts.h"

namespace quillet {
namespace {

constexpr const char* title = "Adjustment Journal";
// The narration's column holds 65,535 bytes, and a character takes up to four.
constexpr std::size_t narrationLength = 16'000;
constexpr int amountWidth = 16;

}  // namespace

frmjrnl::frmjrnl(Context& context) : Form(context.desk, "frmjrnl"), context_(context) {
  posting_.Changed = [this](LedgerGroup pair, double balance) { balanceChanged(pair, balance); };
  attachList();
  attachEntry();
  Frame2.setVisible(false);
  KeyDown = [this](Key& key) { FORM_KEYDOWN(key); };
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
}

void frmjrnl::attachList() {
  vsf.setColumns({{.heading = "Date", .width = 12},
                  {.heading = "Particulars", .width = 50, .stretch = true},
                  {.heading = "Debit Amount", .align = Align::right, .width = 18, .numeric = true},
                  {.heading = "Credit Amount", .align = Align::right, .width = 18, .numeric = true},
                  {.heading = "VId", .hidden = true}});
  vsf.DblClick = [this] { VSF_DBLCLICK(); };
  vsf.KeyDown = [this](Key& key) { VSF_KEYDOWN(key); };
  // A voucher's rows belong together, so the outline keeps its order.
  vsf.AfterSort = [this] {
    vsf.clearSort();
    LOADGRID();
  };
  Check1.setChecked(true);
  Check1.Click = [this] { CHECK1_CLICK(); };
  cmdadd.Click = [this] { CMDADD_CLICK(); };
  cmdmodify.Click = [this] { VSF_DBLCLICK(); };
  Command1.Click = [this] { COMMAND1_CLICK(); };
  cmdprn.Click = [this] { CMDPRN_CLICK(); };
  cmdtb.Click = [this] { CMDTB_CLICK(); };
  cmdexit.Click = [this] { close(); };
  cmdok.Click = [this] { CMDOK_CLICK(); };
  for (auto& box : txtdt1) {
    box->Validate = [this, index = box->index()](bool& cancel) { TXTDT1_VALIDATE(index, cancel); };
  }
  lblstatus.quiet = true;
}

void frmjrnl::attachEntry() {
  vsf1.setColumns(
      {{.heading = "", .width = 12, .stretch = true},
       {.heading = "Debit Amount", .align = Align::right, .width = amountWidth, .numeric = true},
       {.heading = "Credit Amount", .align = Align::right, .width = amountWidth, .numeric = true}});
  vsf1.tabStop = false;
  vsf1.fixedRows = 1;
  txtdt.Validate = [this](bool& cancel) { txtdt_VALIDATE(cancel); };
  txtdt.GotFocus = [this] { reveal(0); };
  txtnarr.maxLength = narrationLength;
  txtnarr.Overflow = [this] { hint("A narration holds at most 16,000 characters."); };
  cmdupdate.Click = [this] { CMDUPDATE_CLICK(); };
  cmdcancel.Click = [this] { CMDCANCEL_CLICK(); };
  cmdremove.Click = [this] { CMDREMOVE_CLICK(); };
  // Updating checks the whole voucher by itself; the other two throw away what is not in order.
  for (Button* button : {&cmdupdate, &cmdcancel, &cmdremove}) button->causesValidation = false;
  cmdremove.tabStop = false;
  for (Label* label : {&lblhint, &lbldiff, &lblrows, &lblmore, &lbldots}) label->quiet = true;
  for (Grid* list : {&VSF3, &VSF4}) {
    list->setColumns(
        {{.heading = "Id", .hidden = true}, {.heading = "Name", .width = 44, .stretch = true}});
    list->setVisible(false);
  }
  VSF3.dropOf = &txtledger[0];
  VSF4.dropOf = &txtgroup[0];
  VSF3.DblClick = [this] { VSF3_DBLCLICK(); };
  VSF4.DblClick = [this] { VSF4_DBLCLICK(); };
  attachLine(0);
}

Node frmjrnl::layout() {
  const Node period = row({item(lblperiod, 1), field("&From", txtdt1[0], 12),
                           field("&To", txtdt1[1], 12), item(cmdok)});
  const Node commands = row({item(cmdadd), item(cmdmodify), item(Command1), item(Check1), gap(),
                             item(cmdprn), item(cmdtb), item(cmdexit)});
  const Node list = framed(Frame1, {period, item(vsf, 1), item(lblstatus), commands}, 1);

  std::vector<Node> lines{item(lblmore)};
  const int end = std::min(top_ + linesInView, cboside.size());
  for (int line = top_; line < end; ++line) lines.push_back(entryLine(line));
  lines.push_back(item(lbldots));
  const Node entry = framed(
      Frame2,
      {row({field("&Date", txtdt, 12), gap(), item(lblrows)}), framed(picbase, std::move(lines)),
       gap(), row({item(lbldiff, 1), item(cmdremove)}), item(vsf1), field("N&arration", txtnarr),
       row({item(lblhint, 1), item(cmdupdate), item(cmdcancel), item(VSF3), item(VSF4)})},
      1);
  return stack({list, entry});
}

Node frmjrnl::entryLine(int line) {
  // The headings stand once, above the first line in view.
  const auto under = [&](const char* heading, Control& control, int width, int stretch) {
    return line == top_ ? field(heading, control, width, stretch) : item(control, stretch, width);
  };
  return row({under("By/To", cboside[line], 6, 0), under("&Ledger", txtledger[line], 26, 3),
              under("&Group", txtgroup[line], 20, 2),
              under("Current Balance", txtcurbal[line], amountWidth, 0),
              under("Debit Amount", txtdramt[line], amountWidth, 0),
              under("Credit Amount", txtcramt[line], amountWidth, 0)});
}

// --- amounts, messages, dates -------------------------------------------------------------------

double frmjrnl::rounded(double amount) const { return Money::rounded(amount).rupees(); }

std::string frmjrnl::shown(double amount) const {
  return context_.host->formatgen(amount, "#,##0.00");
}

Answer frmjrnl::ask(const std::string& question, Answer defaultAnswer) {
  return context_.MsgBox(question, Buttons::YesNo, Icon::question, defaultAnswer, title);
}

void frmjrnl::tell(const std::string& text) {
  context_.MsgBox(text, Buttons::OK, Icon::information, Answer::OK, title);
}

std::string frmjrnl::subject() const {
  return subjectOf(books_.clientName, books_.clientCode, firstDateKey(firstYear_),
                   secondDateKey(firstYear_ + 1));
}

std::string frmjrnl::yearFrom() const { return "01/04/" + std::to_string(firstYear_); }

std::string frmjrnl::yearTo() const { return "31/03/" + std::to_string(firstYear_ + 1); }

}  // namespace quillet
