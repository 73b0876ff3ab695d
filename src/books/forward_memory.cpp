#include "books/forward_memory.h"

#include <algorithm>
#include <charconv>

#include "books/import_memory.h"
#include "books/linked_ledgers.h"
#include "books/merged_groups.h"

namespace quillet {
namespace {

constexpr const char* forwardSection = "BringForward";
constexpr const char* headKey = "Year";
// So many lines go into one value of the host.
constexpr std::size_t linesInPart = 1500;

std::string textOf(LedgerGroup pair) {
  return std::to_string(pair.partId) + ':' + std::to_string(pair.allId);
}

std::int64_t numberIn(std::string_view text) {
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

LedgerGroup pairIn(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return {};
  return {static_cast<long>(numberIn(text.substr(0, colon))),
          static_cast<long>(numberIn(text.substr(colon + 1)))};
}

// The pair as the masters have it now; no ledger when one of the two is gone.
class KnownPairs {
 public:
  explicit KnownPairs(ServiceObject& host)
      : linked_(host), merged_(host), groups_(primaryGroups(host)) {}
  LedgerGroup operator()(std::string_view text) const {
    LedgerGroup pair = pairIn(text);
    pair.partId = linked_.successor(pair.partId);
    pair.allId = merged_.successor(pair.allId);
    return pair.partId != 0 && groups_.contains(pair.allId) ? pair : LedgerGroup{};
  }

 private:
  LinkedLedgers linked_;
  MergedGroups merged_;
  std::map<long, int> groups_;
};

}  // namespace

std::string ForwardMemory::keyOf(const std::string& what) const {
  return what + ' ' + client_ + ' ' + year_;
}

std::optional<BroughtForward> ForwardMemory::read() const {
  const KeptTexts kept(host_.GetMiscOthInf(forwardSection, keyOf(headKey), ""));
  const auto when = kept.find("when");
  if (!when) return std::nullopt;
  const KnownPairs known(host_);
  BroughtForward brought{.when = *when};
  brought.choices.keepsZero = kept.find("zero") == "1";
  brought.choices.stock = known(kept.find("stock").value_or(""));
  for (const auto& [key, text] : kept.all()) {
    if (!key.starts_with("share ")) continue;
    const LedgerGroup pair = known(std::string_view(key).substr(6));
    if (pair.partId == 0) continue;
    const auto millionths = static_cast<long>(numberIn(text));
    auto& shares = brought.choices.shares;
    // Two that shared may be one by now.
    const auto same = std::ranges::find(shares, pair, &ProfitShare::pair);
    if (same == shares.end()) {
      shares.push_back({.pair = pair, .millionths = millionths});
    } else {
      same->millionths += millionths;
    }
  }
  const auto parts = numberIn(kept.find("parts").value_or(""));
  for (std::int64_t part = 1; part <= parts; ++part) {
    const KeptTexts lines(
        host_.GetMiscOthInf(forwardSection, keyOf("Lines " + std::to_string(part)), ""));
    for (const auto& [key, text] : lines.all()) {
      const LedgerGroup pair = known(key);
      if (pair.partId != 0) brought.amounts[pair] += Money::ofPaise(numberIn(text));
    }
  }
  return brought;
}

void ForwardMemory::keep(const BroughtForward& brought) {
  KeptTexts kept;
  kept.keep("when", brought.when);
  kept.keep("zero", brought.choices.keepsZero ? "1" : "");
  kept.keep("stock", textOf(brought.choices.stock));
  for (const ProfitShare& share : brought.choices.shares) {
    kept.keep("share " + textOf(share.pair), std::to_string(share.millionths));
  }
  std::size_t part = 0;
  for (auto line = brought.amounts.begin(); line != brought.amounts.end();) {
    std::string lines;
    for (std::size_t in = 0; in < linesInPart && line != brought.amounts.end(); ++in, ++line) {
      lines += textOf(line->first) + '\t' + std::to_string(line->second.paise()) + '\n';
    }
    host_.SetMiscOthInf(forwardSection, keyOf("Lines " + std::to_string(++part)), lines, client_,
                        year_);
  }
  kept.keep("parts", std::to_string(part));
  host_.SetMiscOthInf(forwardSection, keyOf(headKey), kept.stored(), client_, year_);
}

void ForwardMemory::forget() {
  if (host_.GetMiscOthInf(forwardSection, keyOf(headKey), "").empty()) return;
  host_.SetMiscOthInf(forwardSection, keyOf(headKey), "", client_, year_);
}

}  // namespace quillet
