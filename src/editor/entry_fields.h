// The editor's four fields for one line - particular, group, amount, side - and the lists under the
// first two.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "books/two_years.h"
#include "controls/key.h"
#include "controls/lookup_list.h"
#include "controls/scoped_flag.h"
#include "data/money.h"
#include "editor/ledger_look_up.h"
#include "editor/open_books.h"

namespace quillet {

class frmcrtb;

// What the fields say, once it has passed every check.
struct TypedLine {
  LedgerGroup pair;
  Money amount;  // signed: credit is negative
};

class EntryFields {
 public:
  EntryFields(frmcrtb& form, OpenBooks& books);

  // The lists of names.
  void offerLedgers(NameList names) { ledgers_.fill(std::move(names)); }
  void offerGroups(const NameList& names) { groups_.fill(names); }
  // The names were read anew: an entry whose ledger is called otherwise by now goes on with that.
  void followNames();
  void hideLists();

  bool contains(const Control* control) const;
  // Whether nothing is being entered or altered.
  bool untouched() const;
  // The year that is written to; a line that is altered may stand in another one than new ones do.
  TwoYears::Year year() const;
  // Shift+Tab out of an empty group takes a new ledger back; any other key is left.
  void takeBack(Key& key);
  // Whether the year that is written to takes changes.
  void enable();
  // Whoever was typing there goes on with what stands there.
  void goOnIn(Control& field);
  void empty();
  // While it lives the entry is being given up: fields that are empty are no mistake.
  ScopedFlag leaving() { return ScopedFlag(leaving_); }

  // The entry as it stands in the fields, to be shown again.
  struct Fields {
    std::array<std::string, 4> texts;
    std::optional<YearLine> altered;
    std::string alteredGroup;
    long ledger = 0;  // that the name was found to be
  };
  Fields fields() const;
  void restore(const Fields& fields);

  // Shows a line to be altered.
  void alter(const Entry& entry, const YearLine& line);
  // Nothing while a new line is entered.
  const std::optional<YearLine>& altered() const { return altered_; }
  void endAltering() { altered_.reset(); }
  // Whether the line that is being altered still stands as it was shown; "" then, and else what
  // became of it.
  std::string lossOfAltered() const;

  // Checks what was typed, and says what is wrong with it. Makes a ledger that is new.
  std::optional<TypedLine> checked();

 private:
  void TXTPART_CHANGE();
  void TXTPART_KEYPRESS(Key& key);
  void TXTPART_LOSTFOCUS();
  void TXTGROUP_CHANGE();
  void TXTGROUP_KEYPRESS(Key& key);
  void TXTGROUP_LOSTFOCUS();
  void TXTAMOUNT_LOSTFOCUS();
  void TXTDRCR_GOTFOCUS();
  void TXTDRCR_VALIDATE(bool& cancel);
  bool leftForGood() const;
  void lookLedgerUp();
  void followLedger();
  void followGroup();
  void say(const std::string& text);
  std::string standingHint() const;
  long ledgerId(const std::string& name);
  long groupId(const std::string& name);
  void refuse(const std::string& text);
  void refuseGroup();

  frmcrtb& form_;
  OpenBooks& books_;
  LookupList ledgers_;
  LookupList groups_;
  std::optional<YearLine> altered_;
  std::string alteredGroup_;
  LedgerLookUp lookUp_;
  bool leaving_ = false;
};

}  // namespace quillet
