#include "campaign/recording.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <stdexcept>

namespace quillet::campaign {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t sector = 512;

std::string take(std::ifstream& file, std::size_t size) {
  std::string text(size, '\0');
  file.read(text.data(), static_cast<std::streamsize>(size));
  return text;
}

void put(const fs::path& file, std::int64_t offset, std::string_view data) {
  const int fd = open(file.c_str(), O_WRONLY | O_CLOEXEC);
  if (fd < 0) return;  // its creation was lost
  const auto size = static_cast<ssize_t>(data.size());
  const bool written = pwrite(fd, data.data(), data.size(), offset) == size;
  close(fd);
  if (!written) throw std::runtime_error("cannot write " + file.string());
}

bool changesNames(const Operation& operation) {
  return operation.kind >= Operation::resize && operation.kind <= Operation::remove;
}

void changeNames(const fs::path& folder, const Operation& operation, const std::string& name,
                 const std::string& newName) {
  std::error_code ignored;
  switch (operation.kind) {
    case Operation::create:
      fs::create_directories((folder / name).parent_path(), ignored);
      std::ofstream(folder / name, std::ios::app);
      break;
    case Operation::resize:
      fs::resize_file(folder / name, static_cast<std::uintmax_t>(operation.offset), ignored);
      break;
    case Operation::rename:
      fs::rename(folder / name, folder / newName, ignored);
      break;
    case Operation::remove:
      fs::remove(folder / name, ignored);
      break;
    default:
      break;
  }
}

}  // namespace

Recording::Recording(const fs::path& record) {
  std::ifstream file(record, std::ios::binary);
  for (Operation head; file.read(reinterpret_cast<char*>(&head), sizeof head);) {
    Entry& entry = entries_.emplace_back(Entry{head, {}, {}});
    entry.name = take(file, head.path);
    entry.data = take(file, head.size);
    if (head.kind == Operation::begin && begun_ == 0) begun_ = entries_.size();
    if (head.kind == Operation::acknowledge) ended_ = entries_.size();
  }
  if (begun_ == 0 || ended_ == 0) throw std::runtime_error("nothing was recorded");
}

std::size_t Recording::acknowledgedBefore(std::size_t cut) const {
  return std::count_if(entries_.begin(), entries_.begin() + static_cast<long>(cut),
                       [](const Entry& entry) { return entry.kind == Operation::acknowledge; });
}

std::size_t Recording::openPageWrites(std::size_t cut) const {
  const std::vector<bool> durable = synchronised(cut);
  std::size_t count = 0;
  for (std::size_t i = 0; i < cut; ++i) {
    const Entry& entry = entries_[i];
    if (!durable[i] && entry.kind == Operation::write && entry.name.ends_with("ibdata1")) ++count;
  }
  return count;
}

// Whether each entry was followed by a sync that makes it last: of its file, for a name of the
// folder that it is in. Names and sizes last in their order.
std::vector<bool> Recording::synchronised(std::size_t cut) const {
  std::vector<bool> durable(cut);
  std::set<std::string> synced;
  bool names = false;
  for (std::size_t i = cut; i-- > 0;) {
    const Entry& entry = entries_[i];
    if (entry.kind == Operation::sync) synced.insert(entry.name);
    const bool itself = synced.contains(entry.name);
    if (entry.kind == Operation::write) {
      durable[i] = itself;
    } else if (changesNames(entry)) {
      const std::string parent = fs::path(entry.name).parent_path();
      names = names || (itself && entry.kind != Operation::remove) ||
              synced.contains(parent.empty() ? "." : parent);
      durable[i] = names;
    }
  }
  return durable;
}

void Recording::cut(const fs::path& folder, std::size_t cut, std::mt19937& random) const {
  const auto draw = [&](std::size_t count) { return random() % count; };
  const std::vector<bool> durable = synchronised(cut);
  std::size_t namesEnd = 0;
  while (namesEnd < cut && (durable[namesEnd] || !changesNames(entries_[namesEnd]))) ++namesEnd;
  namesEnd += draw(cut - namesEnd + 1);
  const std::size_t chance = draw(3);  // of an unsynchronised write: none, some, most are kept
  for (std::size_t i = 0; i < cut; ++i) {
    const Entry& entry = entries_[i];
    if (entry.kind != Operation::write) {
      if (i < namesEnd) changeNames(folder, entry, entry.name, entry.data);
    } else if (durable[i]) {
      put(folder / entry.name, entry.offset, entry.data);
    } else if (draw(3) < chance) {
      const bool torn = draw(2) == 0;
      for (std::size_t at = 0; at < entry.data.size(); at += sector) {
        if (torn && draw(2) == 0) continue;
        put(folder / entry.name, entry.offset + static_cast<std::int64_t>(at),
            std::string_view(entry.data).substr(at, sector));
      }
    }
  }
}

}  // namespace quillet::campaign
