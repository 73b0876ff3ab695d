// The acts, and what they do to the model.
#include "property/player.h"

#include <algorithm>
#include <utility>

#include "controls/desk.h"
#include "data/text.h"

namespace quillet::support {
namespace {

constexpr const char* ledgers[] = {"Cash", "Loan", "Rent Paid", "Stock", "Wages"};
constexpr const char* noStatement = "\nno statement holds this";

bool equal(World a, World b) {
  for (World* world : {&a, &b}) {
    for (auto& [where, book] : *world) book.sort();
  }
  return a == b;
}

}  // namespace

Player::Player() {
  exec(
      "insert into mast_gunder values (1,'a',2),(7,'b',1),(9,'c',1),(10,'d',1),(12,'e',2),"
      "(15,'f',3),(17,'g',3),(18,'h',4),(19,'i',4),(20,'j',4),(22,'k',4),(29,'l',4)");
  for (const auto& [name, primary] : groups()) group(name, primary);
  for (int client = 0; client < 3; ++client) addClient(codes[client], names[client]);
  dialogs.answering = [this](const Message& message) {
    if (message.text.find("to Import") == std::string::npos) return Answer::Yes;
    imported_ = importing_;
    return importing_ ? Answer::Yes : Answer::No;
  };
}

std::string Player::play(unsigned books, const std::vector<Act>& acts) {
  practice.restartModule();
  host().statements().record(true);
  for (const char* table : {"TAB_", "JRNL_", "TRADE_"}) {
    for (const long number : {1, 2}) exec("delete from " + (table + host().GETTBNAME(number)));
  }
  exec("delete from master");
  exec("delete from Mast_Part");
  practice.settings().set("Settings", "TBSort", "1");
  for (const char* name : ledgers) ledger(name);
  world_.clear();
  random_.seed(books);
  for (const Where where :
       {Where{0, 2007}, Where{0, 2008}, Where{1, 2007}, Where{1, 2008}, Where{2, 2008}}) {
    Book& made = world_[where];
    for (int count = draw(5); count > 0; --count) made.enter(drawPair(), drawAmount());
    made.stock = draw(2) == 0 ? 0 : drawAmount();
    std::vector<Line> lines;
    for (const auto& [pair, amount] : made.lines) {
      lines.push_back({pair.first, pair.second, static_cast<double>(amount) / 100});
    }
    const std::string table = addYear(codes[where.client], where.year, lines);
    exec("insert into TRADE_" + table.substr(4) + "(code_no,partid,allid,amt) values('" +
         host().TruncVarSQL(codes[where.client]) + "',1,1," + (made.stock < 0 ? "-" : "") +
         plain(made.stock) + ")");
  }
  draft_.reset();
  failed_.reset();
  halfPosted_.clear();
  undone_.reset();
  stale_ = unloaded_ = journalUnloaded_ = false;
  transcript_.clear();
  log();
  dialogs.clear();
  try {
    for (const Act& act : acts) perform(act);
    finishVouchers();
  } catch (const Mismatch& mismatch) {
    if (journal()) journal()->close();
    return mismatch.what();
  }
  if (journal()) journal()->close();
  return {};
}

void Player::perform(const Act& act) {
  random_.seed(act.seed);
  failing_ = act.failing;
  importing_ = draw(2) == 0;
  const bool inJournal = journal() != nullptr;
  if (act.kind != Kind::again) {
    const bool opened = context().editorForm && editor().visible();
    if ((act.kind >= Kind::pass) != inJournal || (act.kind != Kind::open && !opened)) return;
  }
  if (act.kind != Kind::again) failed_.reset();
  switch (act.kind) {
    case Kind::open:
      return open(false);
    case Kind::view:
      return changeView();
    case Kind::sort:
    case Kind::refresh:
      return refresh();
    case Kind::enter:
      return enter(true);
    case Kind::fill:
      return enter(false);
    case Kind::save:
      return save();
    case Kind::alter:
      return alter();
    case Kind::remove:
      return remove();
    case Kind::transfer:
      return transfer();
    case Kind::page:
      return turnPage();
    case Kind::escape:
      return toLines();
    case Kind::journal:
      return openJournal();
    case Kind::pass:
      return passVoucher();
    case Kind::modify:
      return modifyVoucher();
    case Kind::erase:
      return eraseVoucher();
    case Kind::print:
      return printJournal();
    case Kind::back:
      return closeJournal();
    case Kind::again:
      return repeat();
  }
}

// --- drawing ------------------------------------------------------------------------------------

Pair Player::drawPair() {
  auto group = groups().begin();
  std::advance(group, draw(static_cast<int>(groups().size())));
  // A few ledgers more than there are, so that some are made on the way.
  const int at = draw(8);
  return {at < 5 ? ledgers[at] : "Made " + std::to_string(at), group->first};
}

// Often the same few amounts, so that balances meet zero.
Paise Player::drawAmount() {
  const Paise size = draw(2) == 0 ? 10 * (1 + draw(3)) : 1 + draw(100'000'000);
  return draw(2) == 0 ? size : -size;
}

Player::Draft Player::drawDraft() {
  // Often a pair that is there.
  const Where where = whereInView();
  const auto& lines = world_[where].lines;
  const Pair pair =
      !lines.empty() && draw(2) == 0
          ? lines[static_cast<std::size_t>(draw(static_cast<int>(lines.size())))].first
          : drawPair();
  const Paise amount = drawAmount();
  return {pair.first, pair.second, amount > 0 ? "D" : "C", std::abs(amount), where, {}};
}

Voucher Player::drawVoucher() {
  Voucher voucher;
  const int year = journalOf_.year + draw(2);
  const int month = year == journalOf_.year ? 4 + draw(9) : 1 + draw(3);
  const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  voucher.date = std::to_string(year) + "-" + two(month) + "-" + two(1 + draw(28));
  if (draw(2) == 0) voucher.narration = "Being " + std::to_string(draw(99));
  const auto& lines = world_[journalOf_].lines;
  Paise total = 0;
  for (int count = 1 + draw(3); count > 0; --count) {
    const bool there = !lines.empty() && draw(2) == 0;
    const auto at = static_cast<std::size_t>(there ? draw(static_cast<int>(lines.size())) : 0);
    // What is there is often taken out whole.
    const Paise amount = there && draw(2) == 0 ? -lines[at].second : drawAmount();
    voucher.lines.emplace_back(there ? lines[at].first : drawPair(), amount);
    total += amount;
  }
  if (total != 0) voucher.lines.emplace_back(drawPair(), -total);
  if (voucher.lines.size() == 1) voucher.lines.emplace_back(drawPair(), -voucher.lines[0].second);
  return voucher;
}

// --- the editor's acts --------------------------------------------------------------------------

const Book& Player::book(int year) const {
  static const Book none;
  if (year == current) return world_.at(where_);
  const auto before = yearBefore();
  return before ? world_.at(*before) : none;
}

std::optional<Where> Player::yearBefore() const {
  const Where before{where_.client, where_.year - 1};
  return world_.contains(before) ? std::optional(before) : std::nullopt;
}

Where Player::whereInView() { return view() == 1 ? yearBefore().value_or(where_) : where_; }

void Player::open(bool again) {
  if (!again) {
    auto at = world_.begin();
    std::advance(at, draw(static_cast<int>(world_.size())));
    where_ = at->first;
  }
  draft_.reset();
  // Whether the opening fails or not, it is this year's editor.
  carryOut({.what = std::string("open ") + codes[where_.client] + " " + std::to_string(where_.year),
            .press =
                [this] {
                  select(codes[where_.client], where_.year);
                  editor().showYear(names[where_.client]);
                },
            .again = [this] { open(true); }});
}

void Player::changeView() {
  const int index = draw(3);
  if (!editor().mnuyropts.enabled()) return;
  draft_.reset();
  carryOut({.what = "view " + std::to_string(index),
            .press = [this, index] { editor().click(editor().mnuyrs[index]); },
            .lenient = unloaded_});
}

void Player::refresh() {
  const int index = draw(6);
  const auto press = [this, index] {
    frmcrtb& form = editor();
    if (index < 4) {
      form.click(form.mnusortopt[index]);
    } else {
      form.click(form.mnurefresh);
    }
  };
  carryOut({.what = index < 4 ? "sort " + std::to_string(index + 1) : "refresh",
            .press = press,
            .looksOnly = true});
}

void Player::put(TextBox& box, const std::string& text) {
  require(box.form().focus(box), "the focus does not reach " + box.name());
  box.selectAll();
  if (text.empty()) box.form().press(keys::Delete);
  for (const char32_t c : charactersOf(text)) box.form().press(c);
}

void Player::typeDraft(const Draft& draft) {
  frmcrtb& form = editor();
  put(form.txtpart, draft.ledger);
  put(form.txtgroup, draft.group);
  put(form.txtamount, draft.amount == 0 ? "" : plain(draft.amount));
  put(form.txtdrcr, draft.side);
}

void Player::toLines() {
  draft_.reset();
  const int failing = std::exchange(failing_, -1);
  carryOut({.what = "escape", .press = [this] {
              frmcrtb& form = editor();
              if (form.famLines.visible()) form.focus(form.txtpart);
              form.press(keys::Escape);
              require(form.famLines.visible(), "Escape does not lead back to the lines");
            }});
  failing_ = failing;
}

void Player::enter(bool save) {
  if (!editor().famLines.visible()) toLines();
  Draft draft = drawDraft();
  if (draw(12) == 0) draft.amount = 0;
  if (!draft_) {
    if (draw(3) == 0) editor().click(editor().mnuinsert);
  } else if (draft_->altered) {
    // Typing on over a line being altered alters it.
    draft.altered = draft_->altered;
    draft.where = draft_->where;
  }
  typeDraft(draft);
  draft_ = draft;
  if (save) return saveDraft("enter");
  transcript_ += "  type " + draft.ledger + ", " + draft.group + ", " + plain(draft.amount) + " " +
                 draft.side + "\n";
  log();
  dialogs.takeMessages();
  checkScreen();
}

void Player::save() {
  if (draft_ && editor().famLines.visible()) saveDraft("save");
}

void Player::saveDraft(const std::string& what) {
  const Draft draft = *draft_;
  const auto change = [draft](World& world) {
    if (draft.amount == 0 || draft.stored) return;
    Book& book = world[draft.where];
    if (draft.altered) {
      const auto at = std::find(book.lines.begin(), book.lines.end(), *draft.altered);
      if (at != book.lines.end()) book.lines.erase(at);
    }
    book.enter(draft.pair(), draft.signedAmount());
  };
  if (openPairs(draft.where)) failing_ = -1;
  carryOut({.what = what + " " + draft.ledger + ", " + draft.group + ", " + plain(draft.amount) +
                    " " + draft.side + (draft.altered ? " in place of the line altered" : ""),
            .press =
                [this] {
                  editor().focus(editor().txtdrcr);
                  editor().press(keys::Enter);
                },
            .change = change,
            .lenient = unloaded_,
            .looksOnly = draft.amount == 0,
            .saves = true,
            .about = {draft.pair(), draft.altered ? draft.altered->first : draft.pair()}});
  const bool refused = draft.amount == 0 || (unloaded_ && !editor().txtpart.text().empty());
  if (!failed_ && !refused) draft_.reset();
}

void Player::alter() {
  frmcrtb& form = editor();
  if (!form.famLines.visible()) toLines();
  if (form.vsfm.rows() == 0 || stale_ || unloaded_) return;
  const int row = 1 + draw(form.vsfm.rows());
  form.vsfm.setCurrent(row);
  const bool second = view() == 2 && form.vsfm.cell(row, 3) == "-";
  const Where where = second ? *yearBefore() : whereInView();
  if (openPairs(where)) return;
  const int column = second ? 4 : 2;
  Draft draft;
  draft.ledger = form.vsfm.cell(row, 0);
  draft.group = form.vsfm.cell(row, 1);
  draft.where = where;
  // The cells agree with the model; the amount is read back from their digits.
  std::string digits = form.vsfm.cell(row, column);
  std::erase(digits, '.');
  draft.amount = std::stoll(digits);
  draft.side = form.vsfm.cell(row, column + 1).substr(0, 1);
  draft.altered = {draft.pair(), draft.signedAmount()};
  draft_ = draft;
  const int failing = std::exchange(failing_, -1);
  carryOut({.what = "alter " + draft.ledger + ", " + draft.group,
            .press = [this] { editor().click(editor().mnualter); }});
  failing_ = failing;
  if (draw(3) == 0) draft.ledger = drawPair().first;
  if (draw(3) == 0) draft.group = drawPair().second;
  if (draw(3) > 0) draft.amount = std::abs(drawAmount());
  if (draw(3) == 0) draft.side = draft.side == "D" ? "C" : "D";
  typeDraft(draft);
  draft_ = draft;
  if (draw(4) > 0) return saveDraft("save");
  checkScreen();
}

void Player::remove() {
  frmcrtb& form = editor();
  if (!form.famLines.visible()) toLines();
  if (form.vsfm.rows() == 0 || stale_ || unloaded_) return;
  if (openPairs(where_) || (yearBefore() && openPairs(*yearBefore()))) return;
  const int row = 1 + draw(form.vsfm.rows());
  const Pair pair{form.vsfm.cell(row, 0), form.vsfm.cell(row, 1)};
  std::map<Where, std::string> sides;  // amount and side of the line in each year
  for (const int year : {current, previous}) {
    if (!inView(year)) continue;
    const int column = view() == 2 && year == previous ? 4 : 2;
    sides[year == current ? where_ : *yearBefore()] =
        form.vsfm.cell(row, column) + form.vsfm.cell(row, column + 1);
  }
  draft_.reset();
  const auto deleteRow = [this](int at) {
    editor().vsfm.setCurrent(at);
    editor().click(editor().mnudelete);
  };
  carryOut({.what = "delete " + pair.first + ", " + pair.second,
            .press = [=] { deleteRow(row); },
            .change =
                [=](World& world) {
                  for (const auto& [where, side] : sides) {
                    auto& lines = world[where].lines;
                    const auto at = std::find_if(lines.begin(), lines.end(), [&](const auto& line) {
                      return line.first == pair && plain(line.second) + sideOf(line.second) == side;
                    });
                    if (at != lines.end()) lines.erase(at);
                  }
                },
            .again =
                [this, pair, deleteRow] {
                  const Grid& grid = editor().vsfm;
                  for (int at = 1; at <= grid.rows(); ++at) {
                    if (Pair{grid.cell(at, 0), grid.cell(at, 1)} == pair) return deleteRow(at);
                  }
                }});
}

void Player::transfer() {
  frmcrtb& form = editor();
  const Where where = whereInView();
  if (stale_ || unloaded_ || openPairs(where) || world_[where].lines.empty()) return;
  if (form.famSummary.visible()) toLines();
  draft_.reset();
  if (!form.famGroups.visible()) form.click(form.mnugroup);
  if (undone_) failing_ = -1;
  form.cbogroup.choose(1 + draw(form.cbogroup.size()));
  form.cbotgroup.choose(1 + draw(form.cbotgroup.size()));
  const std::string from = form.cbogroup.text(), to = form.cbotgroup.text();
  log();
  carryOut({.what = "transfer " + from + " to " + to,
            .press = [this] { editor().click(editor().cmdupdate); },
            .change =
                [=](World& world) {
                  for (auto& [pair, amount] : world[where].lines) {
                    if (pair.second == from) pair.second = to;
                  }
                },
            .again =
                [this, from, to] {
                  frmcrtb& shown = editor();
                  shown.cbogroup.choose(std::max(1, shown.cbogroup.find(from)));
                  shown.cbotgroup.choose(shown.cbotgroup.find(to));
                  if (shown.cbogroup.text() == from) shown.click(shown.cmdupdate);
                }});
}

void Player::turnPage() {
  const bool groupView = draw(2) == 0;
  draft_.reset();
  carryOut({.what = groupView ? "group view" : "summary", .press = [this, groupView] {
              editor().click(groupView ? editor().mnugroup : editor().mnushsumm);
            }});
}

// --- the journal's acts -------------------------------------------------------------------------

void Player::openJournal() {
  if (unloaded_ || stale_) return;
  if (!editor().famLines.visible()) toLines();
  draft_.reset();
  journalOf_ = whereInView();
  carryOut({.what = "journal",
            .press = [this] { editor().click(editor().mnujournal); },
            .again =
                [this] {
                  journal()->close();
                  editor().click(editor().mnujournal);
                },
            .posts = journalOf_});
}

void Player::toList() {
  frmjrnl& form = *journal();
  if (!form.Frame2.visible()) return;
  transcript_ += "  cancel the entry\n";
  form.click(form.cmdcancel);
  require(form.Frame1.visible(), "cancelling does not lead back to the list");
  checkScreen();
}

void Player::fillVoucher(const Voucher& voucher) {
  frmjrnl& form = *journal();
  require(form.focus(form.txtdt), "the focus does not reach the date");
  form.txtdt.clear();
  const std::string& date = voucher.date;
  for (const char c : date.substr(8, 2) + date.substr(5, 2) + date.substr(0, 4)) {
    form.press(static_cast<Key>(c));
  }
  const int count = static_cast<int>(voucher.lines.size());
  while (form.GETROWS() > count) form.click(form.cmdremove);
  while (form.GETROWS() < count) form.LOADCONTROLS();
  for (int line = 0; line < count; ++line) {
    const auto& [pair, amount] = voucher.lines[static_cast<std::size_t>(line)];
    form.focus(form.cboside[line]);
    form.cboside[line].choose(amount > 0 ? 2 : 1);
    put(form.txtledger[line], pair.first);
    form.press(keys::Tab);
    put(form.txtgroup[line], pair.second);
    put(amount > 0 ? form.txtdramt[line] : form.txtcramt[line], plain(amount));
  }
  put(form.txtnarr, voucher.narration);
}

void Player::passVoucher() {
  toList();
  long last = 0;
  for (const auto& [where, each] : world_) {
    if (tableOf(where) != tableOf(journalOf_) || each.vouchers.empty()) continue;
    last = std::max(last, each.vouchers.rbegin()->first);
  }
  const Voucher voucher = drawVoucher();
  journal()->click(journal()->cmdadd);
  // What could not be read when the journal was opened is read now.
  require(journal()->Frame2.visible(), "no voucher can be begun");
  journalUnloaded_ = false;
  updateVoucher("pass", last + 1, {}, voucher);
}

void Player::modifyVoucher() {
  const auto drawn = drawStored();
  if (!drawn) return;
  const Voucher& old = drawn->second;
  const Voucher voucher = old.total() == 0 && draw(4) == 0 ? old : drawVoucher();
  pickVoucher(drawn->first);
  journal()->press(keys::Enter);
  require(journal()->Frame2.visible(), "the voucher does not open");
  updateVoucher("modify", drawn->first, old, voucher);
}

void Player::updateVoucher(const std::string& what, long number, const Voucher& old,
                           const Voucher& voucher) {
  fillVoucher(voucher);
  checkBalances(voucher, number);
  const Where where = journalOf_;
  const auto update = [this] { journal()->click(journal()->cmdupdate); };
  carryOut({.what = what + " voucher " + std::to_string(number),
            .press = update,
            .change =
                [=](World& world) {
                  world[where].post(old, -1);
                  world[where].vouchers[number] = voucher;
                  world[where].post(voucher, 1);
                },
            .again =
                [this, number, voucher, update] {
                  if (journal()->Frame1.visible()) {
                    journal()->LOADGRID();
                    pickVoucher(number);
                    journal()->press(keys::Enter);
                    fillVoucher(voucher);
                  }
                  update();
                },
            .posts = where,
            .voucher = number});
}

void Player::pickVoucher(long number) {
  frmjrnl& form = *journal();
  form.focus(form.vsf);
  form.vsf.setCurrent(form.vsf.find(4, std::to_string(number)));
}

std::optional<std::pair<long, Voucher>> Player::drawStored() {
  const auto& vouchers = world_[journalOf_].vouchers;
  if (journalUnloaded_ || stale_ || vouchers.empty()) return {};
  toList();
  auto at = vouchers.begin();
  std::advance(at, draw(static_cast<int>(vouchers.size())));
  return *at;
}

void Player::eraseVoucher() {
  const auto drawn = drawStored();
  if (!drawn) return;
  const Where where = journalOf_;
  const auto erase = [this, number = drawn->first] {
    pickVoucher(number);
    if (journal()->vsf.current() > 0) journal()->press(keys::Delete);
  };
  carryOut({.what = "delete voucher " + std::to_string(drawn->first),
            .press = erase,
            .change =
                [=](World& world) {
                  world[where].post(drawn->second, -1);
                  world[where].vouchers.erase(drawn->first);
                },
            .again =
                [this, erase] {
                  journal()->LOADGRID();
                  erase();
                },
            .posts = where,
            .voucher = drawn->first});
}

void Player::printJournal() {
  if (journalUnloaded_ || stale_) return;
  toList();
  transcript_ += "  print the journal\n";
  const auto cells = [this](Button& button, std::size_t headings) {
    practice.surroundings().forgetReport();
    journal()->click(button);
    Rows all;
    if (!practice.surroundings().lastReport()) return all;
    for (const suite::ReportRow& row : practice.surroundings().lastReport()->rows()) {
      auto& texts = all.emplace_back();
      for (const suite::ReportCell& cell : row.cells) texts.push_back(cell.text);
    }
    all.erase(all.begin(), all.begin() + static_cast<long>(headings));
    return all;
  };
  Rows listed = listOf(world_[journalOf_]);
  Rows printed = cells(journal()->cmdprn, 1);
  // The date stands on a voucher's first row only.
  for (Rows* rows : {&listed, &printed}) {
    for (auto& row : *rows) row = {row.end()[-3], row.end()[-2], row.end()[-1]};
  }
  same("the printed list of vouchers", listed, printed);
  if (openPairs(journalOf_)) return;
  const Rows subsidiary = cells(journal()->cmdtb, 2);
  require(subsidiary == subsidiaryOf(world_[journalOf_]),
          "the subsidiary trial balance is " + ::testing::PrintToString(subsidiary) +
              "\n  instead of " + ::testing::PrintToString(subsidiaryOf(world_[journalOf_])));
  dialogs.takeMessages();
}

void Player::closeJournal() {
  carryOut({.what = "close the journal",
            .press =
                [this] {
                  journal()->close();
                  require(!journal(), "the journal does not close");
                },
            .posts = journalOf_});
  journalUnloaded_ = false;
}

// --- once more ----------------------------------------------------------------------------------

void Player::repeat() {
  if (!failed_) return;
  const Failed failed = std::move(*failed_);
  failed_.reset();
  if (failed.deed.posts && !journal()) return;
  Deed deed = failed.deed;
  deed.what += ", again";
  if (deed.again) deed.press = deed.again;
  deed.change = [&](World& world) { world = failed.after; };
  carryOut(deed);
  if (!failed_) draft_.reset();
}

// Opening the journal posts what is left.
void Player::finishVouchers() {
  failing_ = -1;
  while (!halfPosted_.empty()) {
    if (journal()) closeJournal();
    if (halfPosted_.empty()) return;
    where_ = halfPosted_.begin()->first;
    open(true);
    openJournal();
  }
}

// --- what an act has done -----------------------------------------------------------------------

void Player::carryOut(const Deed& deed) {
  transcript_ += "  " + deed.what;
  const World before = undone_.value_or(world_);
  World after = before;
  deed.change(after);
  imported_ = false;
  statements();
  log();
  dialogs.takeMessages();
  if (failing_ >= 0) host().statements().failNext("", failing_);
  deed.press();
  host().statements().failNext(noStatement);
  const std::vector<std::string> sent = statements();
  const std::vector<std::string> lines = log();
  const bool failed = !lines.empty();
  const std::string statement =
      failed && failing_ >= 0 && static_cast<std::size_t>(failing_) < sent.size()
          ? sent[static_cast<std::size_t>(failing_)]
          : "";
  transcript_ += (failed ? "; fails at: " + statement : "") + "\n";
  for (const std::string& text : messages()) transcript_ += "    \"" + text + "\"\n";
  require(lines.size() <= (failing_ >= 0 ? 1U : 0U),
          "the error log says " + ::testing::PrintToString(lines));
  require(!dialogs.takeFailure(), "a question was not answered");
  require(!frontEnd.busy, "the busy indicator stays");
  failing_ = -1;

  std::vector<World> candidates{after};
  if (imported_) {
    require(yearBefore() && after[where_].lines.empty() && !after[*yearBefore()].lines.empty(),
            "the import was proposed");
    candidates[0][where_].lines = after[*yearBefore()].lines;
    if (failed) candidates.push_back(after);
  }
  if (failed || deed.lenient) candidates.push_back(before);
  if (undone_ && deed.looksOnly) candidates.push_back(world_);
  const World stored = world_;
  learn(before, candidates, deed, failed);
  const bool decided = equal(world_, candidates[0]) || equal(world_, before);
  if (decided || (!failed && !(deed.looksOnly && equal(world_, stored)))) {
    undone_.reset();
  } else if (deed.saves) {
    undone_ = before;
  }
  const bool opens = deed.what.starts_with("open ");
  const bool reloaded = std::any_of(sent.begin(), sent.end(), [&](const std::string& sql) {
    return sql.starts_with(journal() ? "Select *  from JRNL_" : "Select * From TAB_") &&
           sql != statement;
  });
  stale_ = (stale_ && !reloaded) || (failed && upperCase(statement).starts_with("SELECT"));
  if (failed && deed.saves && draft_) {
    draft_->stored = equal(world_, candidates[0]);
    if (editor().txtpart.text().empty()) draft_.reset();
  }
  if (opens) unloaded_ = failed;
  if (deed.what.starts_with("journal")) journalUnloaded_ = failed;
  if (failed) failed_ = Failed{deed, candidates[0]};
  checkScreen();
}

}  // namespace quillet::support
