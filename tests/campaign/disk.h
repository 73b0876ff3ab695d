// What a campaign and the disk of the program that it torments tell each other, in memory that both
// map, so that it outlives the program.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace quillet::campaign {

// Numbers of operations count from 1 at the first act: each write, change of size or name, and sync
// of a file in the folder.
struct Disk {
  enum class Plan {
    work,         // like any other
    kill,         // the program dies after operation `at`
    failOnce,     // operation `at` fails with an I/O error
    failOnwards,  // it and all later ones
    full,         // from `at` on no file grows
  };
  Plan plan = Plan::work;
  std::int64_t at = 0;
  char folder[256] = {};  // the data folder, with a separator at its end
  char record[256] = {};  // the file that takes every operation from the start on; "" for none

  std::atomic<bool> begun = false;
  std::atomic<std::int64_t> microseconds = 0;  // that the acts took, without what is between them
  std::atomic<std::int64_t> operations = 0;
  std::atomic<std::int64_t> acknowledged = 0;  // acts
  std::atomic<std::int64_t> ofActs = 0;        // operations until the last of them
  std::atomic<std::int64_t> failed = 0;        // acts that were told to have failed
};

// An operation as it stands in the record, followed by the path below the folder and by `size`
// bytes that are written, or the new path.
struct Operation {
  enum Kind : std::uint32_t { write, sync, resize, create, rename, remove, begin, acknowledge };
  Kind kind;
  std::uint32_t path;  // its length
  std::int64_t offset;
  std::uint64_t size;
};

}  // namespace quillet::campaign
