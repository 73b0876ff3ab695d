// The raw-material binding of one client's year, the client's rows of its RMGRP_ table: which
// account groups hold the opening stock, the purchases and the closing stock of each head, in an
// order that a person gives.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "books/registry.h"
#include "data/names.h"

namespace quillet {

// One value for each of the three account groups of an item.
template <class T>
using PerStockGroup = std::array<T, 3>;

struct BoundItem {
  long srNo = 0;
  long head = 0;
  PerStockGroup<long> groups{};  // opening stock, purchases, closing stock; 0 for none
  long order = 0;
};

class RawMaterialBinding {
 public:
  explicit RawMaterialBinding(ServiceObject& host) : host_(host) {}

  // The client's year in that trial-balance table, from now on.
  void open(const std::string& client, const std::string& table, const YearKeys& year);

  // Every item, in their order, or the one of that number.
  std::vector<BoundItem> items(long srNo = 0) const;
  // Whether another item than that has the group in the same place.
  bool isBound(int place, long group, long exceptSrNo) const;
  // The groups to choose from: those that the year's figures use, and those that are bound already.
  // One that is under another primary group by now, or gone, is named by its id.
  PerStockGroup<std::vector<NamedId>> choices() const;

  // The new item's number; it comes last. The flush after it is the caller's.
  long insert(const BoundItem& item);
  // The others flush.
  void update(const BoundItem& item);
  // Closes the gap in the order.
  void remove(const BoundItem& item);
  void setOrder(const std::vector<long>& srNos);

  // The previous year's table, "" when that has no items of the client.
  std::string importable() const;
  // Takes over its items, and its setup when this year has none.
  void importFrom(const std::string& previous);

 private:
  Sql ofClient() const { return " Where Code_No='" + client_ + "'"; }
  std::vector<BoundItem> read(const Sql& select) const;
  PerStockGroup<IdList> groupsInUse() const;
  long next(const Sql& column) const;
  void copySetup();

  ServiceObject& host_;
  std::string clientCode_;
  std::string trialBalance_;
  YearKeys year_;
  Sql client_;  // code_no as it stands between quotes
  Sql table_;
};

}  // namespace quillet
