// Typing a line into a year and saving it with Enter.
#include <string_view>

#include "bench/editor.h"
#include "bench/support.h"

namespace quillet::bench {
namespace {

void type(Form& form, TextBox& box, std::string_view text) {
  form.focus(box);
  box.selectAll();
  for (const char character : text) form.press(static_cast<Key>(character));
}

// A known ledger under a group in which the year does not have it yet.
void typeLine(frmcrtb& editor, const std::string& ledger) {
  editor.MNUINSERT_CLICK();
  type(editor, editor.txtpart, ledger);
  type(editor, editor.txtgroup, "DEPOSITS");
  type(editor, editor.txtamount, "1250.75");
  type(editor, editor.txtdrcr, "D");
}

void lineSave(benchmark::State& state) {
  const BenchYear& year = yearOf(static_cast<int>(state.range(0)));
  suite::Database& database = practice().database();
  closeEditor();
  frmcrtb& editor = openEditor(year);
  const std::string ledger = editor.vsfm.cell(1, 0);
  const std::string isNew =
      " where code_no='" + year.code + "' and srno>" + std::to_string(year.lines);
  compare(state, {.prepare = [&] { typeLine(editor, ledger); },
                  .run = [&] { editor.press(keys::Enter); },
                  .restore = [&] { database.execute("delete from " + year.table + isNew); }});
  closeEditor();
}

BENCHMARK(lineSave)->Apply(yearSizes);

}  // namespace
}  // namespace quillet::bench
