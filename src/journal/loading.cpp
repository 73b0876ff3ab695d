// The journal's loading: the books it is opened on, their lists and balances, the list of vouchers.
#include "data/year.h"
#include "journal/frmjrnl.h"
#include "journal/messages.h"
#include "ports/busy.h"

namespace quillet {

void frmjrnl::INITDATA(const std::string& table, bool previousYear) {
  INITDATA(table, previousYear, {context_.clientCode, {}, context_.firstDate});
}

void frmjrnl::INITDATA(const std::string& table, bool previousYear, const Books& books) {
  logErrors("INITDATA", [&] {
    forgetLists();
    book_.reset();
    books_ = books;
    lblsubject.setCaption("");
    book_.emplace(*context_.host, context_.unposted, ClientTable{table, books.clientCode});
    year_.first = yearOf(books.firstDate) - (previousYear ? 1 : 0);
    lock.open({table, books.clientCode},
              {firstDateKey(year_.first), secondDateKey(year_.first + 1)});
    setPeriod(year_.from(), year_.to());
    setCaption("Adjustement Entries Passed of " + context_.host->COMPANY_NAME() +
               " for the Period from " + from_ + " to " + to_);
    lblsubject.setCaption(subject());
  });
  if (!book_) return;
  // A voucher that was left half posted.
  logErrors("INITDATA", [&] { book_->posting().postMissing(); });
  readLists();
}

bool frmjrnl::readLists() {
  forgetLists();
  if (lock.gone()) return false;
  logErrors("INITDATA", [&] {
    const Busy busy(*context_.host);
    JournalLists lists = readJournalLists(*context_.host, book().books());
    lookups_.fill(std::move(lists.ledgers), std::move(lists.groups));
    book().keepBalances(std::move(lists.balances));
    listsRead_ = true;
  });
  return listsRead_;
}

void frmjrnl::forgetLists() {
  listsRead_ = false;
  lookups_.clear();
  if (book_) book_->keepBalances({});
}

bool frmjrnl::listsAreRead() {
  if (!listsRead_ && !readLists()) lblstatus.setCaption(notLoaded);
  return listsRead_;
}

void frmjrnl::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  Check1.setChecked(true);
  CLEARDATA();
  findBar.reset();
  vsf.setCurrent(0);
  LOADGRID();
  showList();
}

void frmjrnl::setPeriod(const std::string& from, const std::string& to) {
  from_ = from;
  to_ = to;
  lblperiod.setCaption("Period: " + from + " - " + to);
  txtdt1[0].setText(from);
  txtdt1[1].setText(to);
}

void frmjrnl::CMDOK_CLICK() {
  setPeriod(txtdt1[0].text(), txtdt1[1].text());
  LOADGRID();
}

// --- the list of vouchers -----------------------------------------------------------------------

void frmjrnl::LOADGRID() {
  std::string status = "The vouchers could not be loaded; the error log says why.";
  const long selected = vsf.currentId();
  bool loaded = false;
  vsf.clearRows();
  vsf.clearSort();
  logErrors("LOADGRID", [&] {
    lock.read();
    const Busy busy(*context_.host);
    std::string unbalanced;
    if (!lock.gone()) unbalanced = list_.show(book().journal(), from_, to_);
    if (!Check1.checked()) CHECK1_CLICK();
    list_.select(selected);
    GETROWS();
    status = statusOfList(unbalanced);
    loaded = true;
  });
  if (!loaded) vsf.clearRows();
  lblstatus.setCaption(status);
}

std::string frmjrnl::statusOfList(const std::string& unbalanced) const {
  if (lock.gone()) return "";
  if (!listsRead_) return notLoaded;
  if (!complete()) return halfPosted;
  if (!unbalanced.empty()) {
    return "Debit and credit of the voucher of " + unbalanced +
           " differ; please complete or delete it.";
  }
  if (vsf.rows() > 0) return "";
  return lock.locked() ? "No vouchers in this period."
                       : "No vouchers in this period. New Voucher (Alt+N) passes one.";
}

void frmjrnl::CHECK1_CLICK() {
  logErrors("CHECK1_CLICK", [&] { list_.foldAll(!Check1.checked()); });
}

}  // namespace quillet
