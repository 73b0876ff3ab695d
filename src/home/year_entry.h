// The two dates of a year as they are typed on the home form, and the year that is created for
// them: over an existing one if that is wanted, and filled from the year before.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/year_creation.h"
#include "books/year_figures.h"
#include "controls/key.h"
#include "host/context.h"
#include "host/year_hold.h"
#include "review/source_reading.h"

namespace quillet {

class third;

class YearEntry {
 public:
  YearEntry(third& form, Context& context);

  // Shows the empty date boxes.
  void begin();
  // Creates the year of the dates typed, or lists what can be merged into it.
  void enter();

  const RegisteredYear& year() const { return creation_.year(); }
  // Where merged lines go: the table of the client's year, which is registered if it is not yet.
  // False when there is none, or when the year is to be asked about first.
  bool provideTable();
  // Nothing is asked about the year any more: shows the client's years with this one chosen.
  void finish();
  // Whether the year stands is asked anew.
  void takenBack();
  // Nothing is made any more, and other stations may write in the year.
  void leave() { hold_.leave(); }

  // Reads the years that the client has, and names the one that comes next.
  void showYears();

  void MASKEDBOX1_KEYDOWN(Key& key);
  void MASKEDBOX1_KEYPRESS(Key& key);
  void MASKEDBOX2_GOTFOCUS();
  void MASKEDBOX2_KEYPRESS(Key& key);
  void CMDYEAR_CLICK();
  // Asks for a file and reads it, then the same, and the editor opens on the year for its import.
  void CMDYEARIMPORT_CLICK();
  // Finds the client's lowest free table number and the table of that name; false when there is
  // none.
  bool GETTABLE();
  // The table of the client's year with these keys, "" when it has none; nothing on failure.
  std::optional<std::string> GETTABLE1(const std::string& firstKey, const std::string& secondKey);
  // Below 0 when the first of two dates is the earlier one.
  int COMP_DT(const std::string& first, const std::string& second);
  // Copies the particulars of the year given into the new one; false on failure.
  bool DATA_TRANSFER(const RegisteredYear& previous);

 private:
  void forgetYears();
  void propose(const std::vector<YearFigures>& years);
  bool datesAreTyped();
  bool datesAreValid();
  bool mayOverwrite();
  void overwrite(const RegisteredYear& existing);
  void overwriteDeleted();
  void registerYear(const Context::Year& before);
  bool registerNewYear();
  void select();
  void fill();
  bool offerPreviousYear();
  bool mayTakeOver(const RegisteredYear& previous);
  void importLines(SourceFile file);

  third& form_;
  Context& context_;
  YearCreation creation_;
  YearHold hold_;  // from the year's registration until nothing is asked about it any more
  std::optional<SourceFile> source_;  // what is created is filled from it
  std::string proposed_;              // the first date of the year that a key takes, "" for none
};

}  // namespace quillet
