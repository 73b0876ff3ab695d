#include "home/client_list.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <utility>

#include "data/names.h"

namespace quillet {
namespace {

std::vector<std::string> wordsOf(const std::string& text) {
  std::istringstream stream(nameKey(text));
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::size_t columnKeyed(std::string_view key) {
  const auto& columns = client_columns::all;
  return std::find_if(columns.begin(), columns.end(), [&](const auto& c) { return c.key == key; }) -
         columns.begin();
}

}  // namespace

bool ClientList::load(Recordset& rows) {
  std::array<int, client_columns::all.size()> fields{};
  for (std::size_t c = 0; c < fields.size(); ++c) {
    fields[c] = rows.column(client_columns::all[c].field);
  }
  std::vector<Client> clients;
  clients.reserve(rows.RecordCount());
  for (; !rows.EOF_(); rows.MoveNext()) {
    Client& client = clients.emplace_back();
    for (std::size_t c = 0; c < fields.size(); ++c) client[c] = rows.text(fields[c]);
  }
  if (clients == clients_) return false;
  clients_ = std::move(clients);
  capitals_ = clients_;
  for (Client& client : capitals_) {
    for (std::string& text : client) text = nameKey(text);
  }
  return true;
}

std::vector<std::size_t> ClientList::matching(const std::string& text,
                                              const std::vector<client_columns::Shown>& columns,
                                              const std::string& status,
                                              const std::string& group) const {
  static const std::size_t statusColumn = columnKeyed("status");
  static const std::size_t groupColumn = columnKeyed("group_code");
  const std::vector<std::string> words = wordsOf(text);
  const std::string statusKey = nameKey(status);
  const std::string groupKey = nameKey(group);
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < clients_.size(); ++i) {
    const auto holds = [&](const std::string& word) {
      return std::any_of(columns.begin(), columns.end(), [&](const client_columns::Shown& shown) {
        return capitals_[i][shown.column].find(word) != std::string::npos;
      });
    };
    if ((status.empty() || capitals_[i][statusColumn] == statusKey) &&
        (group.empty() || capitals_[i][groupColumn] == groupKey) &&
        std::all_of(words.begin(), words.end(), holds)) {
      found.push_back(i);
    }
  }
  return found;
}

std::vector<std::string> ClientList::values(std::size_t column) const {
  std::map<std::string, std::string> values;  // by key
  for (std::size_t i = 0; i < clients_.size(); ++i) {
    if (!capitals_[i][column].empty()) values.emplace(capitals_[i][column], clients_[i][column]);
  }
  std::vector<std::string> all;
  all.reserve(values.size());
  for (const auto& [key, value] : values) all.push_back(value);
  return all;
}

}  // namespace quillet
