// quillet.show, form, forms, today: opening and finding forms, setting the date.
#include <charconv>

#include "data/text.h"
#include "script/handle.h"
#include "script/quillet_library.h"
#include "script/session.h"

namespace quillet::script {
namespace {

Form& obtain(Forms& forms, const std::string& name) {
  const bool home = equalIgnoringCase(name, "third");
  if (!home && !equalIgnoringCase(name, "frmcrtb")) {
    throw Error("the host obtains 'third' or 'frmcrtb', not '" + name + "'");
  }
  if (Form* form = home ? forms.ObjThird() : forms.ObjCreate()) return *form;
  throw Error("the form " + name + " could not be made; see the error log");
}

int show(Call& call) {
  Form& form = obtain(call.session().practice.forms(), call.text(1));
  call.session().act([&] { form.show(); });
  pushForm(call.state(), form);
  return 1;
}

int form(Call& call) {
  const Form* found = call.session().openForms().find(call.text(1));
  if (found == nullptr) return call.nil();
  pushForm(call.state(), *found);
  return 1;
}

int forms(Call& call) {
  std::vector<std::string> names;
  for (const Form* open : call.session().openForms().open()) names.push_back(open->name());
  return call.give(names);
}

// "YYYY-MM-DD".
Date dateOf(const std::string& text) {
  Date date;
  const char* end = text.data() + text.size();
  const char* at = text.data();
  const auto number = [&](int& value, std::size_t digits, bool last) {
    const auto [stop, error] = std::from_chars(at, end, value);
    const bool right = error == std::errc() && stop - at == static_cast<long>(digits) &&
                       (last ? stop == end : stop != end && *stop == '-');
    at = right && !last ? stop + 1 : stop;
    return right;
  };
  const bool read =
      number(date.year, 4, false) && number(date.month, 2, false) && number(date.day, 2, true);
  if (!read || !exists(date)) {
    throw Error("'" + text + "' is no date of the form YYYY-MM-DD");
  }
  return date;
}

int today(Call& call) {
  call.session().clock.set(dateOf(call.text(1)));
  return call.none();
}

}  // namespace

void addFormFunctions(lua_State* state) {
  const luaL_Reg functions[] = {{"show", entry<show>},
                                {"form", entry<form>},
                                {"forms", entry<forms>},
                                {"today", entry<today>},
                                {nullptr, nullptr}};
  luaL_setfuncs(state, functions, 0);
}

}  // namespace quillet::script
