// The group master's mapping page: groups are given the heads of statutory statements that they
// stand under.
#include <algorithm>
#include <utility>

#include "books/clients.h"
#include "masters/frmgrpmas.h"

namespace quillet {
namespace {

// "1 group", "3 groups".
std::string groupsInWords(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " group" : " groups");
}

}  // namespace

void frmgrpmas::attachMappingPage() {
  mapped_.setColumns();
  vsMap.setZebra(true);
  vsMap.setEmptyText("The groups that are asked for stand here.");
  for (Label* label : {&lblMapCount, &lblMapClient}) label->setQuiet(true);
  optMap[0].Click = [this] { OPTMAP_CLICK(false); };
  optMap[1].Click = [this] { OPTMAP_CLICK(true); };
  cboMapShow.Click = [this] {
    mapped_.filter();
    lblMapCount.setCaption(mapped_.count());
  };
  vsMap.AfterEdit = [this](int, int) { lblMapCount.setCaption(mapped_.count()); };
  vsMap.DblClick = [this] { focus(cboSVI); };
  vsMap.KeyPress = [this](Key& key) {
    if (key == keys::Enter && focus(cboSVI)) key = keys::none;
  };
  for (ComboBox* heads : {&cboSVI, &cboIT}) {
    heads->KeyPress = [this](Key& key) {
      if (key != keys::Enter) return;
      key = keys::none;
      CMDMAPSET_CLICK();
    };
  }
  cmdMap.Click = [this] { CMDMAP_CLICK(); };
  cmdMapSet.Click = [this] { CMDMAPSET_CLICK(); };
  cmdMapTick.Click = [this] { CMDMAPTICK_CLICK(); };
  cmdMapClear.Click = [this] { CMDMAPCLEAR_CLICK(); };
  cmdMapCopy.Click = [this] { CMDMAPCOPY_CLICK(); };
  cmdMapBack.Click = [this] { CMDMAPBACK_CLICK(); };
}

LayoutItem frmgrpmas::mappingPage() {
  return framed(
      famMap,
      {row({item(optMap[0]), item(optMap[1]), item(lblMapClient, 1),
            field("&Show", cboMapShow, 22)}),
       named("Groups to map", item(vsMap, 1)),
       row({field("Schedule &VI", cboSVI, 30, 1), field("&Income Tax", cboIT, 30, 1),
            item(cmdMapSet)}),
       item(lblMapCount),
       row({item(cmdMapTick), item(cmdMapClear), item(cmdMapCopy), gap(), item(cmdMapBack)})},
      1);
}

// --- mapping ------------------------------------------------------------------------------------

void frmgrpmas::INITDATA(const std::string& client) { givenClient_ = client; }

void frmgrpmas::CMDMAP_CLICK() {
  command("CMDMAP_CLICK", [&] {
    mapped_.clear();
    lblMapClient.setCaption("");
    optMap[1].setEnabled(!mapper_.client().empty());
    cmdMapCopy.setEnabled(!mapper_.client().empty());
    showPage(famMap);
    choiceMade_ = false;
    LOADMAPGRID();
    if (vsMap.rows() > 0) vsMap.setCurrent(1);
    focus(vsMap);
    for (const std::string& line : headList_.refused) status(line);
    lblMapClient.setCaption(mapper_.client().empty()
                                ? "A client that is chosen can have a mapping of its own."
                                : clientName(*context_.host, mapper_.client()));
  });
}

void frmgrpmas::LOADMAPGRID() {
  fillGrids("LOADMAPGRID", {&vsMap}, [&] {
    headList_ = heads_->read();
    mapped_.offer(headList_);
    // All clients and stations share what is stored; a choice holds as long as the page is open.
    const bool stored = mapper_.mapsCommon();
    if (!std::exchange(choiceMade_, true)) optMap[stored ? 0 : 1].setChecked(true);
    if (optMap[0].checked()) {
      mapped_.setMappings(mapper_.common(), mapper_.own());
    } else {
      mapped_.setMappings(mapper_.effective(), {});
    }
    const auto groups = master_.groupsByName();
    refill(vsMap, [&] {
      for (const AccountGroup& group : groups) {
        mapped_.add(group.id, group.name, nameIn(Combo1, group.primaryGroup));
      }
    });
    mapped_.filter();
  });
  lblMapCount.setCaption(mapped_.count());
}

void frmgrpmas::OPTMAP_CLICK(bool own) {
  choiceAct_ = openForms().acts.number();
  command("OPTMAP_CLICK", [&] {
    choiceMade_ = false;
    mapper_.mapCommon(!own);
    LOADMAPGRID();
    focus(vsMap);
  });
}

std::vector<long> frmgrpmas::groupsToMap() {
  std::vector<long> groups = mapped_.chosen();
  if (groups.empty()) {
    tell("Please Select a Group.");
    focus(vsMap);
  }
  return groups;
}

void frmgrpmas::CMDMAPSET_CLICK() {
  command("CMDMAPSET_CLICK", [&] {
    if (!asSeen()) return;
    const std::vector<long> groups = groupsToMap();
    if (groups.empty()) return;
    const ChosenHeads heads = mapped_.heads();
    if (!heads.schedule6 && !heads.incomeTax) {
      tell("Please choose a head of Schedule VI or of the income-tax return.");
      focus(cboSVI);
      return;
    }
    mapper_.map(groups, heads, optMap[1].checked());
    mapped_.untick();
    mapped_.forgetHeads();
    LOADMAPGRID();
    focus(vsMap);
  });
}

void frmgrpmas::CMDMAPTICK_CLICK() {
  mapped_.tickAll();
  focus(vsMap);
}

void frmgrpmas::CMDMAPCLEAR_CLICK() {
  command("CMDMAPCLEAR_CLICK", [&] {
    if (!asSeen()) return;
    std::vector<long> groups = groupsToMap();
    if (groups.empty()) return;
    const bool own = optMap[1].checked();
    const GroupMappings there = own ? mapper_.own() : mapper_.common();
    std::erase_if(groups, [&](long group) { return !there.contains(group); });
    if (groups.empty()) {
      status(own ? "The client has no mapping of its own there." : "Nothing is mapped there.");
    } else if (ask("Clear the " + std::string(own ? "client's own" : "common") + " mapping of " +
                   groupsInWords(groups.size()) + " ?" +
                   (own ? "\r\n\r\nThe common one holds again." : ""))) {
      mapper_.clear(groups, own);
      mapped_.untick();
      LOADMAPGRID();
    }
    focus(vsMap);
  });
}

void frmgrpmas::CMDMAPCOPY_CLICK() {
  command("CMDMAPCOPY_CLICK", [&] {
    if (!asSeen()) return;
    std::vector<long> groups = mapped_.ticked();
    if (groups.empty()) {
      for (int row = 1; row <= vsMap.rows(); ++row) groups.push_back(vsMap.rowId(row));
    }
    if (leaveCopied(groups)) {
      mapper_.copyCommon(groups);
      mapped_.untick();
      LOADMAPGRID();
      status(groupsInWords(groups.size()) + " copied.");
    }
    focus(vsMap);
  });
}

// Leaves the groups that have a common mapping, and of those with one of the client's own none that
// is to stay.
bool frmgrpmas::leaveCopied(std::vector<long>& groups) {
  const GroupMappings common = mapper_.common();
  const GroupMappings own = mapper_.own();
  std::erase_if(groups, [&](long group) { return !common.contains(group); });
  const auto isOwn = [&](long group) { return own.contains(group); };
  const auto owned = std::count_if(groups.begin(), groups.end(), isOwn);
  if (owned > 0) {
    const Answer answer = context_.MsgBox(
        "The client has a mapping of its own for " + groupsInWords(owned) +
            ". Replace it by the common one ?\r\n\r\n\"No\" copies the others alone.",
        Buttons::YesNoCancel, Icon::question, Answer::No, caption());
    if (answer == Answer::Cancel) return false;
    if (answer == Answer::No) std::erase_if(groups, isOwn);
  }
  if (groups.empty()) status("There is nothing to copy.");
  return !groups.empty();
}

void frmgrpmas::CMDMAPBACK_CLICK() {
  showPage(famMain);
  if (columns_.showMapping()) LOADGRID(0);
  focus(vsf);
}

}  // namespace quillet
