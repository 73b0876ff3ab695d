#include "books/voucher_contents.h"

#include <algorithm>

#include "books/journal.h"
#include "books/merged_groups.h"

namespace quillet {

VoucherContent contentOf(const Voucher& voucher) {
  VoucherContent content{voucher.date, voucher.narration, {}};
  for (const VoucherLine& line : voucher.lines) {
    content.lines.emplace_back(line.pair, line.balance());
  }
  std::sort(content.lines.begin(), content.lines.end());
  return content;
}

VoucherContents readVoucherContents(ServiceObject& host, const ClientTable& books,
                                    const std::string& from, const std::string& to) {
  const MergedGroups merged(host);
  std::map<long, Voucher> vouchers;
  Journal(host, books).eachRow(from, to, [&](Journal::Row row) {
    Voucher& voucher = vouchers[row.vid];
    if (voucher.lines.empty()) {
      voucher.date = host.convertdate(host.formatgen(row.date, "DD/MM/YYYY"));
      voucher.narration = std::move(row.narration);
    }
    row.line.pair.allId = merged.successor(row.line.pair.allId);
    voucher.lines.push_back(row.line);
  });
  VoucherContents contents;
  for (const auto& [vid, voucher] : vouchers) ++contents[contentOf(voucher)];
  return contents;
}

}  // namespace quillet
