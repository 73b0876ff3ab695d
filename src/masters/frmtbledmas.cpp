#include "masters/frmtbledmas.h"

#include <initializer_list>
#include <utility>

#include "data/text.h"

namespace quillet {
namespace {

constexpr int inUseWidth = 10;

}  // namespace

frmtbledmas::frmtbledmas(Context& context) : MasterForm(context, "frmtbledmas") {
  setCaption("Ledger Master");
  vsf.setColumns({{.heading = "Particulars", .stretch = true},
                  {.heading = "In Use", .align = Align::center},
                  {.heading = "Link", .hidden = true, .tick = true}});
  vsf.setEmptyText(
      "Ledgers that the search and the choice above leave stand here. \"Add Item\" makes a new "
      "one.");
  vsfC.setEmptyText("The years in which the ledger is used stand here.");
  vsfC.setColumns({{.heading = "Client", .width = 40, .stretch = true},
                   {.heading = "F.Y.", .width = 20},
                   {.heading = "Used In", .width = 18}});
  vsf.setZebra(true);
  vsfC.setZebra(true);
  lblcount.setQuiet(true);
  lblhint.setQuiet(true);
  VTxt1.setMaxLength(nameLength);
  VTxt1.Overflow = [this] { lblhint.setCaption("A ledger name holds at most 100 characters."); };
  VTxt1.Change = [this] { lblhint.setCaption(""); };
  VTxt1.MsgBox = [this](const std::string& text) {
    context_.MsgBox(text, Buttons::OK, Icon::none, Answer::OK, caption());
  };
  attachCommands();
}

void frmtbledmas::attachCommands() {
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
  KeyDown = [this](Key& key) {
    if (key == keys::Find && focus(txtfind)) key = keys::none;
  };
  txtfind.Change = [this] { SETROWSHIDDEN(); };
  txtfind.KeyDown = [this](Key& key) {
    if (key != keys::Up && key != keys::Down) return;
    vsf.handleKey(key);
    key = keys::none;
  };
  vsf.KeyPress = [this](Key& key) { searchFromGrid(key); };
  vsf.RowColChange = [this] {
    // While the grid is read anew the entry keeps what was typed.
    if (!editing_) LOADDATA();
  };
  vsf.AfterEdit = [this](int, int) { showCount(); };
  vsf.DblClick = [this] { VSF_DBLCLICK(); };
  for (auto& option : Option1) option->Click = [this] { OPTION1_CLICK(); };
  cmdadd.Click = [this] { CMDADD_CLICK(); };
  cmdmodify.Click = [this] { CMDMODIFY_CLICK(); };
  cmddelete.Click = [this] {
    CMDDELETE_CLICK();
    focus(vsf);
  };
  cmdupdate.Click = [this] { CMDUPDATE_CLICK(); };
  cmdcancel.Click = [this] { CMDCANCEL_CLICK(); };
  cmdView.Click = [this] { CMDVIEW_CLICK(); };
  cmdlink.Click = [this] { CMDLINK_CLICK(); };
  cmdback.Click = [this] { CMDBACK_CLICK(); };
  cmdbackC.Click = [this] { CMDBACKC_CLICK(); };
}

LayoutItem frmtbledmas::layout() {
  const LayoutItem top = row({field("&Find", txtfind, 30, 1), item(Option1[notInUse]),
                              item(Option1[inUse]), item(Option1[all]), item(lblcount)});
  const LayoutItem entry =
      row({field("&Particulars", VTxt1, 40, 1), item(cmdupdate), item(cmdcancel)});
  const LayoutItem commands = row({item(cmdadd), item(cmdmodify), item(cmddelete), item(cmdView),
                                   item(cmdlink), gap(), item(cmdback)});
  return column({stack({framed(famMain,
                               {top, item(lbllink), named("Ledgers", item(vsf, 1)), entry,
                                item(lblhint), commands},
                               1),
                        framed(famC,
                               {item(lblheadC), named("Clients of the ledger", item(vsfC, 1)),
                                row({gap(), item(cmdbackC)})},
                               1)}),
                 item(lblstatus)});
}

// --- loading ------------------------------------------------------------------------------------

void frmtbledmas::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  changed_ = false;
  lblstatus.setCaption("");
  editing_ = false;
  vsf.clearRows();
  vsf.clearSort();
  CLEARDATA();
  showPage(famMain);
  Option1[all].setChecked(true);
  txtfind.setText("");
  setLinkView(false);
  SETBUTTON(false);
  LOADGRID(0);
  FILLINUSE(0);
  SETROWSHIDDEN();
}

void frmtbledmas::FORM_UNLOAD(bool& cancel) {
  MasterForm::FORM_UNLOAD(cancel);
  if (cancel) return;
  editing_ = false;
  vsf.clearRows();
  vsfC.clearRows();
}

void frmtbledmas::LOADGRID(long partId) {
  const bool known = wasRead(vsf);
  if (partId > 0 && known && attempt("LOADGRID", [&] { readRow(partId); })) return;
  const bool read = fillGrids("LOADGRID", {&vsf}, [&] {
    auto ledgers = master_.ledgers();
    // The search for use takes long; what it found stays until it is made again.
    const auto used = rows_.used();
    refill(vsf, [&] { rows_.add(std::move(ledgers), used); });
    if (vsf.sortColumn() < 0) vsf.sortBy(LedgerRows::nameColumn);
    if (partId > 0) makeShownCurrent(partId);
  });
  if (read && !known) FILLINUSE(0);
}

// The names that the id has now, in place of those shown.
void frmtbledmas::readRow(long partId) {
  auto names = master_.ledgers(partId);
  if (names.empty()) {
    dropRow(vsf, partId);
    return;
  }
  rows_.replace(partId, std::move(names));
  vsf.sortAgain();
  showCount();
  makeShownCurrent(partId);
}

void frmtbledmas::reread() {
  LOADGRID(0);
  if (const int target = vsf.findId(rows_.target()); linking() && target > 0) {
    nameTarget(vsf.cell(target, LedgerRows::nameColumn));
  } else if (linking()) {
    setLinkView(false);
    SETBUTTON(false);
  }
  SETROWSHIDDEN();
  if (!editing_ || entryStands(vsf, adding_)) return;
  SETBUTTON(false);
  LOADDATA();
}

void frmtbledmas::LOADDATA() {
  logErrors("LOADDATA", [&] {
    if (vsf.current() == 0) {
      CLEARDATA();
    } else {
      VTxt1.setText(selectedName());
    }
  });
}

void frmtbledmas::CLEARDATA() {
  logErrors("CLEARDATA", [&] { VTxt1.setText(""); });
}

void frmtbledmas::SETCOLWIDTH() {
  logErrors("SETCOLWIDTH", [&] {
    vsf.setColumnWidth(LedgerRows::nameColumn, static_cast<int>(nameLength) / 2);
    vsf.setColumnWidth(LedgerRows::inUseColumn, inUseWidth);
    vsf.setColumnWidth(LedgerRows::linkColumn, inUseWidth);
    vsf.setColumnHidden(LedgerRows::linkColumn, !linking());
  });
}

// --- browsing, editing, linking -----------------------------------------------------------------

void frmtbledmas::SETBUTTON(bool edit) {
  logErrors("SETBUTTON", [&] {
    editing_ = edit;
    const bool browsing = !edit && !linking();
    // A new name would not appear among those in use, and what is in no use cannot be viewed.
    cmdadd.setEnabled(browsing && Option1[all].checked());
    cmdmodify.setEnabled(browsing && !Option1[notInUse].checked());
    cmdView.setEnabled(browsing && !Option1[notInUse].checked());
    cmddelete.setEnabled(browsing);
    cmdlink.setEnabled(!edit);
    cmdback.setEnabled(!edit);
    cmdupdate.setEnabled(!browsing);
    cmdcancel.setEnabled(!browsing);
    vsf.setEnabled(!edit);
    txtfind.setEnabled(!edit);
    for (auto& option : Option1) option->setEnabled(!edit);
    VTxt1.setLocked(!edit);
    VTxt1.tabStop = edit;
    lblhint.setCaption("");
  });
}

void frmtbledmas::OPTION1_CLICK() {
  SETROWSHIDDEN();
  SETBUTTON(editing_);
}

void frmtbledmas::SETROWSHIDDEN() {
  logErrors("SETROWSHIDDEN", [&] {
    // A row that is being modified stays in sight.
    rows_.show({.used = !Option1[notInUse].checked(), .unused = !Option1[inUse].checked()},
               WordSearch(txtfind.text()), editing_ ? vsf.current() : 0);
    if (vsf.current() > 0 && vsf.rowHidden(vsf.current())) vsf.setCurrent(0);
    showCount();
  });
}

void frmtbledmas::searchFromGrid(Key& key) {
  std::string text = txtfind.text();
  const bool ticks = key == keys::Space && linking();
  if (keys::typesText(key) && !ticks) {
    appendCharacter(text, key);
  } else if (key == keys::Backspace && !text.empty()) {
    text.resize(offsetOf(text, lengthOf(text) - 1));
  } else {
    return;
  }
  key = keys::none;
  txtfind.setText(text);
}

void frmtbledmas::FORM_KEYPRESS(Key& key) {
  if (key != keys::Escape) return;
  key = keys::none;
  if (famC.visible()) {
    CMDBACKC_CLICK();
  } else if (!editing_ && !txtfind.text().empty()) {
    txtfind.setText("");
  } else if (!editing_ && !linking()) {
    CMDBACK_CLICK();
  } else if (!entryBegun() || ask("Do you want to Cancel this Entry?")) {
    CMDCANCEL_CLICK();
  }
}

void frmtbledmas::showPage(Frame& page) {
  for (Frame* each : {&famMain, &famC}) each->setVisible(each == &page);
}

void frmtbledmas::CMDADD_CLICK() {
  command("CMDADD_CLICK", [&] {
    adding_ = true;
    addedId_ = 0;
    CLEARDATA();
    SETBUTTON(true);
    focus(VTxt1);
  });
}

void frmtbledmas::CMDMODIFY_CLICK() {
  command("CMDMODIFY_CLICK", [&] {
    if (!particularSelected()) return;
    adding_ = false;
    txtfind.setText("");  // the search has led to its choice; the next letters begin another one
    LOADDATA();
    SETBUTTON(true);
    focus(VTxt1);
    VTxt1.selectAll();
  });
}

void frmtbledmas::VSF_DBLCLICK() {
  if (cmdmodify.enabled()) CMDMODIFY_CLICK();
}

void frmtbledmas::CMDCANCEL_CLICK() {
  command("CMDCANCEL_CLICK", [&] { endEntry(); });
}

void frmtbledmas::endEntry() {
  if (linking()) leaveLinkView();
  SETBUTTON(false);
  LOADDATA();
  focus(vsf);
}

void frmtbledmas::CMDBACK_CLICK() {
  if (!linking()) {
    close();
  } else {
    CMDCANCEL_CLICK();
  }
}

}  // namespace quillet
