#include "suite/bulk_insert.h"

namespace quillet::suite {

BulkInsert::BulkInsert(Database& database, std::string_view target)
    : database_(database), head_("insert into " + std::string(target) + " values ") {}

void BulkInsert::send() {
  if (rows_ == 0) return;
  database_.execute(sql_);
  sql_.clear();
  rows_ = 0;
}

void BulkInsert::add(std::string_view text) {
  sql_ += '\'';
  sql_ += database_.escape(std::string(text));
  sql_ += '\'';
}

}  // namespace quillet::suite
