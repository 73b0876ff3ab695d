// quillet.report, save_report, screenshot: what was shown.
#include <fstream>

#include "data/text.h"
#include "script/call.h"
#include "script/quillet_library.h"
#include "script/session.h"
#include "suite/text_report.h"

namespace quillet::script {
namespace {

using suite::Document;
using suite::DocumentRow;

void pushHeadings(lua_State* state, const Document& document) {
  std::vector<std::string> headings;
  for (const auto& heading : document.headings()) headings.push_back(heading.text);
  pushTexts(state, headings);
}

void pushCells(lua_State* state, const DocumentRow& row) {
  std::vector<std::string> cells;
  for (const auto& cell : row.cells) cells.push_back(cell.text);
  pushTexts(state, cells);
}

void pushMasks(lua_State* state, const DocumentRow& row) {
  pushTexts(state, {row.masks.begin(), row.masks.end()});
}

void pushRows(lua_State* state, const Document& document,
              void (*push)(lua_State*, const DocumentRow&)) {
  lua_newtable(state);
  lua_Integer position = 0;
  for (const DocumentRow& row : document.rows()) {
    push(state, row);
    lua_rawseti(state, -2, ++position);
  }
}

int report(Call& call) {
  const auto& document = call.session().practice.environment().lastReport();
  if (!document) return call.nil();
  lua_State* state = call.state();
  lua_newtable(state);
  pushHeadings(state, *document);
  lua_setfield(state, -2, "headings");
  pushRows(state, *document, pushCells);
  lua_setfield(state, -2, "rows");
  pushRows(state, *document, pushMasks);
  lua_setfield(state, -2, "masks");
  pushText(state, document->fileName());
  lua_setfield(state, -2, "file");
  return 1;
}

void writeText(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  if (!file) throw Error("cannot write " + path.string());
}

int saveReport(Call& call) {
  const std::filesystem::path path = call.text(1);
  const auto& document = call.session().practice.environment().lastReport();
  if (!document) throw Error("no report was shown yet");
  const std::string ending = path.extension().string();
  if (equalIgnoringCase(ending, ".txt")) {
    writeText(path, suite::textOf(*document));
  } else if (!equalIgnoringCase(ending, ".pdf")) {
    throw Error("a report is saved as .pdf or .txt, not as '" + path.string() + "'");
  } else if (!call.session().savePdf) {
    throw Error("reports cannot be saved as PDF here");
  } else {
    call.session().savePdf(*document, path);
  }
  return call.none();
}

int screenshot(Call& call) {
  const std::string path = call.text(1);
  if (!call.session().screenshot) {
    throw Error("there are no windows to take a picture of; run the script with --show");
  }
  call.session().screenshot(path);
  return call.none();
}

}  // namespace

void addReportFunctions(lua_State* state) {
  const luaL_Reg functions[] = {{"report", entry<report>},
                                {"save_report", entry<saveReport>},
                                {"screenshot", entry<screenshot>},
                                {nullptr, nullptr}};
  luaL_setfuncs(state, functions, 0);
}

}  // namespace quillet::script
