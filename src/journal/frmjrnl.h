// The adjustment journal: vouchers passed against the trial balance of one client's year, listed as
// an outline and entered line by line. A voucher is posted into the trial balance the moment it is
// saved and taken out of it when it is modified or deleted.
//
// The opener calls INITDATA, then shows the form. Loading, line sets, look-ups, keys, saving and
// printing have a source file each.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "books/balance_list.h"
#include "books/posting.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/simple.h"
#include "controls/text_box.h"
#include "data/name_list.h"
#include "host/context.h"

namespace quillet {

class ScratchTables;
struct SubsidiaryRow;
struct VoucherFields;

class frmjrnl : public Form {
 public:
  explicit frmjrnl(Context& context);

  Node layout() override;
  std::string subject() const override;

  // --- the list of vouchers
  Frame Frame1{*this, "Frame1"};
  Grid vsf{*this, "vsf"};
  CheckBox Check1{*this, "Check1", "Expanded"};
  Button cmdadd{*this, "cmdadd", "&New Voucher"};
  Button cmdmodify{*this, "cmdmodify", "&Modify"};
  Button Command1{*this, "Command1", "&Delete"};
  Button cmdprn{*this, "cmdprn", "&Print"};
  Button cmdtb{*this, "cmdtb", "Su&bsidiary Trial Balance"};
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

  // --- look-ups
  void TXTLEDGER_CHANGE(int line);
  void TXTLEDGER_LOSTFOCUS(int line);
  void TXTGROUP_CHANGE(int line);
  void TXTGROUP_LOSTFOCUS(int line);
  void VSF3_DBLCLICK();
  void VSF4_DBLCLICK();
  // The id of the ledger of that name, found or created; 0 when there is none in the end, nothing
  // when the name has to be changed.
  std::optional<long> CHECKLEDGER(const std::string& name);

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
  void COMMAND1_CLICK();
  void CMDUPDATE_CLICK();
  void CMDCANCEL_CLICK();
  void SAVEVCH();
  // When a statement fails, those sent before it stay applied, and what is missing then stands in
  // the unposted changes. A voucher whose number another client's voucher has too is refused, since
  // it would be deleted with it.
  enum class Removal { done, refused, failed };
  void ADDVCH(long vid);
  Removal DELETEVCH(long vid);

  // --- printing
  void CMDPRN_CLICK();
  void CMDTB_CLICK();

 protected:
  void load() override { FORM_LOAD(); }
  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }

 private:
  // What the names of a line stand for; 0 while they stand for nothing.
  struct LineIds {
    LedgerGroup pair;
    long proposedFor = 0;      // the ledger whose group was proposed
    bool groupChosen = false;  // by a person, who did not take the proposal
  };
  // A line of a stored voucher.
  struct VoucherLine {
    LedgerGroup pair;
    double amount = 0;
  };
  struct StoredVoucher {
    std::vector<VoucherLine> lines;
    bool shared = false;  // another client has lines of that number
  };
  struct Totals {
    double debit = 0;
    double credit = 0;
  };

  void attachList();
  void attachEntry();
  void attachLine(int line);
  Node entryLine(int line);

  // Loading.
  // False when ledgers, groups and balances could not be read.
  bool readBooks();
  void forgetBooks();
  void readBalances(ScratchTables& scratch);
  void readLists();
  void setPeriod(const std::string& from, const std::string& to);
  std::string listVouchers();
  bool isOwn(const std::string& code) const;
  void addVoucherRow(Recordset& row, const VoucherFields& fields, bool first,
                     std::unordered_map<long, std::string>& names);
  void addNarration(const std::string& narration, long vid);
  void foldVoucher(int heading, bool folded);
  int headingOf(int row) const;
  long voucherAt(int row) const;
  void selectVoucher(long vid);
  bool fillVoucher(Recordset& rows);
  void fillLine(int line, Recordset& row, const VoucherFields& fields);

  // Line sets.
  int lastLine() const { return cboside.size() - 1; }
  int lineOf(const Control* control) const;
  TextBox& amountBox(int line);
  bool isDebit(int line) const;
  void setSide(int line, bool debit);
  void sideChosen(int line);
  void clearLine(int line);
  void copyLine(int from, int into);
  void unloadLast();
  void reveal(int line);
  void arriveAt(int line);
  double amountIn(const TextBox& box) const;
  double signedAmount(int line) const;
  Totals totals() const;
  bool namesNothing(int line) const;

  // Look-ups.
  void openList(TextBox& box, Grid& list);
  void follow(Grid& list, const NameList& names, const std::string& text);
  void moveList(TextBox& box, Grid& list, const NameList& names, Key& key);
  void takeHighlighted(TextBox& box, Grid& list);
  void takeRow(TextBox& box, Grid& list);
  // False when the name typed stands for no ledger in the end.
  bool takeLedger(int line);
  void takeGroup(int line);
  void groupTaken(int line, long id);
  void ledgerTaken(int line, long id);
  long newLedger(const std::string& name);
  void addLedger(const std::string& name, long id);

  // Keys.
  void enterInLine(int line);
  void enterInAmount(int line);
  void tabInLine(int line, Key& key);
  void moveToLine(int line);
  void escape();
  void leaveAmount(TextBox& box);
  void validateAmount(TextBox& box, bool& cancel);

  // Entering and saving.
  void showEntry();
  void showList();
  void cancelEntry();
  void leaveSettled();
  bool booksAreThere();
  bool dateIsGood(const char* refusal);
  bool namesAreGood();
  void lookUpNames(int line);
  bool amountsAreGood();
  void moveToBox(TextBox& box);
  int linesToSave() const;
  void insertLine(long vid, int line);
  // Makes the period in view hold that day.
  void widenPeriod(const std::string& date);
  // Adds the amounts to the trial balance, or takes them out again with the sign -1.
  void post(const std::vector<VoucherLine>& lines, double sign);
  StoredVoucher readVoucher(long vid);
  void balanceChanged(LedgerGroup pair, double balance);
  std::string missingAmounts() const;

  // Printing.
  void beginReport(const std::string& heading, int columns);
  std::string headingOfPeriod(const std::string& what, const std::string& from,
                              const std::string& to) const;
  void collectMerged(ScratchTables& scratch);
  std::vector<SubsidiaryRow> readSubsidiary();
  void printSubsidiary(const std::vector<SubsidiaryRow>& rows);

  double rounded(double amount) const;
  std::string shown(double amount) const;
  Answer ask(const std::string& question, Answer defaultAnswer = Answer::Yes);
  void tell(const std::string& text);
  void hint(const std::string& text) { lblhint.setCaption(text); }
  std::string yearFrom() const;
  std::string yearTo() const;
  bool inYear(const std::string& date) const;

  Context& context_;
  Books books_;
  Sql client_;   // code_no as it stands between quotes
  Sql table_;    // trial balance
  Sql journal_;  // its journal
  Posting posting_{*context_.host, context_.unposted};
  int firstYear_ = 0;
  std::string from_;  // the period in view, dd/mm/yyyy
  std::string to_;

  NameList ledgers_;
  NameList groups_;
  std::unordered_map<long, std::string> groupNames_;
  BalanceList balances_;  // as they stand in the trial balance
  bool booksRead_ = false;

  long vid_ = 0;        // of the voucher being modified, 0 for a new one
  PairAmounts stored_;  // the lines that the journal holds of it
  std::vector<LineIds> ids_{1};
  int top_ = 0;           // the first line in view
  int lastFocus_ = 0;     // the line that had the focus last
  bool filling_ = false;  // a procedure writes into the boxes, not a person
};

}  // namespace quillet
