#include "editor/frmcrtb.h"

#include "data/sql.h"

namespace quillet {
namespace {

// What Mast_Part.Particular and Mast_AllGrp.ALLGRP hold.
constexpr std::size_t nameLength = 100;
constexpr std::size_t amountLength = 20;
constexpr int amountWidth = 18;

}  // namespace

frmcrtb& theEditor(Context& context) {
  if (!context.editorForm) context.editorForm = std::make_unique<frmcrtb>(context);
  return static_cast<frmcrtb&>(*context.editorForm);
}

frmcrtb::frmcrtb(Context& context) : Form(context.desk, "frmcrtb"), context_(context) {
  attachMenus();
  attachGrids();
  attachEntry();
  attachGroupView();
  attachSummary();
  attachPrinting();
  attachExport();
  showPage(famLines);
}

void frmcrtb::showYear(const std::string& clientName) {
  if (!close()) return;
  namedCode_ = context_.clientCode;
  clientName_ = clientName;
  show();
}

bool frmcrtb::shows(const std::string& clientCode, const std::string& table) const {
  return visible() && namedCode_ == clientCode &&
         (tables_[current] == table || tables_[previous] == table);
}

void frmcrtb::attachMenus() {
  mnuinsert.Click = [this] { MNUINSERT_CLICK(); };
  mnualter.Click = [this] { MNUALTER_CLICK(); };
  mnudelete.Click = [this] { MNUDELETE_CLICK(); };
  mnuexit.Click = [this] { MNUEXIT_CLICK(); };
  mnujournal.Click = [this] { MNUJOURNAL_CLICK(); };
  mnunewgroup.Click = [this] { MNUNEWGROUP_CLICK(); };
  cmdgrpmanf.Click = [this] { CMDGRPMANF_CLICK(); };
  mnurefresh.Click = [this] { REFRESHTB(); };
  mnuall.Click = [this] { MNUALL_CLICK(); };
  mnuclonly.Click = [this] { MNUCLONLY_CLICK(); };
  mhelp.Click = [this] { MHELP_CLICK(); };
  for (auto& option : mnusortopt) {
    option->Click = [this, index = option->index()] { MNUSORTOPT_CLICK(index); };
  }
  for (auto& years : mnuyrs) {
    years->Click = [this, index = years->index()] { MNUYRS_CLICK(index); };
  }
}

void frmcrtb::attachGrids() {
  vsfm.AfterSort = [this] { VSFM_AFTERSORT(); };
  vsfm.RowColChange = [this] { VSFM_ROWCOLCHANGE(); };
  vsfm.KeyDown = [this](Key& key) { VSFM_KEYDOWN(key); };
  vsfm.DblClick = [this] { MNUALTER_CLICK(); };
  vsfm.Popup = [this] { popup(); };
  vsfm.zebra = true;
}

void frmcrtb::attachEntry() {
  for (TextBox* name : {&txtpart, &txtgroup}) name->maxLength = nameLength;
  txtamount.maxLength = amountLength;
  txtamount.rightAligned = true;
  txtdrcr.maxLength = 2;
  txtpart.Overflow = [this] { hint("A ledger name holds at most 100 characters."); };
  txtgroup.Overflow = [this] { hint("A group name holds at most 100 characters."); };
  txtamount.Overflow = [this] { hint("An amount holds at most 20 characters."); };

  txtpart.GotFocus = [this] { TXTPART_GOTFOCUS(); };
  txtpart.Change = [this] { TXTPART_CHANGE(); };
  txtpart.KeyDown = [this](Key& key) { TXTPART_KEYDOWN(key); };
  txtpart.KeyPress = [this](Key& key) { TXTPART_KEYPRESS(key); };
  txtpart.LostFocus = [this] { TXTPART_LOSTFOCUS(); };
  txtgroup.GotFocus = [this] { TXTGROUP_GOTFOCUS(); };
  txtgroup.Change = [this] { TXTGROUP_CHANGE(); };
  txtgroup.KeyDown = [this](Key& key) { TXTGROUP_KEYDOWN(key); };
  txtgroup.KeyPress = [this](Key& key) { TXTGROUP_KEYPRESS(key); };
  txtgroup.LostFocus = [this] { TXTGROUP_LOSTFOCUS(); };
  txtamount.GotFocus = [this] { TXTAMOUNT_GOTFOCUS(); };
  txtamount.KeyPress = [this](Key& key) { TXTAMOUNT_KEYPRESS(key); };
  txtamount.LostFocus = [this] { TXTAMOUNT_LOSTFOCUS(); };
  txtdrcr.GotFocus = [this] { TXTDRCR_GOTFOCUS(); };
  txtdrcr.KeyPress = [this](Key& key) { TXTDRCR_KEYPRESS(key); };
  txtdrcr.Validate = [this](bool& cancel) { TXTDRCR_VALIDATE(cancel); };

  for (Grid* list : {&vsfp, &vsfg}) {
    list->setColumns(
        {{.heading = "Name", .width = 40, .stretch = true}, {.heading = "Id", .hidden = true}});
    list->setVisible(false);
  }
  vsfp.dropOf = &txtpart;
  vsfp.DblClick = [this] { pickFromList(txtpart, vsfp); };
  vsfg.dropOf = &txtgroup;
  vsfg.DblClick = [this] { pickFromList(txtgroup, vsfg); };
  // Escape gives the entry up from any of its fields, and leads back to the lines.
  KeyPress = [this](Key& key) {
    const bool entering = active() == &txtpart || active() == &txtgroup || active() == &txtamount ||
                          active() == &txtdrcr;
    if (key != keys::Escape || (!entering && famLines.visible())) return;
    key = keys::none;
    if (famGroups.visible()) MNUGROUP_CLICK();
    if (famSummary.visible()) MNUSHSUMM_CLICK();
    leaveEntry();
  };

  for (auto* boxes : {&txttotdeb, &txttotcr}) {
    for (auto& box : *boxes) {
      box->rightAligned = true;
      box->setLocked(true);
      box->tabStop = false;
    }
  }
  for (TextBox* box : {&txtdiff, &txtdifft}) {
    box->setLocked(true);
    box->tabStop = false;
  }
  txtdiff.rightAligned = true;
  lblhint.quiet = true;
}

Node frmcrtb::layout() {
  const Node entry = row({field("&Particulars", txtpart, 36, 3), field("&Group", txtgroup, 28, 2),
                          field("A&mount", txtamount, amountWidth), field("D&r/Cr", txtdrcr, 5),
                          item(vsfp), item(vsfg)});
  const auto totals = [this](int year) {
    return row({item(lblyear[year], 0, 14), field("Debit", txttotdeb[year], amountWidth),
                field("Credit", txttotcr[year], amountWidth), gap()});
  };
  const Node result =
      column({gap(), row({field("Difference", txtdiff, amountWidth), item(txtdifft, 0, 10),
                          item(cmdclstock[0]), item(cmdclstock[1]), item(cmdexport)})});
  return column({stack({framed(famLines, {item(vsfm, 1), entry, item(lblhint)}, 1),
                        framed(famGroups, {groupArrangement()}, 1),
                        framed(famSummary, {summaryArrangement()}, 1)}),
                 row({column({totals(0), totals(1)}), gap(), result})});
}

void frmcrtb::showPage(Frame& page) {
  for (Frame* frame : {&famLines, &famGroups, &famSummary}) frame->setVisible(frame == &page);
  mnugroup.setChecked(famGroups.visible());
  mnushsumm.setChecked(famSummary.visible());
}

// With nothing else to say it tells why there are no lines.
void frmcrtb::hint(const std::string& text) {
  const bool missing = text.empty() && hasTable() && !linesRead_;
  lblhint.setCaption(missing ? unread : text);
}

void frmcrtb::popup() {
  const int chosen = context_.host->PopupMenuObj().choose(
      {mnuinsert.caption(), mnualter.caption(), mnudelete.caption()});
  MenuEntry* entries[] = {&mnuinsert, &mnualter, &mnudelete};
  if (chosen >= 1 && chosen <= 3) click(*entries[chosen - 1]);
}

}  // namespace quillet
