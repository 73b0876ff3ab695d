// The adjustment journal: vouchers passed against the trial balance of one client's year, listed as
// an outline and entered line by line. A voucher is posted into the trial balance the moment it is
// saved and taken out of it when it is modified or deleted.
//
// The opener calls INITDATA, then shows the form. Loading, keys, saving and printing have a source
// file each; the list of vouchers, the lines of a voucher and their look-ups are parts of their
// own.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "books/voucher_book.h"
#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/find_bar.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/text_box.h"
#include "host/context.h"
#include "host/lock_note.h"
#include "journal/books_year.h"
#include "journal/import_command.h"
#include "journal/line_keys.h"
#include "journal/line_lookups.h"
#include "journal/voucher_lines.h"
#include "journal/voucher_list.h"

namespace quillet {

struct ReviewedYear;

class frmjrnl : public Form {
 public:
  explicit frmjrnl(Context& context);

  LayoutItem layout() override;
  std::string subject() const override;
  std::string fileSubject() const override;
  void takenBack() override;
  void booksMoved(bool masters) override;

  MenuEntry mnuvouchers{*this, "mnuvouchers", "&Vouchers"};
  MenuEntry mnutakeback{*this, "mnutakeback", "Ta&ke Back", &mnuvouchers, "Ctrl+Z"};
  MenuEntry mnuimport{*this, "mnuimport", "I&mport Vouchers...", &mnuvouchers};

  Label lblsubject{*this, "lblsubject"};
  Label lbllock{*this, "lbllock"};  // why the year takes no changes
  LockNote lock;

  // --- the list of vouchers
  Frame Frame1{*this, "Frame1"};
  Grid vsf{*this, "vsf"};
  FindBar findBar{*this, vsf};
  CheckBox Check1{*this, "Check1", "Expanded"};
  Button cmdadd{*this, "cmdadd", "&New Voucher"};
  Button cmdmodify{*this, "cmdmodify", "&Modify"};
  Button cmdcopy{*this, "cmdcopy", "&Copy"};
  Button cmdreverse{*this, "cmdreverse", "&Reverse"};
  Button Command1{*this, "Command1", "&Delete"};
  Button cmdprn{*this, "cmdprn", "&Print"};
  Button cmdtb{*this, "cmdtb", "&Subsidiary Trial Balance"};
  Button cmdexit{*this, "cmdexit", "&Back"};
  Label lblperiod{*this, "lblperiod"};
  ControlArray<MaskBox> txtdt1{*this, "txtdt1", {"", ""}};  // the period: from, to
  Button cmdok{*this, "cmdok", "S&how"};
  Label lblstatus{*this, "lblstatus"};

  // --- one voucher. In the tab order the lines stand last, because more of them are made while a
  // voucher is typed; the order goes round, so that they come between the date and the narration.
  Frame Frame2{*this, "Frame2"};
  Grid vsf1{*this, "vsf1"};  // totals
  Label lbldiff{*this, "lbldiff"};
  Label lblrows{*this, "lblrows"};
  TextBox txtnarr{*this, "txtnarr"};
  Button cmdupdate{*this, "cmdupdate", "&Update"};
  Button cmdcancel{*this, "cmdcancel", "&Cancel"};
  Button cmdremove{*this, "cmdremove", "&Remove Line"};
  Label lblhint{*this, "lblhint"};
  MaskBox txtdt{*this, "txtdt"};
  Grid VSF3{*this, "VSF3"};  // ledgers
  Grid VSF4{*this, "VSF4"};  // groups
  Frame picbase{*this, "picbase"};
  Label lblmore{*this, "lblmore", "More"};
  Label lbldots{*this, "lbldots", "..."};
  ControlArray<ComboBox> cboside{*this, "cboside", {""}};
  ControlArray<TextBox> txtledger{*this, "txtledger", {""}};
  ControlArray<TextBox> txtgroup{*this, "txtgroup", {""}};
  ControlArray<TextBox> txtcurbal{*this, "txtcurbal", {""}};
  ControlArray<TextBox> txtdramt{*this, "txtdramt", {""}};
  ControlArray<TextBox> txtcramt{*this, "txtcramt", {""}};

  // --- loading
  // For the client and the year of the context. An opener that stays open while the home form goes
  // on to another client hands over its own.
  struct Books {
    std::string clientCode;
    std::string clientName;
    std::string firstDate;  // f_yr of the current year
  };
  void INITDATA(const std::string& table, bool previousYear);
  void INITDATA(const std::string& table, bool previousYear, const Books& books);
  void FORM_LOAD();
  void LOADGRID();
  // False when the voucher could not be read, or is not there any more.
  bool LOADVCH(long vid);
  void CHECK1_CLICK();
  void CMDOK_CLICK();

  // --- line sets
  void LOADCONTROLS();
  void SETTOP();
  void CLEARDATA();
  void GETCURBALS();
  void CHECKTOTALS();
  int GETROWS();
  void CMDREMOVE_CLICK();

  // --- keys
  void FORM_KEYDOWN(Key& key);
  void FORM_KEYPRESS(Key& key);
  void FORM_UNLOAD(bool& cancel);
  void VSF_KEYDOWN(Key& key);
  void txtdt_VALIDATE(bool& cancel);
  void TXTDT1_VALIDATE(int index, bool& cancel);

  // --- entering and saving
  void CMDADD_CLICK();
  void VSF_DBLCLICK();
  // The selected voucher as a new one, and with its sides exchanged.
  void CMDCOPY_CLICK();
  void CMDREVERSE_CLICK();
  void COMMAND1_CLICK();
  void CMDUPDATE_CLICK();
  void CMDCANCEL_CLICK();
  void SAVEVCH();
  void ADDVCH(long vid);
  // A voucher whose number another client's voucher has too is refused, since it would be deleted
  // with it.
  enum class Removal { done, refused, failed };
  Removal DELETEVCH(long vid);

  // --- printing
  void CMDPRN_CLICK();
  void CMDTB_CLICK();

  // --- for the form's parts
  static constexpr int amountWidth = 16;  // in characters
  static constexpr int narrationLength = longestNarration;
  Context& context() const { return context_; }
  // Throws where no books were named that can be opened.
  VoucherBook& book();
  // What stands on the entry frame can be read and copied, not altered.
  bool isOnlyRead() const { return lock.locked() || outdated_; }
  // The books as a review of vouchers compares its source with them.
  ReviewedYear reviewedYear();
  void showReviewed(bool imported);

 protected:
  void load() override { FORM_LOAD(); }
  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }

 private:
  void attachList();
  void command(Button& button, std::function<void()> procedure);
  void attachEntry();

  // Loading.
  // False when ledgers, groups and balances could not be read.
  bool readLists();
  void forgetLists();
  // The same, once more where that failed when the journal was opened.
  bool listsAreRead();
  void setPeriod(const std::string& from, const std::string& to);
  // Makes the period in view hold that day.
  void widenPeriod(const std::string& date);
  bool complete() const;
  // `unbalanced`: the date of the first voucher in the list whose sides differ.
  std::string statusOfList(const std::string& unbalanced) const;

  void escape();

  // Entering and saving.
  // What `fill` brings onto the entry frame of the selected voucher; false when that failed.
  void enterSelected(const std::function<bool(long vid)>& fill);
  bool fillAsNew(long vid, const std::function<void()>& change);
  std::string proposedDate() const;
  void showEntry();
  void lockEntry();
  void showList();
  void cancelEntry();
  void tellFault(const VoucherFault& fault);
  void postMissingOnLeaving();
  std::string missingAmounts();
  bool dateIsGood(const char* refusal);

  // What stands on the entry frame, and whether it is not what was there when it was opened.
  std::vector<std::string> entryTexts() const;
  bool typed() const;
  void resume(long vid, bool lost);
  void goOnTyping(bool lost, bool found);

  std::string headingOfPeriod(const std::string& what, const std::string& from,
                              const std::string& to) const;
  void hint(const std::string& text) { lblhint.setCaption(text); }

  Context& context_;
  Books books_;
  std::optional<VoucherBook> book_;
  bool listsRead_ = false;
  // The save in which the voucher in work was stored last, and the number that it had before.
  struct Save {
    unsigned long act = 0;
    long vid = 0;
  };
  Save lastSave_;
  std::vector<std::string> opened_;  // the texts of the entry when it was opened
  Voucher seen_;                     // as it was stored then; without lines for a new one
  bool outdated_ = false;            // another station has changed it since
  BooksYear year_;
  std::string from_;  // the period in view, dd/mm/yyyy
  std::string to_;

  VoucherList list_{vsf, *context_.host};
  VoucherLines lines_{*this};
  LineLookups lookups_{*this, lines_};
  LineKeys lineKeys_{*this, lines_, lookups_};
  VoucherImportCommand import_{*this};
};

}  // namespace quillet
