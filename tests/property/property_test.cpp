// Random days at the editor and the journal of three clients, two of whom share the tables of a
// year. Whatever is done, in whatever view, of whatever client, and whatever fails: tables, screen,
// totals, summary and printouts are those of the model.
//
// QUILLET_PROPERTY_SEED plays one day, or with QUILLET_PROPERTY_DAYS that many from it on.
#include <algorithm>
#include <cstdlib>
#include <random>
#include <utility>

#include "controls/desk.h"
#include "data/text.h"
#include "property/checks.h"

namespace quillet::support {
namespace {

constexpr int usualDays = 14;
constexpr int actsOfADay = 70;
constexpr int replays = 400;  // spent on making a day that fails shorter
constexpr const char* ledgers[] = {"Cash", "Loan", "Rent Paid", "Stock", "Wages"};
constexpr const char* noStatement = "\nno statement holds this";

int fromEnvironment(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text ? std::atoi(text) : otherwise;
}

class PropertyTest : public Checks {
 protected:
  struct Kind {
    void (PropertyTest::*play)();
    unsigned weight;
    bool inJournal = false;
  };

  // Everything that an act draws comes from its seed and from what is on the screen, so that it can
  // be played again with acts before it left out.
  struct Act {
    const Kind* kind;
    unsigned seed;
    int failing = -1;  // the number of the statement that fails
  };
  using Day = std::vector<Act>;

  static const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all{{&PropertyTest::open, 1},
                                       {&PropertyTest::changeView, 4},
                                       {&PropertyTest::refresh, 2},
                                       {&PropertyTest::enter, 6},
                                       {&PropertyTest::fill, 1},
                                       {&PropertyTest::save, 2},
                                       {&PropertyTest::alter, 3},
                                       {&PropertyTest::remove, 2},
                                       {&PropertyTest::transfer, 1},
                                       {&PropertyTest::turnPage, 2},
                                       {&PropertyTest::toLines, 1},
                                       {&PropertyTest::openJournal, 2},
                                       {&PropertyTest::passVoucher, 3, true},
                                       {&PropertyTest::modifyVoucher, 2, true},
                                       {&PropertyTest::eraseVoucher, 2, true},
                                       {&PropertyTest::printJournal, 1, true},
                                       {&PropertyTest::closeJournal, 2, true},
                                       {&PropertyTest::repeat, 0, true}};
    return all;
  }

  static Day drawDay(unsigned seed) {
    std::minstd_rand random(seed);
    const auto draw = [&](unsigned count) { return static_cast<unsigned>(random()) % count; };
    const auto drawKind = [&](bool inJournal) {
      std::vector<const Kind*> all;
      for (const Kind& kind : kinds()) {
        if (kind.inJournal == inJournal) all.insert(all.end(), kind.weight, &kind);
      }
      return all[draw(static_cast<unsigned>(all.size()))];
    };
    const bool fails = draw(4) > 0;
    Day day{{&kinds().front(), static_cast<unsigned>(random())}};
    bool inJournal = false;
    while (day.size() < actsOfADay) {
      const Act& last = day.back();
      const Kind* kind = drawKind(inJournal);
      // After a failure often the same once more, or another of its kind.
      if (last.failing >= 0 && draw(2) == 0) kind = draw(2) == 0 ? &kinds().back() : last.kind;
      if (kind->play == &PropertyTest::openJournal) inJournal = true;
      if (kind->play == &PropertyTest::closeJournal) inJournal = false;
      Act act{kind, static_cast<unsigned>(random())};
      if (fails && draw(3) == 0) act.failing = static_cast<int>(draw(kind->inJournal ? 35 : 11));
      day.push_back(act);
    }
    return day;
  }

  // Leaves out acts and failures as long as something still does not agree.
  Day shortened(unsigned seed, Day day) {
    int left = replays;
    const auto fails = [&](const Day& acts) { return left-- > 0 && !play(seed, acts).empty(); };
    for (std::size_t length = day.size() / 2; length > 0 && left > 0; length /= 2) {
      for (std::size_t from = 0; from + length <= day.size();) {
        Day fewer = day;
        const auto first = fewer.begin() + static_cast<long>(from);
        fewer.erase(first, first + static_cast<long>(length));
        if (fails(fewer)) {
          day = fewer;
        } else {
          from += length;
        }
      }
    }
    for (Act& act : day) {
      if (act.failing < 0) continue;
      const int failing = std::exchange(act.failing, -1);
      if (!fails(day)) act.failing = failing;
    }
    return day;
  }

  PropertyTest() {
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

  // Plays the day on fresh books drawn from that seed. Returns what does not agree, "" when
  // everything does.
  std::string play(unsigned seed, const Day& day) {
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
    random_.seed(seed);
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
    std::string complaint;
    try {
      for (const Act& act : day) perform(act);
      finishVouchers();
    } catch (const std::runtime_error& mismatch) {
      complaint = mismatch.what();
    }
    if (journal()) journal()->close();
    return complaint;
  }

  std::string transcript_;  // what was done, a line for each deed

 private:
  struct Draft {
    Pair pair;
    Paise amount = 0;
    Where where;
    std::optional<Entry> altered = {};
    std::string side() const { return amount > 0 ? "D" : "C"; }
    std::string text() const {
      return pair.first + ", " + pair.second + ", " + plain(amount) + " " + side();
    }
  };
  struct Failed {
    Deed deed;
    World after;
  };

  void perform(const Act& act) {
    random_.seed(act.seed);
    failing_ = act.failing;
    importing_ = draw(2) == 0;
    if (act.kind->weight > 0) {
      const bool opens = act.kind->play == &PropertyTest::open;
      const bool opened = context().editorForm && editor().visible();
      if (act.kind->inJournal != (journal() != nullptr) || (!opens && !opened)) return;
      failed_.reset();
    }
    (this->*act.kind->play)();
  }

  // Carries out the deed, with the statement of the act's number failing, and compares.
  void carryOut(const Deed& deed) {
    transcript_ += "  " + deed.what;
    const World before = undone_.value_or(world_), stood = world_;
    World after = before;
    deed.change(after);
    imported_ = false;
    statements();
    log();
    dialogs.takeMessages();
    if (failing_ >= 0) host().statements().failNext("", failing_);
    deed.press();
    host().statements().failNext(noStatement);
    const std::vector<std::string> sent = statements(), lines = log();
    const bool failed = !lines.empty();
    const auto number = static_cast<std::size_t>(failing_);
    const std::string statement = failed && number < sent.size() ? sent[number] : "";
    transcript_ += (failed ? "; fails at: " + statement : "") + "\n";
    for (const std::string& text : messages()) transcript_ += "    \"" + text + "\"\n";
    require(lines.size() <= (failing_ >= 0 ? 1U : 0U),
            "the error log says " + ::testing::PrintToString(lines));
    require(!dialogs.takeFailure(), "a question was not answered");
    require(!frontEnd.busy, "the busy indicator stays");
    failing_ = -1;

    World begun = before;  // with what was imported when the deed had failed
    std::vector<World> candidates{after};
    if (imported_) {
      const Lines& made = after[where_].lines;
      require(yearBefore() && !after[*yearBefore()].lines.empty() &&
                  (made.empty() || (failed && before.at(where_).lines.empty())),
              "the import was proposed");
      const Lines& imported = after[*yearBefore()].lines;
      candidates[0][where_].lines = imported;
      for (const auto& [pair, amount] : made) candidates[0][where_].enter(pair, amount);
      if (!made.empty()) begun[where_].lines = imported;
      if (made.empty() && failed) candidates.push_back(after);
    }
    if (failed || deed.lenient) candidates.push_back(begun);
    if (undone_ && deed.looksOnly) candidates.push_back(stood);
    checkTables(before, candidates, deed, failed);
    // What was typed stays until it is saved.
    const bool kept = failed && deed.saves && !editor().txtpart.text().empty();
    const bool decided = (world_ == candidates[0] && !kept) || world_ == begun;
    if (decided || (!failed && !(deed.looksOnly && world_ == stood))) {
      undone_.reset();
    } else if (deed.saves) {
      undone_ = begun;
    }
    const bool reloaded = std::any_of(sent.begin(), sent.end(), [&](const std::string& sql) {
      return sql.starts_with(journal() ? "Select *  from JRNL_" : "Select * From TAB_") &&
             sql != statement;
    });
    stale_ = (stale_ && !reloaded) || (failed && upperCase(statement).starts_with("SELECT"));
    if (failed && deed.saves && !kept) draft_.reset();
    if (deed.unloaded) *deed.unloaded = failed;
    if (failed) failed_ = Failed{deed, candidates[0]};
    look();
  }

  void carryOutWithoutFailure(const Deed& deed) {
    const int failing = std::exchange(failing_, -1);
    carryOut(deed);
    failing_ = failing;
  }

  void look() {
    checkScreen();
    if (failed_ || draft_ || stale_ || journal() || !editor().visible()) return;
    frmcrtb& form = editor();
    same("the fields", {{"", "", "", ""}},
         {{form.txtpart.text(), form.txtgroup.text(), form.txtamount.text(), form.txtdrcr.text()}});
  }

  void repeat() {
    if (!failed_) return;
    const Failed failed = *std::exchange(failed_, std::nullopt);
    if (failed.deed.posts && !journal()) return;
    Deed deed = failed.deed;
    deed.what += ", again";
    if (deed.again) deed.press = deed.again;
    deed.change = [&](World& world) { world = failed.after; };
    carryOut(deed);
    if (!failed_) draft_.reset();
  }

  // Opening the journal posts what is left.
  void finishVouchers() {
    failing_ = -1;
    while (!halfPosted_.empty()) {
      if (journal()) closeJournal();
      if (halfPosted_.empty()) return;
      where_ = halfPosted_.begin()->first;
      openYear();
      openJournal();
    }
  }

  int draw(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  template <typename Many>
  const auto& oneOf(const Many& all) {
    return *std::next(all.begin(), draw(static_cast<int>(all.size())));
  }

  Pair drawPair() {
    const std::string& group = oneOf(groups()).first;
    // A few ledgers more than there are, so that some are made on the way.
    const int at = draw(8);
    return {at < 5 ? ledgers[at] : "Made " + std::to_string(at), group};
  }

  // Often the same few amounts, so that balances meet zero.
  Paise drawAmount() {
    const Paise size = draw(2) == 0 ? 10 * (1 + draw(3)) : 1 + draw(100'000'000);
    return draw(2) == 0 ? size : -size;
  }

  // Often one that is there.
  Entry drawLine(const Lines& lines) {
    return !lines.empty() && draw(2) == 0 ? oneOf(lines) : Entry{drawPair(), 0};
  }

  Voucher drawVoucher() {
    Voucher voucher;
    const int year = journalOf_.year + draw(2);
    const int month = year == journalOf_.year ? 4 + draw(9) : 1 + draw(3);
    const auto two = [](int number) { return std::to_string(100 + number).replace(0, 1, "-"); };
    voucher.date = std::to_string(year) + two(month) + two(1 + draw(28));
    if (draw(2) == 0) voucher.narration = "Being " + std::to_string(draw(99));
    Paise total = 0;
    for (int count = 1 + draw(3); count > 0; --count) {
      auto& [pair, amount] = voucher.lines.emplace_back(drawLine(world_[journalOf_].lines));
      // What is there is often taken out whole.
      amount = amount != 0 && draw(2) == 0 ? -amount : drawAmount();
      total += amount;
    }
    if (total != 0) voucher.lines.emplace_back(drawPair(), -total);
    if (voucher.lines.size() == 1) voucher.lines.emplace_back(drawPair(), -voucher.lines[0].second);
    return voucher;
  }

  void open() {
    where_ = oneOf(world_).first;
    openYear();
  }

  void openYear() {
    draft_.reset();
    // Whether the opening fails or not, it is this year's editor.
    carryOut({.what = "open " + said(where_),
              .press =
                  [this] {
                    select(codes[where_.client], where_.year);
                    editor().showYear(names[where_.client]);
                  },
              .unloaded = &unloaded_});
  }

  void changeView() {
    const int index = draw(3);
    if (!editor().mnuyropts.enabled()) return;
    draft_.reset();
    carryOut({.what = "view " + std::to_string(index),
              .press = [this, index] { editor().click(editor().mnuyrs[index]); },
              .lenient = unloaded_});
  }

  void refresh() {
    const int index = draw(6);
    MenuEntry& menu = index < 4 ? editor().mnusortopt[index] : editor().mnurefresh;
    carryOut({.what = index < 4 ? "sort " + std::to_string(index + 1) : "refresh",
              .press = [&, this] { editor().click(menu); },
              .looksOnly = true});
  }

  void turnPage() {
    MenuEntry& page = draw(2) == 0 ? editor().mnugroup : editor().mnushsumm;
    draft_.reset();
    carryOut({.what = "page " + page.name(), .press = [&, this] { editor().click(page); }});
  }

  void toLines() {
    draft_.reset();
    const auto escape = [this] {
      frmcrtb& form = editor();
      if (form.famLines.visible()) form.focus(form.txtpart);
      form.press(keys::Escape);
      require(form.famLines.visible(), "Escape does not lead back to the lines");
    };
    carryOutWithoutFailure({.what = "escape", .press = escape});
  }

  void typeDraft(const Draft& draft) {
    draft_ = draft;
    type(editor().txtpart, draft.pair.first);
    type(editor().txtgroup, draft.pair.second);
    type(editor().txtamount, draft.amount == 0 ? "" : plain(draft.amount));
    type(editor().txtdrcr, draft.side());
  }

  void fill() {
    if (!editor().famLines.visible()) toLines();
    const Where where = whereInView();
    Draft draft{drawLine(world_[where].lines).first, draw(12) == 0 ? 0 : drawAmount(), where};
    if (!draft_) {
      if (draw(3) == 0) editor().click(editor().mnuinsert);
    } else if (draft_->altered) {
      // Typing on over a line being altered alters it.
      draft.altered = draft_->altered;
      draft.where = draft_->where;
    }
    typeDraft(draft);
    transcript_ += "  type " + draft.text() + "\n";
    look();
  }

  void enter() {
    fill();
    save();
  }

  void save() {
    if (!draft_ || !editor().famLines.visible()) return;
    const Draft draft = *draft_;
    if (openPairs(draft.where)) failing_ = -1;
    carryOut({.what = "save " + draft.text() + (draft.altered ? " for the line altered" : ""),
              .press =
                  [this] {
                    editor().focus(editor().txtdrcr);
                    editor().press(keys::Enter);
                  },
              .change =
                  [draft](World& world) {
                    if (draft.amount == 0) return;
                    if (draft.altered) world[draft.where].take(*draft.altered);
                    world[draft.where].enter(draft.pair, draft.amount);
                  },
              .lenient = unloaded_,
              .looksOnly = draft.amount == 0,
              .saves = true,
              .about = {draft.pair, draft.altered ? draft.altered->first : draft.pair}});
    const bool refused = draft.amount == 0 || (unloaded_ && !editor().txtpart.text().empty());
    if (!failed_ && !refused) draft_.reset();
  }

  // A row that can be altered or deleted, 0 where there is none.
  int drawRow() {
    const Grid& grid = editor().vsfm;
    if (!editor().famLines.visible()) toLines();
    return grid.rows() == 0 || stale_ || unloaded_ ? 0 : 1 + draw(grid.rows());
  }

  // What a row of the grid shows of a year. The cells agree with the model.
  Paise shownAmount(int row, int year) {
    const int column = view() == 2 && year == previous ? 4 : 2;
    std::string digits = editor().vsfm.cell(row, column);
    std::erase(digits, '.');
    if (digits == "-") return 0;
    return editor().vsfm.cell(row, column + 1) == "DR" ? std::stoll(digits) : -std::stoll(digits);
  }

  Pair shownPair(int row) { return {editor().vsfm.cell(row, 0), editor().vsfm.cell(row, 1)}; }

  void alter() {
    const int row = drawRow();
    if (row == 0) return;
    editor().vsfm.setCurrent(row);
    const bool second = view() == 2 && shownAmount(row, current) == 0;
    const Where where = second ? *yearBefore() : whereInView();
    if (openPairs(where)) return;
    const Entry line{shownPair(row), shownAmount(row, second ? previous : current)};
    Draft draft{line.first, line.second, where, line};
    draft_ = draft;
    carryOutWithoutFailure(
        {.what = "alter " + draft.text(), .press = [this] { editor().click(editor().mnualter); }});
    if (draw(3) == 0) draft.pair.first = drawPair().first;
    if (draw(3) == 0) draft.pair.second = drawPair().second;
    if (draw(3) > 0) draft.amount = draw(2) == 0 ? -draft.amount : drawAmount();
    typeDraft(draft);
    if (draw(4) > 0) return save();
    look();
  }

  void remove() {
    const int row = drawRow();
    if (row == 0 || openPairs(where_) || (yearBefore() && openPairs(*yearBefore()))) return;
    const Pair pair = shownPair(row);
    std::map<Where, Entry> removed;
    for (const int year : {current, previous}) {
      if (!inView(year)) continue;
      removed[year == current ? where_ : *yearBefore()] = {pair, shownAmount(row, year)};
    }
    draft_.reset();
    const auto deleteRow = [this](int at) {
      editor().vsfm.setCurrent(at);
      editor().click(editor().mnudelete);
    };
    carryOut({.what = "delete " + pair.first + ", " + pair.second,
              .press = [=] { deleteRow(row); },
              .change =
                  [removed](World& world) {
                    for (const auto& [where, line] : removed) world[where].take(line);
                  },
              .again =
                  [this, pair, deleteRow] {
                    for (int at = 1; at <= editor().vsfm.rows(); ++at) {
                      if (shownPair(at) == pair) return deleteRow(at);
                    }
                  }});
  }

  void transfer() {
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
    carryOut({.what = "transfer " + from + " to " + to,
              .press = [this] { editor().click(editor().cmdupdate); },
              .change =
                  [=](World& world) {
                    for (const auto& [pair, amount] : std::exchange(world[where].lines, {})) {
                      world[where].lines.emplace(
                          Pair{pair.first, pair.second == from ? to : pair.second}, amount);
                    }
                  },
              .again =
                  [&form, from, to] {
                    form.cbogroup.choose(std::max(1, form.cbogroup.find(from)));
                    form.cbotgroup.choose(form.cbotgroup.find(to));
                    if (form.cbogroup.text() == from) form.click(form.cmdupdate);
                  }});
  }

  void openJournal() {
    if (unloaded_ || stale_) return;
    if (!editor().famLines.visible()) toLines();
    draft_.reset();
    journalOf_ = whereInView();
    carryOut({.what = "journal",
              .press =
                  [this] {
                    if (journal()) journal()->close();
                    editor().click(editor().mnujournal);
                  },
              .posts = journalOf_,
              .unloaded = &journalUnloaded_});
  }

  void toList() {
    frmjrnl& form = *journal();
    if (!form.Frame2.visible()) return;
    transcript_ += "  cancel the entry\n";
    form.click(form.cmdcancel);
    require(form.Frame1.visible(), "cancelling does not lead back to the list");
    look();
  }

  void fillVoucher(const Voucher& voucher) {
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
      type(form.txtledger[line], pair.first);
      form.press(keys::Tab);
      type(form.txtgroup[line], pair.second);
      type(amount > 0 ? form.txtdramt[line] : form.txtcramt[line], plain(amount));
    }
    type(form.txtnarr, voucher.narration);
  }

  void passVoucher() {
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

  void modifyVoucher() {
    const auto drawn = drawStored();
    if (!drawn) return;
    const auto& [number, old] = *drawn;
    Paise total = 0;
    for (const auto& [pair, amount] : old.lines) total += amount;
    const Voucher voucher = total == 0 && draw(4) == 0 ? old : drawVoucher();
    openVoucher(number);
    require(journal()->Frame2.visible(), "the voucher does not open");
    updateVoucher("modify", number, old, voucher);
  }

  void updateVoucher(const std::string& what, long number, const Voucher& old,
                     const Voucher& voucher) {
    fillVoucher(voucher);
    checkBalances(voucher, number);
    carryOut({.what = what + " voucher " + std::to_string(number),
              .press =
                  [=, this] {
                    if (journal()->Frame1.visible()) {
                      journal()->LOADGRID();
                      openVoucher(number);
                      if (journal()->Frame1.visible()) return;  // the opening failed
                      fillVoucher(voucher);
                    }
                    journal()->click(journal()->cmdupdate);
                  },
              .change =
                  [=, where = journalOf_](World& world) {
                    world[where].post(old, -1);
                    world[where].vouchers[number] = voucher;
                    world[where].post(voucher, 1);
                  },
              .posts = journalOf_,
              .voucher = number});
  }

  bool pickVoucher(long number) {
    frmjrnl& form = *journal();
    form.focus(form.vsf);
    form.vsf.setCurrent(form.vsf.find(4, std::to_string(number)));
    return form.vsf.current() > 0;
  }

  void openVoucher(long number) {
    pickVoucher(number);
    journal()->press(keys::Enter);
  }

  std::optional<std::pair<long, Voucher>> drawStored() {
    const auto& vouchers = world_[journalOf_].vouchers;
    if (journalUnloaded_ || stale_ || vouchers.empty()) return {};
    toList();
    return oneOf(vouchers);
  }

  void eraseVoucher() {
    const auto drawn = drawStored();
    if (!drawn) return;
    const auto erase = [this, number = drawn->first] {
      if (pickVoucher(number)) journal()->press(keys::Delete);
    };
    carryOut({.what = "delete voucher " + std::to_string(drawn->first),
              .press = erase,
              .change =
                  [drawn, where = journalOf_](World& world) {
                    world[where].post(drawn->second, -1);
                    world[where].vouchers.erase(drawn->first);
                  },
              .again =
                  [this, erase] {
                    journal()->LOADGRID();
                    erase();
                  },
              .posts = journalOf_,
              .voucher = drawn->first});
  }

  void printJournal() {
    if (journalUnloaded_ || stale_) return;
    toList();
    transcript_ += "  print the journal\n";
    checkJournalPrintouts();
  }

  void closeJournal() {
    carryOut({.what = "close the journal",
              .press =
                  [this] {
                    journal()->close();
                    require(!journal(), "the journal does not close");
                  },
              .posts = journalOf_});
    journalUnloaded_ = false;
  }

  std::optional<Draft> draft_;
  std::optional<Failed> failed_;
  bool importing_ = false;  // the answer to the question, if it is asked
  bool imported_ = false;
  int failing_ = -1;
  std::minstd_rand random_;
};

TEST_F(PropertyTest, WhateverIsDoneTheBooksAreRight) {
  const int first = fromEnvironment("QUILLET_PROPERTY_SEED", 1);
  const int days = fromEnvironment("QUILLET_PROPERTY_DAYS",
                                   std::getenv("QUILLET_PROPERTY_SEED") ? 1 : usualDays);
  for (auto seed = static_cast<unsigned>(first); seed < static_cast<unsigned>(first + days);
       ++seed) {
    const Day day = drawDay(seed);
    if (play(seed, day).empty()) continue;
    const std::string complaint = play(seed, shortened(seed, day));
    ADD_FAILURE() << "QUILLET_PROPERTY_SEED=" << seed << " fails; made shorter:\n"
                  << transcript_ << complaint;
    break;
  }
}

}  // namespace
}  // namespace quillet::support
