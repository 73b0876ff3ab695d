// Random days at the editor and the journal of three clients, two of whom share the tables of a
// year. Whatever is done, in whatever view, of whatever client, and whatever fails: tables, screen,
// totals, summary and printouts are those of the model.
//
// QUILLET_PROPERTY_SEED and QUILLET_PROPERTY_DAYS play other days, and more of them.
#include <cstdlib>

#include "property/journal_acts.h"
#include "suite/check/books_check.h"

namespace quillet::support {
namespace {

constexpr int actsOfADay = 70;

int fromEnvironment(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text ? std::atoi(text) : otherwise;
}

class PropertyTest : public JournalActs {
 protected:
  // Everything that an act is and draws comes from its seed and from what is on the screen, so that
  // a day can be played again with some of its acts left out.
  using Day = std::vector<unsigned>;
  using Act = void (PropertyTest::*)();

  // Leaves out acts where something still does not agree without them.
  Day shortened(unsigned seed, Day day) {
    for (std::size_t at = day.size(); at-- > 0;) {
      Day fewer = day;
      fewer.erase(fewer.begin() + static_cast<long>(at));
      if (!play(seed, fewer).empty()) day = fewer;
    }
    return day;
  }

  PropertyTest() {
    exec(
        "insert into mast_gunder values (1,'a',2),(7,'b',1),(9,'c',1),(10,'d',1),(12,'e',2),"
        "(15,'f',3),(17,'g',3),(18,'h',4),(19,'i',4),(20,'j',4),(22,'k',4),(29,'l',4)");
    for (const auto& [name, primary] : groups) group(name, primary);
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
    drawBooks(seed);
    std::string complaint;
    try {
      for (const unsigned act : day) perform(act, seed % 4 > 0);
      finishVouchers();
      checkMoments();
      examine(seed % 4 > 0);
    } catch (const std::runtime_error& mismatch) {
      complaint = mismatch.what();
    }
    if (journal()) journal()->close();
    return complaint;
  }

 private:
  // What an examination of the books may find: several lines of a pair, which lines that were moved
  // to another group leave, and vouchers that a failure left with some of their lines.
  void examine(bool mayFail) {
    using namespace suite::check;
    for (const bool mended : {false, true}) {
      if (mended)
        require(mendBooks(practice, [] { return std::string(); }).failed.empty(),
                "the books were not mended");
      for (const Finding& finding : examineBooks(practice).findings) {
        require((finding.rule == "pair" && !mended) || (finding.rule == "sides" && mayFail),
                "the examination finds: " + finding.what);
      }
    }
  }

  void drawBooks(unsigned seed) {
    practice.restartModule();
    host().statements().record(true);
    for (const char* table : {"TAB_", "JRNL_", "TRADE_"}) {
      for (const long number : {1, 2}) exec("delete from " + (table + host().GETTBNAME(number)));
    }
    exec("delete from master");
    for (const char* what : {"from", "history from"})
      exec(std::string("delete ") + what + " Mast_Part");
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
    done_.clear();
    moments_.clear();
    const RecordsetPtr last = practice.database().query("select max(At) from SuiteAct");
    seen_ = suite::instantFrom(last->text(0));
    draft_.reset();
    failed_.reset();
    halfPosted_.clear();
    undone_.reset();
    stale_ = unloaded_ = journalUnloaded_ = false;
    transcript_.clear();
    log();
    dialogs.clear();
  }

  // The last act on the year in view is taken back, and others may be after it.
  void takeBack() {
    auto& done = done_[where_];
    if (done.empty() || undone_ || draft_ || failed_ || !halfPosted_.empty()) return;
    // What is being typed would be looked for in vain.
    if (!editor().txtpart.text().empty()) return;
    const auto last = practice.environment().takingBack().last(
        codes[where_.client], "3103" + std::to_string(where_.year + 1));
    require(last && last->at == done.back().act.at, "another act is the last one");
    transcript_ += "  takes back: " + suite::wordsFor(*last) + '\n';
    {
      const quillet::Act running(context().openForms.acts);
      suite::TakingBack& takingBack = practice.environment().takingBack();
      const Texts conflicts = takingBack.takeBack(takingBack.inverseOf(*last));
      require(conflicts.empty(), "it cannot be taken back: " + ::testing::PrintToString(conflicts));
    }
    World wanted = world_;
    wanted[where_] = done.back().before;
    done.pop_back();
    checkTables(world_, {wanted}, Deed{.what = "takes back"}, false);
    remember(world_);
    look();
  }

  // The frequent ones stand there several times.
  Act drawAct(bool inJournal) {
    using T = PropertyTest;
    static const std::vector<Act> atJournal{
        &T::passVoucher,  &T::passVoucher,  &T::passVoucher,  &T::modifyVoucher, &T::modifyVoucher,
        &T::eraseVoucher, &T::eraseVoucher, &T::printJournal, &T::closeJournal,  &T::closeJournal};
    static const std::vector<Act> atEditor{
        &T::enter,       &T::enter,       &T::enter,      &T::enter,      &T::enter,
        &T::enter,       &T::changeView,  &T::changeView, &T::changeView, &T::changeView,
        &T::alter,       &T::alter,       &T::alter,      &T::remove,     &T::remove,
        &T::refresh,     &T::refresh,     &T::save,       &T::save,       &T::turnPage,
        &T::turnPage,    &T::open,        &T::fill,       &T::transfer,   &T::toLines,
        &T::openJournal, &T::openJournal, &T::takeBack,   &T::takeBack,   &T::takeBack,
        &T::takeBack};
    return oneOf(inJournal ? atJournal : atEditor);
  }

  void perform(unsigned seed, bool mayFail) {
    random_.seed(seed);
    const bool inJournal = journal() != nullptr;
    const bool opened = context().editorForm && editor().visible();
    Act act = opened ? drawAct(inJournal) : &PropertyTest::open;
    if (failed_ && draw(3) == 0) {
      act = &PropertyTest::repeat;
    } else {
      failed_.reset();
      importing_ = draw(2) == 0;
    }
    failing_ = mayFail && draw(3) == 0 ? draw(inJournal ? 35 : 11) : -1;
    (this->*act)();
  }
};

TEST_F(PropertyTest, WhateverIsDoneTheBooksAreRight) {
  const auto first = static_cast<unsigned>(fromEnvironment("QUILLET_PROPERTY_SEED", 1));
  const int days = fromEnvironment("QUILLET_PROPERTY_DAYS", 14);
  for (unsigned seed = first; seed < first + static_cast<unsigned>(days); ++seed) {
    Day day(actsOfADay);
    std::ranges::generate(day, std::mt19937(seed));
    if (play(seed, day).empty()) continue;
    const std::string complaint = play(seed, shortened(seed, day));
    ADD_FAILURE() << "QUILLET_PROPERTY_SEED=" << seed << " fails; made shorter:\n"
                  << transcript_ << complaint;
    break;
  }
}

}  // namespace
}  // namespace quillet::support
