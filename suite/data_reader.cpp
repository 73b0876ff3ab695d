#include "suite/data_reader.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "suite/data_files.h"

namespace quillet::suite {
namespace {

// The part before the separator, which is taken off the text.
std::string_view takeUpTo(char separator, std::string_view& text) {
  const std::string_view part = text.substr(0, text.find(separator));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return part;
}

std::vector<std::string_view> split(std::string_view line) {
  std::vector<std::string_view> fields;
  for (auto tabs = std::count(line.begin(), line.end(), '\t'); tabs >= 0; --tabs) {
    fields.push_back(takeUpTo('\t', line));
  }
  return fields;
}

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

}  // namespace

DataReader::DataReader(std::string_view file)
    : DataReader("suite/data/" + std::string(file), dataFile(file)) {}

DataReader::DataReader(std::string_view file, std::string_view text) : file_(file), rest_(text) {
  columns_ = nextFields();
}

bool DataReader::next() {
  fields_ = nextFields();
  if (!fields_.empty() && fields_.size() != columns_.size()) {
    fail("fields: " + std::to_string(fields_.size()) + " instead of " +
         std::to_string(columns_.size()));
  }
  return !fields_.empty();
}

std::vector<std::string_view> DataReader::nextFields() {
  while (!rest_.empty()) {
    const std::string_view line = takeUpTo('\n', rest_);
    ++line_;
    if (!line.starts_with('#')) return split(line);
  }
  return {};
}

bool DataReader::has(std::string_view column) const {
  return std::find(columns_.begin(), columns_.end(), column) != columns_.end();
}

std::string_view DataReader::field(std::string_view column) const {
  const auto found = std::find(columns_.begin(), columns_.end(), column);
  if (found == columns_.end()) fail("there is no column " + quoted(column));
  return *(fields_.begin() + (found - columns_.begin()));
}

long DataReader::number(std::string_view column) const {
  const std::string_view digits = field(column);
  long number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) {
    fail(quoted(column) + " is no number: " + quoted(digits));
  }
  return number;
}

void DataReader::refuse(std::string_view column) const {
  fail("there is no such " + std::string(column) + ": " + quoted(field(column)));
}

void DataReader::fail(const std::string& message) const {
  throw std::runtime_error(file_ + ", line " + std::to_string(line_) + ": " + message);
}

}  // namespace quillet::suite
