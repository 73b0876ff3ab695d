// What the masters have in common: how they tell, ask and write, what they show after a failure,
// and how their grids are searched by typing.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "books/year_tables.h"
#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/grid.h"
#include "controls/text_box.h"
#include "host/context.h"

namespace quillet {

class MasterForm : public Form {
 public:
  // What the last command came upon.
  Label lblstatus{*this, "lblstatus"};

  // Asks before an entry that was begun is lost.
  void FORM_UNLOAD(bool& cancel);
  void takenBack() override { reread(); }
  void booksMoved(bool masters) override {
    if (masters) showMoved();
  }

 protected:
  MasterForm(Context& context, std::string name);

  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }

  // Runs a procedure's body; false when a run-time error ended it.
  template <class Body>
  bool attempt(std::string_view procedure, Body&& body) {
    bool done = false;
    logErrors(procedure, [&] {
      body();
      done = true;
    });
    return done;
  }
  // A person's command. After one that failed the form shows what is stored.
  template <class Body>
  bool command(std::string_view procedure, Body&& body) {
    lblstatus.setCaption("");
    const bool done = attempt(procedure, body);
    if (!done) {
      status("Not everything could be stored; the error log says why.");
      reread();
    }
    seen_ = atStake();
    return done;
  }
  // Fills grids from the tables. One that could not be read is empty: nothing is shown that may not
  // be there.
  template <class Body>
  bool fillGrids(std::string_view procedure, std::initializer_list<Grid*> grids, Body&& body) {
    const bool read = attempt(procedure, body);
    for (Grid* grid : grids) {
      if (read) {
        unread_.erase(grid);
      } else {
        unread_.insert(grid);
        grid->clearRows();
      }
    }
    if (read) return true;
    status("The list could not be read; the error log says why.");
    return false;
  }
  // A single row is read only into a grid that shows the others too.
  bool wasRead(const Grid& grid) const { return !unread_.contains(&grid); }

  // What a grid shows of a stored row.
  struct ListedRow {
    long id = 0;
    std::vector<std::string> cells;
  };
  // Reads every row from the tables, or those of an id other than 0.
  using ReadRows = std::function<std::vector<ListedRow>(long id)>;
  // Shows every row, or that of one id anew, which becomes the current one. False when the rows
  // could not be read.
  bool showRows(std::string_view procedure, Grid& grid, long id, const ReadRows& read);

  // Shows what others have stored.
  void showMoved();
  // Reads what is on the screen anew. An entry goes on as far as the tables let it.
  virtual void reread() = 0;
  virtual bool entryBegun() const = 0;

  // What another station may change before a command changes it: the row whose entry is open, the
  // rows that are chosen, as the grids show them.
  virtual std::vector<std::string> atStake() const = 0;
  // The fields hold a row as it was when its entry began.
  virtual bool modifying() const = 0;
  // The fields show the row anew.
  virtual void showEntry() = 0;
  // Asked by what writes, before it does: false when that is not what the person has seen. It is
  // shown by now, and told.
  bool asSeen();
  // The first cells of the rows of an id.
  static std::vector<std::string> cellsOf(const Grid& grid, long id, int columns);

  // Of an entry, after the grid was read anew: false when the row that is modified is gone. A row
  // that was added before the failure is modified from now on, so that a repetition does not add it
  // once more.
  bool entryStands(Grid& grid, bool& adding);
  long addedId_ = 0;  // of the row that the running entry added; set when its insert was done

  // Adds to what the command has told already.
  void status(const std::string& text);

  // What the columns for names hold.
  static constexpr std::size_t nameLength = 100;
  // Said when a search for use did not reach its end.
  static constexpr const char* unsearched =
      "The search failed; the error log says why. Nothing was deleted.";

  void tell(const std::string& text);
  // Yes or No, No by default; titled with the form's caption when no title is given.
  bool ask(const std::string& text, const std::string& title = {});
  // Sent after a statement that changes data.
  void flush();
  // Names the tables that a walk over the years' tables passed over.
  void tellMissing(const TableNames& missing);

  // Whether the grid has a current row; if not, tells the refusal and goes to the grid.
  bool rowSelected(Grid& grid, const std::string& refusal);
  // How a list shows the item of that number: one that it does not hold by the number, 0 not at
  // all.
  static std::string nameIn(const Choice& list, long number);
  // Fills the grid anew. Order, ticks and the current row stay as far as the rows do.
  static void refill(Grid& grid, const std::function<void()>& fill);
  // Takes the row of an id out that was stored no more.
  void dropRow(Grid& grid, long id);
  // The ids of the rows that are listed under the same name, without that of `except`.
  static std::vector<long> alike(const Grid& grid, int column, const std::string& name,
                                 long except);
  // Runs RowColChange in any case: under the same number the row may be another one.
  static void makeCurrent(Grid& grid, int row);
  // Enter moves on from an entry field.
  void enterIsTab(Key& key);

  Context& context_;

 private:
  std::set<const Grid*> unread_;
  std::vector<std::string> seen_;  // by a person, when the last command ended
  unsigned long movedIn_ = 0;      // the act in which what was at stake was read otherwise
};

}  // namespace quillet
