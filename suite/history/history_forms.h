// The windows on the history of the books.
#pragma once

#include "suite/client_register.h"
#include "suite/history/as_of_form.h"
#include "suite/history/changes_form.h"
#include "suite/history/taking_back.h"

namespace quillet::suite {

class HistoryForms : public BooksHistory {
 public:
  HistoryForms(Context& context, UnitOfWork& unit, TakingBack& takingBack)
      : unit_(unit),
        takingBack_(takingBack),
        asOf_(context, unit),
        changes_(context, unit,
                 [this](const YearOfClient& year, Instant at) { asOf_.showYear(year, at); }) {}

  void showChanges(const YearOfClient& year) override { changes_.showYear(year); }
  void showAsItStood(const YearOfClient& year) override { asOf_.showYear(year); }
  TakenBack takeBackLast(const YearOfClient& year) override {
    return takingBack_.takeBackLast(year.client, year.secondDate);
  }
  std::map<std::string, std::string> lastChanges(const std::string& client) override {
    return suite::lastChanges(unit_, client);
  }
  std::string codeSince(const std::string& client) override {
    return suite::codeSince(unit_, client);
  }
  // The end of the index, which max() does not find among versions.
  long highestGroupEver() override {
    const RecordsetPtr highest = unit_.query(
        "select ALLID from Mast_AllGrp for system_time all order by ALLID desc limit 1");
    return highest->EOF_() ? 0 : highest->integer(0);
  }

 private:
  UnitOfWork& unit_;
  TakingBack& takingBack_;
  frmasof asOf_;
  frmchanges changes_;
};

}  // namespace quillet::suite
