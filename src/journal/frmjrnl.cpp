#include "journal/frmjrnl.h"

#include "books/clients.h"
#include "data/errors.h"
#include "data/year.h"

namespace quillet {
namespace {

// The narration's column holds 65,535 bytes, and a character takes up to four.
constexpr int narrationLength = 16'000;

}  // namespace

frmjrnl::frmjrnl(Context& context) : Form(context.openForms, "frmjrnl"), context_(context) {
  attachList();
  attachEntry();
  Frame2.setVisible(false);
  KeyDown = [this](Key& key) { FORM_KEYDOWN(key); };
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
}

void frmjrnl::attachList() {
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
  cmdmodify.Click = [this] { vsf.DblClick(); };
  Command1.Click = [this] { COMMAND1_CLICK(); };
  cmdprn.Click = [this] { CMDPRN_CLICK(); };
  cmdtb.Click = [this] { CMDTB_CLICK(); };
  cmdexit.Click = [this] { close(); };
  cmdok.Click = [this] { CMDOK_CLICK(); };
  for (auto& box : txtdt1) {
    box->Validate = [this, index = box->index()](bool& cancel) { TXTDT1_VALIDATE(index, cancel); };
  }
  lblstatus.setQuiet(true);
}

void frmjrnl::attachEntry() {
  vsf1.setColumns(
      {{.heading = "", .width = 12, .stretch = true},
       {.heading = "Debit Amount", .align = Align::right, .width = amountWidth, .numeric = true},
       {.heading = "Credit Amount", .align = Align::right, .width = amountWidth, .numeric = true}});
  vsf1.tabStop = false;
  vsf1.setFixedRows(1);
  on(txtdt.Validate, "txtdt_VALIDATE", [this](bool& cancel) { txtdt_VALIDATE(cancel); });
  txtdt.GotFocus = [this] { lines_.reveal(0); };
  txtnarr.setMaxLength(narrationLength);
  txtnarr.Overflow = [this] { hint("A narration holds at most 16,000 characters."); };
  cmdupdate.Click = [this] { CMDUPDATE_CLICK(); };
  cmdcancel.Click = [this] { CMDCANCEL_CLICK(); };
  cmdremove.Click = [this] { CMDREMOVE_CLICK(); };
  // Updating checks the whole voucher by itself; the other two throw away what is not in order.
  for (Button* button : {&cmdupdate, &cmdcancel, &cmdremove}) button->causesValidation = false;
  cmdremove.tabStop = false;
  for (Label* label : {&lblhint, &lbldiff, &lblrows, &lblmore, &lbldots}) label->setQuiet(true);
  lines_.add();
  lookups_.attach(0);
}

LayoutItem frmjrnl::layout() {
  const LayoutItem period = row({item(lblperiod, 1), field("&From", txtdt1[0], 12),
                                 field("&To", txtdt1[1], 12), item(cmdok)});
  const LayoutItem commands = row({item(cmdadd), item(cmdmodify), item(Command1), item(Check1),
                                   gap(), item(cmdprn), item(cmdtb), item(cmdexit)});
  const LayoutItem list = framed(Frame1, {period, item(vsf, 1), item(lblstatus), commands}, 1);
  const LayoutItem entry = framed(
      Frame2,
      {row({field("&Date", txtdt, 12), gap(), item(lblrows)}), framed(picbase, lines_.layout()),
       gap(), row({item(lbldiff, 1), item(cmdremove)}), item(vsf1), field("N&arration", txtnarr),
       row({item(lblhint, 1), item(cmdupdate), item(cmdcancel), item(VSF3), item(VSF4)})},
      1);
  return stack({list, entry});
}

// --- the books ----------------------------------------------------------------------------------

VoucherBook& frmjrnl::book() {
  if (!book_) throw RunTimeError(91, "The journal has no books", "frmjrnl");
  return *book_;
}

std::string frmjrnl::subject() const {
  return subjectOf(books_.clientName, books_.clientCode, firstDateKey(firstYear_),
                   secondDateKey(firstYear_ + 1));
}

std::string frmjrnl::yearFrom() const { return "01/04/" + std::to_string(firstYear_); }

std::string frmjrnl::yearTo() const { return "31/03/" + std::to_string(firstYear_ + 1); }

}  // namespace quillet
