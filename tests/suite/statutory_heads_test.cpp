// The heads that groups are mapped to, and what a practice's own list does to them.
#include "suite/statutory_heads.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "support/practice.h"

namespace quillet::suite {
namespace {

using Texts = std::vector<std::string>;

constexpr char columns[] = "scheme\tid\tkind\tsection\theading\tname\tnote\trole\n";

std::string shown(const StatutoryHead& head) {
  return std::to_string(head.id) + ' ' + head.section + '/' + head.heading + '/' + head.name + ' ' +
         std::to_string(head.note);
}

TEST(StatutoryHeads, EachPartOfTheStarterListStandsInOnePiece) {
  std::set<std::string> begun;
  std::string part;
  std::multiset<HeadRole> roles;
  for (const StatutoryHead& head : starterHeads().heads) {
    const std::string here = std::to_string(static_cast<int>(head.scheme)) +
                             std::to_string(static_cast<int>(head.kind)) + head.section;
    EXPECT_TRUE(here == part || begun.insert(here).second) << shown(head);
    part = here;
    if (head.kind != HeadKind::asset) roles.insert(head.role);
  }
  for (const HeadRole role : {HeadRole::result, HeadRole::closingStock, HeadRole::rawMaterialStock})
    EXPECT_EQ(roles.count(role), 2U) << "one for each statement";
}

TEST(StatutoryHeads, APracticeChangesAndAddsHeads) {
  StatutoryHeadList list = starterHeads();
  const std::size_t before = list.heads.size();
  extendHeads(list, "own.tsv",
              std::string("\xEF\xBB\xBF") + columns +
                  "\r\nSchedule VI\t23\t\t\t\tBook debts\r\n"
                  "Schedule VI\t1000\tasset\tNon-current assets\tFixed assets\tLeased assets\t9\t\n"
                  "Schedule VI\t1\tliability\tOwner's funds\t\t\t\tresult");
  EXPECT_EQ(list.refused, Texts());
  EXPECT_EQ(list.heads.size(), before + 1);
  Texts found;
  for (std::size_t i = 0; i < list.heads.size(); ++i) {
    const StatutoryHead& head = list.heads[i];
    if (head.id != 23 && head.id != 1000 && head.role != HeadRole::result) continue;
    if (head.scheme == Scheme::schedule6)
      found.push_back(shown(list.heads[i - 1]) + ", " + shown(head));
  }
  EXPECT_EQ(found, (Texts{"12 Current liabilities//Short-term provisions 12, "
                          "1 Owner's funds//Share capital 1",
                          "16 Non-current assets/Fixed assets/Intangible assets under development "
                          "16, 1000 Non-current assets/Fixed assets/Leased assets 9",
                          "22 Current assets//Inventories 22, 23 Current assets//Book debts 23"}));
}

TEST(StatutoryHeads, ALineThatCannotBeTakenIsNamedAndTheOthersAre) {
  const std::string file = "own.tsv";
  const struct {
    std::string text, refused;
  } cases[] = {
      {"scheme\tid\nSchedule VI\t1", ": its first row does not name the column \"kind\"."},
      {"", ": its first row does not name the column \"scheme\"."},
      {std::string(columns) + "Income Tax\t1000\tasset\tS\t\tN\xFF\t\t",
       " is not in UTF-8. Please save it as a text in UTF-8."},
      {std::string(columns) + "Income Tax\t1000\tasset\tS\t\tName\t\t\t",
       ", line 2: fields: 9 instead of 8."},
      {std::string(columns) + "Income Tax\t1000\tasset\tS",
       ", line 2: a new head needs a section and a name."},
      {std::string(columns) + "Form 3CD\t1000\tasset\tS\t\tN\t\t",
       ", line 2: there is no such scheme: \"Form 3CD\"."},
      {std::string(columns) + "Income Tax\t-1\tasset\tS\t\tN\t\t",
       ", line 2: there is no such id: \"-1\"."},
      {std::string(columns) + "Income Tax\t1000\t\tS\t\tN\t\t",
       ", line 2: a new head needs a kind."},
      {std::string(columns) + "Income Tax\t1000\tasset\tS\t\t \t\t",
       ", line 2: a new head needs a section and a name."},
      {std::string(columns) + "Income Tax\t1000\tasset\tS\t\t" + std::string(101, 'n') + "\t\t",
       ", line 2: a name holds at most 100 characters."},
      {std::string(columns) + "Income Tax\t1000\tasset\tS\t\tcapital\t\t",
       ", line 2: the head 1 has the name \"capital\"."},
  };
  for (const auto& [text, refused] : cases) {
    SCOPED_TRACE(refused);
    const bool heading = text.starts_with(columns) && text.find('\xFF') == std::string::npos;
    StatutoryHeadList list;
    StatutoryHead capital;
    capital.id = 1;
    capital.scheme = Scheme::incomeTax;
    capital.name = "Capital";
    list.heads = {capital};
    extendHeads(list, file, text + (heading ? "\nIncome Tax\t2000\tasset\tS\t\tLand\t\t" : ""));
    EXPECT_EQ(list.refused, Texts{file + refused});
    EXPECT_EQ(list.heads.size(), heading ? 2U : 1U);
  }
}

TEST(StatutoryHeads, TheFileIsReadEachTime) {
  const support::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "statutory_heads.tsv";
  PracticeHeads heads(file);
  EXPECT_EQ(heads.read().refused, Texts());
  std::ofstream(file) << columns << "Schedule VI\t1000\tasset\tS\t\tN\t\t\n";
  EXPECT_NE(heads.read().find(Scheme::schedule6, 1000), nullptr);
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  EXPECT_EQ(heads.read().refused, Texts{"statutory_heads.tsv cannot be read."});
  EXPECT_EQ(heads.read().heads.size(), starterHeads().heads.size());
}

}  // namespace
}  // namespace quillet::suite
