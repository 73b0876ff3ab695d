// A data file that somebody damaged says where.
#include "suite/data_reader.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "suite/sample/chart.h"

namespace quillet::suite {
namespace {

constexpr char head[] = "# Ledgers\nkept by\tledger\tgroup\trole\trate\tmultiple of\n";

TEST(DataReader, ReadsFieldsByTheirColumn) {
  const auto read = sample::readAccounts(
      {"a.tsv", std::string(head) + "# more\nall\tRent\tRENT\tflow\t-30\tmonthly"});
  const sample::Account& rent = read.at("all").at(0);
  EXPECT_EQ(rent.ledger, "Rent");
  EXPECT_EQ(rent.group->name, "RENT");
  EXPECT_EQ(rent.role, sample::Role::flow);
  EXPECT_EQ(rent.rate, -30);
  EXPECT_EQ(rent.grain, sample::monthly);
}

TEST(DataReader, ADamagedFileIsNamedWithTheLine) {
  const struct {
    const char* row;
    const char* message;
  } cases[] = {
      {"all\tRent\tRENT\tflow\t30", "fields: 5 instead of 6"},
      {"all\tRent\tRENT\tflow\t30\tpaise\t", "fields: 7 instead of 6"},
      {"\nall\tRent\tRENT\tflow\t30\tpaise", "fields: 1 instead of 6"},
      {"all\tRent\tRents\tflow\t30\tpaise", "there is no such group: \"Rents\""},
      {"some\tRent\tRENT\tflow\t30\tpaise", "there is no such kept by: \"some\""},
      {"all\tRent\tRENT\tflows\t30\tpaise", "there is no such role: \"flows\""},
      {"all\tRent\tRENT\tflow\t30x\tpaise", "\"rate\" is no number: \"30x\""},
      {"all\tRent\tRENT\tflow\t\tpaise", "\"rate\" is no number: \"\""},
  };
  for (const auto& [row, message] : cases) {
    SCOPED_TRACE(row);
    const std::string text = std::string(head) + row;
    try {
      sample::readAccounts({"a.tsv", text});
      ADD_FAILURE() << "was taken";
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), "a.tsv, line 3: " + std::string(message));
    }
  }
  DataReader other("b.tsv", "id\n1\n");
  ASSERT_TRUE(other.next());
  EXPECT_THROW(other.text("name"), std::runtime_error);
}

}  // namespace
}  // namespace quillet::suite
