// The clients of the register in memory, and which of them a search leaves. Ten thousand are
// searched at each key without a query.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "data/client_columns.h"
#include "data/recordset.h"

namespace quillet {

class ClientList {
 public:
  using Client = std::array<std::string, client_columns::all.size()>;

  // Takes the rows of TempClTbl; true when they are not those that it had.
  bool load(Recordset& rows);

  // Which clients have every word of the text in one of the columns given, in capitals or not, and
  // the status and group, where these are not empty; positions in the order of the list.
  std::vector<std::size_t> matching(const std::string& text,
                                    const std::vector<client_columns::Shown>& columns,
                                    const std::string& status, const std::string& group) const;

  std::size_t size() const { return clients_.size(); }
  const Client& operator[](std::size_t position) const { return clients_[position]; }
  // The different values of a column, in order, without the empty one. What differs as little as
  // two names that are the same is one value.
  std::vector<std::string> values(std::size_t column) const;

 private:
  std::vector<Client> clients_;
  std::vector<Client> capitals_;
};

}  // namespace quillet
