#include "host/loss_note.h"

#include <utility>

#include "books/locked_years.h"
#include "controls/open_forms.h"

namespace quillet {

void LossNote::see(const std::optional<YearLock>& lock, YearLocks* locks, const Form& form,
                   bool typed, const std::function<std::string()>& subject, const Tell& tell) {
  const bool had = std::exchange(had_, !lock);
  if (!had || !lock || locks == nullptr || !locks->shared()) return;
  if (typed || form.openForms().active() == &form) tell(lossText(subject(), *lock, typed));
}

}  // namespace quillet
