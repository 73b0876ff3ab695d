#include "support/child.h"

namespace quillet::support {

std::string inChild(const std::function<std::string()>& work) {
  return suite::runInChild([&] {
           try {
             return work();
           } catch (const std::exception& error) {
             return std::string("error: ") + error.what();
           }
         })
      .value_or("died");
}

Reporting::Reporting(const std::function<void(const Tell&)>& work)
    : child_([&](const suite::ChildProcess::Tell& tell) {
        work([&](const std::string& line) { tell(line + '\n'); });
      }) {}

std::string Reporting::next() {
  std::size_t end;
  while ((end = pending_.find('\n')) == std::string::npos) {
    const std::string more = child_.read();
    if (more.empty()) return {};
    pending_ += more;
  }
  std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  return line;
}

std::string Reporting::kill() {
  child_.kill();
  pending_ += child_.readAll();
  return pending_;
}

}  // namespace quillet::support
