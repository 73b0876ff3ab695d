#include "campaign/scene.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <new>
#include <numeric>
#include <set>
#include <sstream>
#include <stdexcept>

#include "suite/starter_data.h"
#include "support/child.h"

namespace quillet::campaign {
namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The documents stay the same files, and the others keep their times, by which the program knows
// them.
void copyFolder(const fs::path& from, const fs::path& to) {
  using options = fs::copy_options;
  fs::remove_all(to);
  fs::copy(from, to, options::recursive);
  fs::remove_all(to / "documents");
  fs::copy(from / "documents", to / "documents", options::recursive | options::create_hard_links);
  for (const auto& entry : fs::recursive_directory_iterator(from / "database")) {
    fs::last_write_time(to / entry.path().lexically_relative(from), entry.last_write_time());
  }
}

Disk* mapDisk(const fs::path& path) {
  const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  void* memory = MAP_FAILED;
  if (fd >= 0 && ftruncate(fd, sizeof(Disk)) == 0) {
    memory = mmap(nullptr, sizeof(Disk), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
  }
  if (fd >= 0) close(fd);
  if (memory == MAP_FAILED) throw std::runtime_error("no memory to share with the program");
  return static_cast<Disk*>(memory);
}

[[noreturn]] void become(const fs::path& data, const std::vector<std::string>& arguments,
                         bool watched, const fs::path& output) {
  const int file = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  dup2(file, STDOUT_FILENO);
  dup2(file, STDERR_FILENO);
  if (watched) {
    setenv("LD_PRELOAD", QUILLET_DISK_SHIM, 1);
    setenv("QUILLET_DISK", (data.parent_path() / "disk").c_str(), 1);
    setenv("QUILLET_DISK_SHIM", QUILLET_DISK_SHIM, 1);
  }
  std::vector<std::string> all{QUILLET_PROGRAM, "--data", data, "script", QUILLET_ACTS};
  all.insert(all.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& each : all) pointers.push_back(each.data());
  pointers.push_back(nullptr);
  execv(pointers.front(), pointers.data());
  _exit(127);
}

// Those of the one that the other has not.
std::string linesWithout(const std::string& all, const std::string& others) {
  std::multiset<std::string> there;
  std::istringstream other(others), one(all);
  for (std::string line; std::getline(other, line);) there.insert(line);
  std::string left;
  for (std::string line; std::getline(one, line);) {
    if (const auto at = there.find(line); at != there.end()) {
      there.erase(at);
    } else {
      left += "\n    " + line.substr(0, 120);
    }
  }
  return left;
}

}  // namespace

Run::Run(const fs::path& data, const std::vector<std::string>& arguments, Disk* watched)
    : output_(data.parent_path() / "said") {
  process_ = fork();
  if (process_ < 0) throw std::runtime_error("the program was not started");
  if (process_ == 0) become(data, arguments, watched != nullptr, output_);
}

int Run::wait() {
  if (process_ > 0) waitpid(process_, &status_, 0);
  process_ = -1;
  return status_;
}

void Run::kill() {
  if (process_ > 0) ::kill(process_, SIGKILL);
  wait();
}

std::string Run::said() const { return contents(output_); }

namespace {

void mustSucceed(Run&& program) {
  if (program.wait() != 0) throw std::runtime_error("the program failed: " + program.said());
}

// Few tables, so that a folder is copied and opened fast. Made once for all scenes.
const fs::path& arranged() {
  static const support::TemporaryFolder parent;
  static const fs::path path = parent.path() / "practice";
  if (fs::exists(path)) return path;
  const std::string outcome = support::inChild([&] {
    const suite::DataFolder folder = suite::DataFolder::create(path);
    suite::Settings(folder.settings()).set("Suite", "TableCount", "3");
    suite::QueuedDialogs dialogs;
    suite::HeadlessFrontEnd frontEnd(dialogs);
    suite::FixedClock clock;
    suite::Practice practice(folder, frontEnd, clock);
    suite::installStarterData(practice.database());
    return std::string("made");
  });
  if (outcome != "made") throw std::runtime_error("no practice was made: " + outcome);
  mustSucceed(Run(path, {"arrange"}, nullptr));
  return path;
}

}  // namespace

Scene::Scene(const std::string& scenario)
    : scenario_(scenario), disk_(mapDisk(work_.path() / "disk")) {
  fresh();
  const fs::path all = work_.path() / "books";
  fs::create_directory(all);
  const Disk& watch = disk(Disk::Plan::work);
  mustSucceed(std::move(*play({all})));
  operations_ = watch.operations;
  operationsOfActs_ = watch.ofActs;
  microseconds_ = watch.microseconds;
  for (std::size_t act = 0; act <= static_cast<std::size_t>(watch.acknowledged); ++act) {
    books_.push_back(contents(all / std::to_string(act)));
    if (act > 0 && books_[act] == books_[act - 1]) {
      throw std::runtime_error("act " + std::to_string(act) + " changes nothing");
    }
  }
}

fs::path Scene::fresh() {
  copyFolder(arranged(), folder());
  return folder();
}

Disk& Scene::disk(Disk::Plan plan, std::int64_t at, bool recorded) {
  new (disk_) Disk{.plan = plan, .at = at};
  std::strcpy(disk_->folder, (folder().string() + '/').c_str());
  fs::remove(record());
  if (recorded) std::strcpy(disk_->record, record().c_str());
  return *disk_;
}

std::unique_ptr<Run> Scene::play(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"play", scenario_});
  return std::make_unique<Run>(folder(), arguments, disk_);
}

std::string Scene::verdict(std::size_t acknowledged) {
  Run program(folder(), {"show"}, nullptr);
  const int status = program.wait();
  const std::string now = program.said();
  if (status != 0) return "the folder does not open: " + now;
  for (found_ = acknowledged; found_ < acknowledged + 2 && found_ < books_.size(); ++found_) {
    if (now == books_[found_]) return {};
  }
  const auto known = std::find(books_.begin(), books_.end(), now);
  if (known != books_.end()) {
    return "act " + std::to_string(acknowledged) +
           " was acknowledged, and the books are those of " +
           std::to_string(known - books_.begin());
  }
  return "half done after act " + std::to_string(acknowledged) + differences(now, acknowledged);
}

// Against the state before and the state after.
std::string Scene::differences(const std::string& now, std::size_t act) const {
  std::string text;
  for (std::size_t i = act; i < std::min(act + 2, books_.size()); ++i) {
    text += "\n  missing of act " + std::to_string(i) + ":" + linesWithout(books_[i], now) +
            "\n  more than act " + std::to_string(i) + ":" + linesWithout(now, books_[i]);
  }
  return text;
}

std::vector<unsigned> seeds(int usually) {
  const auto number = [](const char* name, int otherwise) {
    const char* text = std::getenv(name);
    return text ? std::atoi(text) : otherwise;
  };
  std::vector<unsigned> all(number("QUILLET_CAMPAIGN_RUNS", usually));
  std::iota(all.begin(), all.end(), number("QUILLET_CAMPAIGN_SEED", 1));
  return all;
}

}  // namespace quillet::campaign
