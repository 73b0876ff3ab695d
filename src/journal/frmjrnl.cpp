#include "journal/frmjrnl.h"

#include <utility>

#include "books/clients.h"
#include "data/errors.h"
#include "data/year.h"

namespace quillet {

frmjrnl::frmjrnl(Context& context)
    : Form(context.openForms, "frmjrnl"), lock(lbllock, context), context_(context) {
  attachList();
  attachEntry();
  Frame2.setVisible(false);
  lblsubject.setQuiet(true);
  lock.typed = [this] { return typed(); };
  KeyDown = [this](Key& key) { FORM_KEYDOWN(key); };
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
}

void frmjrnl::attachList() {
  vsf.DblClick = [this] { VSF_DBLCLICK(); };
  vsf.KeyDown = [this](Key& key) { VSF_KEYDOWN(key); };
  findBar.reveal = [this](int row) { list_.fold(list_.headingOf(row), false); };
  Check1.setChecked(true);
  Check1.Click = [this] { CHECK1_CLICK(); };
  command(cmdadd, [this] { CMDADD_CLICK(); });
  command(cmdmodify, [this] { vsf.DblClick(); });
  command(cmdcopy, [this] { CMDCOPY_CLICK(); });
  command(cmdreverse, [this] { CMDREVERSE_CLICK(); });
  command(Command1, [this] { COMMAND1_CLICK(); });
  command(cmdprn, [this] { CMDPRN_CLICK(); });
  command(cmdtb, [this] { CMDTB_CLICK(); });
  command(cmdexit, [this] { close(); });
  command(cmdok, [this] { CMDOK_CLICK(); });
  for (auto& box : txtdt1) {
    // Typing replaces the date that stands.
    box->GotFocus = [&date = *box] { date.setCaret(0); };
    box->Validate = [this, index = box->index()](bool& cancel) { TXTDT1_VALIDATE(index, cancel); };
  }
  lblstatus.setQuiet(true);
}

// A command that stays on the list leads back to it, whatever it has shown or asked.
void frmjrnl::command(Button& button, std::function<void()> procedure) {
  button.Click = [this, &button, procedure = std::move(procedure)] {
    procedure();
    if (active() == &button) focus(vsf);
  };
}

void frmjrnl::attachEntry() {
  vsf1.setColumns(
      {{.heading = "", .width = 12, .stretch = true},
       {.heading = "Debit Amount", .align = Align::right, .width = amountWidth, .numeric = true},
       {.heading = "Credit Amount", .align = Align::right, .width = amountWidth, .numeric = true}});
  vsf1.tabStop = false;
  vsf1.sortable = false;
  vsf1.setFixedRows(1);
  on(txtdt.Validate, "txtdt_VALIDATE", [this](bool& cancel) { txtdt_VALIDATE(cancel); });
  txtdt.GotFocus = [this] {
    lines_.reveal(0);
    txtdt.setCaret(0);
  };
  txtnarr.setMaxLength(narrationLength);
  txtnarr.LostFocus = [this] { hint(""); };
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
  const LayoutItem commands =
      row({item(cmdadd), item(cmdmodify), item(cmdcopy), item(cmdreverse), item(Command1),
           item(Check1), gap(), item(cmdprn), item(cmdtb), item(cmdexit)});
  const LayoutItem list = framed(
      Frame1,
      {period, named("Vouchers", item(vsf, 1)), findBar.arrangement(), item(lblstatus), commands},
      1);
  const LayoutItem entry = framed(
      Frame2,
      {row({field("&Date", txtdt, 12), gap(), item(lblrows)}), framed(picbase, lines_.layout()),
       gap(), row({item(lbldiff, 1), item(cmdremove)}), named("Totals of the voucher", item(vsf1)),
       field("N&arration", txtnarr),
       row({item(lblhint, 1), item(cmdupdate), item(cmdcancel),
            named("Ledgers that match", item(VSF3)), named("Groups that match", item(VSF4))})},
      1);
  return column({item(lblsubject), item(lbllock), stack({list, entry})});
}

// --- the books ----------------------------------------------------------------------------------

VoucherBook& frmjrnl::book() {
  if (!book_) throw RunTimeError(91, "The journal has no books", "frmjrnl");
  return *book_;
}

std::string frmjrnl::subject() const {
  return subjectOf(books_.clientName, books_.clientCode, firstDateKey(year_.first),
                   secondDateKey(year_.first + 1));
}

std::string frmjrnl::fileSubject() const {
  return fileSubjectOf(books_.clientName, books_.clientCode, firstDateKey(year_.first));
}

}  // namespace quillet
