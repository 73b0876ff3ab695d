// What a client's imports leave behind for the next one: how a sheet with these headings is read,
// which group was chosen for a name, which ledger a name stands for, and which files went into a
// year. It is kept by the host under the client's code.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "books/registry.h"
#include "ports/ports.h"

namespace quillet {

// Texts by key in the order in which they were kept, the last one at the end. As many of the last
// ones are kept as one value of the host takes.
class KeptTexts {
 public:
  explicit KeptTexts(const std::string& stored = {});

  // Nothing for a key that is not there.
  std::optional<std::string> find(const std::string& key) const;
  void keep(const std::string& key, const std::string& text);
  const std::vector<std::pair<std::string, std::string>>& all() const { return texts_; }
  std::string stored() const;

 private:
  std::vector<std::pair<std::string, std::string>> texts_;
};

class ImportMemory {
 public:
  ImportMemory(ServiceObject& host, std::string client, YearKeys year)
      : host_(host), client_(std::move(client)), year_(std::move(year)) {}

  // The text of the mapping for headings of that fingerprint, "" when there is none.
  std::string mapping(const std::string& headings) const;
  // Ids by nameKey; of ledgers and groups that may be gone by now, but for those that were merged
  // or replaced.
  std::unordered_map<std::string, long> groups() const;
  std::unordered_map<std::string, long> ledgers() const;
  // What was noted of the file when it was imported into the year; nothing when it was not.
  std::optional<std::string> imported(const std::string& file) const;

  // What one import adds to that.
  struct Additions {
    std::string headings;
    std::string mapping;
    std::vector<std::pair<std::string, long>> groups;   // by nameKey
    std::vector<std::pair<std::string, long>> ledgers;  // by nameKey
    std::string file;
    std::string note;
  };
  void keep(const Additions& additions);

 private:
  std::string keyOf(const char* what) const;
  std::string filesKey() const;
  KeptTexts read(const std::string& key) const;
  void write(const std::string& key, const KeptTexts& texts, const std::string& year = {});
  void keepIds(const char* what, const std::vector<std::pair<std::string, long>>& ids);

  ServiceObject& host_;
  std::string client_;
  YearKeys year_;
};

}  // namespace quillet
