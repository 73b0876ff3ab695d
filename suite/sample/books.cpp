#include "suite/sample/books.h"

#include <algorithm>

#include "suite/sample/dice.h"
#include "suite/sample/ledgers.h"

namespace quillet::suite::sample {
namespace {

constexpr long kLakh = 100'000;

Paise roundTo(Paise amount, Paise grain) { return (amount + grain / 2) / grain * grain; }

bool isParty(const Ledger& ledger) {
  return ledger.role == Role::customers || ledger.role == Role::suppliers;
}

bool binaryTotalsAgree(const std::vector<Ledger>& ledgers) {
  double debits = 0;
  double credits = 0;
  for (const Ledger& ledger : ledgers) {
    const double rupees = static_cast<double>(ledger.balance) / 100;
    if (rupees > 0) debits += rupees;
    if (rupees < 0) credits -= rupees;
  }
  return debits == credits;
}

class Bookkeeper {
 public:
  explicit Bookkeeper(const SampleClient& client);
  YearBooks nextYear();

 private:
  struct Goods {
    const Stock* stock;
    Paise closing = 0;
  };

  void takeStock();
  void trade();
  void postFigures();
  void post(Ledger& ledger);
  void postParties(Role role, long rate);
  void writeDownAssets();
  void chargeTax();
  void balance();
  void introduceCapital(Paise needed);
  void evenOutBank(Paise money);
  void settlePaise();
  void close();
  YearBooks report() const;

  // A part of the turnover with the account's side and grain.
  Paise figure(const Ledger& ledger, long spread);
  Paise totalOf(Role role) const;
  Paise profit() const;
  Ledger& the(Role role);

  const SampleClient& client_;
  const Trade& trade_;
  Dice dice_;
  std::vector<Ledger> ledgers_;
  std::vector<Goods> goods_;
  int year_ = 0;
  Paise turnover_;
};

Bookkeeper::Bookkeeper(const SampleClient& client)
    : client_(client),
      trade_(*sample::trade(client.trade)),
      dice_(client.entry.code),
      ledgers_(openLedgers(client, dice_)),
      turnover_(client.turnover * 100) {
  for (const Stock& stock : trade_.stocks) goods_.push_back({&stock});
}

YearBooks Bookkeeper::nextYear() {
  takeStock();
  postFigures();
  trade();
  writeDownAssets();
  chargeTax();
  balance();
  settlePaise();
  YearBooks books = report();
  close();
  ++year_;
  turnover_ = dice_.vary(turnover_ / 100 * (100 + client_.growth), 4);
  return books;
}

void Bookkeeper::takeStock() {
  for (Goods& goods : goods_) goods.closing = dice_.vary(turnover_ / kLakh * goods.stock->rate, 12);
  if (year_ > 0) return;
  auto next = goods_.begin();
  for (Ledger& ledger : ledgers_)
    if (ledger.role == Role::openingStock) ledger.balance = dice_.vary((next++)->closing, 15);
}

void Bookkeeper::postFigures() {
  for (Ledger& ledger : ledgers_) post(ledger);
  postParties(Role::customers, trade_.customers);
  postParties(Role::suppliers, trade_.suppliers);
}

void Bookkeeper::post(Ledger& ledger) {
  switch (ledger.role) {
    case Role::sales:
      ledger.balance = figure(ledger, 2);
      break;
    case Role::direct:
    case Role::flow:
    case Role::drawings:
      ledger.balance = figure(ledger, 14);
      break;
    case Role::balance:
    case Role::overdraft:
      ledger.balance = figure(ledger, 35);
      break;
    case Role::lasting:
      if (year_ == 0) ledger.balance = figure(ledger, 20);
      break;
    case Role::loan:
      if (year_ == 0) ledger.first = ledger.balance = figure(ledger, 20);
      if (year_ > 0) ledger.balance -= ledger.first / 5;
      break;
    default:
      break;
  }
}

// What all of them owe or are owed, shared out by their weights; now and then one has settled.
void Bookkeeper::postParties(Role role, long rate) {
  long weights = 0;
  for (const Ledger& ledger : ledgers_)
    if (ledger.role == role) weights += ledger.rate;
  if (weights == 0) return;  // nobody of that role
  for (Ledger& ledger : ledgers_) {
    if (ledger.role != role) continue;
    const Paise share = turnover_ / kLakh * rate / weights * ledger.rate;
    const bool settled = year_ > 0 && dice_.oneIn(12);
    ledger.balance = settled ? 0 : ledger.side * dice_.vary(share, 45);
  }
}

// Buys what makes the gross profit come out at the margin, give or take.
void Bookkeeper::trade() {
  if (goods_.empty()) return;
  Paise bought = dice_.vary(turnover_ / 100 * (100 - trade_.margin), 1);
  bought -= totalOf(Role::direct) + totalOf(Role::openingStock);
  for (const Goods& goods : goods_) bought += goods.closing;
  for (Ledger& ledger : ledgers_)
    if (ledger.role == Role::purchases) ledger.balance = dice_.vary(bought / 100 * ledger.rate, 1);
}

void Bookkeeper::writeDownAssets() {
  Paise lost = 0;
  for (Ledger& ledger : ledgers_) {
    if (ledger.role != Role::asset) continue;
    if (year_ == 0) ledger.first = ledger.balance = figure(ledger, 30);
    if (year_ > 0 && dice_.oneIn(3)) ledger.balance += dice_.vary(ledger.first / 3, 60);
    const Paise loss = roundTo(ledger.balance * depreciationRate(*ledger.group) / 100, rupees);
    ledger.balance -= loss;
    lost += loss;
  }
  the(Role::depreciation).balance = lost;
}

void Bookkeeper::chargeTax() {
  for (Ledger& ledger : ledgers_) {
    if (ledger.role == Role::taxCharge)
      ledger.balance = std::max<Paise>(0, profit() * ledger.rate / 100 / thousands * thousands);
    if (ledger.role == Role::taxDue) ledger.balance = -the(Role::taxCharge).balance;
  }
}

// The year balances through capital in the first year and through the bank in every other.
void Bookkeeper::balance() {
  Ledger& bank = the(Role::bank);
  bank.balance = 0;
  Paise rest = 0;
  for (const Ledger& ledger : ledgers_) rest += ledger.balance;
  if (year_ > 0)
    evenOutBank(-rest);
  else
    introduceCapital(-rest);
}

void Bookkeeper::introduceCapital(Paise needed) {
  Ledger& bank = the(Role::bank);
  bank.balance = figure(bank, 30);
  const Paise total = needed - bank.balance;
  Paise left = total;
  Ledger* last = nullptr;
  for (Ledger& ledger : ledgers_) {
    if (ledger.role != Role::owner) continue;
    ledger.balance = total / 100 * ledger.rate;
    left -= ledger.balance;
    last = &ledger;
  }
  last->balance += left;
}

// Money that the bank account has too much of repays the overdraft, then goes into a deposit; money
// that it lacks comes from the deposit, then from the overdraft.
void Bookkeeper::evenOutBank(Paise money) {
  Ledger& bank = the(Role::bank);
  Ledger& overdraft = the(Role::overdraft);
  Ledger& deposits = the(Role::deposits);
  const Paise least = figure(bank, 30) / 2;
  const Paise most = least * 4;
  if (money > most) {
    const Paise repaid = std::min(money - most, -overdraft.balance);
    overdraft.balance += repaid;
    const Paise saved = (money - repaid - most) / deposits.grain * deposits.grain;
    deposits.balance += saved;
    money -= repaid + saved;
  }
  if (money < least) {
    const Paise broken = std::min(roundTo(least - money, deposits.grain), deposits.balance);
    deposits.balance -= broken;
    const Paise drawn = std::max<Paise>(0, least - money - broken);
    overdraft.balance -= drawn;
    money += broken + drawn;
  }
  bank.balance = money;
}

// Customers and suppliers pass some paise to and fro until the totals agree also when they are
// added up in binary: the editor compares them without rounding, and a year just opened is to show
// no difference. A few dozen payments do; the bound is there for charts yet to be written.
void Bookkeeper::settlePaise() {
  std::vector<Ledger*> parties;
  for (Ledger& ledger : ledgers_)
    if (isParty(ledger) && ledger.balance != 0) parties.push_back(&ledger);
  Ledger& bank = the(Role::bank);
  for (int tries = 0; tries < 10'000 && !binaryTotalsAgree(ledgers_); ++tries) {
    Ledger& party = **(parties.begin() + dice_.below(std::ssize(parties)));
    const Paise paid = dice_.below(199) - 99;
    party.balance -= paid;
    bank.balance += paid;
  }
}

// The owners take over the profit and what they drew; opening stock becomes the stock just taken.
void Bookkeeper::close() {
  const Paise earned = profit();
  Paise left = earned;
  Ledger* owner = &the(Role::owner);
  for (Ledger& ledger : ledgers_) {
    if (ledger.role == Role::owner) {
      owner = &ledger;
      owner->balance -= earned / 100 * owner->rate;
      left -= earned / 100 * owner->rate;
    }
    if (ledger.role == Role::drawings) {
      owner->balance += ledger.balance;
      ledger.balance = 0;
    }
    if (ledger.nominal) ledger.balance = 0;
  }
  owner->balance -= left;
  auto next = goods_.begin();
  for (Ledger& ledger : ledgers_)
    if (ledger.role == Role::openingStock) ledger.balance = (next++)->closing;
}

YearBooks Bookkeeper::report() const {
  YearBooks books;
  books.firstYear = client_.firstYear + year_;
  for (const Ledger& ledger : ledgers_)
    if (ledger.balance != 0)
      books.lines.push_back({ledger.name, ledger.group->name, ledger.balance});
  for (const Goods& goods : goods_)
    books.stock.push_back({goods.stock->closing, goods.stock->closingGroup->name, goods.closing});
  return books;
}

Paise Bookkeeper::figure(const Ledger& ledger, long spread) {
  return ledger.side * roundTo(dice_.vary(turnover_ / kLakh * ledger.rate, spread), ledger.grain);
}

Paise Bookkeeper::totalOf(Role role) const {
  Paise total = 0;
  for (const Ledger& ledger : ledgers_)
    if (ledger.role == role) total += ledger.balance;
  return total;
}

Paise Bookkeeper::profit() const {
  Paise total = 0;
  for (const Goods& goods : goods_) total += goods.closing;
  for (const Ledger& ledger : ledgers_)
    if (ledger.nominal) total -= ledger.balance;
  return total;
}

Ledger& Bookkeeper::the(Role role) {
  return *std::find_if(ledgers_.begin(), ledgers_.end(),
                       [role](const Ledger& ledger) { return ledger.role == role; });
}

}  // namespace

std::vector<YearBooks> keepBooks(const SampleClient& client) {
  std::vector<YearBooks> years;
  if (client.years == 0) return years;
  Bookkeeper bookkeeper(client);
  for (long i = 0; i < client.years; ++i) years.push_back(bookkeeper.nextYear());
  if (client.latestEmpty) years.back() = {years.back().firstYear, {}, {}};
  return years;
}

}  // namespace quillet::suite::sample
