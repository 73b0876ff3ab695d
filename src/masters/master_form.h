// What the masters have in common: how they tell, ask and write, and how their grids are searched
// by typing.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid.h"
#include "controls/text_box.h"
#include "data/names.h"
#include "host/context.h"

namespace quillet {

class MasterForm : public Form {
 protected:
  MasterForm(Context& context, std::string name);

  // What the columns for names hold.
  static constexpr std::size_t nameLength = 100;

  void tell(const std::string& text);
  // Yes or No, No by default; titled with the form's caption when no title is given.
  bool ask(const std::string& text, const std::string& title = {});
  // A statement that changes data, and the flush after it.
  void change(const Sql& sql);
  void flush();
  Sql quoted(const std::string& text) const { return context_.host->quoted(text); }

  // Whether the grid has a current row; if not, tells the refusal and goes to the grid.
  bool rowSelected(Grid& grid, const std::string& refusal);
  // Sets the cells of the row that has the first of them, an id, in its first column; adds the row
  // when there is none from `from` on. Cells past those given stay as they are.
  static int putRow(Grid& grid, std::vector<std::string> cells, int from = 1);
  // What stands in the way of a name: of the rows found for it or, where the database does not see
  // that it is the same, of the grid's. The grid has ids in its first column; `except` is the id of
  // what is being renamed, 0 for none.
  static std::optional<NamedId> taken(const std::string& name, std::optional<NamedId> found,
                                      const Grid& grid, int nameColumn, long except);
  // Moves on to the next shown row whose cell begins with the character, which is used up.
  static void searchByTyping(Grid& grid, int column, Key& key);
  // Runs RowColChange in any case: under the same number the row may be another one.
  static void makeCurrent(Grid& grid, int row);
  // Enter moves on from an entry field.
  void enterIsTab(Key& key);

  Context& context_;
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
