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
#include "controls/grid.h"
#include "controls/simple.h"
#include "controls/text_box.h"
#include "data/names.h"
#include "host/context.h"

namespace quillet {

class MasterForm : public Form {
 public:
  // What the last command came upon.
  Label lblstatus{*this, "lblstatus"};

  // Asks before an entry that was begun is lost.
  void FORM_UNLOAD(bool& cancel);

 protected:
  MasterForm(Context& context, std::string name);

  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }

  // Runs a procedure's body; false when a run-time error ended it.
  template <class Body>
  bool attempt(std::string_view procedure, Body&& body) {
    bool done = false;
    trap(procedure, [&] {
      body();
      done = true;
    });
    return done;
  }
  // A person's command. After one that failed the form shows what is stored.
  template <class Body>
  bool command(std::string_view procedure, Body&& body) {
    lblstatus.setCaption("");
    if (attempt(procedure, body)) return true;
    status("Not everything could be stored; the error log says why.");
    reread();
    return false;
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

  // Reads what is on the screen anew. An entry goes on as far as the tables let it.
  virtual void reread() = 0;
  virtual bool entryBegun() const = 0;
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
  // A statement that changes data, and the flush after it.
  void change(const Sql& sql);
  void flush();
  Sql quoted(const std::string& text) const { return context_.host->quoted(text); }

  // The walk over the years' tables; names those that are missing.
  bool walk(const std::string& text, const TablePrefixes& prefixes,
            const std::function<bool(const YearTable& table)>& visit);
  void tellMissing(const TableNames& missing);

  // Whether the grid has a current row; if not, tells the refusal and goes to the grid.
  bool rowSelected(Grid& grid, const std::string& refusal);
  // Rows are known by the id in their first column.
  //
  // Fills the grid anew. Order, ticks and the current row stay as far as the rows do.
  static void refill(Grid& grid, const std::function<void()>& fill);
  // Sets the cells of the id's row, or adds it, puts it where the order has it and makes it
  // current.
  static void showRow(Grid& grid, std::vector<std::string> cells);
  // Takes the row of an id out that was stored no more.
  void dropRow(Grid& grid, long id);
  // Shows the row that was found for the id, or takes it away when there is none any more.
  template <class CellsOf>
  void showFound(Grid& grid, long id, const Recordset& found, CellsOf&& cellsOf) {
    if (found.EOF_()) {
      dropRow(grid, id);
    } else {
      showRow(grid, cellsOf(found));
    }
  }
  // Where names stand: in a column of a grid with ids in its first one, and in a table.
  struct Names {
    const Grid& grid;
    int column;
    Sql rowOf;  // the select of one row, up to its id
    const char* idField;
    const char* nameField;
    std::function<bool(int row)> counts = {};  // which rows of the grid; all when empty
  };
  // What stands in the way of a name: of the rows that the select finds for it or, where the
  // database does not see that it is the same, of the grid's that are still stored. `except` is the
  // id of what is being renamed, 0 for none.
  std::optional<NamedId> taken(const std::string& name, const Sql& select, const Names& names,
                               long except);
  // Moves on to the next shown row whose cell begins with the character, which is used up.
  static void searchByTyping(Grid& grid, int column, Key& key);
  // Runs RowColChange in any case: under the same number the row may be another one.
  static void makeCurrent(Grid& grid, int row);
  // Enter moves on from an entry field.
  void enterIsTab(Key& key);

  Context& context_;

 private:
  std::set<const Grid*> unread_;
};

// The words of a search: a text that holds them all is found, in capitals or not.
class WordSearch {
 public:
  explicit WordSearch(std::string_view text);
  bool finds(std::string_view text) const;

 private:
  std::vector<std::string> words_;
};

}  // namespace quillet
